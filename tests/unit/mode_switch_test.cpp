#include "tests/unit/calculator_rig.h"

namespace
{

// A host that also notes in which order it was asked for things.
class cOrderHost : public cRecordingHost
{
public:
    void StartSound(unsigned nId) override { Note("sound " + std::to_string(nId)); }
    void DrawDisplay(const cDisplay &Display) override
    {
        cRecordingHost::DrawDisplay(Display);
        Note(m_Drawn.m_Lines[1].m_nLeft == 50 && m_Drawn.m_nLines == 2 ? "draw program" : "draw X");
    }
    void BlankDisplay() override { Note("blank"); }
    void ShowListing(int bShow) override { Note(bShow ? "listing" : "no listing"); }
    void EnableCommand(unsigned nId, int bEnable) override
    {
        Note((bEnable ? "enable " : "disable ") + std::to_string(nId));
    }
    void ShowRegisters(int bShow) override { Note(bShow ? "registers" : "no registers"); }

    std::string m_Order;

private:
    // The same thing twice in a row counts once.
    void Note(const std::string &What)
    {
        if (What != m_Last)
            m_Order += (m_Order.empty() ? "" : ", ") + What;
        m_Last = What;
    }

    std::string m_Last;
};

struct cOrderRig
{
    cOrderRig() : m_Engine(&m_Host, &m_Listing, &m_Registers)
    {
        m_Engine.Start();
        m_Host.m_Order.clear();
    }

    cOrderHost     m_Host;
    cMemoryLineBox m_Listing;
    cMemoryLineBox m_Registers;
    cTestEngine    m_Engine;
};

}  // namespace

static void SetKeepOpen(cCalculatorRig *pRig, int bListing, int bRegisters)
{
    pRig->m_Engine.ApplyOptions({bListing, bRegisters, 0, 0});
}

TEST_CASE("entering program mode goes step by step")
{
    cOrderRig Rig;

    Rig.m_Engine.OnCalcKey(kKeyMode, 0);

    CHECK_TEXT(Rig.m_Host.m_Order,
               "blank, sound 10057, listing, enable 209, no registers, draw program");
}

TEST_CASE("entering run mode goes step by step")
{
    cOrderRig Rig;
    Rig.m_Engine.OnCalcKey(kKeyMode, 0);
    Rig.m_Host.m_Order.clear();

    Rig.m_Engine.OnCalcKey(kKeyMode, 1);

    CHECK_TEXT(Rig.m_Host.m_Order,
               "sound 10050, blank, sound 10058, no listing, disable 209, draw X");
}

TEST_CASE("the mode switch makes its sounds")
{
    cCalculatorRig Rig;

    Rig.Up(kKeyMode);
    CHECK_TEXT(Rig.Sounds(), "10057");

    Rig.Forget();
    Rig.Down(kKeyMode);
    CHECK_TEXT(Rig.Sounds(), "10050 10058");
}

TEST_CASE("program mode shows the current line, run mode X")
{
    cCalculatorRig Rig;
    Rig.Load("STO .4\n");
    Rig.Set(5.0);
    Rig.Type("GTO . 0 1");

    Rig.Type("PRGM");
    CHECK_TEXT(Rig.Shown(), "01 STO .4");
    CHECK(Rig.State().m_bProgramMode == 1);

    Rig.Type("RUN");
    CHECK_TEXT(Rig.Shown(), " 5.00");
    CHECK_TEXT(Rig.Display(), "+5.00");
    CHECK(Rig.State().m_bProgramMode == 0);
}

TEST_CASE("back in run mode the display shows the formatted X")
{
    cCalculatorRig Rig;
    Rig.Type("12.5 PRGM x<>y SST");

    Rig.Down(kKeyMode);

    CHECK_TEXT(Rig.State().m_szX, "+12.50");
    CHECK_TEXT(Rig.Shown(), " 12.50");
    CHECK(Rig.X() == 12.5);
}

