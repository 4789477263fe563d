// Events of the keys, through keystrokes.cpp, key_actions.cpp and pending_keys.cpp.

#include "tests/unit/calculator_rig.h"

namespace
{

// Pending keys: what is typed and what the buffer then holds.
struct cPending
{
    const char *szKeys;
    const char *szBuffer;
};

}  // namespace

// clang-format off
static const cPending s_Pending[] =
{
    { "f",       "f "       }, { "g",       "g "       },
    { "f SST",   "FIX "     }, { "f GSB",   "SCI "     }, { "f GTO",   "ENG "     },
    { "g GTO",   "LBL "     }, { "GSB",     "GSB "     }, { "GSB g",   "GSB g "   },
    { "GTO",     "GTO "     }, { "GTO g",   "GTO g "   }, { "GTO .",   "GTO . "   },
    { "GTO . 4", "GTO . 4"  },
    { "STO",     "STO "     }, { "STO g",   "STO g "   }, { "STO .",   "STO . "   },
    { "STO +",   "STO + "   }, { "STO + g", "STO + g " }, { "STO + .", "STO + . " },
    { "STO -",   "STO - "   }, { "STO - g", "STO - g " }, { "STO - .", "STO - . " },
    { "STO *",   "STO * "   }, { "STO * g", "STO * g " }, { "STO * .", "STO * . " },
    { "STO /",   "STO / "   }, { "STO / g", "STO / g " }, { "STO / .", "STO / . " },
    { "RCL",     "RCL "     }, { "RCL g",   "RCL g "   }, { "RCL .",   "RCL . "   },
};
// clang-format on

static int EndsWith(const std::string &Text, const std::string &Ending)
{
    return Text.size() >= Ending.size() &&
           Text.compare(Text.size() - Ending.size(), Ending.size(), Ending) == 0;
}

static int IsShifted(const cPending &Pending)
{
    return EndsWith(Pending.szBuffer, "f ") || EndsWith(Pending.szBuffer, "g ");
}

// All that an instruction may change, as one text.
static std::string Changeable(cCalculatorRig &Rig)
{
    const cVorstekState &State = Rig.State();
    std::string          Text  = Rig.Display();
    for (const double dValue : {State.m_dX, State.m_dY, State.m_dZ, State.m_dT, State.m_dLastX})
        Text += " " + std::to_string(dValue);
    for (const double dValue : State.m_dReg)
        Text += " " + std::to_string(dValue);
    Text += " line " + std::to_string(State.m_nCurLine);
    Text += " angle " + std::to_string(State.m_nAngleMode);
    Text += " lift " + std::to_string(State.m_bStackLift);
    Text += " sets " + std::to_string(Rig.m_Host.m_Graph.size());
    Text += " pauses " + std::to_string(Rig.m_Host.m_Pauses.size());
    return Text;
}

// A calculator whose state every instruction changes.
static void Prepare(cCalculatorRig *pRig)
{
    pRig->m_Engine.GoToLine(5);
    pRig->Set(0.25, 2.0, 3.0, 4.0);
    for (unsigned nRegister = 0; nRegister < kRegisters; nRegister++)
        pRig->SetReg(nRegister, 1.0 + nRegister);
    pRig->m_Engine.Raw().m_dLastX     = 6.0;
    pRig->m_Engine.Raw().m_nAngleMode = kAngleGrd;
    pRig->m_Engine.Raw().m_bStackLift = 0;
}

// An instruction that fails: the error text is shown, a press is awaited.
static void Fail(cCalculatorRig *pRig)
{
    pRig->Type("4 CHS f 2");
    REQUIRE(pRig->Display() == "Error: sqrt of x < 0");
    REQUIRE(std::string(pRig->State().m_szKeystrokes) == "EWFDK");
    pRig->Forget();
}

// The press of another key clears the error; its release is awaited.
static void PressToClear(cCalculatorRig *pRig)
{
    Fail(pRig);
    pRig->Down(6);
    REQUIRE(std::string(pRig->State().m_szKeystrokes) == "EWFUK");
    pRig->Forget();
}

// Runs an endless loop; Event comes from the third drain, and if the program
// still runs then, key 2 halts it at the tenth.
static void RunWith(cCalculatorRig *pRig, const std::function<void()> &Event)
{
    pRig->Load("LBL 1\nGTO 1\n");
    pRig->m_Host.m_OnDrain = [pRig, Event, nDrains = 0]() mutable {
        nDrains++;
        if (nDrains == 3)
            Event();
        else if (nDrains == 10)
            pRig->Down(2);
        REQUIRE(nDrains <= 10);
        return 1;
    };
    pRig->Down(kKeyRunStop);
    pRig->Forget();
    pRig->Up(kKeyRunStop);
    pRig->m_Host.m_OnDrain = nullptr;
}

// A program that was halted by key 9, which is still down.
static void HaltByKey(cCalculatorRig *pRig)
{
    RunWith(pRig, [pRig] { pRig->Down(9); });
    REQUIRE(std::string(pRig->State().m_szKeystrokes) == "HWFUK");
    pRig->Forget();
}

static void CheckCodeBox(cCalculatorRig &Rig, const char *szText)
{
    REQUIRE(Rig.m_Host.m_Boxes.size() == 1);
    CHECK_TEXT(Rig.LastBox(), szText);
    CHECK_TEXT(Rig.m_Host.m_Boxes[0].m_Caption, "");
    CHECK(Rig.m_Host.m_Boxes[0].m_nButtons == bnOk);
    CHECK(Rig.m_Host.m_Boxes[0].m_nIcon == icNone);
}

// --- the press table

namespace
{

// What a press does. A text that ends in a blank is a prefix that becomes the
// buffer, one after an apostrophe goes to number entry, "" does nothing, all
// others are instructions. The keys SST, BST, R/S, DEL and CLEAR PRGM, left
// out by null, have tests of their own.
struct cPressRow
{
    unsigned    nKey;
    const char *szPlain;
    const char *szAfterF;
    const char *szAfterG;
};

}  // namespace

// clang-format off
static const cPressRow s_Press[] =
{
    { 1,  nullptr,    "FIX ",     nullptr   },
    { 2,  "GSB ",     "SCI ",     "RTN"     },
    { 3,  "GTO ",     "ENG ",     "LBL "    },
    { 4,  "f ",       "f ",       "f "      },
    { 5,  "g ",       "g ",       "g "      },
    { 6,  "x<>y",     "Mean",     "%"       },
    { 7,  "Rolldown", "StdDev",   "RCL i"   },
    { 8,  "STO ",     "LR",       "DSZ"     },
    { 9,  "RCL ",     "ClearG",   "ISZ"     },
    { 10, "Sum+",     "Sum-",     nullptr   },
    { 11, "ENTER",    "",         ""        },
    { 12, "CHS",      nullptr,    "GRD"     },
    { 13, "'e",       "ClearREG", "RAD"     },
    { 14, "CLX",      "ClearSum", "DEG"     },
    { 15, "-",        "x<=y",     "x<0"     },
    { 16, "'7",       "ln",       "e^x"     },
    { 17, "'8",       "log",      "10^x"    },
    { 18, "'9",       "->R",      "->P"     },
    { 19, "+",        "x>y",      "x>0"     },
    { 20, "'4",       "sin",      "sin^-1"  },
    { 21, "'5",       "cos",      "cos^-1"  },
    { 22, "'6",       "tan",      "tan^-1"  },
    { 23, "*",        "x!=y",     "x!=0"    },
    { 24, "'1",       "INT",      "FRAC"    },
    { 25, "'2",       "sqrt",     "x^2"     },
    { 26, "'3",       "y^x",      "ABS"     },
    { 27, "/",        "x=y",      "x=0"     },
    { 28, "'0",       "SumG",     "SetG"    },
    { 29, "'.",       "LASTx",    "pi"      },
    { 30, nullptr,    "PAUSE",    "1/x"     },
};
// clang-format on

