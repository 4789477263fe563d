// The sounds of the calculator, and a calculator without a sound device.

#include "tests/window/calculator.h"

#include <doctest/doctest.h>

#include "tests/window/common_steps.h"
#include "tests/window/input.h"
#include "tests/window/keys.h"
#include "tests/window/shared_rig.h"
#include "tests/window/sound_takes.h"

static const unsigned kClick        = 10050;
static const unsigned kRefusal      = 10051;
static const unsigned kError        = 10052;
static const unsigned kHalted       = 10053;
static const unsigned kClearedSound = 10054;
static const unsigned kStackView    = 10055;  // and the welcome chime
static const unsigned kNormalView   = 10056;
static const unsigned kProgramMode  = 10057;
static const unsigned kRunMode      = 10058;

static const unsigned kKeyDelete = kKeySum;  // after g

static void ToggleSound(cCalculator *pCalculator)
{
    pCalculator->Choose(mnView, IDM_OPTIONS);
    pCalculator->ClickControl(IDC_SOUND);
    pCalculator->Click("OK");
}

// log of 0, which has no value.
static void Fail(cCalculator *pCalculator)
{
    pCalculator->HitKeys({kKeyClearX, kKeyF, kKey8});
    CHECK(pCalculator->ReadsX("Error: log of x <= 0"));
}

static void HitEscape()
{
    HitKey(VK_ESCAPE);
    cProbeLink::Current()->Settle();
}

namespace
{

// A calculator whose welcome chime has ended. Tests that share it end in run mode
// and with the normal view.
struct cQuietRig
{
    cQuietRig() { REQUIRE(m_Takes.Hear({kStackView})); }

    int IsAsNew()
    {
        const int bUsable = m_Calculator.IsRunning() && !m_Calculator.HasDialog() &&
                            !m_Calculator.IsListingShown() && !IsProgramRunning(m_Calculator);
        if (bUsable)
            m_Calculator.HitKey(kKeyClearX);
        return bUsable && m_Takes.Hear({kClick});
    }

    cSoundTakes m_Takes;
    cCalculator m_Calculator;
};

}  // namespace

TEST_CASE("the welcome chime is heard, and keys click")
{
    cSoundTakes Takes;
    cCalculator Calculator;
    CHECK(Takes.Hear({kStackView}));
    Calculator.HitKey(kKey1);
    CHECK(Takes.Hear({kClick}));
    Type("1");
    Calculator.Settle();
    CHECK(Takes.Hear({kClick}));
}

TEST_CASE("characters without a key sound the refusal")
{
    cSoundTakes &Takes = Shared<cQuietRig>().m_Takes;
    Type("q");
    cProbeLink::Current()->Settle();
    CHECK(Takes.Hear({kRefusal}));
    HitEscape();
    CHECK(Takes.Hear({kRefusal}));
}

TEST_CASE("the stack view switch has a sound for each direction")
{
    cQuietRig &Rig = Shared<cQuietRig>();
    Rig.m_Calculator.Slide(swStackView, 1);
    CHECK(Rig.m_Takes.Hear({kClick, kStackView}));
    Rig.m_Calculator.Slide(swStackView, 0);
    CHECK(Rig.m_Takes.Hear({kNormalView}));
}

TEST_CASE("an error has its sound, and so has the key that clears its text")
{
    cQuietRig   &Rig        = Shared<cQuietRig>();
    cCalculator &Calculator = Rig.m_Calculator;
    Fail(&Calculator);
    CHECK(Rig.m_Takes.Hear({kClick, kClick, kClick, kError}));
    Calculator.HitKey(kKey1);
    CHECK(Rig.m_Takes.Hear({kClearedSound}));
    CHECK(Calculator.ReadsX("0.00"));
    Calculator.HitKey(kKey1);
    CHECK(Rig.m_Takes.Hear({kClick}));
    CHECK(Calculator.ReadsX("1."));
}

TEST_CASE("the mode switch has a sound for each direction, and line 00 refuses to be deleted")
{
    cQuietRig &Rig = Shared<cQuietRig>();
    Rig.m_Calculator.Slide(swMode, 0);
    CHECK(Rig.m_Takes.Hear({kProgramMode}));
    Rig.m_Calculator.HitKeys({kKeyG, kKeyDelete});
    CHECK(Rig.m_Takes.Hear({kClick, kClick, kRefusal}));
    Rig.m_Calculator.Slide(swMode, 1);
    CHECK(Rig.m_Takes.Hear({kClick, kRunMode}));
}

