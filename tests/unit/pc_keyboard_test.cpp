#include "tests/unit/calculator_rig.h"

// clang-format off
static const struct { char cChar; unsigned nKey; } s_Characters[] =
{
    { '\r', 11 }, { 'e', 13 },
    { '-',  15 }, { '7', 16 }, { '8', 17 }, { '9', 18 },
    { '+',  19 }, { '4', 20 }, { '5', 21 }, { '6', 22 },
    { '*',  23 }, { '1', 24 }, { '2', 25 }, { '3', 26 },
    { '/',  27 }, { '0', 28 }, { '.', 29 },
};
// clang-format on

static const char kEscape = 27;

static int IsMapped(int nChar)
{
    for (const auto &Row : s_Characters)
        if (Row.cChar == nChar)
            return 1;
    return nChar == kEscape;
}

// Everything that a key may change.
static std::string KeyEffects(cCalculatorRig &Rig)
{
    const cVorstekState &State = Rig.State();
    std::string          Text = Rig.Display() + "|" + State.m_szKeystrokes + "|" + State.m_szLastOp;
    Text += std::string("|") + State.m_szEntry + State.m_szExponent + "|" + Rig.Step(1);
    for (const double dValue : {State.m_dX, State.m_dY, State.m_dZ, State.m_dT, State.m_dLastX})
        Text += " " + std::to_string(dValue);
    return Text + " sounds " + Rig.Sounds();
}

// Runs an endless loop and delivers Event in its third drain; the tenth halts.
static void RunWithTyped(cCalculatorRig *pRig, const std::function<void()> &Event)
{
    pRig->Load("LBL 1\nGTO 1\n");
    pRig->m_Host.m_OnDrain = [Event, nDrains = 0]() mutable {
        if (++nDrains == 3)
            Event();
        return nDrains < 10;
    };
    pRig->Down(kKeyRunStop);
    pRig->Forget();
    pRig->Up(kKeyRunStop);
}

TEST_CASE("a typed character is the press and the release of its key")
{
    for (const auto &Row : s_Characters)
        for (const char *const szKeys : {"", "4 ENTER", "STO", "PRGM", "PRGM 1", "4 CHS f 2"})
        {
            CAPTURE(Row.cChar);
            CAPTURE_TEXT(szKeys);
            cCalculatorRig Typed, Clicked;
            Typed.Type(szKeys);
            Clicked.Type(szKeys);

            Typed.m_Engine.OnChar(Row.cChar);
            Clicked.Key(Row.nKey);

            CHECK_TEXT(KeyEffects(Typed), KeyEffects(Clicked));
        }
}

TEST_CASE("the release follows the press at once, so one character clears an error")
{
    cCalculatorRig Rig;
    Rig.Type("4 CHS f 2");
    REQUIRE(std::string(Rig.State().m_szKeystrokes) == "EWFDK");

    Rig.m_Engine.OnChar('7');
    CHECK_TEXT(Rig.State().m_szKeystrokes, "");

    Rig.m_Engine.OnChar('7');
    CHECK_TEXT(Rig.State().m_szEntry, "+7");
}

TEST_CASE("a calculation can be typed")
{
    cCalculatorRig Rig;

    for (const char cChar : {'1', '.', '5', 'e', '2', '\r', '4', '*', '7', '-', '9', '/', '8', '+'})
        Rig.m_Engine.OnChar(cChar);
    Rig.m_Engine.OnChar('\r');

    CHECK(Rig.X() == doctest::Approx(593.0 / 9.0 + 8.0));
}

TEST_CASE("all other characters are refused")
{
    for (int nChar = -128; nChar <= 127; nChar++)
    {
        if (IsMapped(nChar))
            continue;
        CAPTURE(nChar);
        cCalculatorRig Rig;
        Rig.Type("2 STO");
        Rig.Forget();

        Rig.m_Engine.OnChar(static_cast<char>(nChar));

        CHECK_TEXT(Rig.Sounds(), "10051");
        CHECK_TEXT(Rig.State().m_szKeystrokes, "STO ");
        CHECK_TEXT(Rig.State().m_szEntry, "+2");
        CHECK(Rig.m_Host.m_Boxes.empty());
    }
}

TEST_CASE("Escape while no program runs only beeps")
{
    cCalculatorRig Rig;
    Rig.Type("2 STO");
    Rig.Forget();

    Rig.m_Engine.OnChar(kEscape);

    CHECK_TEXT(Rig.Sounds(), "10051");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "STO ");
    CHECK_TEXT(Rig.State().m_szEntry, "+2");
}

TEST_CASE("Escape halts a running program, and nothing waits for a release")
{
    cCalculatorRig Rig;

    RunWithTyped(&Rig, [&Rig] { Rig.m_Engine.OnChar(kEscape); });

    CHECK(Rig.m_Host.m_nDrains == 3);
    CHECK(Rig.State().m_bProgramRunning == 0);
    CHECK_TEXT(Rig.Sounds(), "10053");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "");
}

TEST_CASE("a refused character does not halt a running program")
{
    cCalculatorRig Rig;

    RunWithTyped(&Rig, [&Rig] { Rig.m_Engine.OnChar('x'); });

    CHECK(Rig.m_Host.m_nDrains == 10);
    CHECK_TEXT(Rig.Sounds(), "10051");
}

TEST_CASE("a typed key halts a running program, its release makes the calculator idle")
{
    cCalculatorRig Rig;

    RunWithTyped(&Rig, [&Rig] { Rig.m_Engine.OnChar('7'); });

    CHECK(Rig.m_Host.m_nDrains == 3);
    CHECK_TEXT(Rig.Sounds(), "10053");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "");
    CHECK_TEXT(Rig.State().m_szEntry, "");
}

TEST_CASE("with sounds off Escape and refused characters are silent")
{
    cCalculatorRig Rig;
    Rig.m_Engine.ApplyOptions({0, 0, 0, 1});

    Rig.m_Engine.OnChar(kEscape);
    Rig.m_Engine.OnChar('x');
    RunWithTyped(&Rig, [&Rig] { Rig.m_Engine.OnChar(kEscape); });

    CHECK(Rig.m_Host.m_nDrains == 3);
    CHECK_TEXT(Rig.Sounds(), "");
}

TEST_CASE("the host can halt a program without a sound")
{
    cCalculatorRig Rig;

    RunWithTyped(&Rig, [&Rig] { Rig.m_Engine.HaltProgram(); });

    CHECK(Rig.m_Host.m_nDrains == 3);
    CHECK_TEXT(Rig.Sounds(), "");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "");
}
