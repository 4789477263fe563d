// key_actions.cpp - the table of the keys and what their actions do.

#include "engine/key_actions.h"

#include <charconv>
#include <cstdio>
#include <cstring>

#include "engine/calculator.h"
#include "engine/dispatch.h"
#include "engine/key_codes.h"
#include "engine/listing_words.h"
#include "engine/number_entry.h"
#include "engine/pending_keys.h"
#include "engine/program_memory.h"
#include "resources/calculator_ids.h"

static const unsigned kCodeDigit = 113;

// clang-format off
// A digit completes the prefix that the pending keys end with; longer endings
// come before the shorter ones that they contain.
static const struct
{
    const char *m_szEnding;
    const char *m_szMnemonic;
    unsigned    m_nBase;  // added to the digit
} s_Prefixes[] =
{
    { "LBL ",     "LBL",  0 },
    { "FIX ",     "FIX",  0 },
    { "SCI ",     "SCI",  0 },
    { "ENG ",     "ENG",  0 },
    { "GSB ",     "GSB",  0 },
    { "GTO ",     "GTO",  0 },
    { "STO - . ", "STO-", kFirstDottedRegister },
    { "STO + . ", "STO+", kFirstDottedRegister },
    { "STO * . ", "STO*", kFirstDottedRegister },
    { "STO / . ", "STO/", kFirstDottedRegister },
    { "STO - ",   "STO-", 0 },
    { "STO + ",   "STO+", 0 },
    { "STO * ",   "STO*", 0 },
    { "STO / ",   "STO/", 0 },
    { "STO . ",   "STO",  kFirstDottedRegister },
    { "RCL . ",   "RCL",  kFirstDottedRegister },
    { "STO ",     "STO",  0 },
    { "RCL ",     "RCL",  0 },
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

// Prefixes after which g is kept, because key 7 shifted by g is "i".
static const char *const s_BeforeG[] = {"STO + ", "STO - ", "STO * ", "STO / ",
                                        "STO ",   "RCL ",   "GSB ",   "GTO "};

// Prefixes that a point extends, to registers .0 to .9 or to a line number.
static const char *const s_BeforePoint[] = {"GTO ",   "STO - ", "STO + ", "STO * ",
                                            "STO / ", "STO ",   "RCL "};

static void SetLastOp(cCalculator &c, const char *szName)
{
    snprintf(c.m_szLastOp, sizeof c.m_szLastOp, "%s", szName);
}

static const char *const kGoToLine = "GTO . ";

// How many digits of a line number are pending: 1 for "GTO . 4". -1 when no line
// number is being keyed.
static int CountLineDigits(const cCalculator &c)
{
    const size_t nPrefix = strlen(kGoToLine);
    if (EndsWith(c, kGoToLine))
        return 0;
    if (strncmp(c.m_szKeystrokes, kGoToLine, nPrefix) != 0)
        return -1;
    return static_cast<int>(strlen(c.m_szKeystrokes) - nPrefix);
}

static int AddLineDigit(cCalculator &c, unsigned nDigit)
{
    const int  nPending  = CountLineDigits(c);
    const char szDigit[] = {static_cast<char>('0' + nDigit), 0};
    AppendKeystroke(c, szDigit);
    if (nPending + 1 < kLineDigits)
        return 1;
    const char *const pEnd  = c.m_szKeystrokes + strlen(c.m_szKeystrokes);
    unsigned          nLine = 0;
    std::from_chars(pEnd - kLineDigits, pEnd, nLine);
    snprintf(c.m_szLastOp, sizeof c.m_szLastOp, "GTO.%u", nLine);
    SetKeystrokes(c, "");
    return GoToLine(c, nLine);
}

static int CompletePrefix(cCalculator &c, const char *szMnemonic, unsigned nOperand)
{
    const cInstruction &Instruction = *c.m_mapHandlers.Find(szMnemonic);
    char                szText[kStepText];
    PrintInstruction(Instruction, nOperand, szText);
    SetLastOp(c, szText);
    SetKeystrokes(c, "");
    return PerformInstruction(c, Instruction, nOperand);
}

int OnDigitKey(cCalculator &c, unsigned nDigit)
{
    if (nDigit > 9)
    {
        c.ShowProgramError(kCodeDigit);
        nDigit %= 10;
    }
    if (CountLineDigits(c) >= 0)
        return AddLineDigit(c, nDigit);
    for (const auto &Row : s_Prefixes)
        if (EndsWith(c, Row.m_szEnding))
            return CompletePrefix(c, Row.m_szMnemonic, Row.m_nBase + nDigit);
    SetKeystrokes(c, "");
    return EnterCharacter(c, static_cast<char>('0' + nDigit));
}

static int PressRun(cCalculator &c, const char *szMnemonic)
{
    SetLastOp(c, szMnemonic);
    SetKeystrokes(c, "");
    return Perform(c, szMnemonic, 0);
}

// Key 30 holds the name until its release.
static int PressHeld(cCalculator &c, const char *szMnemonic)
{
    SetLastOp(c, szMnemonic);
    snprintf(c.m_szKeystrokes, sizeof c.m_szKeystrokes, "%s ", szMnemonic);
    return Perform(c, szMnemonic, 0);
}

static int PressPrefix(cCalculator &c, const char *szPrefix)
{
    SetKeystrokes(c, szPrefix);
    return 1;
}

static int PressDigit(cCalculator &c, const char *szDigit)
{
    return OnDigitKey(c, static_cast<unsigned>(*szDigit - '0'));
}

static int PressPoint(cCalculator &c, const char *)
{
    for (const char *const szEnding : s_BeforePoint)
        if (EndsWith(c, szEnding))
        {
            AppendKeystroke(c, ". ");
            return 1;
        }
    SetKeystrokes(c, "");
    return EnterCharacter(c, '.');
}

static int PressExponent(cCalculator &c, const char *)
{
    SetKeystrokes(c, "");
    return EnterCharacter(c, 'e');
}

static int PressShiftG(cCalculator &c, const char *)
{
    for (const char *const szEnding : s_BeforeG)
        if (EndsWith(c, szEnding))
        {
            AppendKeystroke(c, "g ");
            return 1;
        }
    SetKeystrokes(c, "g ");
    return 1;
}

static int PressIndirect(cCalculator &c, const char *)
{
    for (const auto &Row : s_Indirect)
        if (EndsWith(c, Row.m_szEnding))
            return PressRun(c, Row.m_szMnemonic);
    return PressRun(c, "Rolldown");
}

// "-" after STO begins "STO - ".
static int PressArithmetic(cCalculator &c, const char *szMnemonic)
{
    if (!EndsWith(c, "STO "))
        return PressRun(c, szMnemonic);
    snprintf(c.m_szKeystrokes, sizeof c.m_szKeystrokes, "STO %s ", szMnemonic);
    return 1;
}

static int PressSum(cCalculator &c, const char *szMnemonic)
{
    return PressRun(c, EndsWith(c, "RCL ") ? "RCLSum+" : szMnemonic);
}

static int PressNothing(cCalculator &c, const char *)
{
    SetKeystrokes(c, "");
    return 1;
}

static int PressSst(cCalculator &c, const char *)
{
    SetLastOp(c, "SST");
    SetKeystrokes(c, "SST ");
    if (c.m_bProgramMode)
        return StepForward(c);
    c.m_pHost->ShowListing(1);
    c.m_pHost->ShowRegisters(1);
    c.m_pHost->EnableCommand(IDM_REPAIR_HIGHLIGHT, 1);
    return ShowCurrentLine(c);
}

static int PressBst(cCalculator &c, const char *)
{
    SetLastOp(c, "BST");
    SetKeystrokes(c, "BST ");
    StepBack(c);
    return c.m_bProgramMode ? 1 : ShowCurrentLine(c);
}

static int PressRunStop(cCalculator &c, const char *)
{
    SetLastOp(c, "R/S");
    SetKeystrokes(c, "R/S ");
    return c.m_bProgramMode ? Perform(c, "R/S", 0) : ShowCurrentLine(c);
}

static int PressDelete(cCalculator &c, const char *)
{
    SetKeystrokes(c, "");
    return c.m_bProgramMode ? DeleteCurrentLine(c) : 1;
}

static int PressClearProgram(cCalculator &c, const char *)
{
    SetKeystrokes(c, "");
    return c.m_bProgramMode ? ClearProgram(c) : 1;
}

// What a key does: unshifted, after f and after g. The text is the mnemonic,
// prefix or character that the action takes, or else a name to find the key by.
namespace
{

struct cKeyRow
{
    struct cCell
    {
        int (*m_pAction)(cCalculator &c, const char *szText);
        const char *m_szText;
    };
    cCell m_Plain;
    cCell m_AfterF;
    cCell m_AfterG;
};

}  // namespace

// clang-format off
#define RUN(name)    { PressRun,    name }
#define PREFIX(keys) { PressPrefix, keys }
#define DIGIT(digit) { PressDigit,  digit }
#define SUM(name)    { PressSum,    name }
#define OPERATOR(op) { PressArithmetic, op }
#define HOLD(name)   { PressHeld,   name }
#define SPECIAL(key, name) { Press##key, name }

// Keys 1 to 30 in row order.
static const cKeyRow s_Keys[] =
{
//    unshifted                       after f                          after g
    { SPECIAL(Sst, "SST"),            PREFIX("FIX "),                  SPECIAL(Bst, "BST")     },
    { PREFIX("GSB "),                 PREFIX("SCI "),                  RUN("RTN")              },
    { PREFIX("GTO "),                 PREFIX("ENG "),                  PREFIX("LBL ")          },
    { PREFIX("f "),                   PREFIX("f "),                    PREFIX("f ")            },
    { SPECIAL(ShiftG, "g"),           SPECIAL(ShiftG, "g"),            SPECIAL(ShiftG, "g")    },

    { RUN("x<>y"),                    RUN("Mean"),                     RUN("%")                },
    { SPECIAL(Indirect, "Rolldown"),  RUN("StdDev"),                   SPECIAL(Indirect, "i")  },
    { PREFIX("STO "),                 RUN("LR"),                       RUN("DSZ")              },
    { PREFIX("RCL "),                 RUN("ClearG"),                   RUN("ISZ")              },
    { SUM("Sum+"),                    RUN("Sum-"),                     SPECIAL(Delete, "DEL")  },

    { RUN("ENTER"),                   SPECIAL(Nothing, ""),            SPECIAL(Nothing, "")    },
    { RUN("CHS"),                     SPECIAL(ClearProgram, "PRGM"),   RUN("GRD")              },
    { SPECIAL(Exponent, "EEX"),       RUN("ClearREG"),                 RUN("RAD")              },
    { RUN("CLX"),                     RUN("ClearSum"),                 RUN("DEG")              },

    { OPERATOR("-"),                  RUN("x<=y"),                     RUN("x<0")              },
    { DIGIT("7"),                     RUN("ln"),                       RUN("e^x")              },
    { DIGIT("8"),                     RUN("log"),                      RUN("10^x")             },
    { DIGIT("9"),                     RUN("->R"),                      RUN("->P")              },

    { OPERATOR("+"),                  RUN("x>y"),                      RUN("x>0")              },
    { DIGIT("4"),                     RUN("sin"),                      RUN("sin^-1")           },
    { DIGIT("5"),                     RUN("cos"),                      RUN("cos^-1")           },
    { DIGIT("6"),                     RUN("tan"),                      RUN("tan^-1")           },

    { OPERATOR("*"),                  RUN("x!=y"),                     RUN("x!=0")             },
    { DIGIT("1"),                     RUN("INT"),                      RUN("FRAC")             },
    { DIGIT("2"),                     RUN("sqrt"),                     RUN("x^2")              },
    { DIGIT("3"),                     RUN("y^x"),                      RUN("ABS")              },

    { OPERATOR("/"),                  RUN("x=y"),                      RUN("x=0")              },
    { DIGIT("0"),                     RUN("SumG"),                     RUN("SetG")             },
    { SPECIAL(Point, "."),            RUN("LASTx"),                    RUN("pi")               },
    { SPECIAL(RunStop, "R/S"),        HOLD("PAUSE"),                   HOLD("1/x")             },
};

#undef RUN
#undef PREFIX
#undef DIGIT
#undef SUM
#undef OPERATOR
#undef HOLD
#undef SPECIAL
// clang-format on

// A prefix is stored with the blank that follows it: "STO ".
static int IsNamed(const cKeyRow::cCell &Cell, std::string_view Name)
{
    std::string_view Text = Cell.m_szText;
    if (Text.ends_with(' '))
        Text.remove_suffix(1);
    return Text == Name && !Name.empty();
}

cKeySequence FindKeys(std::string_view Name)
{
    unsigned nKey = 1;
    for (const cKeyRow &Row : s_Keys)
    {
        if (IsNamed(Row.m_Plain, Name))
            return {{nKey, 0}, 1};
        if (IsNamed(Row.m_AfterF, Name))
            return {{kKeyF, nKey}, 2};
        if (IsNamed(Row.m_AfterG, Name))
            return {{kKeyG, nKey}, 2};
        nKey++;
    }
    return {{0, 0}, 0};
}

int PressFaceKey(cCalculator &c, unsigned nKeyCode)
{
    const cKeyRow &Row  = s_Keys[nKeyCode - 1];
    const auto    &Cell = EndsWith(c, "f ")   ? Row.m_AfterF
                          : EndsWith(c, "g ") ? Row.m_AfterG
                                              : Row.m_Plain;
    return Cell.m_pAction(c, Cell.m_szText);
}
