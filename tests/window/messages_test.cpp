// The message boxes: texts, buttons and icons.

#include "tests/window/calculator.h"

#include <doctest/doctest.h>

#include "tests/window/common_steps.h"
#include "tests/window/input.h"
#include "tests/window/keys.h"
#include "tests/window/shared_rig.h"
#include "tests/window/waiting.h"

static const int kNoIcon = 0;

static const char *const kTruncated = "ERROR: File overflow has\ncaused text truncation.";
static const char *const kCleared   = "Program Memory has been cleared";

static const std::vector<std::string> kOk          = {"OK"};
static const std::vector<std::string> kOkCancel    = {"OK", "Cancel"};
static const std::vector<std::string> kYesNoCancel = {"Yes", "No", "Cancel"};

namespace
{

// An empty program, which tests that share it leave empty.
struct cEmptyRig
{
    int IsAsNew() const
    {
        return m_Calculator.IsRunning() && !m_Calculator.HasDialog() &&
               m_Calculator.StatusText() == "filename: UNTITLED";
    }

    cCalculator m_Calculator;
};

}  // namespace

// Waits for the box, compares all of it and closes it.
static void CheckBox(cCalculator *pCalculator, const cSeenBox &Expected, int nIcon,
                     const char *szButton)
{
    const cSeenBox Seen = pCalculator->Box();
    CHECK(Seen.m_Text == Expected.m_Text);
    CHECK(Seen.m_Caption == Expected.m_Caption);
    CHECK((Seen.m_Buttons == Expected.m_Buttons));
    CHECK(pCalculator->BoxIcon() == nIcon);
    pCalculator->Click(szButton);
}

static void CheckBox(cCalculator *pCalculator, const char *szText, int nIcon)
{
    CheckBox(pCalculator, {"Vorstek", szText, kOk}, nIcon, "OK");
}

TEST_CASE("without a change the Undo command says that there is nothing to undo")
{
    cCalculator &Calculator = Shared<cEmptyRig>().m_Calculator;
    // The menu item is greyed, but another program may send its command.
    PostCommand(Calculator, IDM_UNDO);
    CheckBox(&Calculator, "Nothing to undo", kNoIcon);
    CHECK(Calculator.HasNoDialog());
}

TEST_CASE("a listing that has no room for its text reports that it was cut off")
{
    cCalculator &Calculator = Shared<cEmptyRig>().m_Calculator;
    for (const unsigned nNotice : {EN_MAXTEXT, EN_ERRSPACE})
    {
        PostCommand(Calculator, static_cast<unsigned>(MAKELONG(IDC_LISTING, nNotice)));
        CheckBox(&Calculator, kTruncated, kErrorIcon);
    }
    CHECK(Calculator.HasNoDialog());
}

TEST_CASE("a listing of 99 instructions overflows the program memory")
{
    cCalculator Calculator;
    std::string Lines = std::string(100, '\n') + "ENTER\n";
    for (int i = 0; i < 98; i++)
        Lines += "+\n";
    Calculator.Folder().Write("long.txt", Lines);

    OpenFile(&Calculator, "long.txt");

    CheckBox(&Calculator, "Program memory overflow", kNoIcon);
    CHECK(Calculator.HasNoDialog());
}

TEST_CASE("each kind of bad line has its error, and Cancel clears the program memory")
{
    static const struct
    {
        const char *m_szLine;
        const char *m_szError;
    } s_Rows[] = {
        {"\nsto 5\n", "Error: unrecognized instr mnemonic on line #2:\nsto 5"},
        {"3.5 7\n", "Error: illegal number on line #1:\n3.5 7"},
        {"LBL 12\n", "Error: illegal operand on line 1:\nLBL 12"},
    };
    cCalculator Calculator;
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.m_szError);
        const int bLast = &Row == std::end(s_Rows) - 1;
        Calculator.Folder().Write("bad.txt", Row.m_szLine);
        OpenFile(&Calculator, "bad.txt");
        CheckBox(&Calculator, {"ERROR", Row.m_szError, kOkCancel}, kNoIcon,
                 bLast ? "Cancel" : "OK");
    }
    CheckBox(&Calculator, kCleared, kNoIcon);
    CHECK(Calculator.HasNoDialog());
}

