#include "web/state_parts.h"

#include <cstring>

#include "console/json.h"
#include "engine/display.h"
#include "engine/memory_line_box.h"
#include "engine/vorstek_state.h"
#include "graph/vantor_plot.h"
#include "resources/calculator_ids.h"
#include "shell/face_geometry.h"
#include "web/picture_canvas.h"

static const size_t kLineRoom = 600;  // the longest listing line with its line end

static void PutBoolean(cJsonList *pObject, const char *szName, int bValue)
{
    pObject->Key(szName)->append(bValue ? "true" : "false");
}

// --- the face

static void PutRect(std::string *pJson, const cFaceRect &Rect)
{
    cJsonList Object(pJson, '{', '}');
    Object.Number("left", Rect.m_nLeft);
    Object.Number("top", Rect.m_nTop);
    Object.Number("width", Rect.m_nWidth);
    Object.Number("height", Rect.m_nHeight);
}

std::string FaceJson()
{
    std::string Json;
    {
        cJsonList Face(&Json, '{', '}');
        Face.Text("type", "ready");
        Face.Number("width", kFaceWidth);
        Face.Number("height", kFaceHeight);
        {
            cJsonList Keys(Face.Key("keys"), '[', ']');
            for (const cFaceRect &Rect : kKeyRects)
                PutRect(Keys.Next(), Rect);
        }
        {
            cJsonList Switches(Face.Key("switches"), '[', ']');
            for (const cFaceRect &Rect : kSwitchRects)
                PutRect(Switches.Next(), Rect);
        }
        {
            cJsonList Starts(Face.Key("switchStarts"), '[', ']');
            for (const int nStart : kSwitchStarts)
                AppendJsonNumber(Starts.Next(), static_cast<double>(nStart));
        }
        Face.Number("thumbWidth", kThumbWidth);
        PutRect(Face.Key("display"), kDisplayRect);
    }
    return Json;
}

// --- the calculator

std::string DisplayJson(const cDisplay &Display)
{
    std::string Json;
    {
        cJsonList Lines(&Json, '[', ']');
        for (int n = 0; n < Display.m_nLines; n++)
        {
            const cDisplayLine &Line = Display.m_Lines[n];
            cJsonList           Object(Lines.Next(), '{', '}');
            Object.Text("text", Line.m_szText);
            Object.Text("font", Line.m_nFont == dfLarge ? "large" : "small");
            Object.Number("left", Line.m_nLeft);
            Object.Number("top", Line.m_nTop);
        }
    }
    return Json;
}

std::string LampsJson(const cDisplay &Display)
{
    static const struct
    {
        const char *m_szName;
        eLamp       m_nLamp;
    } s_Lamps[] = {{"f", laF}, {"g", laG}, {"program", laProgram}, {"run", laRunning}};
    std::string Json;
    {
        cJsonList Object(&Json, '{', '}');
        for (const auto &Lamp : s_Lamps)
            PutBoolean(&Object, Lamp.m_szName, (Display.m_nLamps >> Lamp.m_nLamp & 1U) != 0);
    }
    return Json;
}

std::string BoxJson(const cMemoryLineBox &Box, int bShown)
{
    std::string Json;
    {
        cJsonList Object(&Json, '{', '}');
        {
            cJsonList Lines(Object.Key("lines"), '[', ']');
            for (unsigned nLine = 0; nLine < Box.CountLines(); nLine++)
            {
                char szLine[kLineRoom];
                Box.GetLine(nLine, szLine, sizeof szLine);
                AppendJsonText(Lines.Next(), {szLine, strcspn(szLine, "\r\n")});
            }
        }
        Object.Number("highlight", Box.HighlightedLine());
        PutBoolean(&Object, "shown", bShown);
    }
    return Json;
}

std::string StackJson(const cVorstekState &State)
{
    const struct
    {
        const char *m_szName;
        double      m_dValue;
    } Levels[] = {{"x", State.m_dX},
                  {"y", State.m_dY},
                  {"z", State.m_dZ},
                  {"t", State.m_dT},
                  {"lastx", State.m_dLastX}};
    std::string Json;
    {
        cJsonList Stack(&Json, '[', ']');
        for (const auto &Level : Levels)
        {
            cJsonList Object(Stack.Next(), '{', '}');
            Object.Text("name", Level.m_szName);
            Object.Number("value", Level.m_dValue);
        }
    }
    return Json;
}

std::string RegistersJson(const cVorstekState &State)
{
    std::string Json;
    {
        cJsonList Registers(&Json, '[', ']');
        for (const double dRegister : State.m_dReg)
            AppendJsonNumber(Registers.Next(), dRegister);
    }
    return Json;
}

