// The Edit menu and its keys. The listing is read-only; the tests make it writable,
// as another program might, because only then all commands are enabled.

#include "tests/window/calculator.h"

#include <doctest/doctest.h>

#include "tests/window/clipboard.h"
#include "tests/window/input.h"
#include "tests/window/keys.h"
#include "tests/window/menus.h"
#include "tests/window/waiting.h"

// The enabled commands among 201 to 205, as "203 204".
static std::string EnabledCommands(cCalculator &Calculator)
{
    std::string Enabled;
    Calculator.OpenMenu(mnEdit);
    for (unsigned nId = 201; nId <= 205; nId++)
        if ((Calculator.MenuState(nId) & (MF_GRAYED | MF_DISABLED)) == 0)
            Enabled += (Enabled.empty() ? "" : " ") + std::to_string(nId);
    CloseMenus();
    return Enabled;
}

// Waits until these commands are enabled, as other programs learn of a change of
// the clipboard with a delay; 0 if others are.
static int EnabledAre(cCalculator &Calculator, const std::string &Commands)
{
    const std::string Seen = Eventually(Commands, [&] { return EnabledCommands(Calculator); });
    if (Seen != Commands)
        MESSAGE("enabled: ", Seen);
    return Seen == Commands;
}

static void Select(cCalculator &Calculator, int nStart, int nEnd)
{
    SendMessageA(Calculator.Listing(), EM_SETSEL, static_cast<WPARAM>(nStart), nEnd);
}

static std::string FirstLine(cCalculator &Calculator)
{
    const std::vector<std::string> Lines = Calculator.ListingLines();
    return Lines.empty() ? "" : Lines[0];
}

static int FirstLineIs(cCalculator &Calculator, const std::string &Text)
{
    return Eventually(Text, [&] { return FirstLine(Calculator); }) == Text;
}

static int HighlightIs(cCalculator &Calculator, const std::string &Line)
{
    return Eventually(Line, [&] { return Calculator.HighlightedLine(); }) == Line;
}

static void MakeWritable(const cCalculator &Calculator)
{
    SendMessageA(Calculator.Listing(), EM_SETREADONLY, FALSE, 0);
}

static int ClipboardIs(const std::string &Text)
{
    return Eventually(Text, ClipboardText) == Text;
}

// While another program has the clipboard open, as Wine's desktop has for a moment
// after each change, nothing is copied or pasted. So these try until it was.
static int CopiesWith(cCalculator &Calculator, int nKey, const std::string &Text)
{
    return WaitFor([&] {
        Calculator.HitShortcut(nKey, kCtrl);
        Calculator.Settle();
        return ClipboardText() == Text;
    });
}

template <class cPaste>
static int Pastes(cCalculator &Calculator, const std::string &Line, cPaste Paste)
{
    const std::string Before = FirstLine(Calculator);
    return WaitFor([&] {
        if (FirstLine(Calculator) == Before)
            Paste();
        Calculator.Settle();
        return FirstLine(Calculator) == Line;
    });
}

// Cuts with the menu the first characters; what was not copied is taken back.
static int CutsFirst(cCalculator &Calculator, const std::string &Text)
{
    return WaitFor([&] {
        Select(Calculator, 0, static_cast<int>(Text.size()));
        Calculator.Choose(mnEdit, IDM_CUT);
        const int bCopied = ClipboardText() == Text;
        if (!bCopied)
            Calculator.Choose(mnEdit, IDM_UNDO);
        return bCopied;
    });
}

TEST_CASE("a read-only listing enables only Copy, and no key changes it")
{
    cCalculator Calculator;
    Calculator.KeepOpen(1, 0);
    SetClipboardText("other");
    CHECK(EnabledAre(Calculator, "203"));
    Select(Calculator, 3, 3);
    CHECK(EnabledAre(Calculator, ""));

    // Copy without a selection leaves the clipboard as it is.
    for (const int nKey : {'Z', 'X', 'C', 'V'})
        Calculator.HitShortcut(nKey, kCtrl);
    Calculator.HitShortcut(VK_DELETE);
    Calculator.Settle();
    CHECK_FALSE(Calculator.HasDialog());
    CHECK(FirstLineIs(Calculator, "00"));
    CHECK(Calculator.ListingLines().size() == 99);
    CHECK(ClipboardIs("other"));
}

