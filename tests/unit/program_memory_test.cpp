#include <random>

#include "tests/unit/calculator_rig.h"

// "01 STO 3".
static std::string Numbered(unsigned nLine, const std::string &Text)
{
    return TwoDigits(nLine) + " " + Text;
}

// Lines 1 to 98 hold "FIX 1", "SCI 2", "ENG 3", "FIX 4", ...
static std::string FullLine(unsigned nLine)
{
    static const char *const s_Modes[] = {"ENG ", "FIX ", "SCI "};
    return s_Modes[nLine % 3] + std::to_string(nLine % 10);
}

static void LoadFull(cCalculatorRig *pRig)
{
    std::string Listing;
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
        Listing += FullLine(nLine) + "\n";
    pRig->Load(Listing.c_str());
}

static void GoTo(cCalculatorRig *pRig, unsigned nLine)
{
    pRig->Type("GTO .");
    pRig->Type(TwoDigits(nLine).c_str());
}

// Whether every line's record, its number and its text are in the listing
// where the record says.
static void CheckListing(cCalculatorRig &Rig)
{
    const cVorstekState &State = Rig.State();
    CHECK(!State.m_Program[0].m_pInstruction);
    CHECK(State.m_Program[0].m_nListingLine == 0);
    CHECK_TEXT(State.m_Program[0].m_szText, "");
    CHECK_TEXT(State.m_Program[0].m_szOperandText, "");
    CHECK_TEXT(Rig.ListingLine(0), "00");
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
        CHECK_TEXT(Rig.ListingLine(State.m_Program[nLine].m_nListingLine),
                   Numbered(nLine, Rig.Step(nLine)));
    CHECK(Rig.Highlighted() == State.m_Program[State.m_nCurLine].m_nListingLine);
}

// --- clearing

TEST_CASE("a new calculator lists 98 lines of R/S after line 00")
{
    cCalculatorRig Rig;

    CHECK(Rig.m_Listing.CountLines() == 99);
    CHECK_TEXT(Rig.ListingLine(0), "00");
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
        CHECK_TEXT(Rig.ListingLine(nLine), Numbered(nLine, "R/S"));
    CheckListing(Rig);
    CHECK(Rig.State().m_bProgramModified == 0);
    CHECK(Rig.State().m_nCurLine == 0);
    CHECK_TEXT(Rig.m_Host.m_StatusText, "filename: UNTITLED");
}

TEST_CASE("clearing empties memory, listing, name and current line")
{
    cCalculatorRig Rig;
    Rig.Load("; comment\nSTO .3\n3.5\nCLX\n");
    Rig.m_Engine.TakeLoadedProgram("a.txt");
    Rig.Type("PRGM SST SST x<>y");
    REQUIRE(Rig.State().m_bProgramModified == 1);
    REQUIRE(Rig.m_Host.m_StatusText == "filename: a.txt");

    const int nResult = Rig.m_Engine.ClearProgram();

    CHECK(nResult == 1);
    CHECK(Rig.m_Listing.CountLines() == 99);
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
    {
        CHECK_TEXT(Rig.Step(nLine), "R/S");
        CHECK(Rig.State().m_Program[nLine].m_nOperand == 0);
        CHECK(Rig.State().m_Program[nLine].m_nListingLine == nLine);
        CHECK(Rig.State().m_Program[nLine].m_pInstruction);
    }
    CheckListing(Rig);
    CHECK(Rig.State().m_bProgramModified == 0);
    CHECK(Rig.State().m_nCurLine == 0);
    CHECK_TEXT(Rig.State().m_szFileName, "");
    CHECK_TEXT(Rig.m_Host.m_StatusText, "filename: UNTITLED");
}

TEST_CASE("CLEAR PRGM ends a number entry")
{
    cCalculatorRig Rig;
    Rig.Type("PRGM 12 f CHS");

    CHECK_TEXT(Rig.State().m_szEntry, "");
    Rig.Type("3");
    CHECK_TEXT(Rig.Step(1), "+3.");
    CHECK_TEXT(Rig.Step(2), "R/S");
}

// --- recording

