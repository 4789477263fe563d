#include "web/web_calculator.h"

#include <algorithm>
#include <charconv>

#include "console/json.h"
#include "engine/decimal.h"
#include "engine/display.h"
#include "engine/vorstek_state.h"
#include "graph/vantor_data_set.h"
#include "web/state_parts.h"
#include "web/worker_calls.h"

// clang-format off
const cWebCalculator::cRequestRow cWebCalculator::s_Requests[] =
{
    { "key",           1, &cWebCalculator::OnKey           },
    { "char",          1, &cWebCalculator::OnChar          },
    { "halt",          1, &cWebCalculator::OnHalt          },
    { "new",           0, &cWebCalculator::OnNew           },
    { "open",          0, &cWebCalculator::OnOpen          },
    { "openFile",      0, &cWebCalculator::OnOpenFile      },
    { "save",          1, &cWebCalculator::OnSave          },
    { "saveAs",        1, &cWebCalculator::OnSaveAs        },
    { "repair",        1, &cWebCalculator::OnRepair        },
    { "options",       0, &cWebCalculator::OnOptions       },
    { "listing",       1, &cWebCalculator::OnListing       },
    { "perform",       0, &cWebCalculator::OnPerform       },
    { "restore",       0, &cWebCalculator::OnRestore       },
    { "view",          1, &cWebCalculator::OnView          },
    { "showGraph",     1, &cWebCalculator::OnShowGraph     },
    { "readout",       1, &cWebCalculator::OnReadout       },
    { "graphSvg",      0, &cWebCalculator::OnGraphSvg      },
    { "openGraph",     0, &cWebCalculator::OnOpenGraph     },
    { "appendGraph",   0, &cWebCalculator::OnAppendGraph   },
    { "saveGraph",     1, &cWebCalculator::OnSaveGraph     },
    { "setGraph",      0, &cWebCalculator::OnSetGraph      },
    { "graphTitle",    0, &cWebCalculator::OnGraphTitle    },
    { "graphGrid",     0, &cWebCalculator::OnGraphGrid     },
    { "graphLegend",   0, &cWebCalculator::OnGraphLegend   },
    { "autoRange",     0, &cWebCalculator::OnAutoRange     },
    { "clearGraph",    0, &cWebCalculator::OnClearGraph    },
    { "formatLine",    0, &cWebCalculator::OnFormatLine    },
    { "deleteLine",    0, &cWebCalculator::OnDeleteLine    },
    { "linePoints",    0, &cWebCalculator::OnLinePoints    },
    { "addLine",       0, &cWebCalculator::OnAddLine       },
    { "replacePoints", 0, &cWebCalculator::OnReplacePoints },
};
// clang-format on

// --- requests

unsigned cRequest::Number(size_t nWord) const
{
    unsigned nValue = 0;
    if (nWord < m_Words.size())
        std::from_chars(m_Words[nWord].data(), m_Words[nWord].data() + m_Words[nWord].size(),
                        nValue);
    return nValue;
}

double cRequest::Value(size_t nWord) const
{
    double dValue = 0.0;
    return nWord < m_Words.size() && ParseDecimal(m_Words[nWord].c_str(), &dValue) ? dValue : 0.0;
}

float cRequest::Float(size_t nWord) const
{
    return NarrowToFloat(Value(nWord));
}

static std::vector<std::string> WordsOf(const std::string &Line)
{
    std::vector<std::string> Words;
    for (size_t nAt = 0; nAt < Line.size();)
    {
        const size_t nEnd = std::min(Line.find(' ', nAt), Line.size());
        Words.push_back(Line.substr(nAt, nEnd - nAt));
        nAt = nEnd + 1;
    }
    return Words;
}

int cWebCalculator::TakeRequest(cRequest *pRequest) const
{
    const int nLength = RequestLength();
    if (nLength < 0)
        return 0;
    std::string Text(static_cast<size_t>(nLength), '\0');
    ::TakeRequest(Text.data());
    const size_t nLine = std::min(Text.find('\n'), Text.size());
    auto         Words = WordsOf(Text.substr(0, nLine));
    Words.resize(std::max<size_t>(Words.size(), 2));
    pRequest->m_Id   = Words[0];
    pRequest->m_Name = Words[1];
    pRequest->m_Words.assign(Words.begin() + 2, Words.end());
    pRequest->m_Body = nLine < Text.size() ? Text.substr(nLine + 1) : "";
    return 1;
}

