// calculator_rig.h - a calculator for tests: the engine, two line boxes in
// memory, and a host that keeps what it was asked for.

#ifndef TESTS_UNIT_CALCULATOR_RIG_H
#define TESTS_UNIT_CALCULATOR_RIG_H

#include <cmath>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <doctest/doctest.h>

#include "engine/display.h"
#include "engine/instruction.h"
#include "engine/memory_line_box.h"
#include "engine/vorstek_engine.h"
#include "engine/vorstek_state.h"

#define CHECK_TEXT(actual, expected) CHECK(std::string(actual) == std::string(expected))

// As CAPTURE, which shows of a const char * only where it points to.
#define CAPTURE_TEXT(text) INFO(#text " := ", std::string(text))

// Equal but for the last few bits, where another formula gives the expected value.
inline int IsNear(double dActual, double dExpected, double dTolerance = 1e-14)
{
    return std::fabs(dActual - dExpected) <= dTolerance * std::fabs(dExpected);
}

// 7 as "07".
std::string TwoDigits(unsigned nNumber);

class cRecordingHost : public cVorstekHost
{
public:
    struct cBox
    {
        std::string m_Text;
        std::string m_Caption;  // empty for the application's name
        eButtons    m_nButtons;
        eIcon       m_nIcon;
    };

    // Answers come from m_Answers in order; then OK where the box has it,
    // else Cancel.
    eAnswer Ask(const char *szText, const char *szCaption, eButtons nButtons, eIcon nIcon) override;
    void    PostQuit(int nExitCode) override { m_QuitCodes.push_back(nExitCode); }
    void    StartSound(unsigned nId) override { m_Sounds.push_back(nId); }
    void    DrawDisplay(const cDisplay &Display) override;
    void    BlankDisplay() override { m_nBlanks++; }
    unsigned DrainMessages(unsigned nLines) override;
    void     Pause(unsigned nMilliseconds) override;
    int      AskFileName(eFileDialog nDialog, char *szName, size_t nSize) override;
    void     SetStatusText(const char *szText) override { m_StatusText = szText; }
    void     EnableCommand(unsigned nId, int bEnable) override { m_Enabled[nId] = bEnable; }
    void     ShowListing(int bShow) override { m_bListingShown = bShow; }
    void     ShowRegisters(int bShow) override { m_bRegistersShown = bShow; }
    void     ShowGraph() override { m_bGraphShown = 1; }
    void     ClearGraph() override { m_Graph.clear(); }
    unsigned CountDataSets() override { return static_cast<unsigned>(m_Graph.size()); }
    int      AddGraphPoint(unsigned nLine, double dX, double dY) override;

    std::vector<cBox>        m_Boxes;
    std::vector<eAnswer>     m_Answers;
    std::function<void()>    m_OnAsk;    // called while each box is open
    std::function<void()>    m_OnPause;  // called while each PAUSE waits
    std::vector<int>         m_QuitCodes;
    std::vector<unsigned>    m_Sounds;
    std::vector<unsigned>    m_Pauses;          // milliseconds
    std::vector<std::string> m_PausedDisplays;  // main line drawn when PAUSE began
    std::vector<std::string> m_FileNames;       // answers of the file dialogs; none: cancel
    std::vector<eFileDialog> m_FileDialogs;     // those that were shown
    std::string              m_StatusText;
    std::map<unsigned, int>  m_Enabled;
    int                      m_bListingShown   = 0;
    int                      m_bRegistersShown = 0;
    int                      m_bGraphShown     = 0;
    int                      m_nBlanks         = 0;
    int                      m_nDraws          = 0;
    cDisplay                 m_Drawn           = {};  // what was drawn last
    unsigned                 m_nDrains         = 0;   // since the rig was made
    unsigned                 m_nLines          = 0;   // executed since then
    unsigned                 m_nAllowed        = 1;   // lines from one drain to the next
    std::function<int()>     m_OnDrain;               // called by every drain; 0 is quit
    unsigned                 m_nPointLimit = 12800;   // of a data set
    std::vector<std::vector<std::pair<double, double>>> m_Graph;
};

// The engine with its parts and its state open to tests.
class cTestEngine : public cVorstekEngine
{
public:
    using cVorstekEngine::cVorstekEngine;

    // For putting the calculator into situations that keys cannot reach.
    cVorstekState &Raw();

    // What the keys call. The headers of the parts describe it.
    int OnDigitKey(unsigned nDigit);
    int ClearProgram();
    int DeleteCurrentLine();
    int StepForward();
    int StepBack();
    int ShowCurrentLine();
    int RunProgram();
    int ExecuteCurrentLine();
    int SingleStep();

    // The line of the file that the loader is at, from 1.
    unsigned LoaderLine();
};

class cCalculatorRig
{
public:
    cCalculatorRig();

    // Presses and releases the face keys named, separated by blanks: the
    // unshifted names "STO" "x<>y" "RDN" (or "i") "Sum+" "ENTER" "CHS" "EEX" "CLX" "-"
    // "+" "*" "/" "." "R/S" "SST" "GSB" "GTO" "f" "g" "RCL"; digits and points
    // may be written together, as in "12.5". "PRGM" and "RUN" move the mode switch.
    void Type(const char *szKeys);
    void Key(unsigned nKeyCode);
    void Down(unsigned nKeyCode) { m_Engine.OnCalcKey(nKeyCode, 1); }
    void Up(unsigned nKeyCode) { m_Engine.OnCalcKey(nKeyCode, 0); }

    // Performs an instruction by its mnemonic.
    int Run(const char *szMnemonic, unsigned nOperand = 0)
    {
        return m_Engine.Perform(szMnemonic, nOperand);
    }

    // Loads a program from its lines, each with "\n"; fails the test if it does
    // not load without a box.
    void Load(const char *szListing);

    const cVorstekState &State() { return m_Engine.State(); }
    double               X() { return State().m_dX; }
    double               Y() { return State().m_dY; }
    double               Z() { return State().m_dZ; }
    double               T() { return State().m_dT; }
    void                 Set(double dX, double dY = 0.0, double dZ = 0.0, double dT = 0.0);
    void                 SetReg(unsigned nRegister, double dValue);

    // X and Y alone, as they may come out of a calculation, a NaN included.
    void SetXY(double dX, double dY);

    // m_szDisplay without trailing blanks.
    std::string Display();

    // A program line's mnemonic and operand, "STO .3", or its number.
    std::string Step(unsigned nLine);

    // The listing line that is highlighted.
    unsigned Highlighted();

    // All sounds since the last Forget(): "10050 10057", "" for none.
    std::string Sounds() const;

    // The display's main line as painted, without trailing blanks.
    std::string Shown();

    unsigned    LastSound() const { return m_Host.m_Sounds.empty() ? 0 : m_Host.m_Sounds.back(); }
    std::string LastBox() const
    {
        return m_Host.m_Boxes.empty() ? "" : m_Host.m_Boxes.back().m_Text;
    }
    std::string ListingLine(unsigned nLine);  // without its line end
    std::string RegisterLine(unsigned nLine);

    // What instructions can change, without the display, as a text to compare.
    std::string Snapshot();

    // Forgets boxes and sounds so far.
    void Forget();

    cRecordingHost m_Host;
    cMemoryLineBox m_Listing;
    cMemoryLineBox m_Registers;
    cTestEngine    m_Engine;
};

// What FIX, SCI or ENG sets on a new calculator.
cNumberFormat FormatOf(const char *szMode, unsigned nDigits);

#endif
