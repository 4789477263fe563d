// keystrokes.cpp - turns presses and releases of the keys into instructions.
//
// m_szKeystrokes holds the keys of an instruction that is not complete, each
// followed by a blank: "STO + ", "GTO . 4". Instead of keys it may hold one of
// three wait markers, while a key event is swallowed and not interpreted.

#include <cstdio>
#include <cstring>

#include "engine/vorstek_engine.h"
#include "resources/calculator_ids.h"

static const char *const kAwaitPress   = "EWFDK";  // an error is shown, a press clears it
static const char *const kAwaitRelease = "EWFUK";  // of the key that cleared the error
static const char *const kAwaitHalt    = "HWFUK";  // release of the key that halted a run

static const unsigned kCodeKey             = 101;
static const unsigned kCodeInProgramMode   = 107;
static const unsigned kCodeInRunMode       = 108;
static const unsigned kCodeDigit           = 113;
static const unsigned kCodeStepRelease     = 120;
static const unsigned kCodeModeSwitch      = 121;
static const unsigned kCodePressClearing   = 122;
static const unsigned kCodeStackView       = 123;
static const unsigned kCodeRunRelease      = 124;
static const unsigned kCodeSwitchAfterHalt = 126;

// What a key does: unshifted, after f and after g. The text is the mnemonic,
// prefix or character that the action takes.
struct cVorstekEngine::cKeyRow
{
    struct cCell
    {
        int (cVorstekEngine::*m_pAction)(const char *);
        const char *m_szText;
    };
    cCell m_Plain;
    cCell m_AfterF;
    cCell m_AfterG;
};

// clang-format off
#define RUN(name)    { &cVorstekEngine::PressRun,    name }
#define PREFIX(keys) { &cVorstekEngine::PressPrefix, keys }
#define DIGIT(digit) { &cVorstekEngine::PressDigit,  digit }
#define SUM(name)    { &cVorstekEngine::PressSum,    name }
#define OPERATOR(op) { &cVorstekEngine::PressArithmetic, op }
#define HOLD(name)   { &cVorstekEngine::PressHeld,   name }
#define SPECIAL(key) { &cVorstekEngine::Press##key,  "" }

// Keys 1 to 30 in row order.
const cVorstekEngine::cKeyRow cVorstekEngine::s_Keys[] =
{
//    unshifted              after f                after g
    { SPECIAL(Sst),          PREFIX("FIX "),        SPECIAL(Bst)       },
    { PREFIX("GSB "),        PREFIX("SCI "),        RUN("RTN")         },
    { PREFIX("GTO "),        PREFIX("ENG "),        PREFIX("LBL ")     },
    { PREFIX("f "),          PREFIX("f "),          PREFIX("f ")       },
    { SPECIAL(ShiftG),       SPECIAL(ShiftG),       SPECIAL(ShiftG)    },

    { RUN("x<>y"),           RUN("Mean"),           RUN("%")           },
    { SPECIAL(Indirect),     RUN("StdDev"),         SPECIAL(Indirect)  },
    { PREFIX("STO "),        RUN("LR"),             RUN("DSZ")         },
    { PREFIX("RCL "),        RUN("ClearG"),         RUN("ISZ")         },
    { SUM("Sum+"),           RUN("Sum-"),           SPECIAL(Delete)    },

    { RUN("ENTER"),          SPECIAL(Nothing),      SPECIAL(Nothing)   },
    { RUN("CHS"),            SPECIAL(ClearProgram), RUN("GRD")         },
    { SPECIAL(Exponent),     RUN("ClearREG"),       RUN("RAD")         },
    { RUN("CLX"),            RUN("ClearSum"),       RUN("DEG")         },

    { OPERATOR("-"),         RUN("x<=y"),           RUN("x<0")         },
    { DIGIT("7"),            RUN("ln"),             RUN("e^x")         },
    { DIGIT("8"),            RUN("log"),            RUN("10^x")        },
    { DIGIT("9"),            RUN("->R"),            RUN("->P")         },

    { OPERATOR("+"),         RUN("x>y"),            RUN("x>0")         },
    { DIGIT("4"),            RUN("sin"),            RUN("sin^-1")      },
    { DIGIT("5"),            RUN("cos"),            RUN("cos^-1")      },
    { DIGIT("6"),            RUN("tan"),            RUN("tan^-1")      },

    { OPERATOR("*"),         RUN("x!=y"),           RUN("x!=0")        },
    { DIGIT("1"),            RUN("INT"),            RUN("FRAC")        },
    { DIGIT("2"),            RUN("sqrt"),           RUN("x^2")         },
    { DIGIT("3"),            RUN("y^x"),            RUN("ABS")         },

    { OPERATOR("/"),         RUN("x=y"),            RUN("x=0")         },
    { DIGIT("0"),            RUN("SumG"),           RUN("SetG")        },
    { SPECIAL(Point),        RUN("LASTx"),          RUN("pi")          },
    { SPECIAL(RunStop),      HOLD("PAUSE"),         HOLD("1/x")        },
};