// Calls Check(row's key, shift keys, what the press does) for each cell.
template <class cCheck> static void ForEachCell(cCheck Check)
{
    for (const cPressRow &Row : s_Press)
    {
        const struct
        {
            const char *szShift;
            const char *szDoes;
        } Cells[] = {{"", Row.szPlain}, {"f", Row.szAfterF}, {"g", Row.szAfterG}};
        for (const auto &Cell : Cells)
            if (Cell.szDoes)
            {
                CAPTURE(Row.nKey);
                CAPTURE_TEXT(Cell.szShift);
                Check(Row.nKey, Cell.szShift, std::string(Cell.szDoes));
            }
    }
}

static int IsPrefix(const std::string &Does)
{
    return EndsWith(Does, " ");
}

static int IsEntry(const std::string &Does)
{
    return Does[0] == '\'';
}

// PAUSE and 1/x stay in the buffer until key 30 is released.
static std::string BufferAfter(const std::string &Does)
{
    return Does == "PAUSE" || Does == "1/x" ? Does + " " : "";
}

TEST_CASE("in program mode each instruction key records its mnemonic")
{
    int nCells = 0;
    ForEachCell([&](unsigned nKey, const char *szShift, const std::string &Does) {
        if (IsPrefix(Does) || IsEntry(Does) || Does.empty())
            return;
        cCalculatorRig Rig;
        Rig.Type("PRGM");
        Rig.Type(szShift);
        Rig.Forget();

        Rig.Down(nKey);

        CHECK_TEXT(Rig.Step(1), Does);
        CHECK(Rig.State().m_nCurLine == 1);
        CHECK_TEXT(Rig.State().m_szLastOp, Does);
        CHECK_TEXT(Rig.State().m_szKeystrokes, BufferAfter(Does));
        CHECK_TEXT(Rig.Sounds(), "10050");
        CHECK(Rig.m_Host.m_Boxes.empty());
        nCells++;
    });
    CHECK(nCells == 57);
}

TEST_CASE("in run mode each instruction key executes its instruction")
{
    ForEachCell([&](unsigned nKey, const char *szShift, const std::string &Does) {
        if (IsPrefix(Does) || IsEntry(Does) || Does.empty())
            return;
        cCalculatorRig Rig, Direct;
        Prepare(&Rig);
        Prepare(&Direct);
        Rig.Type(szShift);
        Rig.Forget();
        const std::string Before = Changeable(Rig);

        const int bDone = Direct.Run(Does.c_str());
        Rig.Down(nKey);

        CHECK(bDone == (Does != "SetG"));
        CHECK_TEXT(Changeable(Rig), Changeable(Direct));
        CHECK(Changeable(Rig) != Before);
        CHECK_TEXT(Rig.State().m_szLastOp, Does);
        CHECK_TEXT(Rig.State().m_szKeystrokes, bDone ? BufferAfter(Does) : "EWFDK");
        CHECK_TEXT(Rig.Sounds(), bDone ? "10050" : "10050 10052");
    });
}

TEST_CASE("prefix keys wait for more and execute nothing")
{
    ForEachCell([](unsigned nKey, const char *szShift, const std::string &Does) {
        if (!IsPrefix(Does))
            return;
        for (const char *const szMode : {"", "PRGM"})
        {
            cCalculatorRig Rig;
            Rig.Type("f ENTER x<>y");
            Rig.Type(szMode);
            Rig.Type(szShift);
            Rig.Forget();
            const std::string Before = Changeable(Rig);

            Rig.Down(nKey);

            CHECK_TEXT(Rig.State().m_szKeystrokes, Does);
            CHECK_TEXT(Rig.State().m_szLastOp, "x<>y");
            CHECK_TEXT(Changeable(Rig), Before);
            CHECK(Rig.State().m_bProgramModified == 0);
            CHECK_TEXT(Rig.Sounds(), "10050");
        }
    });
}

TEST_CASE("digits, point and EEX go to number entry and are no operation")
{
    ForEachCell([](unsigned nKey, const char *szShift, const std::string &Does) {
        if (!IsEntry(Does))
            return;
        const std::string Entered = Does == "'e"   ? "+1.e+00"
                                    : Does == "'." ? "+0."
                                                   : "+" + Does.substr(1) + ".";
        cCalculatorRig    Rig, Recording;
        Rig.Type("x<>y");
        Rig.Type(szShift);
        Recording.Type("x<>y PRGM");
        Rig.Forget();

        Rig.Down(nKey);
        Recording.Down(nKey);

        CHECK_TEXT(Rig.State().m_szX, Entered);
        CHECK_TEXT(Recording.Step(1), Entered);
        for (cCalculatorRig *const pRig : {&Rig, &Recording})
        {
            CHECK_TEXT(pRig->State().m_szLastOp, "x<>y");
            CHECK_TEXT(pRig->State().m_szKeystrokes, "");
        }
        CHECK_TEXT(Rig.Sounds(), "10050");
    });
}

TEST_CASE("f ENTER and g ENTER only clear the pending keys")
{
    for (const char *const szKeys : {"f ENTER", "g ENTER", "STO g ENTER", "RCL f ENTER"})
        for (const char *const szMode : {"", "PRGM"})
        {
            CAPTURE_TEXT(szKeys);
            cCalculatorRig Rig;
            Rig.Set(1.0, 2.0);
            Rig.Type("x<>y");
            Rig.Type(szMode);
            const std::string Before = Changeable(Rig);

            Rig.Type(szKeys);

            CHECK_TEXT(Rig.State().m_szKeystrokes, "");
            CHECK_TEXT(Rig.State().m_szLastOp, "x<>y");
            CHECK_TEXT(Changeable(Rig), Before);
            CHECK(Rig.State().m_bProgramModified == 0);
        }
}

TEST_CASE("f and key 8 are linear regression")
{
    cCalculatorRig Rig;
    Rig.Type("PRGM");

    Rig.Type("f STO");

    CHECK_TEXT(Rig.Step(1), "LR");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "");
}

TEST_CASE("DEL deletes the current line and CLEAR PRGM all of them, in program mode")
{
    cCalculatorRig Rig;
    Rig.Load("x<>y\nENTER\nCLX\n");
    Rig.Type("PRGM SST SST");
    const std::string LastOp = Rig.State().m_szLastOp;

    Rig.Type("STO g Sum+");

    CHECK_TEXT(Rig.Step(1), "x<>y");
    CHECK_TEXT(Rig.Step(2), "CLX");
    CHECK(Rig.State().m_nCurLine == 1);
    CHECK_TEXT(Rig.State().m_szKeystrokes, "");
    CHECK_TEXT(Rig.State().m_szLastOp, LastOp);

    Rig.Type("f CHS");

    CHECK_TEXT(Rig.Step(1), "R/S");
    CHECK(Rig.State().m_nCurLine == 0);
    CHECK_TEXT(Rig.State().m_szKeystrokes, "");
    CHECK_TEXT(Rig.State().m_szLastOp, LastOp);
}