TEST_CASE("an instruction goes after the current line and becomes it")
{
    cCalculatorRig Rig;
    Rig.Load("CLX\nENTER\n");
    GoTo(&Rig, 1);

    Rig.Type("PRGM STO . 3");

    CHECK_TEXT(Rig.Step(1), "CLX");
    CHECK_TEXT(Rig.Step(2), "STO .3");
    CHECK_TEXT(Rig.Step(3), "ENTER");
    CHECK(Rig.State().m_nCurLine == 2);
    CHECK(Rig.State().m_bProgramModified == 1);
    CHECK(Rig.m_Listing.CountLines() == 99);
    CheckListing(Rig);
}

TEST_CASE("STO . 3 is recorded with operand 13")
{
    cCalculatorRig Rig;

    Rig.Type("PRGM STO . 3");

    const ProgramLine &Line = Rig.State().m_Program[1];
    CHECK_TEXT(Rig.ListingLine(1), "01 STO .3");
    CHECK(Line.m_nOperand == 13);
    CHECK_TEXT(Line.m_szText, "STO");
    CHECK_TEXT(Line.m_szOperandText, ".3");
    CHECK(Line.m_nListingLine == 1);
}

TEST_CASE("recorded operands are kept as text and as a value")
{
    // clang-format off
    static const struct
    {
        const char *szMnemonic;
        unsigned    nOperand;
        const char *szText;
        const char *szOperandText;
        unsigned    nRecorded;
    } s_Rows[] =
    {
        { "x<>y",   0,  "x<>y",   "",   0  },
        { "STO",    0,  "STO",    "0",  0  },
        { "STO",    9,  "STO",    "9",  9  },
        { "RCL",    10, "RCL",    ".0", 10 },
        { "STO+",   19, "STO+",   ".9", 19 },
        { "STO i",  0,  "STO i",  "",   0  },
        { "STO/ i", 0,  "STO/ i", "",   0  },
        { "GSB i",  0,  "GSB i",  "",   0  },
        { "GTO",    7,  "GTO",    "7",  7  },
        { "LBL",    0,  "LBL",    "0",  0  },
        { "FIX",    4,  "FIX",    "4",  4  },
        { "R/S",    0,  "R/S",    "",   0  },
        // Register 20 is written .10; the line keeps two characters of that.
        { "STO",    20, "STO",    ".1", 11 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szMnemonic);
        CAPTURE(Row.nOperand);
        cCalculatorRig Rig;
        Rig.Type("PRGM");

        const int nResult = Rig.Run(Row.szMnemonic, Row.nOperand);

        const ProgramLine &Line = Rig.State().m_Program[1];
        CHECK(nResult == 1);
        CHECK_TEXT(Line.m_szText, Row.szText);
        CHECK_TEXT(Line.m_szOperandText, Row.szOperandText);
        CHECK(Line.m_nOperand == Row.nRecorded);
        CHECK(Rig.m_Host.m_Boxes.empty());
    }
}

TEST_CASE("every instruction of the table can be recorded and is found again")
{
    for (const cInstruction &Instruction : Instructions())
    {
        CAPTURE_TEXT(Instruction.m_szMnemonic);
        cCalculatorRig Rig;
        Rig.Type("PRGM");

        const int nResult = Rig.Run(Instruction.m_szMnemonic, 3);

        const std::string Operand = Instruction.m_nOperand == opNone ? "" : " 3";
        CHECK(nResult == 1);
        CHECK_TEXT(Rig.Step(1), Instruction.m_szMnemonic + Operand);
        CHECK(Rig.State().m_Program[1].m_pInstruction == &Instruction);
        CheckListing(Rig);
    }
}

TEST_CASE("inserting at line 97 makes line 98 and pushes the old one out")
{
    cCalculatorRig Rig;
    LoadFull(&Rig);
    Rig.Type("PRGM");
    GoTo(&Rig, 97);

    Rig.Type("CLX");

    CHECK_TEXT(Rig.Step(97), FullLine(97));
    CHECK_TEXT(Rig.Step(98), "CLX");
    CHECK(Rig.State().m_nCurLine == 98);
    CHECK(Rig.m_Listing.CountLines() == 99);
    CheckListing(Rig);
}

TEST_CASE("inserting at line 98 is refused with a sound")
{
    cCalculatorRig Rig;
    LoadFull(&Rig);
    Rig.Type("PRGM");
    GoTo(&Rig, 98);
    Rig.Forget();

    const int nResult = Rig.Run("CLX");

    CHECK(nResult == 1);
    CHECK_TEXT(Rig.Sounds(), "10051");
    CHECK_TEXT(Rig.Step(98), FullLine(98));
    CHECK(Rig.State().m_nCurLine == 98);
    CHECK(Rig.State().m_bProgramModified == 0);
    CHECK(Rig.m_Host.m_Boxes.empty());
    CheckListing(Rig);
}

