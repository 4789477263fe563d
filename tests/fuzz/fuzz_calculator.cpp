#include "tests/fuzz/fuzz_calculator.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iterator>

#include "console/json.h"
#include "console/state_report.h"
#include "engine/key_codes.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/strict_json.h"

// Codes of the interpreter of keys: a press of key 33, a release without a press, a
// mode switch that is moved to where it is. A face with a mouse cannot cause them.
static int IsAboutKeys(unsigned nCode)
{
    static const unsigned s_Codes[] = {101, 107, 108, 120, 121, 122, 123, 124, 126};
    return std::find(std::begin(s_Codes), std::end(s_Codes), nCode) != std::end(s_Codes);
}

eAnswer cFuzzHost::Ask(const char *szText, const char *, eButtons nButtons, eIcon)
{
    unsigned nCode;
    m_Boxes.emplace_back(szText);
    if (sscanf(szText, "Program Error Code #%u", &nCode) == 1 && !IsAboutKeys(nCode))
        ReportFinding(__FILE__, __LINE__, m_Boxes.back());
    switch (nButtons)
    {
    case bnYesNoCancel:
        return anNo;
    case bnRetryCancel:
        return anCancel;
    default:
        return anOk;
    }
}

cFuzzCalculator::cFuzzCalculator() : m_Calculator(this), m_nRun(0), m_nLines(0) {}

unsigned cFuzzCalculator::DrainMessages(unsigned nLines)
{
    const unsigned nRun = m_Calculator.m_Engine.RunNumber();
    m_nLines            = nRun == m_nRun ? m_nLines + nLines : nLines;
    m_nRun              = nRun;
    if (m_nLines >= kMostFuzzLines)
        m_Calculator.m_Engine.HaltProgram();
    return m_nLines < kMostFuzzLines ? kMostFuzzLines - m_nLines : 1;
}

int cFuzzCalculator::Load(std::string_view Listing)
{
    return m_Calculator.m_Engine.LoadListing(Listing.data(), Listing.size());
}

void cFuzzCalculator::Press(unsigned nKeyCode)
{
    cVorstekEngine *const pEngine = &m_Calculator.m_Engine;
    if (nKeyCode == kKeyMode)
    {
        pEngine->OnCalcKey(kKeyMode, State().m_bProgramMode);
        return;
    }
    pEngine->OnCalcKey(nKeyCode, 1);
    pEngine->OnCalcKey(nKeyCode, 0);
}

std::string cFuzzCalculator::Program()
{
    std::string Text;
    for (const ProgramLine &Line : State().m_Program)
        Text += std::string(Line.m_szText) + " " + Line.m_szOperandText + " " +
                std::to_string(Line.m_nOperand) + "\n";
    return Text;
}

std::string cFuzzCalculator::Listing() const
{
    std::string Text(m_Calculator.m_Listing.GetTextLength() + 1, '\0');
    Text.resize(m_Calculator.m_Listing.GetText(Text.data(), Text.size()));
    return Text;
}

std::string cFuzzCalculator::StateText()
{
    m_Calculator.m_Engine.RefreshViews();
    std::string Json;
    {
        cJsonList Object(&Json, '{', '}');
        ReportState(&m_Calculator, *this, &Object);
    }
    FUZZ_CHECK(IsJsonObject(Json));
    return Json;
}

template <size_t nSize> static int IsEnded(const char (&szText)[nSize])
{
    return memchr(szText, 0, nSize) != nullptr;
}

void cFuzzCalculator::CheckState()
{
    const cVorstekState &s = State();
    FUZZ_CHECK(IsEnded(s.m_szX) && IsEnded(s.m_szY) && IsEnded(s.m_szZ) && IsEnded(s.m_szT));
    FUZZ_CHECK(IsEnded(s.m_szDisplay) && IsEnded(s.m_szEntry) && IsEnded(s.m_szExponent));
    FUZZ_CHECK(IsEnded(s.m_szKeystrokes) && IsEnded(s.m_szLastOp) && IsEnded(s.m_szSavedLastOp));
    FUZZ_CHECK(s.m_nCurLine <= kLastLine && s.m_nReturnDepth <= kReturnLevels);
    FUZZ_CHECK(s.m_nDisplayMode <= kModeEng && s.m_nDisplayDigits <= 9);
    FUZZ_CHECK(!s.m_bProgramRunning && !s.m_bParseOnly);
    unsigned nFormer = 0;
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
    {
        const ProgramLine &Line = s.m_Program[nLine];
        FUZZ_CHECK(IsEnded(Line.m_szText) && IsEnded(Line.m_szOperandText));
        FUZZ_CHECK(Line.m_nListingLine > nFormer);
        FUZZ_CHECK(Line.m_nListingLine < m_Calculator.m_Listing.CountLines());
        nFormer = Line.m_nListingLine;
    }
}