std::string ModesJson(const cVorstekState &State)
{
    static const char *const s_Formats[] = {"FIX ", "SCI ", "ENG "};
    static const char *const s_Angles[]  = {"RAD", "DEG", "GRD"};
    std::string              Json;
    {
        cJsonList Object(&Json, '{', '}');
        PutBoolean(&Object, "running", State.m_bProgramRunning);
        PutBoolean(&Object, "programMode", State.m_bProgramMode);
        PutBoolean(&Object, "stackView", State.m_bShowStack);
        Object.Text("angle", s_Angles[State.m_nAngleMode]);
        Object.Text("format",
                    s_Formats[State.m_nDisplayMode] + std::to_string(State.m_nDisplayDigits));
        Object.Text("keystrokes", State.m_szKeystrokes);
        Object.Number("line", State.m_nCurLine);
    }
    return Json;
}

std::string FileJson(const cVorstekState &State, const std::string &StatusText)
{
    std::string Json;
    {
        cJsonList Object(&Json, '{', '}');
        Object.Text("name", State.m_szFileName);
        PutBoolean(&Object, "modified", State.m_bProgramModified);
        Object.Text("status", StatusText);
    }
    return Json;
}

std::string OptionsJson(const cVorstekState &State)
{
    std::string Json;
    {
        cJsonList Object(&Json, '{', '}');
        PutBoolean(&Object, "keepListing", State.m_bKeepListingOpen);
        PutBoolean(&Object, "keepRegisters", State.m_bKeepRegistersOpen);
        PutBoolean(&Object, "trace", State.m_bTrace);
        PutBoolean(&Object, "soundOff", State.m_bSoundOff);
    }
    return Json;
}

// clang-format off
static const struct
{
    unsigned    m_nId;
    const char *m_szName;
} s_Commands[] =
{
    { IDM_NEW,              "new"             }, { IDM_OPEN,       "open"      },
    { IDM_SAVE,             "save"            }, { IDM_SAVE_AS,    "saveAs"    },
    { IDM_REPAIR_HIGHLIGHT, "repairHighlight" }, { IDM_GRAPH,      "graph"     },
    { IDM_OPTIONS,          "options"         }, { IDM_EXIT,       "exit"      },
    { IDM_PAGE_SETUP,       "pageSetup"       }, { IDM_PRINT,      "print"     },
};
// clang-format on

std::string DisabledJson(const std::set<unsigned> &Disabled)
{
    std::string Json;
    {
        cJsonList Names(&Json, '[', ']');
        for (const auto &Row : s_Commands)
            if (Disabled.count(Row.m_nId))
                AppendJsonText(Names.Next(), Row.m_szName);
    }
    return Json;
}

// --- the graph

static void PutLine(const cVantorDataSet &Set, std::string *pJson)
{
    cJsonList Object(pJson, '{', '}');
    Object.Text("label", Set.m_pszLabel.get());
    Object.Number("type", Set.m_nGraphType);
    Object.Number("colour", TurnedColour(Set.m_crColor));
    Object.Number("width", Set.m_nWidth);
    Object.Number("style", Set.m_nStyle);
    AppendJsonNumber(Object.Key("multiplier"), Set.m_fMultiplier);
    AppendJsonNumber(Object.Key("offset"), Set.m_fOffset);
    Object.Number("points", Set.m_nPoints);
}

static void PutSettings(const cVantorPlotSettings &Settings, std::string *pJson)
{
    cJsonList Object(pJson, '{', '}');
    Object.Text("title", Settings.m_szTitle);
    Object.Text("label", Settings.m_szHorzLabel);
    Object.Number("xTicks", Settings.m_nHorzTicks);
    Object.Number("yTicks", Settings.m_nVertTicks);
    AppendJsonNumber(Object.Key("xMin"), Settings.m_fMinHorzTick);
    AppendJsonNumber(Object.Key("xMax"), Settings.m_fMaxHorzTick);
    AppendJsonNumber(Object.Key("yMin"), Settings.m_fMinVertTick);
    AppendJsonNumber(Object.Key("yMax"), Settings.m_fMaxVertTick);
    PutBoolean(&Object, "xGrid", static_cast<int>(Settings.m_bHorzGrid));
    PutBoolean(&Object, "yGrid", static_cast<int>(Settings.m_bVertGrid));
    PutBoolean(&Object, "legend", static_cast<int>(Settings.m_bLegend));
    Object.Number("axisColour", TurnedColour(Settings.m_crAxis));
    Object.Number("textColour", TurnedColour(Settings.m_crText));
    Object.Number("background", TurnedColour(Settings.m_crBackground));
}

std::string GraphJson(const cVantorPlot &Plot, int bShown)
{
    std::string Json;
    {
        cJsonList Object(&Json, '{', '}');
        PutBoolean(&Object, "shown", bShown);
        double dPoints = 0.0;
        {
            cJsonList Lines(Object.Key("lines"), '[', ']');
            for (uint32_t nLine = 1; nLine <= Plot.Count(); nLine++)
            {
                PutLine(*Plot.DataSet(nLine), Lines.Next());
                dPoints += Plot.DataSet(nLine)->m_nPoints;
            }
        }
        Object.Number("points", dPoints);
        PutSettings(Plot.Settings(), Object.Key("settings"));
        PutBoolean(&Object, "userRange", Plot.UserRange());
    }
    return Json;
}
