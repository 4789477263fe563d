#include "tests/unit/calculator_rig.h"

#include <cstdio>
#include <cstring>
#include <random>
#include <sstream>

#include "engine/calculator.h"
#include "engine/key_actions.h"
#include "engine/program_memory.h"
#include "engine/program_run.h"

static std::string Trimmed(std::string Text)
{
    Text.erase(Text.find_last_not_of(' ') + 1);
    return Text;
}

cVorstekState &cTestEngine::Raw()
{
    return Calculator();
}

int cTestEngine::OnDigitKey(unsigned nDigit)
{
    return ::OnDigitKey(Calculator(), nDigit);
}

int cTestEngine::ClearProgram()
{
    return ::ClearProgram(Calculator());
}

int cTestEngine::DeleteCurrentLine()
{
    return ::DeleteCurrentLine(Calculator());
}

int cTestEngine::StepForward()
{
    return ::StepForward(Calculator());
}

int cTestEngine::StepBack()
{
    return ::StepBack(Calculator());
}

int cTestEngine::ShowCurrentLine()
{
    return ::ShowCurrentLine(Calculator());
}

int cTestEngine::RunProgram()
{
    return ::RunProgram(Calculator());
}

int cTestEngine::ExecuteCurrentLine()
{
    return ::ExecuteCurrentLine(Calculator());
}

int cTestEngine::SingleStep()
{
    return ::SingleStep(Calculator());
}

unsigned cTestEngine::LoaderLine()
{
    return Calculator().m_nLoaderLine;
}

eAnswer cRecordingHost::Ask(const char *szText, const char *szCaption, eButtons nButtons,
                            eIcon nIcon)
{
    m_Boxes.push_back({szText, szCaption ? szCaption : "", nButtons, nIcon});
    if (m_OnAsk)
        m_OnAsk();
    if (m_Answers.empty())
        return nButtons == bnOk || nButtons == bnOkCancel ? anOk : anCancel;
    const eAnswer nAnswer = m_Answers.front();
    m_Answers.erase(m_Answers.begin());
    return nAnswer;
}

void cRecordingHost::DrawDisplay(const cDisplay &Display)
{
    m_nDraws++;
    m_Drawn = Display;
}

unsigned cRecordingHost::DrainMessages(unsigned nLines)
{
    m_nDrains++;
    m_nLines += nLines;
    return !m_OnDrain || m_OnDrain() ? m_nAllowed : 0;
}

void cRecordingHost::Pause(unsigned nMilliseconds)
{
    m_Pauses.push_back(nMilliseconds);
    m_PausedDisplays.push_back(Trimmed(m_Drawn.m_Lines[0].m_szText));
    if (m_OnPause)
        m_OnPause();
}

int cRecordingHost::AskFileName(eFileDialog nDialog, char *szName, size_t nSize)
{
    m_FileDialogs.push_back(nDialog);
    if (m_FileNames.empty())
        return 0;
    snprintf(szName, nSize, "%s", m_FileNames.front().c_str());
    m_FileNames.erase(m_FileNames.begin());
    return 1;
}

int cRecordingHost::AddGraphPoint(unsigned nLine, double dX, double dY)
{
    if (nLine == m_Graph.size() + 1)
        m_Graph.emplace_back();
    if (nLine == 0 || nLine > m_Graph.size() || m_Graph[nLine - 1].size() >= m_nPointLimit)
        return 0;
    m_Graph[nLine - 1].emplace_back(dX, dY);
    return 1;
}

cCalculatorRig::cCalculatorRig() : m_Engine(&m_Host, &m_Listing, &m_Registers)
{
    m_Engine.Start();
}

void cCalculatorRig::Key(unsigned nKeyCode)
{
    Down(nKeyCode);
    Up(nKeyCode);
}

static unsigned KeyOfName(const std::string &Name)
{
    static const std::map<std::string, unsigned> s_Keys = {
        {"SST", 1},  {"GSB", 2}, {"GTO", 3}, {"f", 4},     {"g", 5},      {"x<>y", 6}, {"RDN", 7},
        {"i", 7},    {"STO", 8}, {"RCL", 9}, {"Sum+", 10}, {"ENTER", 11}, {"CHS", 12}, {"EEX", 13},
        {"CLX", 14}, {"-", 15},  {"7", 16},  {"8", 17},    {"9", 18},     {"+", 19},   {"4", 20},
        {"5", 21},   {"6", 22},  {"*", 23},  {"1", 24},    {"2", 25},     {"3", 26},   {"/", 27},
        {"0", 28},   {".", 29},  {"R/S", 30}};
    const auto Found = s_Keys.find(Name);
    return Found == s_Keys.end() ? 0 : Found->second;
}

