#include "tests/unit/calculator_rig.h"

static const int kUntouched = 7;

// Marks what the host was last asked for, so that a new wish shows.
static void MarkHost(cCalculatorRig *pRig)
{
    pRig->m_Host.m_bListingShown   = kUntouched;
    pRig->m_Host.m_bRegistersShown = kUntouched;
    pRig->m_Host.m_Enabled[209]    = kUntouched;
}

TEST_CASE("a new calculator keeps no box open, traces nothing and sounds")
{
    cCalculatorRig Rig;

    CHECK(Rig.State().m_bKeepListingOpen == 0);
    CHECK(Rig.State().m_bKeepRegistersOpen == 0);
    CHECK(Rig.State().m_bTrace == 0);
    CHECK(Rig.State().m_bSoundOff == 0);
}

TEST_CASE("each option is taken over by itself")
{
    for (int nOptions = 0; nOptions < 16; nOptions++)
    {
        CAPTURE(nOptions);
        cCalculatorRig Rig;
        const cOptions Options = {nOptions & 1, nOptions >> 1 & 1, nOptions >> 2 & 1,
                                  nOptions >> 3};

        Rig.m_Engine.ApplyOptions(Options);

        CHECK(Rig.State().m_bKeepListingOpen == Options.m_bKeepListingOpen);
        CHECK(Rig.State().m_bKeepRegistersOpen == Options.m_bKeepRegistersOpen);
        CHECK(Rig.State().m_bTrace == Options.m_bTrace);
        CHECK(Rig.State().m_bSoundOff == Options.m_bSoundOff);
    }
}

TEST_CASE("the boxes open and close as the options and the mode say")
{
    // clang-format off
    static const struct
    {
        const char *szMode;
        int         bKeepListing;
        int         bKeepRegisters;
        int         nListing;   // what the host is asked for: listing and command 209
        int         nRegisters;
    } s_Rows[] =
    {
        { "",     0, 0, 0,          0 },
        { "",     1, 0, 1,          0 },
        { "",     0, 1, 0,          1 },
        { "",     1, 1, 1,          1 },
        { "PRGM", 0, 0, kUntouched, 0 },
        { "PRGM", 1, 0, 1,          0 },
        { "PRGM", 0, 1, kUntouched, 1 },
        { "PRGM", 1, 1, 1,          1 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szMode);
        CAPTURE(Row.bKeepListing);
        CAPTURE(Row.bKeepRegisters);
        cCalculatorRig Rig;
        Rig.Type(Row.szMode);
        MarkHost(&Rig);

        Rig.m_Engine.ApplyOptions({Row.bKeepListing, Row.bKeepRegisters, 0, 0});

        CHECK(Rig.m_Host.m_bListingShown == Row.nListing);
        CHECK(Rig.m_Host.m_Enabled[209] == Row.nListing);
        CHECK(Rig.m_Host.m_bRegistersShown == Row.nRegisters);
    }
}

TEST_CASE("a listing that shall open in program mode stays there until run mode is entered")
{
    cCalculatorRig Rig;
    Rig.m_Engine.ApplyOptions({1, 0, 0, 0});
    Rig.Type("PRGM");

    Rig.m_Engine.ApplyOptions({0, 0, 0, 0});
    CHECK(Rig.m_Host.m_bListingShown == 1);
    CHECK(Rig.m_Host.m_Enabled[209] == 1);

    Rig.Type("RUN");
    CHECK(Rig.m_Host.m_bListingShown == 0);
    CHECK(Rig.m_Host.m_Enabled[209] == 0);
}

TEST_CASE("a listing that is opened by the options highlights the current line")
{
    cCalculatorRig Rig;
    Rig.Load("; a\n; b\nCLX\n");
    Rig.Type("GTO . 0 1");
    Rig.m_Listing.HighlightLine(0);

    Rig.m_Engine.ApplyOptions({1, 0, 0, 0});

    CHECK(Rig.m_Listing.HighlightedLine() == 3);
}

TEST_CASE("with the sound option off every sound is silent at once")
{
    cCalculatorRig Rig;
    Rig.Type("CLX");
    CHECK_TEXT(Rig.Sounds(), "10050");
    Rig.Forget();

    Rig.m_Engine.ApplyOptions({0, 0, 0, 1});
    Rig.m_Engine.OnChar(27);
    Rig.m_Engine.OnChar('?');
    Rig.Type("g R/S CLX PRGM g Sum+ RUN 1 . 2 .");
    Rig.Key(kKeyStackView);
    CHECK_TEXT(Rig.Sounds(), "");

    Rig.m_Engine.ApplyOptions({0, 0, 0, 0});
    Rig.m_Engine.OnChar(27);
    CHECK_TEXT(Rig.Sounds(), "10051");
}

TEST_CASE("the options leave keys, entry and program alone")
{
    cCalculatorRig Rig;
    Rig.Load("CLX\n");
    Rig.Type("12 STO");

    Rig.m_Engine.ApplyOptions({1, 1, 1, 1});

    CHECK_TEXT(Rig.State().m_szKeystrokes, "STO ");
    CHECK_TEXT(Rig.State().m_szEntry, "+12");
    CHECK_TEXT(Rig.Step(1), "CLX");
    CHECK(Rig.State().m_bProgramModified == 0);
}
