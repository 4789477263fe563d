// The ways to close the calculator, and the question that stands before each of
// them while the program has changes.

#include "tests/window/calculator.h"

#include <functional>

#include <doctest/doctest.h>

#include "tests/window/common_steps.h"
#include "tests/window/input.h"
#include "tests/window/menus.h"
#include "tests/window/waiting.h"

namespace
{

const char kQuestion[] = "Save current changes in UNTITLED?";

const unsigned kKeyEnter = 11;

// Puts an ENTER into the program.
void Modify(cCalculator *pCalculator)
{
    pCalculator->Slide(swMode, 0);
    pCalculator->HitKey(kKeyEnter);
    CHECK(pCalculator->ReadsProgramLine("01 ENTER"));
}

struct cWayOut
{
    const char                        *m_szName;
    std::function<void(cCalculator *)> m_Go;
};

const cWayOut kWaysOut[] = {
    {"the menu",
     [](cCalculator *pCalculator) {
         pCalculator->OpenMenu(0);
         pCalculator->PointAtItem(IDM_EXIT);
         PressMouse();
         ReleaseMouse();
     }},
    {"Ctrl+E", [](cCalculator *) { HitKey('E', kCtrl); }},
    {"the close box",
     [](cCalculator *pCalculator) { Click(FramePoint(pCalculator->Window(), HTCLOSE)); }},
    {"Alt+F4", [](cCalculator *) { HitKey(VK_F4, kAlt); }},
    {"the system menu",
     [](cCalculator *) {
         HitKey(VK_SPACE, kAlt);
         WaitForMenu();
         HitKey('C');
     }},
};

}  // namespace

TEST_CASE("every way of closing first asks whether to save, and Cancel keeps the calculator open")
{
    cCalculator    Calculator;
    const cSeenBox Question = {"Vorstek", kQuestion, {"Yes", "No", "Cancel"}};
    CHECK(SendMessageA(Calculator.Window(), WM_QUERYENDSESSION, 0, 0) != 0);
    Modify(&Calculator);

    for (const cWayOut &Way : kWaysOut)
    {
        CAPTURE(Way.m_szName);
        Way.m_Go(&Calculator);
        CHECK(Calculator.Box() == Question);
        Calculator.Click("Cancel");
        Calculator.Settle();
        CHECK(Calculator.IsRunning());
        CHECK(IsWindowVisible(Calculator.Window()));
    }

    // Escape is Cancel.
    HitKey('E', kCtrl);
    REQUIRE(Calculator.Dialog());
    HitKey(VK_ESCAPE);
    CHECK(Eventually(0, [&] { return Calculator.HasDialog(); }) == 0);
    Calculator.Settle();
    CHECK(Calculator.IsRunning());

    // The end of the session is refused without a word.
    CHECK(SendMessageA(Calculator.Window(), WM_QUERYENDSESSION, 0, 0) == 0);
    CHECK_FALSE(Calculator.HasDialog());

    // Yes asks for a name; without one the calculator stays, with its program.
    HitKey('E', kCtrl);
    CHECK(Calculator.Answers(kQuestion, "Yes"));
    REQUIRE(Calculator.Dialog());
    Calculator.PhotographScreen().Save("save-before-exit");
    Calculator.Click("Cancel");
    Calculator.Settle();
    CHECK(Calculator.IsRunning());
    CHECK(Calculator.ReadsProgramLine("01 ENTER"));
    CHECK(Calculator.ListingLines()[1] == "01 ENTER");
    CHECK(Calculator.StatusText() == "filename: UNTITLED");

    // With a name it is saved and the calculator goes.
    HitKey('E', kCtrl);
    CHECK(Calculator.Answers(kQuestion, "Yes"));
    REQUIRE(Calculator.Dialog());
    Type(Calculator.Path("kept.txt"));
    Calculator.Click("Save");
    CHECK(Calculator.ExitCode() == 0);
    CHECK(Calculator.Folder().Read("kept.txt") == "ENTER\r\n");
}

TEST_CASE("a program with a name is saved under it without a further question")
{
    cCalculator Calculator;
    OpenListing(&Calculator, "pi\r\n");
    CHECK(SendMessageA(Calculator.Window(), WM_QUERYENDSESSION, 0, 0) != 0);
    Modify(&Calculator);
    CHECK(SendMessageA(Calculator.Window(), WM_QUERYENDSESSION, 0, 0) == 0);

    HitKey(VK_F4, kAlt);
    CHECK(Calculator.Answers("Save current changes in " + Calculator.Path("program.txt") + "?",
                             "Yes"));
    CHECK(Calculator.ExitCode() == 0);
    CHECK(Calculator.Folder().Read("program.txt") == "ENTER\r\npi\r\n");
}

TEST_CASE("No closes without saving")
{
    cCalculator Calculator;
    Modify(&Calculator);

    Click(FramePoint(Calculator.Window(), HTCLOSE));
    CHECK(Calculator.Answers(kQuestion, "No"));

    CHECK(Calculator.ExitCode() == 0);
    CHECK(Calculator.Folder().Count() == 1);  // the program file itself
}

TEST_CASE("a calculator without changes closes without a question")
{
    cCalculator Calculator;
    Calculator.HitKeys({24, kKeyEnter});

    Click(FramePoint(Calculator.Window(), HTCLOSE));

    CHECK(Calculator.ExitCode() == 0);
}
