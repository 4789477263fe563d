// What is heard of the calculator, and that it works where nothing can be.

#include "tests/window/calculator.h"

#include <doctest/doctest.h>

#include "tests/window/common_steps.h"
#include "tests/window/input.h"
#include "tests/window/sound_takes.h"

namespace
{

const unsigned kViewMenu = 2;

const unsigned kClick       = 10050;
const unsigned kRefusal     = 10051;
const unsigned kError       = 10052;
const unsigned kHalted      = 10053;
const unsigned kCleared     = 10054;
const unsigned kStackView   = 10055;  // and the welcome chime
const unsigned kNormalView  = 10056;
const unsigned kProgramMode = 10057;
const unsigned kRunMode     = 10058;

const char kEndless[] = "LBL 1\r\nGTO 1\r\n";

const unsigned kKeyShiftF = 4;
const unsigned kKeyShiftG = 5;
const unsigned kKeyDelete = 10;  // after g
const unsigned kKeyClearX = 14;
const unsigned kKeyLog    = 17;  // after f
const unsigned kKey1      = 24;
const unsigned kKeyRun    = 30;

void ToggleSound(cCalculator *pCalculator)
{
    pCalculator->Choose(kViewMenu, IDM_OPTIONS);
    pCalculator->ClickControl(IDC_SOUND);
    pCalculator->Click("OK");
}

// log of 0, which has no value.
void Fail(cCalculator *pCalculator)
{
    pCalculator->HitKeys({kKeyClearX, kKeyShiftF, kKeyLog});
    CHECK(pCalculator->ReadsX("Error: log of x <= 0"));
}

void HitEscape(const cCalculator &Calculator)
{
    HitKey(VK_ESCAPE);
    Calculator.Settle();
}

}  // namespace

TEST_CASE("keys, switches, refusals and errors have their sounds")
{
    cSoundTakes Takes;
    cCalculator Calculator;
    CHECK(Takes.Hear({kStackView}));

    // a key, with the mouse and from the keyboard
    Calculator.HitKey(kKey1);
    CHECK(Takes.Hear({kClick}));
    Type("1");
    Calculator.Settle();
    CHECK(Takes.Hear({kClick}));

    // what the calculator has no use for
    Type("q");
    Calculator.Settle();
    CHECK(Takes.Hear({kRefusal}));
    HitEscape(Calculator);
    CHECK(Takes.Hear({kRefusal}));

    // the left switch
    Calculator.Slide(swStackView, 1);
    CHECK(Takes.Hear({kClick, kStackView}));
    Calculator.Slide(swStackView, 0);
    CHECK(Takes.Hear({kNormalView}));

    // an instruction that fails, and the key that takes its text away
    Fail(&Calculator);
    CHECK(Takes.Hear({kClick, kClick, kClick, kError}));
    Calculator.HitKey(kKey1);
    CHECK(Takes.Hear({kCleared}));
    CHECK(Calculator.ReadsX("0.00"));
    Calculator.HitKey(kKey1);
    CHECK(Takes.Hear({kClick}));
    CHECK(Calculator.ReadsX("1."));

    // the right switch, and an edit that cannot be done in line 00
    Calculator.Slide(swMode, 0);
    CHECK(Takes.Hear({kProgramMode}));
    Calculator.HitKeys({kKeyShiftG, kKeyDelete});
    CHECK(Takes.Hear({kClick, kClick, kRefusal}));
    Calculator.Slide(swMode, 1);
    CHECK(Takes.Hear({kClick, kRunMode}));
}

TEST_CASE("a run that is halted by a key is heard to halt, and the mode switch refuses")
{
    cSoundTakes Takes;
    cCalculator Calculator;
    RunListing(&Calculator, kEndless);
    CHECK(Takes.Hear({kStackView, kClick}));

    Calculator.HitKey(kKey1);
    CHECK(Takes.Hear({kHalted}));

    Calculator.HitKey(kKeyRun);
    CHECK(Takes.Hear({kClick}));
    HitEscape(Calculator);
    CHECK(Takes.Hear({kHalted}));

    Calculator.HitKey(kKeyRun);
    CHECK(Takes.Hear({kClick}));
    Calculator.Slide(swMode, 0);
    CHECK(Takes.Hear({kRefusal}));
    Calculator.Slide(swMode, 1);
    CHECK(Takes.Hear({kRefusal}));
    Calculator.Slide(swStackView, 1);
    CHECK(Takes.Hear({kStackView}));
    Calculator.Slide(swStackView, 0);
    CHECK(Takes.Hear({kNormalView}));
    HitEscape(Calculator);
    CHECK(Takes.Hear({kHalted}));
}

TEST_CASE("with the sound option off nothing is heard, but the next start is welcomed")
{
    cSoundTakes Takes;
    {
        cCalculator Calculator;
        CHECK(Takes.Hear({kStackView}));
        ToggleSound(&Calculator);

        Calculator.HitKey(kKey1);
        Type("1q");
        Calculator.Settle();
        HitEscape(Calculator);
        Calculator.Slide(swStackView, 1);
        Calculator.Slide(swStackView, 0);
        Fail(&Calculator);
        Calculator.HitKey(kKey1);
        Calculator.Slide(swMode, 0);
        Calculator.HitKeys({kKeyShiftG, kKeyDelete});
        Calculator.Slide(swMode, 1);
        RunListing(&Calculator, kEndless);
        Calculator.HitKey(kKey1);
        Calculator.HitKey(kKeyRun);
        HitEscape(Calculator);

        // The first that is heard is the first with the option on again.
        ToggleSound(&Calculator);
        HitEscape(Calculator);
        CHECK(Takes.Hear({kRefusal}));
        ToggleSound(&Calculator);
    }

    cCalculator Again(1);
    CHECK(Takes.Hear({kStackView}));
    Again.PassWelcome();
    Again.HitKey(kKey1);
    CHECK(Takes.Hear({kClick}));
}

TEST_CASE("a key that follows the long sound of a halt at once is heard and done")
{
    cSoundTakes Takes;
    cCalculator Calculator;
    RunListing(&Calculator, kEndless);
    CHECK(Takes.Hear({kStackView, kClick}));

    HitEscape(Calculator);
    Calculator.HitKey(kKey1);
    CHECK(Calculator.ReadsX("1."));
    CHECK(Takes.Hear({kHalted, kClick}));
}

TEST_SUITE_BEGIN("silence");

TEST_CASE("where there is no sound device the calculator works in silence")
{
    REQUIRE(waveOutGetNumDevs() == 0);
    cCalculator Calculator;
    Fail(&Calculator);
    Calculator.HitKeys({kKey1, kKey1});
    CHECK(Calculator.ReadsX("1."));
    HitEscape(Calculator);
    Calculator.Slide(swStackView, 1);
    Calculator.Slide(swStackView, 0);
    Calculator.Slide(swMode, 0);
    CHECK(Calculator.ReadsProgramLine("00"));
    Calculator.HitKeys({kKeyShiftG, kKeyDelete});
    Calculator.Slide(swMode, 1);
    RunListing(&Calculator, kEndless);
    HitEscape(Calculator);
    Calculator.HitKey(kKey1);
    CHECK(Calculator.ReadsX("1."));
    CHECK_FALSE(Calculator.HasDialog());
}

TEST_SUITE_END();