TEST_CASE("a refused insertion is silent with sounds off")
{
    cCalculatorRig Rig;
    Rig.m_Engine.ApplyOptions({0, 0, 0, 1});
    Rig.Type("PRGM GTO . 9 8 CLX");

    CHECK_TEXT(Rig.Sounds(), "");
}

TEST_CASE("a refused insertion leaves a number entry in progress")
{
    cCalculatorRig Rig;
    Rig.Type("PRGM GTO . 9 8 12");

    Rig.Type("CLX 3");

    CHECK_TEXT(Rig.Step(98), "+123.");
}

TEST_CASE("comments keep their places while lines are inserted and deleted")
{
    cCalculatorRig Rig;
    Rig.Load("; a\nCLX\n; b\n\nENTER\n; c\n");
    Rig.Type("PRGM SST x<>y");

    CHECK_TEXT(Rig.ListingLine(1), "   ; a");
    CHECK_TEXT(Rig.ListingLine(2), "01 CLX");
    CHECK_TEXT(Rig.ListingLine(3), "02 x<>y");
    CHECK_TEXT(Rig.ListingLine(4), "   ; b");
    CHECK_TEXT(Rig.ListingLine(5), "   ");
    CHECK_TEXT(Rig.ListingLine(6), "03 ENTER");
    CHECK_TEXT(Rig.ListingLine(7), "   ; c");
    CHECK_TEXT(Rig.ListingLine(8), "04 R/S");
    CheckListing(Rig);

    Rig.Type("SST g Sum+");

    CHECK_TEXT(Rig.ListingLine(3), "02 x<>y");
    CHECK_TEXT(Rig.ListingLine(5), "   ");
    CHECK_TEXT(Rig.ListingLine(6), "   ; c");
    CHECK_TEXT(Rig.ListingLine(7), "03 R/S");
    CHECK(Rig.m_Listing.CountLines() == 103);
    CheckListing(Rig);
}

TEST_CASE("a comment after line 98 stays there when line 98 is pushed out")
{
    cCalculatorRig Rig;
    std::string    Listing;
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
        Listing += FullLine(nLine) + "\n";
    Rig.Load((Listing + "; the end\n").c_str());

    Rig.Type("PRGM CLX");

    CHECK_TEXT(Rig.Step(1), "CLX");
    CHECK_TEXT(Rig.Step(98), FullLine(97));
    CHECK_TEXT(Rig.ListingLine(99), "   ; the end");
    CHECK(Rig.m_Listing.CountLines() == 100);
    CheckListing(Rig);
}

TEST_CASE("a comment that looks like a program line is not renumbered")
{
    cCalculatorRig Rig;
    Rig.Load("CLX\n  ;55 x\n;66 y\nENTER\n");

    Rig.Type("PRGM x<>y");

    CHECK_TEXT(Rig.ListingLine(3), "     ;55 x");
    CHECK_TEXT(Rig.ListingLine(4), "   ;66 y");
    CheckListing(Rig);
}

// --- number lines

TEST_CASE("a number grows in one line")
{
    // clang-format off
    static const struct { const char *szKeys; const char *szText; } s_Rows[] =
    {
        { "3",              "+3."          },
        { "3.",             "+3."          },
        { "3.14",           "+3.14"        },
        { "3 CHS",          "-3."          },
        { "1.5 EEX",        "+1.5e+00"     },
        { "1.5 EEX 23 CHS", "+1.5e-23"     },
        { "EEX 5",          "+1.e+05"      },
        { ".5",             "+0.5"         },
        { "0",              "+0."          },
        { "12345678901",    "+1234567890." },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szKeys);
        cCalculatorRig Rig;
        Rig.Load("; comment\nCLX\nENTER\n");
        Rig.Type("PRGM SST");

        Rig.Type(Row.szKeys);

        const ProgramLine &Line = Rig.State().m_Program[2];
        CHECK_TEXT(Line.m_szText, Row.szText);
        CHECK_TEXT(Line.m_szOperandText, "");
        CHECK(!Line.m_pInstruction);
        CHECK(Line.m_nOperand == 0);
        CHECK_TEXT(Rig.Step(1), "CLX");
        CHECK_TEXT(Rig.Step(3), "ENTER");
        CHECK(Rig.State().m_nCurLine == 2);
        CHECK(Rig.State().m_bProgramModified == 1);
        CheckListing(Rig);
    }
}

