// program_line.h - a line of program memory, and how many there are.

#ifndef ENGINE_PROGRAM_LINE_H
#define ENGINE_PROGRAM_LINE_H

struct cInstruction;

// The size of program memory. Everything that depends on it follows from here:
// digits of a printed line number and of one keyed after GTO and point, the
// farthest backward jump, the width of the marks in the listing.
const unsigned kLastLine     = 98;  // line 0 is empty
const unsigned kProgramLines = kLastLine + 1;

constexpr int CountDigits(unsigned nNumber)
{
    return nNumber < 10 ? 1 : 1 + CountDigits(nNumber / 10);
}

const int kLineDigits = CountDigits(kLastLine);

const int kMnemonicText = 18;
const int kOperandText  = 6;

// An instruction with its operand, or a number.
struct cStep
{
    const cInstruction *m_pInstruction;                 // null marks a number
    unsigned            m_nOperand;                     // register, label or digit count
    char                m_szText[kMnemonicText];        // mnemonic, or the number as keyed
    char                m_szOperandText[kOperandText];  // as keyed: "5", ".3"; "" for none
};

struct ProgramLine : cStep
{
    unsigned m_nListingLine;   // this line's index in the listing
    double   m_dNumber;        // a number line's value, clamped
    int      m_bNumberParsed;  // 0 if m_szText is not a number from end to end
};

#endif
