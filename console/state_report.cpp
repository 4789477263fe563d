#include "console/state_report.h"

#include <cstdio>
#include <cstring>

#include "console/json.h"
#include "engine/display.h"
#include "engine/listing_words.h"
#include "engine/vorstek_state.h"
#include "graph/vantor_data_set.h"

static const size_t kLineRoom = 600;  // the longest listing line with its line end

std::string DisplayedText(cVorstekEngine *pEngine)
{
    cDisplay Display;
    pEngine->ComposeDisplay(&Display);
    std::string Text = Display.m_Lines[0].m_szText;
    Text.erase(Text.find_last_not_of(' ') + 1);
    return Text;
}

static void ReportLevel(cJsonList *pStack, const char *szText, double dValue)
{
    cJsonList Level(pStack->Next(), '{', '}');
    Level.Text("text", szText);
    Level.Number("value", dValue);
}

void ReportStack(const cVorstekState &State, cJsonList *pObject)
{
    cJsonList Stack(pObject->Key("stack"), '[', ']');
    ReportLevel(&Stack, State.m_szX, State.m_dX);
    ReportLevel(&Stack, State.m_szY, State.m_dY);
    ReportLevel(&Stack, State.m_szZ, State.m_dZ);
    ReportLevel(&Stack, State.m_szT, State.m_dT);
}

void ReportModes(const cVorstekState &State, cJsonList *pObject)
{
    static const char *const s_Formats[] = {"FIX", "SCI", "ENG"};
    static const char *const s_Angles[]  = {"RAD", "DEG", "GRD"};
    char                     szFormat[8];
    snprintf(szFormat, sizeof szFormat, "%s %u", s_Formats[State.m_nDisplayMode],
             State.m_nDisplayDigits % 10);
    pObject->Number("stack_lift", State.m_bStackLift);
    pObject->Text("format", szFormat);
    pObject->Text("angle", s_Angles[State.m_nAngleMode]);
}

static void ReportKeys(const cVorstekState &State, cJsonList *pObject)
{
    pObject->Text("entry", State.m_szEntry);
    pObject->Text("exponent", State.m_szExponent);
    pObject->Text("keystrokes", State.m_szKeystrokes);
    pObject->Text("last_op", State.m_szLastOp);
    pObject->Text("saved_last_op", State.m_szSavedLastOp);
    pObject->Number("show_stack", State.m_bShowStack);
    pObject->Number("modified", State.m_bProgramModified);
}

static void ReportProgram(const cVorstekState &State, cJsonList *pObject)
{
    pObject->Number("line", State.m_nCurLine);
    {
        cJsonList Returns(pObject->Key("returns"), '[', ']');
        for (unsigned i = 0; i < State.m_nReturnDepth; i++)
            AppendJsonNumber(Returns.Next(), static_cast<double>(State.m_nReturnAddr[i]));
    }
    pObject->Text("file", State.m_szFileName);
    cJsonList Program(pObject->Key("program"), '[', ']');
    for (const ProgramLine &Line : State.m_Program)
    {
        char szText[kStepText];
        PrintStep(Line, szText);
        AppendJsonText(Program.Next(), szText);
    }
}

static void ReportBox(const cLineBox &Box, const char *szKey, cJsonList *pObject)
{
    cJsonList      Lines(pObject->Key(szKey), '[', ']');
    const unsigned nLines = Box.CountLines();
    for (unsigned nLine = 0; nLine < nLines; nLine++)
    {
        char szLine[kLineRoom];
        Box.GetLine(nLine, szLine, sizeof szLine);
        szLine[strlen(szLine) - strlen("\r\n")] = 0;
        AppendJsonText(Lines.Next(), szLine);
    }
}

static void ReportOptions(const cVorstekState &State, cJsonList *pObject)
{
    cJsonList Options(pObject->Key("options"), '{', '}');
    Options.Number("sound", !State.m_bSoundOff);
    Options.Number("trace", State.m_bTrace);
    Options.Number("keep_listing", State.m_bKeepListingOpen);
    Options.Number("keep_registers", State.m_bKeepRegistersOpen);
}

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

static void ReportGraph(const cVorstekState &State, const cVantorPlot &Plot, cJsonList *pObject)
{
    pObject->Number("graph_line", State.m_nGraphLine);
    pObject->Text("graph_title", Plot.Settings().m_szTitle);
    pObject->Text("graph_label", Plot.Settings().m_szHorzLabel);
    cJsonList Sets(pObject->Key("graph"), '[', ']');
    for (unsigned nLine = 1; nLine <= Plot.Count(); nLine++)
        ReportDataSet(*Plot.DataSet(nLine), Sets.Next());
}

void ReportState(cHeadlessCalculator *pCalculator, const cHeadlessHost &Host, cJsonList *pObject)
{
    cVorstekEngine *const pEngine = &pCalculator->m_Engine;
    pEngine->RefreshViews();
    const std::string    Display = DisplayedText(pEngine);
    const cVorstekState &State   = pEngine->State();

    pObject->Text("mode", State.m_bProgramMode ? "program" : "run");
    pObject->Text("display", Display);
    ReportStack(State, pObject);
    pObject->Number("lastx", State.m_dLastX);
    {
        cJsonList Registers(pObject->Key("reg"), '[', ']');
        for (const double dRegister : State.m_dReg)
            AppendJsonNumber(Registers.Next(), dRegister);
    }
    ReportModes(State, pObject);
    ReportKeys(State, pObject);
    ReportProgram(State, pObject);
    ReportBox(pCalculator->m_Listing, "listing", pObject);
    pObject->Number("highlight", pCalculator->m_Listing.HighlightedLine());
    ReportBox(pCalculator->m_Registers, "registers", pObject);
    pObject->Number("listing_shown", Host.m_bListingShown);
    pObject->Number("registers_shown", Host.m_bRegistersShown);
    pObject->Number("graph_shown", Host.m_bGraphShown);
    ReportOptions(State, pObject);
    pObject->Number("switch_pending", State.m_bSwitchToProgramPending);
    ReportGraph(State, Host.m_Plot, pObject);
}
