// vorstek_state.h - everything that the calculator remembers.

#ifndef ENGINE_VORSTEK_STATE_H
#define ENGINE_VORSTEK_STATE_H

#include <cstdint>

#include "engine/number_format.h"

struct cInstruction;

const unsigned kRegisters     = 30;  // Reg[0] is the index register i
const unsigned kRegisterN     = 10;  // first statistics register
const unsigned kRegisterSumX  = 11;
const unsigned kRegisterSumX2 = 12;
const unsigned kRegisterSumY  = 13;
const unsigned kRegisterSumY2 = 14;
const unsigned kRegisterSumXY = 15;

const unsigned kLastLine       = 98;  // program lines are 1 to 98, line 0 is empty
const unsigned kProgramLines   = kLastLine + 1;
const unsigned kReturnLevels   = 3;
const int      kDisplayVisible = 20;  // characters that the display shows
const int      kKeystrokesText = 11;  // pending keys, 10 characters
const int      kMnemonicText   = 18;
const int      kOperandText    = 6;
const int      kFileNameText   = 1024;

const int kAngleRad = 0;
const int kAngleDeg = 1;
const int kAngleGrd = 2;

struct ProgramLine
{
    const cInstruction *m_pInstruction;                 // null marks a number line
    unsigned            m_nOperand;                     // register, label or digit count
    char                m_szText[kMnemonicText];        // mnemonic, or the number as keyed
    char                m_szOperandText[kOperandText];  // as keyed: "5", ".3"; "" for none
    unsigned            m_nListingLine;                 // this line's index in the listing
    double              m_dNumber;                      // a number line's value, clamped
    int                 m_bNumberWhole;                 // 0 if m_szText does not parse to its end
};

struct cVorstekState : cNumberFormat
{
    double m_dX;  // the stack; X is the displayed level
    double m_dY;
    double m_dZ;
    double m_dT;
    char   m_szX[kStackText];  // the levels' texts; m_szX holds the keyed text
    char   m_szY[kStackText];  // while a number is being keyed in
    char   m_szZ[kStackText];
    char   m_szT[kStackText];
    char   m_szDisplay[kDisplayVisible + 1];  // X, an error text or a program line
    char   m_szEntry[13];                     // mantissa being keyed: "+12.5"; "" when idle
    char   m_szExponent[5];                   // "e", sign, two digits; "" for none
    double m_dLastX;
    double m_dReg[kRegisters];
    int    m_bStackLift;  // the next number put into X pushes the stack first
    int    m_nAngleMode;

    unsigned m_nCurLine;  // 0 to 98
    int      m_bProgramMode;
    int      m_bProgramRunning;
    int      m_bParseOnly;  // handlers only check a parsed line
    int      m_bProgramModified;
    char     m_szMnemonic[kMnemonicText];  // of the line being parsed
    char     m_szOperand[kOperandText];

    ProgramLine m_Program[kProgramLines];
    unsigned    m_nReturnAddr[kReturnLevels];  // oldest first
    unsigned    m_nReturnDepth;
    char        m_szFileName[kFileNameText];  // "" while untitled

    char m_szKeystrokes[kKeystrokesText];  // pending keys or a wait marker
    char m_szLastOp[kKeystrokesText];
    char m_szSavedLastOp[kKeystrokesText];  // run mode's, during program mode
    int  m_bShowStack;                      // stack view, while key 31 is down
    int  m_bSwitchToProgramPending;         // asked for during a run

    int m_bSoundOff;
    int m_bTrace;
    int m_bKeepListingOpen;
    int m_bKeepRegistersOpen;

    uint32_t m_nGraphLine;  // the data line that SumG feeds, from 0
};

#endif
