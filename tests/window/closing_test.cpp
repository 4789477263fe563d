// The ways to close the calculator, each of which asks whether to save a changed
// program.

#include "tests/window/calculator.h"

#include <functional>

#include <doctest/doctest.h>

#include "tests/window/common_steps.h"
#include "tests/window/input.h"
#include "tests/window/keys.h"
#include "tests/window/menus.h"
#include "tests/window/waiting.h"

// Adds an ENTER and stays in program mode.
static void Modify(cCalculator *pCalculator)
{
    pCalculator->Slide(swMode, 0);
    pCalculator->HitKey(kKeyEnter);
    CHECK(pCalculator->ReadsProgramLine("01 ENTER"));
}

namespace
{

struct cWayOut
{
    const char                        *m_szName;
    std::function<void(cCalculator *)> m_Go;
};

}  // namespace

static const cWayOut kWaysOut[] = {
    {"the menu",
     [](cCalculator *pCalculator) {
         pCalculator->OpenMenu(mnFile);
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

TEST_CASE("every way of closing asks whether to save, and Cancel keeps the calculator open")
{
    cCalculator    Calculator;
    const cSeenBox Question = {"Vorstek", kSaveUntitled, {"Yes", "No", "Cancel"}};
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
    CHECK(Calculator.HasNoDialog());
    Calculator.Settle();
    CHECK(Calculator.IsRunning());
}

TEST_CASE("with changes the end of the session is refused without a question")
{
    cCalculator Calculator;
    CHECK(SendMessageA(Calculator.Window(), WM_QUERYENDSESSION, 0, 0) != 0);
    Modify(&Calculator);
    CHECK(SendMessageA(Calculator.Window(), WM_QUERYENDSESSION, 0, 0) == 0);
    CHECK_FALSE(Calculator.HasDialog());
}

TEST_CASE("Yes asks for a file name, and the calculator closes only with one")
{
    cCalculator Calculator;
    Modify(&Calculator);
    HitKey('E', kCtrl);
    CHECK(Calculator.Answers(kSaveUntitled, "Yes"));
    REQUIRE(Calculator.Dialog());
    Calculator.PhotographScreen().Save("save-before-exit");
    Calculator.Click("Cancel");
    Calculator.Settle();
    CHECK(Calculator.IsRunning());
    CHECK(Calculator.ReadsProgramLine("01 ENTER"));
    CHECK(Calculator.ListingLines()[1] == "01 ENTER");
    CHECK(Calculator.StatusText() == "filename: UNTITLED");

    HitKey('E', kCtrl);
    CHECK(Calculator.Answers(kSaveUntitled, "Yes"));
    REQUIRE(Calculator.Dialog());
    Type(Calculator.Path("kept.txt"));
    Calculator.Click("Save");
    CHECK(Calculator.ExitCode() == 0);
    CHECK(Calculator.Folder().Read("kept.txt") == "ENTER\r\n");
}

TEST_CASE("Yes saves a program to the file it was opened from")
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
    CHECK(Calculator.Answers(kSaveUntitled, "No"));

    CHECK(Calculator.ExitCode() == 0);
    CHECK(Calculator.Folder().Count() == 1);  // the program file itself
}

TEST_CASE("a calculator without changes closes without a question")
{
    cCalculator Calculator;
    Calculator.HitKeys({kKey1, kKeyEnter});

    Click(FramePoint(Calculator.Window(), HTCLOSE));

    CHECK(Calculator.ExitCode() == 0);
}