TEST_CASE("entering program mode highlights the current line, wherever comments moved it")
{
    cCalculatorRig Rig;
    Rig.Load("; one\n; two\nx<>y\n; three\nCLX\n");
    Rig.Type("GTO . 0 2");
    Rig.m_Listing.HighlightLine(40);

    Rig.Type("PRGM");

    CHECK(Rig.m_Listing.HighlightedLine() == 5);
    CHECK_TEXT(Rig.ListingLine(5), "02 CLX");
}

TEST_CASE("entering program mode empties the return stack")
{
    cCalculatorRig Rig;
    Rig.Load("GSB 1\nLBL 1\n");
    Rig.Type("SST");
    REQUIRE(Rig.State().m_nReturnDepth == 1);

    Rig.Type("PRGM");

    CHECK(Rig.State().m_nReturnDepth == 0);
}

TEST_CASE("entering either mode abandons pending keys and a number entry")
{
    for (const char *const szKeys : {"12", "1.5 EEX 3", "STO", "f"})
    {
        CAPTURE_TEXT(szKeys);
        cCalculatorRig Rig;
        Rig.Type(szKeys);

        Rig.Type("PRGM");

        CHECK_TEXT(Rig.State().m_szEntry, "");
        CHECK_TEXT(Rig.State().m_szExponent, "");
        CHECK_TEXT(Rig.State().m_szKeystrokes, "");

        Rig.Type(szKeys);
        Rig.Type("RUN");

        CHECK_TEXT(Rig.State().m_szEntry, "");
        CHECK_TEXT(Rig.State().m_szExponent, "");
        CHECK_TEXT(Rig.State().m_szKeystrokes, "");
    }
}

TEST_CASE("a number entry that the mode switch abandons stays in X, formatted")
{
    cCalculatorRig Rig;
    Rig.Type("1.5 EEX 3");
    REQUIRE(std::string(Rig.State().m_szX) == "+1.5e+03");

    Rig.Type("PRGM");

    CHECK(Rig.X() == 1500.0);
    CHECK_TEXT(Rig.State().m_szX, "+1500.00");
}

TEST_CASE("a number recorded after the switch is a new one")
{
    cCalculatorRig Rig;

    Rig.Type("12 PRGM 3 RUN 4");

    CHECK_TEXT(Rig.Step(1), "+3.");
    CHECK(Rig.X() == 4.0);
}

TEST_CASE("recording does not touch the stack")
{
    cCalculatorRig Rig;
    Rig.Set(1.0, 2.0, 3.0, 4.0);

    Rig.Type("PRGM 5 ENTER + x<>y STO 1 f 2 RUN");

    CHECK(Rig.X() == 1.0);
    CHECK(Rig.Y() == 2.0);
    CHECK(Rig.Z() == 3.0);
    CHECK(Rig.T() == 4.0);
    CHECK(Rig.State().m_dReg[1] == 0.0);
}

TEST_CASE("run mode's last operation survives a spell of program editing")
{
    cCalculatorRig Rig;
    Rig.Type("x<>y");

    Rig.Type("PRGM");
    CHECK_TEXT(Rig.State().m_szLastOp, "x<>y");
    CHECK_TEXT(Rig.State().m_szSavedLastOp, "x<>y");

    Rig.Type("CLX");
    CHECK_TEXT(Rig.State().m_szLastOp, "CLX");

    Rig.Type("RUN");
    CHECK_TEXT(Rig.State().m_szLastOp, "x<>y");
}

