// The lamps below the display of the real window.

#include "tests/window/calculator.h"

#include <string>

#include <doctest/doctest.h>

#include "engine/display.h"
#include "shell/face_geometry.h"
#include "tests/window/common_steps.h"
#include "tests/window/keys.h"
#include "tests/window/waiting.h"

// The middle of a lamp is much brighter while it is lit: at least this sum of red,
// green and blue. A dark one reaches a third of it.
static const unsigned kBright = 420;

// A letter for each lamp that is lit, for example "f" or "gP"; R is the run's.
static std::string LitLamps(const cCalculator &Calculator)
{
    static const char *const s_Letters = "fgPR";
    std::string              Lit;
    for (int i = 0; i < kFaceLamps; i++)
    {
        const cFaceRect &Lamp = kLampRects[i];
        const POINT      Middle =
            Calculator.OnFace(Lamp.m_nLeft + Lamp.m_nWidth / 2, Lamp.m_nTop + Lamp.m_nHeight / 2);
        const cPicture Pixel = cPicture::OfScreen({Middle.x, Middle.y, Middle.x + 1, Middle.y + 1});
        const unsigned nRgb  = Pixel.At(0, 0);
        if ((nRgb >> 16) + (nRgb >> 8 & 255) + (nRgb & 255) >= kBright)
            Lit += s_Letters[i];
    }
    return Lit;
}

static int Shows(const cCalculator &Calculator, const std::string &Lamps)
{
    return Eventually(Lamps, [&] { return LitLamps(Calculator); }) == Lamps;
}

TEST_CASE("lamps show the pending prefix key, program mode and a run")
{
    cCalculator Calculator;
    CHECK(Shows(Calculator, ""));

    Calculator.HitKey(kKeyF);
    CHECK(Shows(Calculator, "f"));
    Calculator.Photograph().Save("lamp-f");
    Calculator.HitKey(kKeyG);
    CHECK(Shows(Calculator, "g"));
    Repaint(Calculator);
    CHECK(Shows(Calculator, "g"));
    Calculator.HitKey(kKeyEnter);
    CHECK(Shows(Calculator, ""));

    Calculator.Slide(swMode, 0);
    CHECK(Shows(Calculator, "P"));
    Calculator.HitKey(kKeyF);
    CHECK(Shows(Calculator, "fP"));
    Calculator.Photograph().Save("lamps-f-program");
    Calculator.HitKey(kKeyEnter);
    Calculator.Slide(swMode, 1);
    CHECK(Shows(Calculator, ""));

    RunListing(&Calculator, kEndless);
    CHECK(Shows(Calculator, "R"));
    Calculator.Photograph().Save("lamp-running");
    Calculator.HitKey(kKeyRunStop);
    REQUIRE(HasHalted(Calculator));
    CHECK(Shows(Calculator, ""));
}

TEST_CASE("a lamp that goes out leaves the face as it was")
{
    cCalculator Calculator;
    Calculator.HitKey(kKeyEnter);
    const cPicture Dark = PhotographFace(Calculator);

    Calculator.HitKeys({kKeyF, kKeyG, kKeyEnter});

    CHECK(LooksLike(Calculator, Dark));
}