TEST_CASE("each key that halts a run has the sound of a halt")
{
    cQuietRig &Rig = Shared<cQuietRig>();
    RunListing(&Rig.m_Calculator, kEndless);
    CHECK(Rig.m_Takes.Hear({kClick}));
    Rig.m_Calculator.HitKey(kKey1);
    CHECK(Rig.m_Takes.Hear({kHalted}));

    Rig.m_Calculator.HitKey(kKeyRunStop);
    CHECK(Rig.m_Takes.Hear({kClick}));
    HitEscape();
    CHECK(Rig.m_Takes.Hear({kHalted}));
}

TEST_CASE("during a run the mode switch sounds the refusal, the stack view switch its own sounds")
{
    cQuietRig   &Rig        = Shared<cQuietRig>();
    cCalculator &Calculator = Rig.m_Calculator;
    RunListing(&Calculator, kEndless);
    CHECK(Rig.m_Takes.Hear({kClick}));
    Calculator.Slide(swMode, 0);
    CHECK(Rig.m_Takes.Hear({kRefusal}));
    Calculator.Slide(swMode, 1);
    CHECK(Rig.m_Takes.Hear({kRefusal}));
    Calculator.Slide(swStackView, 1);
    CHECK(Rig.m_Takes.Hear({kStackView}));
    Calculator.Slide(swStackView, 0);
    CHECK(Rig.m_Takes.Hear({kNormalView}));
    HitEscape();
    CHECK(Rig.m_Takes.Hear({kHalted}));
}

TEST_CASE("a key that follows the long sound of a halt at once is heard and has its effect")
{
    cQuietRig &Rig = Shared<cQuietRig>();
    RunListing(&Rig.m_Calculator, kEndless);
    CHECK(Rig.m_Takes.Hear({kClick}));

    HitEscape();
    Rig.m_Calculator.HitKey(kKey1);
    CHECK(Rig.m_Calculator.ReadsX("1."));
    CHECK(Rig.m_Takes.Hear({kHalted, kClick}));
}

TEST_CASE("with the sound option off nothing is heard")
{
    cSoundTakes Takes;
    cCalculator Calculator;
    CHECK(Takes.Hear({kStackView}));
    ToggleSound(&Calculator);

    Calculator.HitKey(kKey1);
    Type("1q");
    Calculator.Settle();
    HitEscape();
    Calculator.Slide(swStackView, 1);
    Calculator.Slide(swStackView, 0);
    Fail(&Calculator);
    Calculator.HitKey(kKey1);
    Calculator.Slide(swMode, 0);
    Calculator.HitKeys({kKeyG, kKeyDelete});
    Calculator.Slide(swMode, 1);
    RunListing(&Calculator, kEndless);
    Calculator.HitKey(kKey1);
    Calculator.HitKey(kKeyRunStop);
    HitEscape();

    // The first sound that is heard is the first one after the option is on.
    ToggleSound(&Calculator);
    HitEscape();
    CHECK(Takes.Hear({kRefusal}));
}

TEST_CASE("the sound option is on again at the next start")
{
    cSoundTakes Takes;
    {
        cCalculator Calculator;
        CHECK(Takes.Hear({kStackView}));
        ToggleSound(&Calculator);
    }

    cCalculator Again(1);
    CHECK(Takes.Hear({kStackView}));
    Again.PassWelcome();
    Again.HitKey(kKey1);
    CHECK(Takes.Hear({kClick}));
}

TEST_SUITE_BEGIN("silence");

TEST_CASE("without a sound device the calculator is silent and works")
{
    REQUIRE(waveOutGetNumDevs() == 0);
    cCalculator Calculator;
    Fail(&Calculator);
    Calculator.HitKeys({kKey1, kKey1});
    CHECK(Calculator.ReadsX("1."));
    HitEscape();
    Calculator.Slide(swStackView, 1);
    Calculator.Slide(swStackView, 0);
    Calculator.Slide(swMode, 0);
    CHECK(Calculator.ReadsProgramLine("00"));
    Calculator.HitKeys({kKeyG, kKeySum});
    Calculator.Slide(swMode, 1);
    RunListing(&Calculator, kEndless);
    HitEscape();
    Calculator.HitKey(kKey1);
    CHECK(Calculator.ReadsX("1."));
    CHECK_FALSE(Calculator.HasDialog());
}

TEST_SUITE_END();