TEST_CASE("a part of the listing or all of it is copied with the menu and with keys")
{
    cCalculator Calculator;
    Calculator.KeepOpen(1, 0);
    SetClipboardText("other");
    Calculator.Choose(mnEdit, IDM_SELECT_ALL);
    Calculator.Choose(mnEdit, IDM_COPY);
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
}

TEST_CASE("Repair Highlight selects the current line again, from menu and toolbar")
{
    cCalculator Calculator;
    Calculator.KeepOpen(1, 0);
    CHECK(Calculator.HighlightedLine() == "00");
    Select(Calculator, 20, 26);
    Calculator.Choose(mnEdit, IDM_REPAIR_HIGHLIGHT);
    CHECK(HighlightIs(Calculator, "00"));
    Calculator.HitKeys({kKeyGoTo, kKeyPoint, kKey2, kKey0});
    CHECK(Calculator.HighlightedLine() == "20 R/S");
    Select(Calculator, 4, 10);
    Calculator.ClickButton(IDM_REPAIR_HIGHLIGHT);
    CHECK(HighlightIs(Calculator, "20 R/S"));
}

TEST_CASE("a selection in a writable listing enables Cut, Copy and Delete, a cut Undo and Paste")
{
    cCalculator Calculator;
    SetClipboardText("");
    MakeWritable(Calculator);
    Select(Calculator, 0, 0);
    CHECK(EnabledAre(Calculator, ""));
    Select(Calculator, 0, 2);
    CHECK(EnabledAre(Calculator, "202 203 205"));
    Calculator.HitShortcut('X', kCtrl);
    CHECK(FirstLineIs(Calculator, ""));
    CHECK(ClipboardIs("00"));
    CHECK(EnabledAre(Calculator, "201 204"));
}

TEST_CASE("a writable listing is cut, pasted, cleared and undone with every key")
{
    cCalculator Calculator;
    MakeWritable(Calculator);
    Select(Calculator, 0, 2);
    Calculator.HitShortcut('X', kCtrl);
    CHECK(FirstLineIs(Calculator, ""));
    Calculator.HitShortcut('Z', kCtrl);
    CHECK(FirstLineIs(Calculator, "00"));
    Select(Calculator, 0, 1);
    Calculator.HitShortcut(VK_DELETE, kShift);
    CHECK(FirstLineIs(Calculator, "0"));
    Calculator.HitShortcut(VK_BACK, kAlt);
    CHECK(FirstLineIs(Calculator, "00"));
    SetClipboardText("; one");
    Select(Calculator, 0, 2);
    CHECK(Pastes(Calculator, "; one", [&] { Calculator.HitShortcut('V', kCtrl); }));
    Select(Calculator, 0, 2);
    CHECK(Pastes(Calculator, "; oneone", [&] { Calculator.HitShortcut(VK_INSERT, kShift); }));
    Select(Calculator, 0, 5);
    Calculator.HitShortcut(VK_DELETE);
    CHECK(FirstLineIs(Calculator, "one"));
}

TEST_CASE("a writable listing is undone, cut, pasted and cleared with the menu")
{
    cCalculator Calculator;
    MakeWritable(Calculator);
    SetClipboardText("; oneone");
    Select(Calculator, 0, 2);
    REQUIRE(Pastes(Calculator, "; oneone", [&] { Calculator.HitShortcut('V', kCtrl); }));
    Select(Calculator, 0, 5);
    Calculator.HitShortcut(VK_DELETE);
    CHECK(FirstLineIs(Calculator, "one"));
    Calculator.Choose(mnEdit, IDM_UNDO);
    CHECK(FirstLineIs(Calculator, "; oneone"));
    CHECK(CutsFirst(Calculator, "; "));
    CHECK(FirstLineIs(Calculator, "oneone"));
    CHECK(Pastes(Calculator, "; oneone", [&] { Calculator.Choose(mnEdit, IDM_PASTE); }));
    Select(Calculator, 0, 5);
    Calculator.Choose(mnEdit, IDM_DELETE);
    CHECK(FirstLineIs(Calculator, "one"));
}
