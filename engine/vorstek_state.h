// vorstek_state.h - everything that the calculator remembers.

#ifndef ENGINE_VORSTEK_STATE_H
#define ENGINE_VORSTEK_STATE_H

#include <cstdint>

#include "engine/number_format.h"
#include "engine/program_line.h"

const unsigned kRegisters     = 30;  // Reg[0] is the index register i
const unsigned kRegisterN     = 10;  // first statistics register
const unsigned kRegisterSumX  = 11;
const unsigned kRegisterSumX2 = 12;
const unsigned kRegisterSumY  = 13;
const unsigned kRegisterSumY2 = 14;
const unsigned kRegisterSumXY = 15;

const unsigned kReturnLevels   = 3;
const int      kDisplayVisible = 20;    // characters that the display shows
const int      kKeystrokesText = 11;    // pending keys, 10 characters
const int      kFileNameText   = 4096;  // what systems take, closing zero included

const int kAngleRad = 0;
const int kAngleDeg = 1;
const int kAngleGrd = 2;

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
    int    m_bStackLift;  // the next number entered into X pushes the stack first
    int    m_nAngleMode;

    unsigned m_nCurLine;  // 0 to kLastLine
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
    int  m_bSwitchToProgramPending;         // requested during a run

    int m_bSoundOff;
    int m_bTrace;
    int m_bKeepListingOpen;
    int m_bKeepRegistersOpen;

    uint32_t m_nGraphLine;  // the data line to which SumG adds, from 0
};

#endif