TEST_CASE("in run mode DEL and CLEAR PRGM only empty the buffer")
{
    for (const char *const szKeys : {"g Sum+", "f CHS"})
    {
        cCalculatorRig Rig;
        Rig.Load("x<>y\nENTER\n");
        Rig.Set(1.0, 2.0);
        Rig.Type("x<>y GTO . 0 2");
        Rig.Forget();

        Rig.Type(szKeys);

        CHECK_TEXT(Rig.Step(1), "x<>y");
        CHECK_TEXT(Rig.Step(2), "ENTER");
        CHECK(Rig.State().m_nCurLine == 2);
        CHECK(Rig.X() == 2.0);
        CHECK_TEXT(Rig.State().m_szKeystrokes, "");
        CHECK_TEXT(Rig.State().m_szLastOp, "GTO.2");
        CHECK_TEXT(Rig.Sounds(), "10050 10050");
    }
}

TEST_CASE("a key code outside 1 to 32 is an inconsistency and keeps the pending keys")
{
    for (const unsigned nKey : {0U, 33U, 1000U, 0xFFFFFFFFU})
    {
        cCalculatorRig Rig;
        Rig.Type("x<>y STO");
        Rig.Forget();
        const std::string Before = Changeable(Rig);

        Rig.Down(nKey);
        Rig.Up(nKey);

        CheckCodeBox(Rig, "Program Error Code #101");
        CHECK_TEXT(Rig.Sounds(), "10050");
        CHECK_TEXT(Rig.State().m_szKeystrokes, "STO ");
        CHECK_TEXT(Rig.State().m_szLastOp, "x<>y");
        CHECK_TEXT(Changeable(Rig), Before);
    }
}

TEST_CASE("an event that is neither a press nor a release is ignored")
{
    for (const int bIsDown : {2, -1, 256})
        for (unsigned nKey = 0; nKey <= 33; nKey++)
        {
            cCalculatorRig Rig;
            Rig.Type("STO");
            Rig.Forget();

            Rig.m_Engine.OnCalcKey(nKey, bIsDown);

            CHECK_TEXT(Rig.State().m_szKeystrokes, "STO ");
            CHECK_TEXT(Rig.Sounds(), "");
            CHECK(Rig.m_Host.m_Boxes.empty());
            CHECK(Rig.State().m_bProgramMode == 0);
            CHECK(Rig.State().m_bShowStack == 0);
        }
}

// --- pending keys

TEST_CASE("the keys of an unfinished instruction are in the buffer")
{
    for (const cPending &Pending : s_Pending)
        for (const char *const szMode : {"", "PRGM"})
        {
            CAPTURE_TEXT(Pending.szKeys);
            cCalculatorRig Rig;
            Rig.Type(szMode);

            Rig.Type(Pending.szKeys);

            CHECK_TEXT(Rig.State().m_szKeystrokes, Pending.szBuffer);
            CHECK_TEXT(Rig.State().m_szLastOp, "");
            CHECK_TEXT(Rig.Step(1), "R/S");
            CHECK(Rig.State().m_nCurLine == 0);
        }
}

TEST_CASE("f restarts the buffer whatever is pending")
{
    for (const cPending &Pending : s_Pending)
    {
        CAPTURE_TEXT(Pending.szKeys);
        cCalculatorRig Rig;
        Rig.Type(Pending.szKeys);

        Rig.Type("f");

        CHECK_TEXT(Rig.State().m_szKeystrokes, "f ");
    }
}

TEST_CASE("g is kept after eight prefixes and restarts the buffer after all others")
{
    static const char *const s_Kept[] = {"STO + ", "STO - ", "STO * ", "STO / ",
                                         "STO ",   "RCL ",   "GSB ",   "GTO "};
    for (const cPending &Pending : s_Pending)
    {
        CAPTURE_TEXT(Pending.szKeys);
        std::string Expected = "g ";
        for (const char *const szKept : s_Kept)
            if (std::string(Pending.szBuffer) == szKept)
                Expected = szKept + std::string("g ");
        cCalculatorRig Rig;
        Rig.Type(Pending.szKeys);

        Rig.Type("g");

        CHECK_TEXT(Rig.State().m_szKeystrokes, Expected);
    }
}

TEST_CASE("an unshifted prefix key restarts the buffer")
{
    static const cPending s_Fresh[] = {
        {"GSB", "GSB "}, {"GTO", "GTO "}, {"STO", "STO "}, {"RCL", "RCL "}};
    for (const cPending &Pending : s_Pending)
        for (const cPending &Fresh : s_Fresh)
        {
            if (IsShifted(Pending))
                continue;
            CAPTURE_TEXT(Pending.szKeys);
            cCalculatorRig Rig;
            Rig.Type(Pending.szKeys);

            Rig.Type(Fresh.szKeys);

            CHECK_TEXT(Rig.State().m_szKeystrokes, Fresh.szBuffer);
        }
}

TEST_CASE("a key that combines with no prefix drops it and acts unshifted")
{
    // clang-format off
    static const struct
    {
        const char *szKey;
        const char *szMnemonic;
        const char *szCombinesWith;
    } s_Keys[] =
    {
        { "x<>y",  "x<>y",    "-"    },
        { "ENTER", "ENTER",   "-"    },
        { "CHS",   "CHS",     "-"    },
        { "CLX",   "CLX",     "-"    },
        { "Sum+",  "Sum+",    "RCL " },
        { "+",     "+",       "STO " },
        { "-",     "-",       "STO " },
        { "*",     "*",       "STO " },
        { "/",     "/",       "STO " },
        { "EEX",   "+1.e+00", "-"    },
    };
    // clang-format on
    for (const cPending &Pending : s_Pending)
        for (const auto &Row : s_Keys)
        {
            if (IsShifted(Pending) || std::string(Pending.szBuffer) == Row.szCombinesWith)
                continue;
            CAPTURE_TEXT(Pending.szKeys);
            CAPTURE_TEXT(Row.szKey);
            cCalculatorRig Rig;
            Rig.Type("PRGM");
            Rig.Type(Pending.szKeys);

            Rig.Type(Row.szKey);

            CHECK_TEXT(Rig.Step(1), Row.szMnemonic);
            CHECK_TEXT(Rig.Step(2), "R/S");
            CHECK_TEXT(Rig.State().m_szKeystrokes, "");
        }
}

TEST_CASE("a pending f or g shifts the next key whatever precedes it")
{
    for (const cPending &Pending : s_Pending)
    {
        if (!IsShifted(Pending))
            continue;
        CAPTURE_TEXT(Pending.szKeys);
        cCalculatorRig Rig;
        Rig.Type("PRGM");
        Rig.Type(Pending.szKeys);

        Rig.Type("4");

        CHECK_TEXT(Rig.Step(1), EndsWith(Pending.szBuffer, "g ") ? "sin^-1" : "sin");
        CHECK_TEXT(Rig.Step(2), "R/S");
        CHECK_TEXT(Rig.State().m_szKeystrokes, "");
    }
}

TEST_CASE("STO f 4 runs sin and drops STO")
{
    cCalculatorRig Rig;
    Rig.Set(30.0);

    Rig.Type("STO f 4");

    CHECK_TEXT(Rig.Display(), "+0.50");
    CHECK(Rig.State().m_dReg[4] == 0.0);
}