TEST_CASE("a number line lists its sign")
{
    cCalculatorRig Rig;

    Rig.Type("PRGM 3.14");

    CHECK_TEXT(Rig.ListingLine(1), "01 +3.14");
}

TEST_CASE("a number that is started at line 98 overwrites it")
{
    cCalculatorRig Rig;
    LoadFull(&Rig);
    Rig.Type("PRGM");
    GoTo(&Rig, 98);
    Rig.Forget();

    Rig.Type("12");

    CHECK_TEXT(Rig.Step(98), "+12.");
    CHECK(!Rig.State().m_Program[98].m_pInstruction);
    CHECK(Rig.State().m_Program[98].m_nOperand == 0);
    CHECK_TEXT(Rig.State().m_Program[98].m_szOperandText, "");
    CHECK_TEXT(Rig.Step(97), FullLine(97));
    CHECK(Rig.State().m_nCurLine == 98);
    CHECK(Rig.State().m_bProgramModified == 1);
    CHECK_TEXT(Rig.Sounds(), "10050 10050");
    CheckListing(Rig);
}

TEST_CASE("an instruction or a movement ends the number, the next digit starts another")
{
    // clang-format off
    static const struct
    {
        const char *szKeys;
        unsigned    nSecond;   // the line that the second number is in
    } s_Rows[] =
    {
        { "CLX",       3  },
        { "GTO . 0 1", 2  },
        { "SST",       3 },
        { "g SST",     98 },
        { "g Sum+",    1  },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szKeys);
        cCalculatorRig Rig;
        Rig.Type("PRGM 12");

        Rig.Type(Row.szKeys);
        CHECK_TEXT(Rig.State().m_szEntry, "");
        Rig.Type("34");

        CHECK_TEXT(Rig.Step(Row.nSecond), "+34.");
        CheckListing(Rig);
    }
}

// --- deleting

TEST_CASE("deleting line 5 of a full memory moves the lines after it up")
{
    cCalculatorRig Rig;
    LoadFull(&Rig);
    Rig.Type("PRGM");
    GoTo(&Rig, 5);

    Rig.Type("g Sum+");

    for (unsigned nLine = 1; nLine < kLastLine; nLine++)
        CHECK_TEXT(Rig.Step(nLine), FullLine(nLine < 5 ? nLine : nLine + 1));
    CHECK_TEXT(Rig.Step(98), "R/S");
    CHECK(Rig.State().m_nCurLine == 4);
    CHECK(Rig.State().m_bProgramModified == 1);
    CHECK(Rig.m_Listing.CountLines() == 99);
    CheckListing(Rig);
}

TEST_CASE("the first and the last line can be deleted")
{
    cCalculatorRig Rig;
    LoadFull(&Rig);
    Rig.Type("PRGM");
    GoTo(&Rig, 98);

    Rig.Type("g Sum+");
    CHECK(Rig.State().m_nCurLine == 97);
    CHECK_TEXT(Rig.Step(97), FullLine(97));
    CHECK_TEXT(Rig.Step(98), "R/S");
    CheckListing(Rig);

    GoTo(&Rig, 1);
    Rig.Type("g Sum+");
    CHECK(Rig.State().m_nCurLine == 0);
    CHECK_TEXT(Rig.Step(1), FullLine(2));
    CheckListing(Rig);
}

TEST_CASE("DEL at line 0 does nothing but the sound")
{
    cCalculatorRig Rig;
    LoadFull(&Rig);
    Rig.Type("PRGM g");
    Rig.Forget();

    Rig.Type("Sum+");

    CHECK_TEXT(Rig.Sounds(), "10050 10051");
    CHECK(Rig.State().m_nCurLine == 0);
    CHECK(Rig.State().m_bProgramModified == 0);
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
        CHECK_TEXT(Rig.Step(nLine), FullLine(nLine));
    CheckListing(Rig);
}