#undef RUN
#undef PREFIX
#undef DIGIT
#undef SUM
#undef OPERATOR
#undef HOLD
#undef SPECIAL

// A digit completes the prefix that the pending keys end with; longer endings
// stand before the shorter ones that they contain. The last operation reads
// mnemonic, gap, digit.
static const struct
{
    const char *m_szEnding;
    const char *m_szMnemonic;
    const char *m_szGap;
    unsigned    m_nBase;   // added to the digit
} s_Prefixes[] =
{
    { "LBL ",     "LBL",  " ",  0  },
    { "FIX ",     "FIX",  " ",  0  },
    { "SCI ",     "SCI",  " ",  0  },
    { "ENG ",     "ENG",  " ",  0  },
    { "GSB ",     "GSB",  " ",  0  },
    { "GTO ",     "GTO",  " ",  0  },
    { "STO - . ", "STO-", " .", 10 },
    { "STO + . ", "STO+", " .", 10 },
    { "STO * . ", "STO*", " .", 10 },
    { "STO / . ", "STO/", " .", 10 },
    { "STO - ",   "STO-", " ",  0  },
    { "STO + ",   "STO+", " ",  0  },
    { "STO * ",   "STO*", " ",  0  },
    { "STO / ",   "STO/", " ",  0  },
    { "STO . ",   "STO",  " .", 10 },
    { "RCL . ",   "RCL",  " .", 10 },
    { "STO ",     "STO",  " ",  0  },
    { "RCL ",     "RCL",  " ",  0  },
};

// Key 7 is the key "i". It works with and without g between prefix and key.
static const struct
{
    const char *m_szEnding;
    const char *m_szMnemonic;
} s_Indirect[] =
{
    { "GSB g ",   "GSB i"  },
    { "GSB ",     "GSB i"  },
    { "GTO g ",   "GTO i"  },
    { "GTO ",     "GTO i"  },
    { "STO + g ", "STO+ i" },
    { "STO + ",   "STO+ i" },
    { "STO - g ", "STO- i" },
    { "STO - ",   "STO- i" },
    { "STO * g ", "STO* i" },
    { "STO * ",   "STO* i" },
    { "STO / g ", "STO/ i" },
    { "STO / ",   "STO/ i" },
    { "STO g ",   "STO i"  },
    { "STO ",     "STO i"  },
    { "RCL g ",   "RCL i"  },
    { "RCL ",     "RCL i"  },
    { "g ",       "RCL i"  },
};
// clang-format on

// Prefixes behind which g is kept, because key 7 shifted by g is "i".
static const char *const s_BeforeG[] = {"STO + ", "STO - ", "STO * ", "STO / ",
                                        "STO ",   "RCL ",   "GSB ",   "GTO "};

// Prefixes that a point extends, to registers .0 to .9 or to a line number.
static const char *const s_BeforePoint[] = {"GTO ",   "STO - ", "STO + ", "STO * ",
                                            "STO / ", "STO ",   "RCL "};

int cVorstekEngine::EndsWith(const char *szEnding) const
{
    const size_t nLength = strlen(m_szKeystrokes);
    const size_t nEnding = strlen(szEnding);
    return nLength >= nEnding && strcmp(m_szKeystrokes + nLength - nEnding, szEnding) == 0;
}

void cVorstekEngine::SetKeystrokes(const char *szKeystrokes)
{
    snprintf(m_szKeystrokes, sizeof m_szKeystrokes, "%s", szKeystrokes);
}

void cVorstekEngine::AppendKeystroke(const char *szKeystroke)
{
    const size_t nLength = strlen(m_szKeystrokes);
    snprintf(m_szKeystrokes + nLength, sizeof m_szKeystrokes - nLength, "%s", szKeystroke);
}

void cVorstekEngine::SetLastOp(const char *szName)
{
    snprintf(m_szLastOp, sizeof m_szLastOp, "%s", szName);
}