void cWebCalculator::Perform(const cRequest &Request)
{
    std::string Value;
    int         bDone = 0;
    for (const cRequestRow &Row : s_Requests)
        if (Request.m_Name == Row.m_szName && (Row.m_bWhileRunning || !m_Engine.IsRunning()))
            bDone = (this->*Row.m_pHandler)(Request, &Value);
    m_Host.ShowInformed();
    Publish();
    PublishKept();
    if (Request.m_Id == "0")
        return;
    std::string Json = R"({"type":"done","id":)" + Request.m_Id + R"(,"ok":)";
    Json += bDone ? "true" : "false";
    if (!Value.empty())
        Json += ",\"value\":" + Value;
    Json += "}";
    PostEvent(Json.data(), Json.size());
}

void cWebCalculator::Serve()
{
    const int bInRun = m_Engine.IsRunning();
    cRequest  Request;
    while ((!bInRun || m_Engine.IsRunning()) && TakeRequest(&Request))
        Perform(Request);
}

// --- state

static ssize_t KeepTrace(void *pText, const char *pBuffer, size_t nSize)
{
    static_cast<std::string *>(pText)->append(pBuffer, nSize);
    return static_cast<ssize_t>(nSize);
}

cWebCalculator::cWebCalculator() : m_Engine(&m_Host, &m_Listing, &m_Registers), m_bKeptStale(0)
{
    m_pTrace          = fopencookie(&m_Trace, "w", {nullptr, KeepTrace, nullptr, nullptr});
    m_Host.m_pPublish = [this] { Publish(); };
    m_Host.m_pServe   = [this] { Serve(); };
    m_Host.m_pIsInRun = [this] { return m_Engine.IsInRun(); };
    m_Engine.SetTraceStream(m_pTrace);
}

void cWebCalculator::Start()
{
    const std::string Face = FaceJson();
    PostEvent(Face.data(), Face.size());
    m_Engine.Start();
    Publish();
}

void cWebCalculator::PublishTrace()
{
    if (m_pTrace)
        fflush(m_pTrace);
    if (m_Trace.empty())
        return;
    std::string Json;
    {
        cJsonList Object(&Json, '{', '}');
        Object.Text("type", "trace");
        Object.Text("text", m_Trace);
    }
    m_Trace.clear();
    PostEvent(Json.data(), Json.size());
}

// Only the parts that differ from those that were sent last.
void cWebCalculator::Publish()
{
    m_Engine.RefreshViews();
    const cVorstekState &State = m_Engine.State();
    cDisplay             Display;
    m_Engine.ComposeDisplay(&Display);

    const std::pair<const char *, std::string> Parts[] = {
        {"display", DisplayJson(Display)},
        {"lamps", LampsJson(Display)},
        {"listing", BoxJson(m_Listing, m_Host.m_bListingShown)},
        {"registers", BoxJson(m_Registers, m_Host.m_bRegistersShown)},
        {"stack", StackJson(State)},
        {"registerValues", RegistersJson(State)},
        {"modes", ModesJson(State)},
        {"file", FileJson(State, m_Host.m_StatusText)},
        {"options", OptionsJson(State)},
        {"disabled", DisabledJson(m_Host.m_Disabled)},
        {"graph", GraphJson(m_Host.m_Plot, m_Host.m_bGraphShown)},
    };
    std::string Changed;
    for (const auto &[szName, Json] : Parts)
        if (std::string &Last = m_Published[szName]; Last != Json)
        {
            Changed += std::string(",\"") + szName + "\":" + Json;
            Last = Json;
        }
    PublishTrace();
    m_Host.m_Plot.Publish();
    if (Changed.empty())
        return;
    m_bKeptStale            = 1;
    const std::string Event = "{\"type\":\"state\"" + Changed + "}";
    PostEvent(Event.data(), Event.size());
}

// After each request that has changed something, so that the page can be closed at any
// time. A run is kept when it has ended.
void cWebCalculator::PublishKept()
{
    if (!m_bKeptStale || m_Engine.IsRunning())
        return;
    m_bKeptStale = 0;
    std::string Json;
    {
        cJsonList Object(&Json, '{', '}');
        Object.Text("type", "kept");
        Object.Text("text", KeptText());
    }
    PostEvent(Json.data(), Json.size());
}