TEST_CASE("DEL ends a number entry and deletes its line")
{
    cCalculatorRig Rig;

    Rig.Type("PRGM 12 g Sum+");

    CHECK_TEXT(Rig.Step(1), "R/S");
    CHECK_TEXT(Rig.State().m_szEntry, "");
}

TEST_CASE("deleting at a line above 98 is an inconsistency")
{
    cCalculatorRig Rig;
    LoadFull(&Rig);
    Rig.Type("PRGM");
    Rig.Forget();
    Rig.m_Engine.Raw().m_nCurLine = 99;

    const int nResult = Rig.m_Engine.DeleteCurrentLine();

    CHECK(nResult == 1);
    CHECK_TEXT(Rig.LastBox(), "Program Error Code #117");
    CHECK(Rig.m_Host.m_Boxes.size() == 1);
    CHECK_TEXT(Rig.Step(98), FullLine(98));
    CHECK(Rig.State().m_bProgramModified == 0);
}

// --- moving

TEST_CASE("steps wrap within lines 1 to 98")
{
    // clang-format off
    static const struct { unsigned nFrom; const char *szKeys; unsigned nTo; } s_Rows[] =
    {
        { 0,  "SST",   1  },
        { 1,  "SST",   2  },
        { 97, "SST",   98 },
        { 98, "SST",   1  },
        { 98, "g SST", 97 },
        { 2,  "g SST", 1  },
        { 1,  "g SST", 98 },
        { 0,  "g SST", 98 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.nFrom);
        CAPTURE_TEXT(Row.szKeys);
        cCalculatorRig Rig;
        Rig.Type("PRGM");
        GoTo(&Rig, Row.nFrom);

        Rig.Type(Row.szKeys);

        CHECK(Rig.State().m_nCurLine == Row.nTo);
        CHECK(Rig.State().m_bProgramModified == 0);
        CheckListing(Rig);
    }
}

TEST_CASE("the movements return 1")
{
    cCalculatorRig Rig;

    CHECK(Rig.m_Engine.StepForward() == 1);
    CHECK(Rig.m_Engine.StepBack() == 1);
    CHECK(Rig.m_Engine.GoToLine(7) == 1);
    CHECK(Rig.m_Engine.ShowCurrentLine() == 1);
}

TEST_CASE("a line number is 0 to 98, 99 is line 1")
{
    for (unsigned nLine = 0; nLine <= 99; nLine++)
    {
        cCalculatorRig Rig;
        Rig.m_Engine.GoToLine(50);

        CHECK(Rig.m_Engine.GoToLine(nLine) == 1);

        CHECK(Rig.State().m_nCurLine == (nLine == 99 ? 1 : nLine));
        CHECK(Rig.m_Host.m_Boxes.empty());
    }
}

TEST_CASE("a line number above 99 is an inconsistency and goes to line 0")
{
    for (const unsigned nLine : {100U, 1000U, 0xFFFFFFFFU})
    {
        cCalculatorRig Rig;
        Rig.m_Engine.GoToLine(50);

        const int nResult = Rig.m_Engine.GoToLine(nLine);

        CHECK(nResult == 1);
        CHECK(Rig.State().m_nCurLine == 0);
        CHECK(Rig.m_Host.m_Boxes.size() == 1);
        CHECK_TEXT(Rig.LastBox(), "Program Error Code #114");
    }
}

TEST_CASE("every movement abandons a number entry and shows X formatted")
{
    for (const char *const szKeys : {"GTO . 1 2", "g SST"})
    {
        CAPTURE_TEXT(szKeys);
        cCalculatorRig Rig;
        Rig.Type("12.5");

        Rig.Type(szKeys);

        CHECK_TEXT(Rig.State().m_szEntry, "");
        CHECK_TEXT(Rig.State().m_szX, "+12.50");
        CHECK_TEXT(Rig.Display(), "+12.50");
        CHECK(Rig.X() == 12.5);
    }
}

TEST_CASE("the current line is shown with its operand, line 0 as line 1")
{
    // clang-format off
    static const struct { unsigned nLine; const char *szShown; } s_Rows[] =
    {
        { 0,  "01 STO .3" },
        { 1,  "01 STO .3" },
        { 2,  "02 RCL i"  },
        { 3,  "03 3.14"   },
        { 4,  "04 LBL 7"  },
        { 5,  "05 R/S"    },
        { 98, "98 R/S"    },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.nLine);
        cCalculatorRig Rig;
        Rig.Load("STO .3\nRCL i\n3.14\nLBL 7\n");
        Rig.m_Engine.GoToLine(Row.nLine);

        Rig.m_Engine.ShowCurrentLine();

        CHECK_TEXT(Rig.State().m_szDisplay, Row.szShown);
        CHECK(Rig.State().m_nCurLine == Row.nLine);
    }
}