int cVorstekEngine::IsWaitingForKey() const
{
    return strcmp(m_szKeystrokes, kAwaitPress) == 0 || strcmp(m_szKeystrokes, kAwaitRelease) == 0 ||
           strcmp(m_szKeystrokes, kAwaitHalt) == 0;
}

void cVorstekEngine::OnCalcKey(unsigned nKeyCode, int bIsDown)
{
    InterpretKey(nKeyCode, bIsDown);
    RefreshViews();
}

void cVorstekEngine::InterpretKey(unsigned nKeyCode, int bIsDown)
{
    if (m_bProgramRunning && nKeyCode != kKeyStackView)
        OnKeyWhileRunning(nKeyCode, bIsDown);
    else if (strcmp(m_szKeystrokes, kAwaitHalt) == 0 && bIsDown == 0)
        OnReleaseAfterHalt(nKeyCode);
    else if (strcmp(m_szKeystrokes, kAwaitPress) == 0)
        OnKeyAfterError(nKeyCode, bIsDown);
    else if (strcmp(m_szKeystrokes, kAwaitRelease) == 0)
        OnKeyWhileClearing(nKeyCode, bIsDown);
    else if (bIsDown == 0)
        OnRelease(nKeyCode);
    else if (bIsDown == 1)
        OnPress(nKeyCode);
}

// Only flags are set: the run loop is at work further up the stack.
void cVorstekEngine::OnKeyWhileRunning(unsigned nKeyCode, int bIsDown)
{
    if (nKeyCode == kKeyMode)
    {
        StartSound(IDW_REFUSAL);
        m_bSwitchToProgramPending = bIsDown == 0;
    }
    else if (bIsDown == 1)
    {
        m_bProgramRunning = 0;
        StartSound(IDW_HALTED);
        SetKeystrokes(kAwaitHalt);
    }
}

void cVorstekEngine::OnReleaseAfterHalt(unsigned nKeyCode)
{
    if (nKeyCode == kKeyStackView || nKeyCode == kKeyMode)
    {
        ShowKeystrokesError(kCodeSwitchAfterHalt);
        return;
    }
    SetKeystrokes("");
    SwitchIfPending();
}

void cVorstekEngine::OnKeyAfterError(unsigned nKeyCode, int bIsDown)
{
    if (bIsDown == 0)
        OnReleaseAfterError(nKeyCode);
    else if (bIsDown == 1)
        OnPressAfterError(nKeyCode);
}

void cVorstekEngine::OnReleaseAfterError(unsigned nKeyCode)
{
    if (nKeyCode == kKeyStackView)
        SetStackView(0);
    else if (nKeyCode == kKeyMode)
    {
        SetKeystrokes("");
        ShowFormattedX();
        SwitchToProgramMode();
    }
}

// The key is used up by clearing the error.
void cVorstekEngine::OnPressAfterError(unsigned nKeyCode)
{
    if (nKeyCode == kKeyStackView)
        SetStackView(1);
    else if (nKeyCode == kKeyMode)
        ShowProgramError(kCodeModeSwitch);
    else
    {
        SetKeystrokes(kAwaitRelease);
        ShowFormattedX();
        PaintDisplay();
        StartSound(IDW_CLEARED);
    }
}

void cVorstekEngine::OnKeyWhileClearing(unsigned nKeyCode, int bIsDown)
{
    if (nKeyCode == kKeyMode)
        ShowProgramError(kCodeModeSwitch);
    else if (nKeyCode == kKeyStackView)
        ShowProgramError(kCodeStackView);
    else if (bIsDown == 1)
        ShowProgramError(kCodePressClearing);
    else if (bIsDown == 0)
    {
        SetKeystrokes("");
        SwitchIfPending();
    }
}

void cVorstekEngine::OnPress(unsigned nKeyCode)
{
    StartSound(IDW_KEY_CLICK);
    if (nKeyCode == kKeyStackView)
        SetStackView(1);
    else if (nKeyCode == kKeyMode)
        SwitchToRunMode();
    else if (nKeyCode < 1 || nKeyCode > kKeyRunStop)
        ShowProgramError(kCodeKey);
    else if (!PressFaceKey(nKeyCode))
        SetKeystrokes(kAwaitPress);
    m_bPaintStale = 1;
}

int cVorstekEngine::PressFaceKey(unsigned nKeyCode)
{
    const cKeyRow &Row = s_Keys[nKeyCode - 1];
    const auto &Cell = EndsWith("f ") ? Row.m_AfterF : EndsWith("g ") ? Row.m_AfterG : Row.m_Plain;
    return (this->*Cell.m_pAction)(Cell.m_szText);
}

