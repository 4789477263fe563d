// fuzz_calculator.h - a calculator for the fuzz targets.

#ifndef TESTS_FUZZ_FUZZ_CALCULATOR_H
#define TESTS_FUZZ_FUZZ_CALCULATOR_H

#include <string>
#include <string_view>
#include <vector>

#include "console/headless_host.h"
#include "engine/vorstek_state.h"

// Keeps the texts of boxes. Answers are OK where the box has it, else No, else
// Cancel. A Program Error box, with which the calculator reports an inconsistency of
// its own, is a finding, unless odd key events are its reason.
class cFuzzHost : public cHeadlessHost
{
public:
    eAnswer Ask(const char *szText, const char *szCaption, eButtons nButtons, eIcon nIcon) override;

    std::vector<std::string> m_Boxes;
};

// A run ends after so many lines.
const unsigned kMostFuzzLines = 200;

class cFuzzCalculator : public cFuzzHost
{
public:
    cFuzzCalculator();

    unsigned DrainMessages(unsigned nLines) override;

    int Load(std::string_view Listing);

    // Press and release of key 1 to 31; 32 moves the mode switch.
    void Press(unsigned nKeyCode);

    const cVorstekState &State() { return m_Calculator.m_Engine.State(); }

    // The 99 lines of the program, "STO .3" with the value of the operand.
    std::string Program();

    // The lines of the listing box.
    std::string Listing() const;

    // The complete state as the console prints it.
    std::string StateText();

    // Ends with a finding if a text, an index or a depth is out of its range.
    void CheckState();

    cHeadlessCalculator m_Calculator;

protected:
    // Of the present run, when DrainMessages was called last.
    unsigned LinesOfRun() const { return m_nLines; }

private:
    unsigned m_nRun;  // the run that m_nLines counts in
    unsigned m_nLines;
};

#endif