TEST_CASE("showing a line in program mode is an inconsistency")
{
    cCalculatorRig Rig;
    Rig.Type("PRGM");

    const int nResult = Rig.m_Engine.ShowCurrentLine();

    CHECK(nResult == 1);
    CHECK(Rig.m_Host.m_Boxes.size() == 1);
    CHECK_TEXT(Rig.LastBox(), "Program Error Code #109");
    CHECK_TEXT(Rig.Shown(), "00");
}

// --- the listing box

namespace
{

// A box that miscounts its text.
class cForgetfulBox : public cMemoryLineBox
{
public:
    size_t GetTextLength() const override { return cMemoryLineBox::GetTextLength() + 1; }
};

}  // namespace

TEST_CASE("a listing that reads back shorter than reported is an inconsistency")
{
    cRecordingHost Host;
    cForgetfulBox  Listing;
    cMemoryLineBox Registers;
    cTestEngine    Engine(&Host, &Listing, &Registers);
    Engine.Start();
    Engine.OnCalcKey(kKeyMode, 0);

    Engine.Perform("CLX", 0);

    REQUIRE(Host.m_Boxes.size() == 1);
    CHECK_TEXT(Host.m_Boxes[0].m_Text, "Program Error Code #119");
    CHECK_TEXT(Engine.State().m_Program[1].m_szText, "CLX");
}

// --- many operations against a plain model

namespace
{

// The listing as a list of texts; those of program lines are numbered when
// they are compared.
class cModel
{
public:
    explicit cModel(const std::vector<std::pair<int, std::string>> &FileLines)
    {
        unsigned nProgramLines = 0;
        for (const auto &[bProgram, Text] : FileLines)
        {
            m_Lines.push_back({bProgram, Text});
            nProgramLines += bProgram ? 1 : 0;
        }
        for (; nProgramLines < kLastLine; nProgramLines++)
            m_Lines.push_back({1, "R/S"});
    }

    void Insert(const std::string &Text)
    {
        if (m_nCurLine == kLastLine)
            return;
        Erase(kLastLine);
        m_Lines.insert(Behind(m_nCurLine), {1, Text});
        m_nCurLine++;
        EndNumber();
    }

    void Digit(char cDigit)
    {
        if (m_Digits.empty())
        {
            if (m_nCurLine < kLastLine)
                Insert("");
            m_Sign = '+';
        }
        if (m_Digits.size() < 10)
            m_Digits += cDigit;
        Rewrite();
    }

    void ChangeSign()
    {
        if (m_Digits.empty())
        {
            Insert("CHS");
            return;
        }
        if (m_Digits.find_first_not_of('0') != std::string::npos)
            m_Sign = m_Sign == '+' ? '-' : '+';
        Rewrite();
    }

    void Delete()
    {
        if (m_nCurLine == 0)
            return;
        Erase(m_nCurLine--);
        m_Lines.push_back({1, "R/S"});
        EndNumber();
    }

    void GoTo(unsigned nLine)
    {
        m_nCurLine = nLine;
        EndNumber();
    }

    void Clear()
    {
        m_Lines.assign(kLastLine, {1, "R/S"});
        GoTo(0);
    }

    std::vector<std::string> Listing()
    {
        std::vector<std::string> Listing = {"00"};
        unsigned                 nNumber = 0;
        for (const auto &[bProgram, Text] : m_Lines)
            Listing.push_back(bProgram ? Numbered(++nNumber, Text) : "   " + Text);
        return Listing;
    }

    unsigned CurLine() const { return m_nCurLine; }

private:
    struct cLine
    {
        int         m_bProgram;
        std::string m_Text;
    };

    // The line after program line nLine; line 0 comes before the first.
    std::vector<cLine>::iterator Behind(unsigned nLine)
    {
        auto Line = m_Lines.begin();
        for (unsigned n = 0; n < nLine; ++Line)
            n += Line->m_bProgram ? 1 : 0;
        return Line;
    }