void cVorstekEngine::OnRelease(unsigned nKeyCode)
{
    int nResult = 1;
    if (nKeyCode == kKeySst)
        nResult = ReleaseStepKey();
    else if (nKeyCode == kKeyRunStop)
        nResult = ReleaseRunKey();
    else if (nKeyCode == kKeyStackView)
        SetStackView(0);
    else if (nKeyCode == kKeyMode)
        SwitchToProgramMode();
    if (!nResult)
        SetKeystrokes(kAwaitPress);
    // Another key has ended the wait for the one that halted the program.
    if (!m_bProgramRunning && !IsWaitingForKey())
        SwitchIfPending();
    m_bPaintStale = 1;
}

int cVorstekEngine::ReleaseStepKey()
{
    if (EndsWith("FIX "))
        return 1;
    const int bStep = EndsWith("SST ");
    if (!bStep && !EndsWith("BST "))
        ShowKeystrokesError(kCodeStepRelease);
    else if (!bStep && !m_bProgramMode)
        ShowFormattedX();
    SetKeystrokes("");
    return bStep && !m_bProgramMode ? SingleStep() : 1;
}

int cVorstekEngine::ReleaseRunKey()
{
    const int bRun = EndsWith("R/S ");
    if (!bRun && !EndsWith("PAUSE ") && !EndsWith("1/x "))
        ShowProgramError(kCodeRunRelease);
    SetKeystrokes("");
    return bRun && !m_bProgramMode ? Perform("R/S", 0) : 1;
}

void cVorstekEngine::SetStackView(int bShow)
{
    BlankDisplay();
    m_bShowStack = bShow;
    StartSound(bShow ? IDW_SLIDE_ON : IDW_SLIDE_OFF);
    PaintDisplay();
}

void cVorstekEngine::SwitchToProgramMode()
{
    snprintf(m_szSavedLastOp, sizeof m_szSavedLastOp, "%s", m_szLastOp);
    EnterProgramMode();
}

void cVorstekEngine::SwitchToRunMode()
{
    SetLastOp(m_szSavedLastOp);
    EnterRunMode();
}

// A switch that was asked for during a run.
void cVorstekEngine::SwitchIfPending()
{
    if (m_bSwitchToProgramPending)
        SwitchToProgramMode();
}

void cVorstekEngine::EnterProgramMode()
{
    m_bSwitchToProgramPending = 0;
    if (m_bProgramMode)
    {
        ShowProgramError(kCodeInProgramMode);
        return;
    }
    m_nReturnDepth = 0;
    BlankDisplay();
    AbandonEntry();
    SetKeystrokes("");
    ShowFormattedX();
    m_bProgramMode = 1;
    StartSound(IDW_PROGRAM_MODE);
    m_pHost->ShowListing(1);
    HighlightSoon();
    m_pHost->EnableCommand(IDM_REPAIR_HIGHLIGHT, 1);
    if (!m_bKeepRegistersOpen)
        m_pHost->ShowRegisters(0);
    PaintDisplay();
}

void cVorstekEngine::EnterRunMode()
{
    if (!m_bProgramMode)
    {
        ShowProgramError(kCodeInRunMode);
        return;
    }
    BlankDisplay();
    StartSound(IDW_RUN_MODE);
    AbandonEntry();
    SetKeystrokes("");
    m_bProgramMode = 0;
    ShowFormattedX();
    if (!m_bKeepListingOpen)
    {
        m_pHost->ShowListing(0);
        m_pHost->EnableCommand(IDM_REPAIR_HIGHLIGHT, 0);
    }
    HighlightSoon();
    PaintDisplay();
}

int cVorstekEngine::OnDigitKey(unsigned nDigit)
{
    if (nDigit > 9)
    {
        ShowProgramError(kCodeDigit);
        nDigit %= 10;
    }
    if (EndsWith("GTO . "))
    {
        const char szDigit[] = {static_cast<char>('0' + nDigit), 0};
        AppendKeystroke(szDigit);
        return 1;
    }
    if (IsFirstLineDigitPending())
        return CompleteGoTo(nDigit);
    for (const auto &Row : s_Prefixes)
        if (EndsWith(Row.m_szEnding))
        {
            snprintf(m_szLastOp, sizeof m_szLastOp, "%s%s%u", Row.m_szMnemonic, Row.m_szGap,
                     nDigit);
            SetKeystrokes("");
            return Perform(Row.m_szMnemonic, Row.m_nBase + nDigit);
        }
    SetKeystrokes("");
    return EnterCharacter(static_cast<char>('0' + nDigit));
}