TEST_CASE("STO followed by x<>y drops the STO and exchanges")
{
    cCalculatorRig Rig;
    Rig.Set(1.0, 2.0);

    Rig.Type("STO x<>y");

    CHECK(Rig.X() == 2.0);
    CHECK(Rig.Y() == 1.0);
    CHECK_TEXT(Rig.State().m_szLastOp, "x<>y");
}

TEST_CASE("the point extends seven prefixes and begins a number after all others")
{
    static const char *const s_Extended[] = {"GTO ",   "STO - ", "STO + ", "STO * ",
                                             "STO / ", "STO ",   "RCL "};
    for (const cPending &Pending : s_Pending)
    {
        if (IsShifted(Pending))
            continue;
        CAPTURE_TEXT(Pending.szKeys);
        std::string Expected;
        for (const char *const szExtended : s_Extended)
            if (std::string(Pending.szBuffer) == szExtended)
                Expected = szExtended + std::string(". ");
        cCalculatorRig Rig;
        Rig.Type(Pending.szKeys);

        Rig.Type(".");

        CHECK_TEXT(Rig.State().m_szKeystrokes, Expected);
        CHECK_TEXT(Rig.State().m_szEntry, Expected.empty() ? "+0." : "");
    }
}

TEST_CASE("the four operators after STO wait for a register")
{
    static const cPending s_Rows[] = {
        {"STO -", "STO - "}, {"STO +", "STO + "}, {"STO *", "STO * "}, {"STO /", "STO / "}};
    for (const cPending &Row : s_Rows)
    {
        cCalculatorRig Rig;
        Rig.Set(1.0, 2.0);

        Rig.Type(Row.szKeys);

        CHECK_TEXT(Rig.State().m_szKeystrokes, Row.szBuffer);
        CHECK_TEXT(Rig.State().m_szLastOp, "");
        CHECK(Rig.X() == 1.0);
        CHECK(Rig.Y() == 2.0);
    }
}

TEST_CASE("Sum+ after RCL recalls the sums")
{
    static const struct
    {
        const char *szKeys;
        const char *szRecorded;
    } s_Rows[] = {{"RCL Sum+", "RCLSum+"}, {"RCL . Sum+", "Sum+"}, {"STO Sum+", "Sum+"}};
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szKeys);
        cCalculatorRig Rig;
        Rig.Type("PRGM");

        Rig.Type(Row.szKeys);

        CHECK_TEXT(Rig.Step(1), Row.szRecorded);
        CHECK_TEXT(Rig.State().m_szLastOp, Row.szRecorded);
        CHECK_TEXT(Rig.State().m_szKeystrokes, "");
    }
}

TEST_CASE("key 7 is i after a prefix, with and without g between")
{
    // clang-format off
    static const struct { const char *szKeys; const char *szMnemonic; } s_Rows[] =
    {
        { "i",         "Rolldown" },
        { "f i",       "StdDev"   },
        { "g i",       "RCL i"    },
        { "GSB i",     "GSB i"    },
        { "GSB g i",   "GSB i"    },
        { "GTO i",     "GTO i"    },
        { "GTO g i",   "GTO i"    },
        { "STO i",     "STO i"    },
        { "STO g i",   "STO i"    },
        { "RCL i",     "RCL i"    },
        { "RCL g i",   "RCL i"    },
        { "STO + i",   "STO+ i"   },
        { "STO + g i", "STO+ i"   },
        { "STO - i",   "STO- i"   },
        { "STO - g i", "STO- i"   },
        { "STO * i",   "STO* i"   },
        { "STO * g i", "STO* i"   },
        { "STO / i",   "STO/ i"   },
        { "STO / g i", "STO/ i"   },
        // Behind these it is the unshifted key.
        { "GTO . i",   "Rolldown" },
        { "STO . i",   "Rolldown" },
        { "RCL . i",   "Rolldown" },
        { "STO + . i", "Rolldown" },
        { "f SST i",   "Rolldown" },
        { "f GSB i",   "Rolldown" },
        { "f GTO i",   "Rolldown" },
        { "g GTO i",   "Rolldown" },
        { "GTO . 4 i", "Rolldown" },
        // f wins over the prefix before it.
        { "STO f i",   "StdDev"   },
        { "GSB f i",   "StdDev"   },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szKeys);
        cCalculatorRig Rig;
        Rig.Type("PRGM");

        Rig.Type(Row.szKeys);

        CHECK_TEXT(Rig.Step(1), Row.szMnemonic);
        CHECK_TEXT(Rig.State().m_szLastOp, Row.szMnemonic);
        CHECK_TEXT(Rig.State().m_szKeystrokes, "");
        CHECK_TEXT(Rig.State().m_Program[1].m_szOperandText, "");
    }
}

TEST_CASE("i works in run mode through both spellings")
{
    for (const char *const szKeys : {"STO i", "STO g i"})
    {
        cCalculatorRig Rig;
        Rig.SetReg(0, 12.0);
        Rig.Set(7.0);

        Rig.Type(szKeys);

        CHECK(Rig.State().m_dReg[12] == 7.0);
        CHECK_TEXT(Rig.State().m_szLastOp, "STO i");
    }
}

// --- digits complete a prefix

namespace
{

struct cCompletion
{
    const char *szKeys;
    const char *szText;  // the operation without its digit, "" for a number
};

}  // namespace

// clang-format off
static const cCompletion s_Completions[] =
{
    { "g GTO",   "LBL "   }, { "f SST",   "FIX "   }, { "f GSB",   "SCI "   },
    { "f GTO",   "ENG "   }, { "GSB",     "GSB "   }, { "GTO",     "GTO "   },
    { "STO - .", "STO- ." }, { "STO + .", "STO+ ." }, { "STO * .", "STO* ." },
    { "STO / .", "STO/ ." }, { "STO -",   "STO- "  }, { "STO +",   "STO+ "  },
    { "STO *",   "STO* "  }, { "STO /",   "STO/ "  }, { "STO .",   "STO ."  },
    { "RCL .",   "RCL ."  }, { "STO",     "STO "   }, { "RCL",     "RCL "   },
};

// clang-format on

TEST_CASE("a digit completes the pending instruction")
{
    for (const cCompletion &Row : s_Completions)
        for (unsigned nDigit = 0; nDigit <= 9; nDigit++)
        {
            CAPTURE_TEXT(Row.szKeys);
            CAPTURE(nDigit);
            const std::string Digit = std::to_string(nDigit);
            const int         bDot  = EndsWith(Row.szText, ".");
            cCalculatorRig    Rig;
            Rig.Type("PRGM");
            Rig.Type(Row.szKeys);

            Rig.Type(Digit.c_str());

            CHECK_TEXT(Rig.Step(1), Row.szText + Digit);
            CHECK(Rig.State().m_Program[1].m_nOperand == nDigit + (bDot ? 10 : 0));
            CHECK_TEXT(Rig.State().m_szLastOp, Row.szText + Digit);
            CHECK_TEXT(Rig.State().m_szKeystrokes, "");
            CHECK_TEXT(Rig.State().m_szEntry, "");
        }
}

TEST_CASE("a digit that completes nothing goes to number entry")
{
    for (unsigned nDigit = 0; nDigit <= 9; nDigit++)
    {
        cCalculatorRig Rig;
        Rig.Type("x<>y");

        Rig.m_Engine.OnDigitKey(nDigit);

        CHECK_TEXT(Rig.State().m_szEntry, "+" + std::to_string(nDigit));
        CHECK_TEXT(Rig.State().m_szLastOp, "x<>y");
    }
}