TEST_CASE("a file that another program has locked could not be opened")
{
    cCalculator Calculator;
    Calculator.Folder().Write("loop.txt", "LBL 1\nGTO 1\n");
    const std::string Path = Calculator.Path("loop.txt");
    const HANDLE      hLocked =
        CreateFileA(Path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);

    OpenFile(&Calculator, "loop.txt");

    CheckBox(&Calculator, ("ERROR: couldn't open the file '" + Path + "' for reading").c_str(),
             kErrorIcon);
    CHECK(Calculator.HasNoDialog());
    CloseHandle(hLocked);
}

TEST_CASE("a program halts with a message when the graph's memory is full")
{
    cCalculator Calculator;
    RunListing(&Calculator, "LBL 1\nSumG\nGTO 1\n");
    CheckBox(&Calculator,
             "The Vorstek's program must now halt\nsince the cVantor window has reached its\n"
             "memory limit\n",
             kNoIcon);
    CHECK(Calculator.HasNoDialog());
}

TEST_CASE("the close box refuses to close the calculator during a run")
{
    cCalculator Calculator;
    RunListing(&Calculator, kEndless);
    Click(FramePoint(Calculator.Window(), HTCLOSE));
    CheckBox(&Calculator, kRefusedInRun, kNoIcon);
    CHECK(Calculator.HasNoDialog());
}

TEST_CASE("a read-only file could not be written")
{
    cCalculator Calculator;
    OpenListing(&Calculator, kEndless);
    const std::string Path = Calculator.Path("program.txt");
    SetFileAttributesA(Path.c_str(), FILE_ATTRIBUTE_READONLY);

    Calculator.HitShortcut('S', kCtrl);

    CheckBox(&Calculator, ("Could not write the file:\n " + Path).c_str(), kErrorIcon);
    CHECK(Calculator.HasNoDialog());
    SetFileAttributesA(Path.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_CASE("the question whether to save names the file, or UNTITLED")
{
    cCalculator Calculator;
    OpenListing(&Calculator, kEndless);
    AddEnter(&Calculator);
    Calculator.HitShortcut('N', kCtrl);
    const std::string Named = "Save current changes in " + Calculator.Path("program.txt") + "?";
    CheckBox(&Calculator, {"Vorstek", Named, kYesNoCancel}, kQuestionIcon, "No");

    AddEnter(&Calculator);
    Calculator.HitShortcut('E', kCtrl);
    CheckBox(&Calculator, {"Vorstek", kSaveUntitled, kYesNoCancel}, kQuestionIcon, "Cancel");
    CHECK(Calculator.HasNoDialog());
}

TEST_CASE("an empty listing has nothing to print")
{
    cCalculator Calculator;
    SendMessageA(Calculator.Listing(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(""));
    Calculator.HitShortcut('P', kCtrl);
    CheckBox(&Calculator, "There is nothing to print", kNoIcon);
    CHECK(Calculator.HasNoDialog());
}

TEST_CASE("a missing help file is reported, and the calculator goes on")
{
    cCalculator Calculator;
    Calculator.HitShortcut(VK_F1);
    REQUIRE(Calculator.Dialog());
    Calculator.PhotographScreen().Save("help");
    CHECK(!GetWindow(Calculator.Dialog(), GW_OWNER));
    CHECK_FALSE(IsWindowEnabled(Calculator.Window()));
    CheckBox(&Calculator, MissingHelpText("VORSTEK.CHM").c_str(), kErrorIcon);
    CHECK(Calculator.HasNoDialog());
    CHECK(Eventually(Calculator.Window(), GetForegroundWindow) == Calculator.Window());

    Calculator.HitKey(kKey7);
    CHECK(Calculator.ReadsX("7."));
}
