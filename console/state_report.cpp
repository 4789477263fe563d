#include "console/state_report.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "console/arguments.h"
#include "console/json.h"
#include "engine/display.h"
#include "engine/instruction.h"
#include "engine/listing_words.h"
#include "engine/vorstek_state.h"
#include "graph/vantor_data_set.h"

static const size_t kLineRoom = 600;  // the longest listing line with its line end

namespace
{

// What the state is made of.
struct cSource
{
    cHeadlessCalculator *m_pCalculator;
    const cHeadlessHost &m_Host;
    const cVorstekState &m_State;
};

}  // namespace

std::string DisplayedText(cVorstekEngine *pEngine)
{
    cDisplay Display;
    pEngine->ComposeDisplay(&Display);
    std::string Text = Display.m_Lines[0].m_szText;
    Text.erase(Text.find_last_not_of(' ') + 1);
    return Text;
}

std::string BoxLine(const cLineBox &Box, unsigned nLine)
{
    char szLine[kLineRoom];
    Box.GetLine(nLine, szLine, sizeof szLine);
    szLine[strcspn(szLine, "\r\n")] = 0;
    return szLine;
}

// --- stack and modes

static void AppendLevel(std::string *pJson, const char *szText, double dValue)
{
    cJsonList Level(pJson, '{', '}');
    Level.Text("text", szText);
    Level.Number("value", dValue);
}

void ReportStack(const cVorstekState &State, cJsonList *pObject)
{
    cJsonList Stack(pObject->Key("stack"), '[', ']');
    AppendLevel(Stack.Next(), State.m_szX, State.m_dX);
    AppendLevel(Stack.Next(), State.m_szY, State.m_dY);
    AppendLevel(Stack.Next(), State.m_szZ, State.m_dZ);
    AppendLevel(Stack.Next(), State.m_szT, State.m_dT);
}

std::string FormatText(const cVorstekState &State)
{
    static const char *const s_Formats[] = {"FIX", "SCI", "ENG"};
    char                     szFormat[8];
    snprintf(szFormat, sizeof szFormat, "%s %u", s_Formats[State.m_nDisplayMode],
             State.m_nDisplayDigits % 10);
    return szFormat;
}

std::string AngleText(const cVorstekState &State)
{
    static const char *const s_Angles[] = {"RAD", "DEG", "GRD"};
    return s_Angles[State.m_nAngleMode];
}

static void ReportFormat(const cVorstekState &State, cJsonList *pObject)
{
    pObject->Text("format", FormatText(State).c_str());
}

static void ReportAngle(const cVorstekState &State, cJsonList *pObject)
{
    pObject->Text("angle", AngleText(State).c_str());
}

void ReportModes(const cVorstekState &State, cJsonList *pObject)
{
    pObject->Number("stack_lift", State.m_bStackLift);
    ReportFormat(State, pObject);
    ReportAngle(State, pObject);
}

static void ReportRegisters(const cVorstekState &State, cJsonList *pObject)
{
    cJsonList Registers(pObject->Key("reg"), '[', ']');
    for (const double dRegister : State.m_dReg)
        AppendJsonNumber(Registers.Next(), dRegister);
}

// --- program

static void ReportReturns(const cVorstekState &State, cJsonList *pObject)
{
    cJsonList Returns(pObject->Key("returns"), '[', ']');
    for (unsigned i = 0; i < State.m_nReturnDepth; i++)
        AppendJsonNumber(Returns.Next(), static_cast<double>(State.m_nReturnAddr[i]));
}

static void ReportProgram(const cVorstekState &State, cJsonList *pObject)
{
    cJsonList Program(pObject->Key("program"), '[', ']');
    for (const ProgramLine &Line : State.m_Program)
    {
        char szText[kStepText];
        PrintStep(Line, szText);
        AppendJsonText(Program.Next(), szText);
    }
}

// --- boxes and options

static void ReportBox(const cLineBox &Box, const char *szKey, cJsonList *pObject)
{
    cJsonList      Lines(pObject->Key(szKey), '[', ']');
    const unsigned nLines = Box.CountLines();
    for (unsigned nLine = 0; nLine < nLines; nLine++)
        AppendJsonText(Lines.Next(), BoxLine(Box, nLine));
}