TEST_CASE("a digit outside 0 to 9 is taken modulo 10")
{
    // clang-format off
    static const struct { unsigned nDigit; const char *szLastOp; } s_Rows[] =
    {
        { 10,          "STO 0" },
        { 13,          "STO 3" },
        { 99,          "STO 9" },
        { 0xFFFFFFFFU, "STO 5" },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        cCalculatorRig Rig;
        Rig.Set(8.0);
        Rig.Type("STO");

        const int nResult = Rig.m_Engine.OnDigitKey(Row.nDigit);

        CHECK(nResult == 1);
        CheckCodeBox(Rig, "Program Error Code #113");
        CHECK_TEXT(Rig.State().m_szLastOp, Row.szLastOp);
        CHECK(Rig.State().m_dReg[Row.nDigit % 10] == 8.0);
    }
}

TEST_CASE("a digit key returns the result of the instruction that it completes")
{
    cCalculatorRig Rig;

    Rig.Type("GTO");
    CHECK(Rig.m_Engine.OnDigitKey(3) == 0);
    CHECK_TEXT(Rig.Display(), "Error: no such label");

    Rig.Type("STO");
    CHECK(Rig.m_Engine.OnDigitKey(3) == 1);
}

TEST_CASE("store, recall and register arithmetic from the keys reach registers 0 to .9")
{
    // clang-format off
    static const struct { const char *szKeys; double dResult; } s_Rows[] =
    {
        { "STO",   4.0  },
        { "STO +", 16.0 },
        { "STO -", 8.0  },
        { "STO *", 48.0 },
        { "STO /", 3.0  },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
        for (unsigned nRegister = 0; nRegister < 20; nRegister++)
        {
            CAPTURE_TEXT(Row.szKeys);
            CAPTURE(nRegister);
            cCalculatorRig Rig;
            Rig.SetReg(nRegister, 12.0);
            Rig.Set(4.0);
            const std::string Number =
                nRegister < 10 ? std::to_string(nRegister) : "." + std::to_string(nRegister - 10);

            Rig.Type(Row.szKeys);
            Rig.Type(Number.c_str());

            CHECK(Rig.State().m_dReg[nRegister] == Row.dResult);
            Rig.Type("CLX RCL");
            Rig.Type(Number.c_str());
            CHECK(Rig.X() == Row.dResult);
        }
}

TEST_CASE("STO + . 3 adds X into register 13")
{
    cCalculatorRig Rig;
    Rig.SetReg(13, 10.0);
    Rig.Set(2.5);

    Rig.Type("STO + . 3");

    CHECK(Rig.State().m_dReg[13] == 12.5);
    CHECK_TEXT(Rig.State().m_szLastOp, "STO+ .3");
}

TEST_CASE("the display modes are set by a digit")
{
    static const struct
    {
        const char *szKeys;
        const char *szShown;
    } s_Rows[] = {{"f SST 4", "+1234.5000"}, {"f GSB 1", "+1.2e+03"}, {"f GTO 2", "+1.23e+03"}};
    for (const auto &Row : s_Rows)
    {
        cCalculatorRig Rig;
        Rig.Set(1234.5);

        Rig.Type(Row.szKeys);

        CHECK_TEXT(Rig.Display(), Row.szShown);
    }
}

TEST_CASE("GTO, point and two digits go to a line and record nothing")
{
    for (const char *const szMode : {"", "PRGM"})
        for (unsigned nLine = 0; nLine <= 99; nLine++)
        {
            CAPTURE(nLine);
            cCalculatorRig Rig;
            Rig.Load("x<>y\n");
            Rig.Type(szMode);
            const std::string Tens = std::to_string(nLine / 10);
            const std::string Ones = std::to_string(nLine % 10);

            Rig.Type("GTO .");
            Rig.Type(Tens.c_str());
            CHECK_TEXT(Rig.State().m_szKeystrokes, "GTO . " + Tens);
            CHECK(Rig.State().m_nCurLine == 0);
            Rig.Type(Ones.c_str());

            CHECK(Rig.State().m_nCurLine == (nLine == 99 ? 1 : nLine));
            CHECK(Rig.Highlighted() == Rig.State().m_nCurLine);
            CHECK_TEXT(Rig.State().m_szLastOp, "GTO." + std::to_string(nLine));
            CHECK_TEXT(Rig.State().m_szKeystrokes, "");
            CHECK_TEXT(Rig.Step(1), "x<>y");
            CHECK(Rig.State().m_bProgramModified == 0);
            CHECK(Rig.m_Host.m_Boxes.empty());
        }
}

TEST_CASE("GTO, point and one digit only wait; another key drops them")
{
    cCalculatorRig Rig;

    Rig.Type("GTO . 4 x<>y 2");

    CHECK(Rig.State().m_nCurLine == 0);
    CHECK_TEXT(Rig.State().m_szEntry, "+2");
}

TEST_CASE("GTO to a line shows X again in run mode")
{
    cCalculatorRig Rig;
    Rig.Set(5.0);
    Rig.Down(1);
    REQUIRE(Rig.Display() == "01 R/S");

    Rig.Type("GTO . 1 2");

    CHECK_TEXT(Rig.Display(), "+5.00");
}

// --- SST, BST and R/S act on the press and on the release

TEST_CASE("SST shows the line on the press and executes it on the release")
{
    cCalculatorRig Rig;
    Rig.Load("STO 7\nCLX\n");
    Rig.Set(5.0);

    Rig.Down(1);

    CHECK_TEXT(Rig.Display(), "01 STO 7");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "SST ");
    CHECK_TEXT(Rig.State().m_szLastOp, "SST");
    CHECK(Rig.State().m_dReg[7] == 0.0);
    CHECK(Rig.State().m_nCurLine == 0);
    CHECK(Rig.m_Host.m_bListingShown == 1);
    CHECK(Rig.m_Host.m_bRegistersShown == 1);
    CHECK(Rig.m_Host.m_Enabled[209] == 1);

    Rig.Up(1);

    CHECK(Rig.State().m_dReg[7] == 5.0);
    CHECK(Rig.State().m_nCurLine == 2);
    CHECK(Rig.Highlighted() == 2);
    CHECK_TEXT(Rig.Display(), "+5.00");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "");
    CHECK_TEXT(Rig.Sounds(), "10050");
}

TEST_CASE("in program mode SST steps forward on the press, the release does nothing")
{
    cCalculatorRig Rig;
    Rig.Load("STO 7\nCLX\n");
    Rig.Type("PRGM");
    Rig.Set(5.0);
    Rig.m_Host.m_bRegistersShown = 0;

    Rig.Down(1);

    CHECK(Rig.State().m_nCurLine == 1);
    CHECK_TEXT(Rig.State().m_szKeystrokes, "SST ");
    CHECK_TEXT(Rig.State().m_szLastOp, "SST");
    CHECK_TEXT(Rig.Shown(), "01 STO 7");
    CHECK(Rig.m_Host.m_bRegistersShown == 0);

    Rig.Up(1);

    CHECK(Rig.State().m_nCurLine == 1);
    CHECK(Rig.State().m_dReg[7] == 0.0);
    CHECK_TEXT(Rig.State().m_szKeystrokes, "");
}