// "GTO . 4": the second digit of a line number follows.
int cVorstekEngine::IsFirstLineDigitPending() const
{
    static const char *const kPending = "GTO . ";
    const size_t             nPending = strlen(kPending);
    return strncmp(m_szKeystrokes, kPending, nPending) == 0 && m_szKeystrokes[nPending] != 0;
}

int cVorstekEngine::CompleteGoTo(unsigned nDigit)
{
    const unsigned nTens = static_cast<unsigned>(m_szKeystrokes[strlen(m_szKeystrokes) - 1] - '0');
    const unsigned nLine = 10 * nTens + nDigit;
    snprintf(m_szLastOp, sizeof m_szLastOp, "GTO.%u", nLine);
    SetKeystrokes("");
    return GoToLine(nLine);
}

int cVorstekEngine::PressRun(const char *szMnemonic)
{
    SetLastOp(szMnemonic);
    SetKeystrokes("");
    return Perform(szMnemonic, 0);
}

// Key 30 holds the name until its release.
int cVorstekEngine::PressHeld(const char *szMnemonic)
{
    SetLastOp(szMnemonic);
    snprintf(m_szKeystrokes, sizeof m_szKeystrokes, "%s ", szMnemonic);
    return Perform(szMnemonic, 0);
}

int cVorstekEngine::PressPrefix(const char *szPrefix)
{
    SetKeystrokes(szPrefix);
    return 1;
}

int cVorstekEngine::PressDigit(const char *szDigit)
{
    return OnDigitKey(static_cast<unsigned>(*szDigit - '0'));
}

int cVorstekEngine::PressPoint(const char *)
{
    for (const char *const szEnding : s_BeforePoint)
        if (EndsWith(szEnding))
        {
            AppendKeystroke(". ");
            return 1;
        }
    SetKeystrokes("");
    return EnterCharacter('.');
}

int cVorstekEngine::PressExponent(const char *)
{
    SetKeystrokes("");
    return EnterCharacter('e');
}

int cVorstekEngine::PressShiftG(const char *)
{
    for (const char *const szEnding : s_BeforeG)
        if (EndsWith(szEnding))
        {
            AppendKeystroke("g ");
            return 1;
        }
    SetKeystrokes("g ");
    return 1;
}

int cVorstekEngine::PressIndirect(const char *)
{
    for (const auto &Row : s_Indirect)
        if (EndsWith(Row.m_szEnding))
            return PressRun(Row.m_szMnemonic);
    return PressRun("Rolldown");
}

// "-" behind STO begins "STO - ".
int cVorstekEngine::PressArithmetic(const char *szMnemonic)
{
    if (!EndsWith("STO "))
        return PressRun(szMnemonic);
    snprintf(m_szKeystrokes, sizeof m_szKeystrokes, "STO %s ", szMnemonic);
    return 1;
}

int cVorstekEngine::PressSum(const char *szMnemonic)
{
    return PressRun(EndsWith("RCL ") ? "RCLSum+" : szMnemonic);
}

int cVorstekEngine::PressNothing(const char *)
{
    SetKeystrokes("");
    return 1;
}

int cVorstekEngine::PressSst(const char *)
{
    SetLastOp("SST");
    SetKeystrokes("SST ");
    if (m_bProgramMode)
        return StepForward();
    m_pHost->ShowListing(1);
    m_pHost->ShowRegisters(1);
    m_pHost->EnableCommand(IDM_REPAIR_HIGHLIGHT, 1);
    return ShowCurrentLine();
}

int cVorstekEngine::PressBst(const char *)
{
    SetLastOp("BST");
    SetKeystrokes("BST ");
    StepBack();
    return m_bProgramMode ? 1 : ShowCurrentLine();
}

int cVorstekEngine::PressRunStop(const char *)
{
    SetLastOp("R/S");
    SetKeystrokes("R/S ");
    return m_bProgramMode ? Perform("R/S", 0) : ShowCurrentLine();
}

int cVorstekEngine::PressDelete(const char *)
{
    SetKeystrokes("");
    return m_bProgramMode ? DeleteCurrentLine() : 1;
}

int cVorstekEngine::PressClearProgram(const char *)
{
    SetKeystrokes("");
    return m_bProgramMode ? ClearProgram() : 1;
}