static void ReportOptions(const cVorstekState &State, cJsonList *pObject)
{
    cJsonList Options(pObject->Key("options"), '{', '}');
    Options.Number("sound", !State.m_bSoundOff);
    Options.Number("trace", State.m_bTrace);
    Options.Number("keep_listing", State.m_bKeepListingOpen);
    Options.Number("keep_registers", State.m_bKeepRegistersOpen);
}

// --- graph

static void ReportValues(const float *pValues, unsigned nValues, const char *szKey,
                         cJsonList *pObject)
{
    std::string *const pJson = pObject->Key(szKey);
    if (!pValues)
    {
        pJson->append("null");
        return;
    }
    cJsonList Values(pJson, '[', ']');
    for (unsigned i = 0; i < nValues; i++)
        AppendJsonNumber(Values.Next(), pValues[i]);
}

static void ReportDataSet(const cVantorDataSet &Set, std::string *pJson)
{
    cJsonList Object(pJson, '{', '}');
    Object.Text("label", Set.m_pszLabel.get());
    Object.Number("type", Set.m_nGraphType);
    Object.Number("color", Set.m_crColor);
    Object.Number("width", Set.m_nWidth);
    Object.Number("style", Set.m_nStyle);
    AppendJsonNumber(Object.Key("multiplier"), Set.m_fMultiplier);
    AppendJsonNumber(Object.Key("offset"), Set.m_fOffset);
    ReportValues(Set.m_pX.get(), Set.m_nPoints, "x", &Object);
    ReportValues(Set.m_pY.get(), Set.m_nPoints, "y", &Object);
}

static void ReportGraph(const cVantorPlot &Plot, cJsonList *pObject)
{
    cJsonList Sets(pObject->Key("graph"), '[', ']');
    for (unsigned nLine = 1; nLine <= Plot.Count(); nLine++)
        ReportDataSet(*Plot.DataSet(nLine), Sets.Next());
}

// --- the parts in their order

namespace
{

struct cPart
{
    const char *m_szKey;
    void (*m_pReport)(const cSource &Source, cJsonList *pObject);
};

}  // namespace

// A part that is a function of the state alone.
template <void (*pReport)(const cVorstekState &State, cJsonList *pObject)>
static void OfState(const cSource &Source, cJsonList *pObject)
{
    pReport(Source.m_State, pObject);
}

// clang-format off
#define TEXT(key, value)   { key, [](const cSource &From, cJsonList *pObject) { pObject->Text(key, value); } }
#define NUMBER(key, value) { key, [](const cSource &From, cJsonList *pObject) { pObject->Number(key, value); } }

static const cPart s_Parts[] =
{
    TEXT("mode",               From.m_State.m_bProgramMode ? "program" : "run"),
    TEXT("display",            DisplayedText(&From.m_pCalculator->m_Engine)),
    { "stack",                 OfState<ReportStack> },
    NUMBER("lastx",            From.m_State.m_dLastX),
    { "reg",                   OfState<ReportRegisters> },
    NUMBER("stack_lift",       From.m_State.m_bStackLift),
    { "format",                OfState<ReportFormat> },
    { "angle",                 OfState<ReportAngle> },
    TEXT("entry",              From.m_State.m_szEntry),
    TEXT("exponent",           From.m_State.m_szExponent),
    TEXT("keystrokes",         From.m_State.m_szKeystrokes),
    TEXT("last_op",            From.m_State.m_szLastOp),
    TEXT("saved_last_op",      From.m_State.m_szSavedLastOp),
    NUMBER("show_stack",       From.m_State.m_bShowStack),
    NUMBER("modified",         From.m_State.m_bProgramModified),
    NUMBER("line",             From.m_State.m_nCurLine),
    { "returns",               OfState<ReportReturns> },
    TEXT("file",               From.m_State.m_szFileName),
    { "program",               OfState<ReportProgram> },
    { "listing",               [](const cSource &From, cJsonList *pObject) { ReportBox(From.m_pCalculator->m_Listing, "listing", pObject); } },
    NUMBER("highlight",        From.m_pCalculator->m_Listing.HighlightedLine()),
    { "registers",             [](const cSource &From, cJsonList *pObject) { ReportBox(From.m_pCalculator->m_Registers, "registers", pObject); } },
    NUMBER("listing_shown",    From.m_Host.m_bListingShown),
    NUMBER("registers_shown",  From.m_Host.m_bRegistersShown),
    NUMBER("graph_shown",      From.m_Host.m_bGraphShown),
    { "options",               OfState<ReportOptions> },
    NUMBER("switch_pending",   From.m_State.m_bSwitchToProgramPending),
    NUMBER("graph_line",       From.m_State.m_nGraphLine),
    TEXT("graph_title",        From.m_Host.m_Plot.Settings().m_szTitle),
    TEXT("graph_label",        From.m_Host.m_Plot.Settings().m_szHorzLabel),
    { "graph",                 [](const cSource &From, cJsonList *pObject) { ReportGraph(From.m_Host.m_Plot, pObject); } },
};