TEST_CASE("BST steps back on the press and shows X again on the release")
{
    cCalculatorRig Rig;
    Rig.Load("STO .7\nCLX\n");
    Rig.Set(5.0);
    Rig.Type("GTO . 0 2 g");

    Rig.Down(1);

    CHECK(Rig.State().m_nCurLine == 1);
    CHECK(Rig.Highlighted() == 1);
    CHECK_TEXT(Rig.Display(), "01 STO .7");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "BST ");
    CHECK_TEXT(Rig.State().m_szLastOp, "BST");

    Rig.Up(1);

    CHECK(Rig.State().m_nCurLine == 1);
    CHECK_TEXT(Rig.Display(), "+5.00");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "");
    CHECK_TEXT(Rig.State().m_szLastOp, "BST");
}

TEST_CASE("in program mode BST steps back on the press, the release empties the buffer")
{
    cCalculatorRig Rig;
    Rig.Load("STO .7\nCLX\n");
    Rig.Type("PRGM GTO . 0 2 g");

    Rig.Down(1);

    CHECK_TEXT(Rig.Shown(), "01 STO .7");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "BST ");
    CHECK_TEXT(Rig.State().m_szLastOp, "BST");

    Rig.Up(1);

    CHECK_TEXT(Rig.Shown(), "01 STO .7");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "");
}

TEST_CASE("R/S shows the line on the press and runs on the release")
{
    cCalculatorRig Rig;
    Rig.Load("STO 7\nCLX\n");
    Rig.Set(5.0);

    Rig.Down(kKeyRunStop);

    CHECK_TEXT(Rig.Display(), "01 STO 7");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "R/S ");
    CHECK_TEXT(Rig.State().m_szLastOp, "R/S");
    CHECK(Rig.State().m_dReg[7] == 0.0);

    Rig.Up(kKeyRunStop);

    CHECK(Rig.State().m_dReg[7] == 5.0);
    CHECK(Rig.State().m_nCurLine == 4);
    CHECK_TEXT(Rig.Display(), "+0.00");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "");
    CHECK_TEXT(Rig.State().m_szLastOp, "R/S");
    CHECK_TEXT(Rig.Sounds(), "10050");
}

TEST_CASE("in program mode R/S is recorded on the press, the release empties the buffer")
{
    cCalculatorRig Rig;
    Rig.Load("STO 7\nCLX\n");
    Rig.Type("PRGM");

    Rig.Down(kKeyRunStop);

    CHECK_TEXT(Rig.Step(1), "R/S");
    CHECK_TEXT(Rig.Step(2), "STO 7");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "R/S ");
    CHECK_TEXT(Rig.State().m_szLastOp, "R/S");

    Rig.Up(kKeyRunStop);

    CHECK(Rig.State().m_nCurLine == 1);
    CHECK(Rig.State().m_bProgramRunning == 0);
    CHECK_TEXT(Rig.State().m_szKeystrokes, "");
}

TEST_CASE("only SST opens the boxes beside the face")
{
    for (const char *const szKeys : {"R/S", "g SST"})
    {
        cCalculatorRig Rig;

        Rig.Type(szKeys);

        CHECK(Rig.m_Host.m_bListingShown == 0);
        CHECK(Rig.m_Host.m_bRegistersShown == 0);
        CHECK(Rig.m_Host.m_Enabled.count(209) == 0);
    }
}

TEST_CASE("PAUSE and 1/x act on the press, the release only empties the buffer")
{
    static const struct
    {
        const char *szShift;
        const char *szBuffer;
        const char *szLastOp;
        double      dX;
        size_t      nPauses;
    } s_Rows[] = {{"f", "PAUSE ", "PAUSE", 4.0, 1}, {"g", "1/x ", "1/x", 0.25, 0}};
    for (const auto &Row : s_Rows)
    {
        cCalculatorRig Rig;
        Rig.Set(4.0);
        Rig.Type(Row.szShift);

        Rig.Down(kKeyRunStop);

        CHECK_TEXT(Rig.State().m_szKeystrokes, Row.szBuffer);
        CHECK(Rig.X() == Row.dX);
        CHECK(Rig.m_Host.m_Pauses.size() == Row.nPauses);

        Rig.Up(kKeyRunStop);

        CHECK_TEXT(Rig.State().m_szKeystrokes, "");
        CHECK_TEXT(Rig.State().m_szLastOp, Row.szLastOp);
        CHECK(Rig.X() == Row.dX);
        CHECK(Rig.m_Host.m_Pauses.size() == Row.nPauses);
        CHECK(Rig.State().m_nCurLine == 0);
        CHECK(Rig.m_Host.m_Boxes.empty());
    }
}

TEST_CASE("a failing 1/x waits for a press instead")
{
    cCalculatorRig Rig;
    Rig.Type("g");

    Rig.Down(kKeyRunStop);
    Rig.Up(kKeyRunStop);

    CHECK_TEXT(Rig.State().m_szKeystrokes, "EWFDK");
    CHECK_TEXT(Rig.Display(), "Error: divide by 0");
    CHECK(Rig.m_Host.m_Boxes.empty());
}

TEST_CASE("a single step that fails waits for a press")
{
    cCalculatorRig Rig;
    Rig.Load("1/x\n");
    Rig.Down(1);

    Rig.Up(1);

    CHECK_TEXT(Rig.State().m_szKeystrokes, "EWFDK");
    CHECK_TEXT(Rig.Display(), "Error: divide by 0");
    CHECK(Rig.State().m_nCurLine == 1);
}

TEST_CASE("a run that fails waits for a press")
{
    cCalculatorRig Rig;
    Rig.Load("1/x\n");
    Rig.Down(kKeyRunStop);

    Rig.Up(kKeyRunStop);

    CHECK_TEXT(Rig.State().m_szKeystrokes, "EWFDK");
    CHECK_TEXT(Rig.Display(), "Error: divide by 0");
}

// --- the release table

TEST_CASE("the release of key 1 with another buffer is an inconsistency")
{
    for (const cPending &Pending : s_Pending)
    {
        if (std::string(Pending.szBuffer) == "FIX ")
            continue;
        CAPTURE_TEXT(Pending.szKeys);
        cCalculatorRig Rig;
        Rig.Type(Pending.szKeys);
        Rig.Forget();

        Rig.Up(1);

        CheckCodeBox(
            Rig,
            ("Program Error Code #120\nm_szKeystrokes = " + std::string(Pending.szBuffer)).c_str());
        CHECK_TEXT(Rig.State().m_szKeystrokes, "");
        CHECK(Rig.State().m_nCurLine == 0);
        CHECK_TEXT(Rig.Sounds(), "");
    }
}

TEST_CASE("the release of key 1 with an empty buffer is an inconsistency")
{
    cCalculatorRig Rig;

    Rig.Up(1);

    CheckCodeBox(Rig, "Program Error Code #120\nm_szKeystrokes = ");
}

TEST_CASE("the release of key 1 leaves FIX pending")
{
    cCalculatorRig Rig;
    Rig.Type("f");

    Rig.Down(1);
    Rig.Up(1);

    CHECK_TEXT(Rig.State().m_szKeystrokes, "FIX ");
    CHECK(Rig.m_Host.m_Boxes.empty());
}

TEST_CASE("the release of key 30 with another buffer is an inconsistency")
{
    for (const cPending &Pending : s_Pending)
    {
        CAPTURE_TEXT(Pending.szKeys);
        cCalculatorRig Rig;
        Rig.Type(Pending.szKeys);
        Rig.Forget();

        Rig.Up(kKeyRunStop);

        CheckCodeBox(Rig, "Program Error Code #124");
        CHECK_TEXT(Rig.State().m_szKeystrokes, "");
        CHECK(Rig.State().m_nCurLine == 0);
        CHECK_TEXT(Rig.Sounds(), "");
    }
}