    void Erase(unsigned nLine) { m_Lines.erase(Behind(nLine) - 1); }
    void Rewrite() { (Behind(m_nCurLine) - 1)->m_Text = m_Sign + m_Digits + "."; }
    void EndNumber() { m_Digits.clear(); }

    std::vector<cLine> m_Lines;
    unsigned           m_nCurLine = 0;
    std::string        m_Digits;  // of the number being keyed, else empty
    char               m_Sign = '+';
};

}  // namespace

static void CheckAgainst(cModel &Model, cCalculatorRig &Rig)
{
    const std::vector<std::string> Listing = Model.Listing();
    REQUIRE(Rig.m_Listing.CountLines() == Listing.size());
    for (unsigned nLine = 0; nLine < Listing.size(); nLine++)
        REQUIRE(Rig.ListingLine(nLine) == Listing[nLine]);
    REQUIRE(Rig.State().m_nCurLine == Model.CurLine());
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
        REQUIRE(Listing[Rig.State().m_Program[nLine].m_nListingLine] ==
                Numbered(nLine, Rig.Step(nLine)));
    REQUIRE(Rig.Highlighted() == Rig.State().m_Program[Model.CurLine()].m_nListingLine);
}

// One random editing operation, by keys and in the model.
static void Edit(std::mt19937 *pRandom, cCalculatorRig *pRig, cModel *pModel)
{
    // clang-format off
    static const struct { const char *szKeys; const char *szRecorded; } s_Instructions[] =
    {
        { "x<>y",    "x<>y"   },
        { "STO . 3", "STO .3" },
        { "GTO i",   "GTO i"  },
        { "STO + 5", "STO+ 5" },
        { "g GTO 4", "LBL 4"  },
        { "R/S",     "R/S"    },
    };
    // clang-format on
    const auto Pick = [pRandom](unsigned nCount) {
        return static_cast<unsigned>((*pRandom)() % nCount);
    };
    const unsigned nCurLine = pModel->CurLine();
    switch (Pick(10))
    {
    case 0:
    case 1:
    {
        const auto &Row = s_Instructions[Pick(6)];
        pRig->Type(Row.szKeys);
        pModel->Insert(Row.szRecorded);
        break;
    }
    case 2:
    case 3:
    case 4:
    {
        const char szDigit[] = {static_cast<char>('0' + Pick(10)), 0};
        pRig->Type(szDigit);
        pModel->Digit(*szDigit);
        break;
    }
    case 5:
        pRig->Type("CHS");
        pModel->ChangeSign();
        break;
    case 6:
        pRig->Type("g Sum+");
        pModel->Delete();
        break;
    case 7:
        pRig->Type("SST");
        pModel->GoTo(nCurLine % kLastLine + 1);
        break;
    case 8:
        pRig->Type("g SST");
        pModel->GoTo(nCurLine > 1 ? nCurLine - 1 : kLastLine);
        break;
    case 9:
    {
        static const unsigned s_Lines[] = {0, 1, 2, 50, 96, 97, 98};
        const unsigned        nLine     = s_Lines[Pick(7)];
        ::GoTo(pRig, nLine);
        pModel->GoTo(nLine);
        break;
    }
    }
}

TEST_CASE("a thousand random edits give what a plain model gives")
{
    for (unsigned nSeed = 1; nSeed <= 4; nSeed++)
    {
        CAPTURE(nSeed);
        std::mt19937                             Random(nSeed);
        std::vector<std::pair<int, std::string>> FileLines;
        std::string                              File;
        for (unsigned nLine = 0; nLine < 40 * (nSeed - 1); nLine++)
        {
            const int bProgram = Random() % 4 != 0;
            FileLines.emplace_back(bProgram, bProgram ? "RCL 5" : "; 77");
            File += FileLines.back().second + "\n";
        }
        cCalculatorRig Rig;
        cModel         Model(FileLines);
        Rig.Load(File.c_str());
        Rig.Type("PRGM");
        CheckAgainst(Model, Rig);

        for (int i = 0; i < 250; i++)
        {
            CAPTURE(i);
            Edit(&Random, &Rig, &Model);
            CheckAgainst(Model, Rig);
        }

        Rig.Type("f CHS");
        Model.Clear();
        CheckAgainst(Model, Rig);
        CHECK(Rig.m_Host.m_Boxes.empty());
    }
}