TEST_CASE("the options decide which boxes stay beside the face")
{
    // clang-format off
    static const struct
    {
        int bKeepListing;
        int bKeepRegisters;
        int bListingInRun;    // listing and command 209, back in run mode
        int bRegistersInProgram;
    } s_Rows[] =
    {
        { 0, 0, 0, 0 },
        { 1, 0, 1, 0 },
        { 0, 1, 0, 1 },
        { 1, 1, 1, 1 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.bKeepListing);
        CAPTURE(Row.bKeepRegisters);
        cCalculatorRig Rig;
        SetKeepOpen(&Rig, Row.bKeepListing, Row.bKeepRegisters);
        Rig.Type("SST");
        REQUIRE(Rig.m_Host.m_bListingShown == 1);
        REQUIRE(Rig.m_Host.m_bRegistersShown == 1);
        Rig.m_Host.m_Enabled[209] = 0;

        Rig.Type("PRGM");

        CHECK(Rig.m_Host.m_bListingShown == 1);
        CHECK(Rig.m_Host.m_Enabled[209] == 1);
        CHECK(Rig.m_Host.m_bRegistersShown == Row.bRegistersInProgram);

        Rig.Type("RUN");

        CHECK(Rig.m_Host.m_bListingShown == Row.bListingInRun);
        CHECK(Rig.m_Host.m_Enabled[209] == Row.bListingInRun);
        CHECK(Rig.m_Host.m_bRegistersShown == Row.bRegistersInProgram);
    }
}

TEST_CASE("a listing that is kept open highlights the current line in run mode")
{
    cCalculatorRig Rig;
    Rig.Load("; one\nx<>y\n");
    SetKeepOpen(&Rig, 1, 0);
    Rig.Type("PRGM SST");
    Rig.m_Listing.HighlightLine(40);

    Rig.Type("RUN");

    CHECK(Rig.m_Listing.HighlightedLine() == 2);
}

TEST_CASE("the release of key 32 in program mode is an inconsistency")
{
    cCalculatorRig Rig;
    Rig.Type("PRGM x<>y 12 STO");
    Rig.Forget();

    Rig.Up(kKeyMode);

    REQUIRE(Rig.m_Host.m_Boxes.size() == 1);
    CHECK_TEXT(Rig.LastBox(), "Program Error Code #107");
    CHECK(Rig.m_Host.m_Boxes[0].m_nButtons == bnOk);
    CHECK_TEXT(Rig.m_Host.m_Boxes[0].m_Caption, "");
    CHECK_TEXT(Rig.Sounds(), "");
    CHECK_TEXT(Rig.State().m_szSavedLastOp, "x<>y");
    CHECK(Rig.State().m_bProgramMode == 1);
    CHECK_TEXT(Rig.State().m_szKeystrokes, "STO ");
    CHECK_TEXT(Rig.State().m_szEntry, "+12");
}

TEST_CASE("the press of key 32 in run mode is an inconsistency")
{
    cCalculatorRig Rig;
    Rig.Type("CLX PRGM RUN x<>y 12 STO");
    Rig.Forget();

    Rig.Down(kKeyMode);

    REQUIRE(Rig.m_Host.m_Boxes.size() == 1);
    CHECK_TEXT(Rig.LastBox(), "Program Error Code #108");
    CHECK(Rig.m_Host.m_Boxes[0].m_nButtons == bnOk);
    CHECK_TEXT(Rig.m_Host.m_Boxes[0].m_Caption, "");
    CHECK_TEXT(Rig.Sounds(), "10050");
    CHECK_TEXT(Rig.State().m_szLastOp, "CLX");
    CHECK(Rig.State().m_bProgramMode == 0);
    CHECK_TEXT(Rig.State().m_szKeystrokes, "STO ");
    CHECK_TEXT(Rig.State().m_szEntry, "+12");
}

TEST_CASE("the stack view stays on through a switch of modes")
{
    cCalculatorRig Rig;
    Rig.Down(kKeyStackView);

    Rig.Type("PRGM");
    CHECK(Rig.m_Host.m_Drawn.m_nLines == 2);

    Rig.Type("RUN");
    CHECK(Rig.State().m_bShowStack == 1);
    CHECK(Rig.m_Host.m_Drawn.m_nLines == 7);
}