TEST_CASE("the releases of keys 1 and 30 know each other's buffers as their own not")
{
    cCalculatorRig Rig;
    Rig.Down(1);
    Rig.Up(kKeyRunStop);
    CheckCodeBox(Rig, "Program Error Code #124");
    CHECK(Rig.State().m_nCurLine == 0);

    Rig.Forget();
    Rig.Down(kKeyRunStop);
    Rig.Up(1);
    CheckCodeBox(Rig, "Program Error Code #120\nm_szKeystrokes = R/S ");
    CHECK(Rig.State().m_nCurLine == 0);
}

TEST_CASE("all other releases do nothing")
{
    for (unsigned nKey = 0; nKey <= 40; nKey++)
        for (const char *const szKeys : {"", "f", "STO", "GTO . 4", "2"})
        {
            if (nKey == 1 || (nKey >= 30 && nKey <= 32))
                continue;
            CAPTURE(nKey);
            cCalculatorRig Rig;
            Rig.Type("x<>y");
            Rig.Type(szKeys);
            Rig.Forget();
            const std::string Buffer = Rig.State().m_szKeystrokes;
            const std::string Before = Changeable(Rig);

            Rig.Up(nKey);

            CHECK_TEXT(Rig.State().m_szKeystrokes, Buffer);
            CHECK_TEXT(Changeable(Rig), Before);
            CHECK_TEXT(Rig.Sounds(), "");
            CHECK(Rig.m_Host.m_Boxes.empty());
        }
}

// --- the stack view switch

TEST_CASE("key 31 shows the stack while it is down and keeps the pending keys")
{
    for (const cPending &Pending : s_Pending)
    {
        CAPTURE_TEXT(Pending.szKeys);
        cCalculatorRig Rig;
        Rig.Type(Pending.szKeys);
        Rig.Forget();

        Rig.Down(kKeyStackView);

        CHECK(Rig.State().m_bShowStack == 1);
        CHECK_TEXT(Rig.Sounds(), "10050 10055");
        CHECK_TEXT(Rig.State().m_szKeystrokes, Pending.szBuffer);
        CHECK(Rig.m_Host.m_Drawn.m_nLines == 7);

        Rig.Up(kKeyStackView);

        CHECK(Rig.State().m_bShowStack == 0);
        CHECK_TEXT(Rig.Sounds(), "10050 10055 10056");
        CHECK_TEXT(Rig.State().m_szKeystrokes, Pending.szBuffer);
        CHECK(Rig.m_Host.m_Drawn.m_nLines == 3);
        CHECK(Rig.m_Host.m_Boxes.empty());
    }
}

TEST_CASE("key 31 keeps a number entry going")
{
    cCalculatorRig Rig;
    Rig.Type("12");
    Rig.Down(kKeyStackView);

    Rig.Type("3");
    Rig.Up(kKeyStackView);

    CHECK_TEXT(Rig.State().m_szEntry, "+123");
}

// --- waiting after an error

TEST_CASE("the key after an error only clears it, the key after that works")
{
    cCalculatorRig Rig;
    Fail(&Rig);
    const double dX = Rig.X();

    Rig.Down(11);

    CHECK_TEXT(Rig.Display(), "-4.00");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "EWFUK");
    CHECK_TEXT(Rig.State().m_szLastOp, "sqrt");
    CHECK_TEXT(Rig.Sounds(), "10054");
    CHECK(Rig.Y() == 0.0);
    CHECK(Rig.X() == dX);

    Rig.Up(11);
    CHECK_TEXT(Rig.State().m_szKeystrokes, "");
    Rig.Key(11);

    CHECK(Rig.Y() == -4.0);
    CHECK_TEXT(Rig.State().m_szLastOp, "ENTER");
    CHECK_TEXT(Rig.Sounds(), "10054 10050");
}

TEST_CASE("a press of any key but 31 and 32 clears the error")
{
    for (unsigned nKey = 0; nKey <= 33; nKey++)
    {
        if (nKey == kKeyStackView || nKey == kKeyMode)
            continue;
        CAPTURE(nKey);
        cCalculatorRig Rig;
        Fail(&Rig);
        const int nDraws = Rig.m_Host.m_nDraws;

        Rig.Down(nKey);

        CHECK_TEXT(Rig.State().m_szKeystrokes, "EWFUK");
        CHECK_TEXT(Rig.Display(), "-4.00");
        CHECK_TEXT(Rig.Sounds(), "10054");
        CHECK(Rig.m_Host.m_nDraws > nDraws);
        CHECK(Rig.m_Host.m_Boxes.empty());
    }
}

TEST_CASE("releases of other keys while an error is shown are ignored")
{
    for (unsigned nKey = 0; nKey <= 33; nKey++)
    {
        if (nKey == kKeyStackView || nKey == kKeyMode)
            continue;
        CAPTURE(nKey);
        cCalculatorRig Rig;
        Fail(&Rig);

        Rig.Up(nKey);

        CHECK_TEXT(Rig.State().m_szKeystrokes, "EWFDK");
        CHECK_TEXT(Rig.Display(), "Error: sqrt of x < 0");
        CHECK_TEXT(Rig.Sounds(), "");
        CHECK(Rig.m_Host.m_Boxes.empty());
    }
}

TEST_CASE("key 31 works while an error is shown")
{
    cCalculatorRig Rig;
    Fail(&Rig);

    Rig.Down(kKeyStackView);

    CHECK(Rig.State().m_bShowStack == 1);
    CHECK_TEXT(Rig.Sounds(), "10055");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "EWFDK");
    CHECK_TEXT(Rig.Shown(), "X  Error: sqrt of x < 0");
    CHECK(Rig.m_Host.m_Drawn.m_nLines == 7);

    Rig.Up(kKeyStackView);

    CHECK(Rig.State().m_bShowStack == 0);
    CHECK_TEXT(Rig.Sounds(), "10055 10056");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "EWFDK");
    CHECK_TEXT(Rig.Shown(), "Error: sqrt of x < 0");
}

TEST_CASE("the mode switch's release while an error is shown enters program mode")
{
    cCalculatorRig Rig;
    Fail(&Rig);

    Rig.Up(kKeyMode);

    CHECK(Rig.State().m_bProgramMode == 1);
    CHECK_TEXT(Rig.State().m_szKeystrokes, "");
    CHECK_TEXT(Rig.State().m_szSavedLastOp, "sqrt");
    CHECK_TEXT(Rig.Sounds(), "10057");
    CHECK_TEXT(Rig.Shown(), "00");
    CHECK_TEXT(Rig.State().m_szX, "-4.00");
}

TEST_CASE("the mode switch's press while an error is shown is an inconsistency")
{
    cCalculatorRig Rig;
    Fail(&Rig);

    Rig.Down(kKeyMode);

    CheckCodeBox(Rig, "Program Error Code #121");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "EWFDK");
    CHECK_TEXT(Rig.Display(), "Error: sqrt of x < 0");
    CHECK_TEXT(Rig.Sounds(), "");
}