void cCalculatorRig::Type(const char *szKeys)
{
    std::istringstream Words(szKeys);
    std::string        Word;
    while (Words >> Word)
    {
        if (Word == "PRGM")
            Up(kKeyMode);
        else if (Word == "RUN")
            Down(kKeyMode);
        else if (KeyOfName(Word))
            Key(KeyOfName(Word));
        else
            for (const char c : Word)
            {
                const unsigned nKey = KeyOfName(std::string(1, c));
                REQUIRE_MESSAGE(nKey != 0, "no such key: " << Word);
                Key(nKey);
            }
    }
}

void cCalculatorRig::Load(const char *szListing)
{
    const std::string Name  = "rig_program_" + std::to_string(std::random_device()()) + ".txt";
    FILE *const       pFile = fopen(Name.c_str(), "wb");
    REQUIRE(pFile);
    fwrite(szListing, 1, strlen(szListing), pFile);
    fclose(pFile);
    const size_t nBoxes = m_Host.m_Boxes.size();
    REQUIRE(m_Engine.LoadProgram(Name.c_str()) == 1);
    REQUIRE(m_Host.m_Boxes.size() == nBoxes);
    remove(Name.c_str());
}

void cCalculatorRig::Set(double dX, double dY, double dZ, double dT)
{
    m_Engine.SetStackLevel(0, dX);
    m_Engine.SetStackLevel(1, dY);
    m_Engine.SetStackLevel(2, dZ);
    m_Engine.SetStackLevel(3, dT);
}

void cCalculatorRig::SetReg(unsigned nRegister, double dValue)
{
    m_Engine.SetRegister(nRegister, dValue);
}

void cCalculatorRig::SetXY(double dX, double dY)
{
    m_Engine.Raw().m_dX = dX;
    m_Engine.Raw().m_dY = dY;
}

std::string cCalculatorRig::Display()
{
    return Trimmed(State().m_szDisplay);
}

std::string cCalculatorRig::Shown()
{
    cDisplay Display;
    m_Engine.ComposeDisplay(&Display);
    return Trimmed(Display.m_Lines[0].m_szText);
}

static std::string LineOf(const cLineBox &Box, unsigned nLine)
{
    char szText[600];
    Box.GetLine(nLine, szText, sizeof szText);
    return std::string(szText, strlen(szText) - 2);
}

std::string cCalculatorRig::ListingLine(unsigned nLine)
{
    return LineOf(m_Listing, nLine);
}

std::string cCalculatorRig::RegisterLine(unsigned nLine)
{
    m_Engine.RefreshViews();
    return LineOf(m_Registers, nLine);
}

std::string cCalculatorRig::Step(unsigned nLine)
{
    const ProgramLine &Line = State().m_Program[nLine];
    const std::string  Gap  = Line.m_szOperandText[0] ? " " : "";
    return Line.m_szText + Gap + Line.m_szOperandText;
}

unsigned cCalculatorRig::Highlighted()
{
    m_Engine.RefreshViews();
    return m_Listing.HighlightedLine();
}

std::string cCalculatorRig::Sounds() const
{
    std::string Sounds;
    for (const unsigned nId : m_Host.m_Sounds)
        Sounds += (Sounds.empty() ? "" : " ") + std::to_string(nId);
    return Sounds;
}

std::string cCalculatorRig::Snapshot()
{
    const cVorstekState &Is = State();
    std::ostringstream   Text;
    Text.precision(17);
    Text << "X " << Is.m_dX << " " << Is.m_szX << "\nY " << Is.m_dY << " " << Is.m_szY << "\nZ "
         << Is.m_dZ << " " << Is.m_szZ << "\nT " << Is.m_dT << " " << Is.m_szT << "\nLASTx "
         << Is.m_dLastX << "\nstack lift " << Is.m_bStackLift << "\nentry " << Is.m_szEntry
         << Is.m_szExponent << "\nmode " << Is.m_nDisplayMode << " " << Is.m_nDisplayDigits << " "
         << Is.m_szFixFormat << " " << Is.m_szSciFormat << "\nangle " << Is.m_nAngleMode
         << "\nline " << Is.m_nCurLine << "\nreturns " << Is.m_nReturnDepth << "\ngraph line "
         << Is.m_nGraphLine << "\nmodified " << Is.m_bProgramModified << "\nregisters";
    for (const double dRegister : Is.m_dReg)
        Text << " " << dRegister;
    for (const ProgramLine &Line : Is.m_Program)
        Text << "\n" << Line.m_szText << " " << Line.m_szOperandText << " " << Line.m_nOperand;
    return Text.str();
}

void cCalculatorRig::Forget()
{
    m_Host.m_Boxes.clear();
    m_Host.m_Sounds.clear();
}

std::string TwoDigits(unsigned nNumber)
{
    return (nNumber < 10 ? "0" : "") + std::to_string(nNumber);
}

cNumberFormat FormatOf(const char *szMode, unsigned nDigits)
{
    cCalculatorRig Rig;
    Rig.Run(szMode, nDigits);
    return Rig.State();
}
