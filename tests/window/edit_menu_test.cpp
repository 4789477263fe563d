// The Edit menu and its keys. The listing is read-only; some other program
// may make it writable, as the tests do, and then all of the menu works.

#include "tests/window/calculator.h"

#include <doctest/doctest.h>

#include "tests/window/clipboard.h"
#include "tests/window/input.h"
#include "tests/window/menus.h"
#include "tests/window/waiting.h"

namespace
{

const unsigned kEditMenu = 1;

// The enabled ones of 201 to 205, as "203 204".
std::string EnabledCommands(cCalculator &Calculator)
{
    std::string Enabled;
    Calculator.OpenMenu(kEditMenu);
    for (unsigned nId = 201; nId <= 205; nId++)
        if ((Calculator.MenuState(nId) & (MF_GRAYED | MF_DISABLED)) == 0)
            Enabled += (Enabled.empty() ? "" : " ") + std::to_string(nId);
    CloseMenus();
    return Enabled;
}

void Select(cCalculator &Calculator, int nStart, int nEnd)
{
    SendMessageA(Calculator.Listing(), EM_SETSEL, static_cast<WPARAM>(nStart), nEnd);
}

std::string FirstLine(cCalculator &Calculator)
{
    const std::vector<std::string> Lines = Calculator.ListingLines();
    return Lines.empty() ? "" : Lines[0];
}

int FirstLineIs(cCalculator &Calculator, const std::string &Text)
{
    return Eventually(Text, [&] { return FirstLine(Calculator); }) == Text;
}

int ClipboardIs(const std::string &Text)
{
    return Eventually(Text, ClipboardText) == Text;
}

// Nothing is copied while another program has the clipboard open, as the screen
// has for a moment after each change; then it is done again.
int CopiesWith(cCalculator &Calculator, int nKey, const std::string &Text)
{
    return WaitFor([&] {
        Calculator.HitShortcut(nKey, kCtrl);
        Calculator.Settle();
        return ClipboardText() == Text;
    });
}

}  // namespace

TEST_CASE("the read-only listing can be selected and copied, not changed")
{
    cCalculator Calculator;
    Calculator.KeepOpen(1, 0);
    SetClipboardText("other");
    CHECK(EnabledCommands(Calculator) == "203");
    Select(Calculator, 3, 3);
    CHECK(EnabledCommands(Calculator).empty());

    // Neither the keys nor a sent command change anything; copying nothing
    // leaves the clipboard alone.
    for (const int nKey : {'Z', 'X', 'C', 'V'})
        Calculator.HitShortcut(nKey, kCtrl);
    Calculator.HitShortcut(VK_DELETE);
    Calculator.Settle();
    CHECK_FALSE(Calculator.HasDialog());
    CHECK(FirstLineIs(Calculator, "00"));
    CHECK(Calculator.ListingLines().size() == 99);
    CHECK(ClipboardIs("other"));

    Calculator.Choose(kEditMenu, IDM_SELECT_ALL);
    Calculator.Choose(kEditMenu, IDM_COPY);
    std::string All = "00\r\n";
    for (const std::string &Line : Calculator.ListingLines())
        if (Line != "00")
            All += Line + "\r\n";
    CHECK(ClipboardIs(All));

    Select(Calculator, 4, 10);
    CHECK(CopiesWith(Calculator, 'C', "01 R/S"));
    Select(Calculator, 12, 18);
    CHECK(CopiesWith(Calculator, VK_INSERT, "02 R/S"));
    Calculator.HitShortcut('A', kCtrl);
    CHECK(CopiesWith(Calculator, 'C', All));

    // The highlight is brought back by menu and button.
    CHECK(Calculator.HighlightedLine() == "00");
    Select(Calculator, 20, 26);
    Calculator.Choose(kEditMenu, IDM_REPAIR_HIGHLIGHT);
    CHECK(Eventually(std::string("00"), [&] { return Calculator.HighlightedLine(); }) == "00");
    Calculator.HitKeys({3, 29, 25, 28});  // GTO . 2 0
    CHECK(Calculator.HighlightedLine() == "20 R/S");
    Select(Calculator, 4, 10);
    Calculator.ClickButton(IDM_REPAIR_HIGHLIGHT);
    CHECK(Eventually(std::string("20 R/S"), [&] { return Calculator.HighlightedLine(); }) ==
          "20 R/S");
}

TEST_CASE("a writable listing is cut, pasted, cleared and undone with every key")
{
    cCalculator Calculator;
    SetClipboardText("");
    SendMessageA(Calculator.Listing(), EM_SETREADONLY, FALSE, 0);
    Select(Calculator, 0, 0);
    CHECK(EnabledCommands(Calculator).empty());
    Select(Calculator, 0, 2);
    CHECK(EnabledCommands(Calculator) == "202 203 205");

    Calculator.HitShortcut('X', kCtrl);
    CHECK(FirstLineIs(Calculator, ""));
    CHECK(ClipboardIs("00"));
    CHECK(EnabledCommands(Calculator) == "201 204");
    Calculator.HitShortcut('Z', kCtrl);
    CHECK(FirstLineIs(Calculator, "00"));
    Select(Calculator, 0, 1);
    Calculator.HitShortcut(VK_DELETE, kShift);
    CHECK(FirstLineIs(Calculator, "0"));
    Calculator.HitShortcut(VK_BACK, kAlt);
    CHECK(FirstLineIs(Calculator, "00"));
    SetClipboardText("; one");
    Select(Calculator, 0, 2);
    Calculator.HitShortcut('V', kCtrl);
    CHECK(FirstLineIs(Calculator, "; one"));
    Select(Calculator, 0, 2);
    Calculator.HitShortcut(VK_INSERT, kShift);
    CHECK(FirstLineIs(Calculator, "; oneone"));
    Select(Calculator, 0, 5);
    Calculator.HitShortcut(VK_DELETE);
    CHECK(FirstLineIs(Calculator, "one"));

    // The same with the mouse.
    Calculator.Choose(kEditMenu, IDM_UNDO);
    CHECK(FirstLineIs(Calculator, "; oneone"));
    Select(Calculator, 0, 2);
    Calculator.Choose(kEditMenu, IDM_CUT);
    CHECK(FirstLineIs(Calculator, "oneone"));
    Calculator.Choose(kEditMenu, IDM_PASTE);
    CHECK(FirstLineIs(Calculator, "; oneone"));
    Select(Calculator, 0, 5);
    Calculator.Choose(kEditMenu, IDM_DELETE);
    CHECK(FirstLineIs(Calculator, "one"));
    CHECK(ClipboardIs("; "));
}