TEST_CASE("other events than the release of the clearing key are inconsistencies")
{
    // clang-format off
    static const struct { unsigned nKey; int bIsDown; const char *szCode; } s_Rows[] =
    {
        { 31, 0, "#123" },
        { 32, 0, "#121" },
        { 32, 1, "#121" },
        { 31, 1, "#123" },
        { 1,  1, "#122" },
        { 6,  1, "#122" },
        { 30, 1, "#122" },
        { 0,  1, "#122" },
        { 33, 1, "#122" },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.nKey);
        CAPTURE(Row.bIsDown);
        cCalculatorRig Rig;
        PressToClear(&Rig);

        Rig.m_Engine.OnCalcKey(Row.nKey, Row.bIsDown);

        CheckCodeBox(Rig, ("Program Error Code " + std::string(Row.szCode)).c_str());
        CHECK_TEXT(Rig.State().m_szKeystrokes, "EWFUK");
        CHECK(Rig.State().m_bShowStack == 0);
        CHECK(Rig.State().m_bProgramMode == 0);
        CHECK_TEXT(Rig.Sounds(), "");
    }
}

TEST_CASE("the release of any key but 31 and 32 ends the clearing of an error")
{
    for (unsigned nKey = 0; nKey <= 33; nKey++)
    {
        if (nKey == kKeyStackView || nKey == kKeyMode)
            continue;
        CAPTURE(nKey);
        cCalculatorRig Rig;
        PressToClear(&Rig);

        Rig.Up(nKey);

        CHECK_TEXT(Rig.State().m_szKeystrokes, "");
        CHECK_TEXT(Rig.Display(), "-4.00");
        CHECK_TEXT(Rig.Sounds(), "");
        CHECK(Rig.m_Host.m_Boxes.empty());
    }
}

// --- while a program runs

TEST_CASE("a press of any key but 31 and 32 halts the program and does nothing else")
{
    for (unsigned nKey = 0; nKey <= 33; nKey++)
    {
        if (nKey == kKeyStackView || nKey == kKeyMode)
            continue;
        CAPTURE(nKey);
        cCalculatorRig Rig;
        Rig.Set(5.0, 6.0);

        RunWith(&Rig, [&Rig, nKey] { Rig.Down(nKey); });

        CHECK(Rig.State().m_bProgramRunning == 0);
        CHECK(Rig.m_Host.m_nDrains == 3);
        CHECK_TEXT(Rig.State().m_szKeystrokes, "HWFUK");
        CHECK_TEXT(Rig.Sounds(), "10053");
        CHECK_TEXT(Rig.State().m_szLastOp, "R/S");
        CHECK(Rig.X() == 5.0);
        CHECK(Rig.Y() == 6.0);
        CHECK_TEXT(Rig.Display(), "+5.00");
        CHECK(Rig.m_Host.m_Boxes.empty());
    }
}

TEST_CASE("releases of other keys while a program runs are ignored")
{
    for (unsigned nKey = 0; nKey <= 33; nKey++)
    {
        if (nKey == kKeyStackView || nKey == kKeyMode)
            continue;
        CAPTURE(nKey);
        cCalculatorRig Rig;

        RunWith(&Rig, [&Rig, nKey] { Rig.Up(nKey); });

        CHECK(Rig.m_Host.m_nDrains == 10);
        CHECK_TEXT(Rig.Sounds(), "10053");
        CHECK(Rig.m_Host.m_Boxes.empty());
    }
}

TEST_CASE("key 31 works while a program runs")
{
    cCalculatorRig Rig;

    RunWith(&Rig, [&Rig] {
        Rig.Down(kKeyStackView);
        CHECK(Rig.State().m_bShowStack == 1);
        CHECK(Rig.m_Host.m_Drawn.m_nLines == 7);
        Rig.Up(kKeyStackView);
        CHECK(Rig.State().m_bShowStack == 0);
        CHECK(Rig.State().m_bProgramRunning == 1);
    });

    CHECK(Rig.m_Host.m_nDrains == 10);
    CHECK_TEXT(Rig.Sounds(), "10050 10055 10056 10053");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "HWFUK");
}

TEST_CASE("the mode switch during a run only notes the wish")
{
    for (const int bIsDown : {0, 1})
    {
        cCalculatorRig Rig;
        Rig.m_Engine.Raw().m_bSwitchToProgramPending = bIsDown;

        RunWith(&Rig, [&Rig, bIsDown] { Rig.m_Engine.OnCalcKey(kKeyMode, bIsDown); });

        CHECK(Rig.m_Host.m_nDrains == 10);
        CHECK(Rig.State().m_bSwitchToProgramPending == !bIsDown);
        CHECK(Rig.State().m_bProgramMode == 0);
        CHECK_TEXT(Rig.Sounds(), "10051 10053");
        CHECK(Rig.m_Host.m_Boxes.empty());
    }
}

// --- waiting for the release of the key that halted a program

TEST_CASE("the release of the halting key makes the calculator idle")
{
    for (unsigned nKey = 0; nKey <= 33; nKey++)
    {
        if (nKey == kKeyStackView || nKey == kKeyMode)
            continue;
        CAPTURE(nKey);
        cCalculatorRig Rig;
        HaltByKey(&Rig);

        Rig.Up(nKey);

        CHECK_TEXT(Rig.State().m_szKeystrokes, "");
        CHECK(Rig.State().m_bProgramMode == 0);
        CHECK_TEXT(Rig.Sounds(), "");
        CHECK(Rig.m_Host.m_Boxes.empty());
    }
}

TEST_CASE("a switch's release before the halting key's is an inconsistency")
{
    for (const unsigned nKey : {kKeyStackView, kKeyMode})
    {
        cCalculatorRig Rig;
        HaltByKey(&Rig);

        Rig.Up(nKey);

        CheckCodeBox(Rig, "Program Error Code #126\nm_szKeystrokes = HWFUK");
        CHECK_TEXT(Rig.State().m_szKeystrokes, "HWFUK");
        CHECK(Rig.State().m_bProgramMode == 0);
        CHECK_TEXT(Rig.Sounds(), "");
    }
}

TEST_CASE("a press before the halting key's release is interpreted as always")
{
    cCalculatorRig Rig;
    HaltByKey(&Rig);

    Rig.Down(25);

    CHECK_TEXT(Rig.State().m_szEntry, "+2");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "");
    CHECK_TEXT(Rig.Sounds(), "10050");
}

TEST_CASE("key 31 can be pressed before the halting key's release")
{
    cCalculatorRig Rig;
    HaltByKey(&Rig);

    Rig.Down(kKeyStackView);

    CHECK(Rig.State().m_bShowStack == 1);
    CHECK_TEXT(Rig.State().m_szKeystrokes, "HWFUK");
    CHECK_TEXT(Rig.Sounds(), "10050 10055");
}

// --- sounds

TEST_CASE("with sounds off no key makes a sound")
{
    cCalculatorRig Rig;
    Rig.m_Engine.Raw().m_bSoundOff = 1;

    Rig.Type("4 CHS f 2 ENTER PRGM x<>y SST g Sum+ RUN");
    Rig.Key(kKeyStackView);
    HaltByKey(&Rig);

    CHECK_TEXT(Rig.Sounds(), "");
}

TEST_CASE("every event that is interpreted repaints the display")
{
    cCalculatorRig Rig;
    for (unsigned nKey = 1; nKey <= 31; nKey++)
        for (const int bIsDown : {1, 0})
        {
            CAPTURE(nKey);
            CAPTURE(bIsDown);
            const int nDraws = Rig.m_Host.m_nDraws;

            Rig.m_Engine.OnCalcKey(nKey, bIsDown);

            CHECK(Rig.m_Host.m_nDraws > nDraws);
        }
}