#undef TEXT
#undef NUMBER
// clang-format on

void ReportState(cHeadlessCalculator *pCalculator, const cHeadlessHost &Host, cJsonList *pObject)
{
    pCalculator->m_Engine.RefreshViews();
    const cSource Source = {pCalculator, Host, pCalculator->m_Engine.State()};
    for (const cPart &Part : s_Parts)
        Part.m_pReport(Source, pObject);
}

// "x" to "t"; 0 if it is no level.
static int ReportLevel(const cVorstekState &State, const std::string &Name, cJsonList *pObject)
{
    const struct
    {
        const char *m_szName;
        const char *m_szText;
        double      m_dValue;
    } Levels[] = {{"x", State.m_szX, State.m_dX},
                  {"y", State.m_szY, State.m_dY},
                  {"z", State.m_szZ, State.m_dZ},
                  {"t", State.m_szT, State.m_dT}};
    for (const auto &Row : Levels)
        if (Name == Row.m_szName)
        {
            AppendLevel(pObject->Key(Name), Row.m_szText, Row.m_dValue);
            return 1;
        }
    return 0;
}

// "reg.5"; 0 if it is no register.
static int ReportRegister(const cVorstekState &State, const std::string &Name, cJsonList *pObject)
{
    static const std::string s_Prefix = "reg.";
    uint64_t                 nRegister;
    if (!Name.starts_with(s_Prefix) ||
        !ParseWholeNumber(Name.substr(s_Prefix.size()), &nRegister) || nRegister >= kRegisters)
        return 0;
    AppendJsonNumber(pObject->Key(Name), State.m_dReg[nRegister]);
    return 1;
}

int ReportStatePart(const std::string &Name, cHeadlessCalculator *pCalculator,
                    const cHeadlessHost &Host, cJsonList *pObject)
{
    pCalculator->m_Engine.RefreshViews();
    const cVorstekState &State = pCalculator->m_Engine.State();
    if (ReportLevel(State, Name, pObject) || ReportRegister(State, Name, pObject))
        return 1;
    const auto *const pPart = std::find_if(std::begin(s_Parts), std::end(s_Parts),
                                           [&](const cPart &Part) { return Name == Part.m_szKey; });
    if (pPart == std::end(s_Parts))
        return 0;
    pPart->m_pReport({pCalculator, Host, State}, pObject);
    return 1;
}

unsigned EndOfComments(unsigned nLine, const cVorstekState &State, const cMemoryLineBox &Listing)
{
    return nLine < kLastLine ? State.m_Program[nLine + 1].m_nListingLine : Listing.CountLines();
}

static int IsRunStop(const ProgramLine &Line)
{
    return Line.m_pInstruction && Line.m_pInstruction->m_nRole == rlStop;
}

unsigned LastUsedLine(const cVorstekState &State, const cMemoryLineBox &Listing)
{
    unsigned nLast = kLastLine;
    while (nLast > 0 && IsRunStop(State.m_Program[nLast]) &&
           EndOfComments(nLast, State, Listing) == State.m_Program[nLast].m_nListingLine + 1)
        nLast--;
    return nLast;
}
