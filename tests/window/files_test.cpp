// New, Open, Save and Save As with their real dialogs.

#include "tests/window/calculator.h"

#include <doctest/doctest.h>

#include <filesystem>

#include "tests/window/common_steps.h"
#include "tests/window/input.h"
#include "tests/window/keys.h"
#include "tests/window/probe_link.h"
#include "tests/window/shared_rig.h"
#include "tests/window/waiting.h"

// Waits for the name in the status bar; 0 if it does not appear.
static int StatusIs(cCalculator &Calculator, const std::string &Name)
{
    const std::string Text = "filename: " + Name;
    return Eventually(Text, [&] { return Calculator.StatusText(); }) == Text;
}

// Waits for a line of the listing, counted from 0; 0 if it does not appear.
static int ListingIs(cCalculator &Calculator, unsigned nLine, const std::string &Text)
{
    return Eventually(Text, [&] {
               const std::vector<std::string> Lines = Calculator.ListingLines();
               return nLine < Lines.size() ? Lines[nLine] : "";
           }) == Text;
}

namespace
{

// A program without a file, whose change has not been saved. Tests that share it
// cancel what they begin.
struct cChangedRig
{
    cChangedRig() { AddEnter(&m_Calculator); }

    int IsAsNew() const
    {
        return m_Calculator.IsRunning() && !m_Calculator.HasDialog() &&
               m_Calculator.ListingLines()[1] == "01 ENTER" &&
               m_Calculator.StatusText() == "filename: UNTITLED";
    }

    cCalculator m_Calculator;
};

}  // namespace

TEST_CASE("New and Open ask whether to save, and Cancel keeps the program")
{
    cCalculator &Calculator = Shared<cChangedRig>().m_Calculator;
    Calculator.ClickButton(IDM_NEW);
    CHECK(Calculator.Answers(kSaveUntitled, "Cancel"));
    CHECK(ListingIs(Calculator, 1, "01 ENTER"));
    Calculator.ClickButton(IDM_OPEN);
    CHECK(Calculator.Answers(kSaveUntitled, "Cancel"));
    CHECK(Calculator.HasNoDialog());
    CHECK(ListingIs(Calculator, 1, "01 ENTER"));
}

TEST_CASE("a cancelled Open or Save As dialog changes nothing")
{
    cCalculator &Calculator = Shared<cChangedRig>().m_Calculator;
    Calculator.ClickButton(IDM_OPEN);
    CHECK(Calculator.Answers(kSaveUntitled, "No"));
    CHECK(Calculator.Box().m_Caption == "Open");
    Calculator.CloseDialogWith(VK_ESCAPE);
    CHECK(Calculator.HasNoDialog());
    CHECK(ListingIs(Calculator, 1, "01 ENTER"));
    CHECK(StatusIs(Calculator, "UNTITLED"));

    Calculator.HitShortcut('N', kCtrl);
    CHECK(Calculator.Answers(kSaveUntitled, "Yes"));
    CHECK(Calculator.Box().m_Caption == "Save As");
    Calculator.CloseDialogWith(VK_ESCAPE);
    CHECK(Calculator.HasNoDialog());
    CHECK(ListingIs(Calculator, 1, "01 ENTER"));
}

TEST_CASE("Yes saves under a name with blanks and an accent, and adds the extension")
{
    const std::string Name = "caf\xE9 au lait";
    cCalculator       Calculator;
    AddEnter(&Calculator);
    Calculator.HitShortcut('N', kCtrl);
    CHECK(Calculator.Answers(kSaveUntitled, "Yes"));
    Calculator.GiveFileName(Calculator.Path(Name));
    CHECK(Calculator.HasNoDialog());
    CHECK(Calculator.Folder().Read(Name + ".txt") == "ENTER\r\n");
    CHECK(ListingIs(Calculator, 1, "01 R/S"));
    CHECK(StatusIs(Calculator, "UNTITLED"));

    OpenFile(&Calculator, Name + ".txt");
    CHECK(StatusIs(Calculator, Calculator.Path(Name + ".txt")));
    CHECK(ListingIs(Calculator, 1, "01 ENTER"));
}

TEST_CASE("Save writes to the file that was opened without a question")
{
    cCalculator Calculator;
    OpenListing(&Calculator, "ENTER\r\n");
    Calculator.HitKeys({kKeyGoTo, kKeyPoint, kKey0, kKey1});
    AddEnter(&Calculator);

    Calculator.ClickButton(IDM_SAVE);

    CHECK(Calculator.HasNoDialog());
    CHECK(Calculator.Folder().Read("program.txt") == "ENTER\r\nENTER\r\n");
    Calculator.HitShortcut('N', kCtrl);
    CHECK(ListingIs(Calculator, 1, "01 R/S"));
    CHECK_FALSE(Calculator.HasDialog());
}

TEST_CASE("Save As asks before it replaces a file")
{
    cCalculator Calculator;
    Calculator.Folder().Write("old.txt", "old");
    AddEnter(&Calculator);
    Calculator.Choose(mnFile, IDM_SAVE_AS);
    Calculator.GiveFileName(Calculator.Path("old.txt"));
    CHECK(Calculator.Box().m_Buttons.size() == 2);
    Calculator.PhotographScreen().Save("overwrite");
    Calculator.Click("No");
    Calculator.CloseDialogWith(VK_ESCAPE);
    CHECK(Calculator.HasNoDialog());
    CHECK(Calculator.Folder().Read("old.txt") == "old");

    Calculator.HitShortcut('S', kCtrl);
    Calculator.GiveFileName(Calculator.Path("old.txt"));
    Calculator.Click("Yes");
    CHECK(Calculator.HasNoDialog());
    CHECK(StatusIs(Calculator, Calculator.Path("old.txt")));
    CHECK(Calculator.Folder().Read("old.txt") == "ENTER\r\n");
}

TEST_CASE("before Exit, Cancel keeps the calculator open and Yes saves and closes it")
{
    cCalculator Calculator;
    OpenListing(&Calculator, "ENTER\r\n");
    AddEnter(&Calculator);
    const std::string Question = "Save current changes in " + Calculator.Path("program.txt") + "?";
    Click(FramePoint(Calculator.Window(), HTCLOSE));
    CHECK(Calculator.Answers(Question, "Cancel"));
    CHECK(Calculator.IsRunning());

    Calculator.Choose(mnFile, IDM_EXIT);
    CHECK(Calculator.Answers(Question, "Yes"));
    CHECK(Calculator.ExitCode() == 0);
    CHECK(Calculator.Folder().Read("program.txt") == "ENTER\r\nENTER\r\n");
}

// --- files that cannot be read

namespace
{

// A program from a file with a comment and two instructions.
struct cGoodRig
{
    cGoodRig()
    {
        m_Calculator.Folder().Write("good.txt", "; twice\nENTER\n+\n");
        OpenFile(&m_Calculator, "good.txt");
        REQUIRE(ListingIs(m_Calculator, 2, "01 ENTER"));
    }

    cCalculator m_Calculator;
};

}  // namespace

static const char kRejected[] = "Error: unrecognized instr mnemonic on line #2:\nno such word";

TEST_CASE("the Open dialog refuses a missing file and opens a folder, and the program stays")
{
    cGoodRig     Rig;
    cCalculator &Calculator = Rig.m_Calculator;
    std::filesystem::create_directory(Calculator.Folder().Name("folder"));
    Calculator.HitShortcut('O', kCtrl);
    Calculator.GiveFileName(Calculator.Path("missing.txt"));
    CHECK(Calculator.Box().m_Buttons.size() == 1);
    Calculator.Click("OK");
    Calculator.EnterFileName(Calculator.Path("folder"));
    CHECK(Calculator.Box().m_Caption == "Open");
    Calculator.CloseDialogWith(VK_ESCAPE);

    CHECK(Calculator.HasNoDialog());
    CHECK(ListingIs(Calculator, 2, "01 ENTER"));
    CHECK(StatusIs(Calculator, Calculator.Path("good.txt")));
}

TEST_CASE("a rejected line is kept, marked and saved again")
{
    cCalculator Calculator;
    Calculator.Folder().Write("bad.txt", "CHS\nno such word\n+\n");
    OpenFile(&Calculator, "bad.txt");
    // The listing shows the lines that were loaded before the question.
    CHECK(Calculator.Box().m_Text == kRejected);
    CHECK(ListingIs(Calculator, 0, "00"));
    CHECK(ListingIs(Calculator, 1, "01 CHS"));
    CHECK(SendMessageA(Calculator.Listing(), EM_GETLINECOUNT, 0, 0) == 3);  // the last is empty
    Calculator.PhotographScreen().Save("bad-line");

    CHECK(Calculator.Answers(kRejected, "OK", "ERROR"));

    CHECK(ListingIs(Calculator, 2, "-- no such word"));
    CHECK(ListingIs(Calculator, 3, "02 +"));
    CHECK(StatusIs(Calculator, Calculator.Path("bad.txt")));
    Calculator.HitShortcut('S', kCtrl);
    Calculator.Settle();
    CHECK(Calculator.Folder().Read("bad.txt") == "CHS\r\nno such word\r\n+\r\n");
}

TEST_CASE("Cancel at a rejected line, also of a file that is no listing, clears the program")
{
    cGoodRig     Rig;
    cCalculator &Calculator = Rig.m_Calculator;
    Calculator.Folder().Write("bad.txt", "CHS\nno such word\n+\n");
    Calculator.Folder().Write("picture.bmp", std::string("BM\0\x01\xFF\x00\x02\n\r\x1A more", 15));
    OpenFile(&Calculator, "bad.txt");
    CHECK(Calculator.Answers(kRejected, "Cancel", "ERROR"));
    CHECK(Calculator.Answers("Program Memory has been cleared", "OK"));
    CHECK(ListingIs(Calculator, 1, "01 R/S"));
    CHECK(StatusIs(Calculator, "UNTITLED"));

    OpenFile(&Calculator, "picture.bmp");
    CHECK(Calculator.Box().m_Caption == "ERROR");
    Calculator.Click("Cancel");
    CHECK(Calculator.Answers("Program Memory has been cleared", "OK"));
}

TEST_CASE("a file that cannot be opened leaves the program, which loses its file name")
{
    cGoodRig     Rig;
    cCalculator &Calculator = Rig.m_Calculator;
    CHECK(StatusIs(Calculator, Calculator.Path("good.txt")));
    Calculator.Folder().Write("locked.txt", "CHS\n");
    const std::string Path = Calculator.Path("locked.txt");
    const HANDLE      hLocked =
        CreateFileA(Path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    OpenFile(&Calculator, "locked.txt");
    CHECK(Calculator.Answers("ERROR: couldn't open the file '" + Path + "' for reading", "OK"));
    CloseHandle(hLocked);
    CHECK(ListingIs(Calculator, 2, "01 ENTER"));
    CHECK(StatusIs(Calculator, "UNTITLED"));
}

// --- files that cannot be written

TEST_CASE("a file that was deleted in the meantime is written again")
{
    cGoodRig     Rig;
    cCalculator &Calculator = Rig.m_Calculator;
    std::filesystem::remove(Calculator.Folder().Name("good.txt"));
    Calculator.HitShortcut('S', kCtrl);
    Calculator.Settle();
    CHECK(Calculator.HasNoDialog());
    CHECK(Calculator.Folder().Read("good.txt") == "; twice\r\nENTER\r\n+\r\n");
}

TEST_CASE("a read-only file stays as it is, and the program keeps its changes and its question")
{
    cCalculator Calculator;
    OpenListing(&Calculator, "ENTER\n");
    const std::string Path    = Calculator.Path("program.txt");
    const std::string Failure = "Could not write the file:\n " + Path;
    SetFileAttributesA(Path.c_str(), FILE_ATTRIBUTE_READONLY);
    AddEnter(&Calculator);

    Calculator.HitShortcut('S', kCtrl);
    CHECK(Calculator.Answers(Failure, "OK"));
    CHECK(Calculator.Folder().Read("program.txt") == "ENTER\n");
    CHECK(StatusIs(Calculator, Path));
    Calculator.HitShortcut('N', kCtrl);
    CHECK(Calculator.Answers("Save current changes in " + Path + "?", "Yes"));
    CHECK(Calculator.Answers(Failure, "OK"));
    CHECK(ListingIs(Calculator, 2, "02 ENTER"));
    SetFileAttributesA(Path.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_CASE("a file whose folder was deleted cannot be written, and the program keeps its name")
{
    cCalculator     Calculator;
    cScratchFolder &Folder = Calculator.Folder();
    std::filesystem::create_directory(Folder.Name("folder"));
    Folder.Write("folder/good.txt", "ENTER\n");
    const std::string Path = Calculator.Path("folder\\good.txt");
    OpenFile(&Calculator, "folder\\good.txt");
    CHECK(StatusIs(Calculator, Path));
    std::filesystem::remove_all(Folder.Name("folder"));

    Calculator.HitShortcut('S', kCtrl);

    CHECK(Calculator.Answers("Could not write the file:\n " + Path, "OK"));
    CHECK(Calculator.HasNoDialog());
    CHECK(StatusIs(Calculator, Path));
}

TEST_CASE("in a read-only folder the old file stays, and the program keeps its changes")
{
    cCalculator     Calculator;
    cScratchFolder &Folder = Calculator.Folder();
    Folder.Write("good.txt", "ENTER\n");
    const std::string Path    = Calculator.Path("good.txt");
    const std::string NewPath = Calculator.Path("new.txt");
    OpenFile(&Calculator, "good.txt");
    CHECK(StatusIs(Calculator, Path));
    AddEnter(&Calculator);
    const size_t nFiles = Folder.Count();
    cProbeLink::Current()->Ask(pbReadOnly);

    Calculator.HitShortcut('S', kCtrl);
    CHECK(Calculator.Answers("Could not write the file:\n " + Path, "OK"));
    Calculator.Choose(mnFile, IDM_SAVE_AS);
    Calculator.GiveFileName(NewPath);
    CHECK(Calculator.Answers("Could not write the file:\n " + NewPath, "OK"));
    CHECK(Calculator.HasNoDialog());
    CHECK(Folder.Read("good.txt") == "ENTER\n");
    CHECK(Folder.Count() == nFiles);
    CHECK(ListingIs(Calculator, 2, "02 ENTER"));
    CHECK(StatusIs(Calculator, Path));

    // The calculator still asks before it closes, and stays open.
    Click(FramePoint(Calculator.Window(), HTCLOSE));
    CHECK(Calculator.Answers("Save current changes in " + Path + "?", "Yes"));
    CHECK(Calculator.Answers("Could not write the file:\n " + Path, "OK"));
    CHECK(Calculator.IsRunning());
    CHECK(ListingIs(Calculator, 2, "02 ENTER"));
}

TEST_CASE("a name may be as long as the platform allows")
{
    const size_t kLongest = 259;  // characters of a full name
    cCalculator  Calculator;
    AddEnter(&Calculator);

    const std::string Folder  = Calculator.Path("");
    const std::string Longest = Folder + std::string(kLongest - Folder.size() - 4, 'n') + ".txt";
    Calculator.Choose(mnFile, IDM_SAVE_AS);
    Calculator.GiveFileName(Longest);
    CHECK(Calculator.HasNoDialog());
    CHECK(StatusIs(Calculator, Longest));
    Calculator.HitShortcut('N', kCtrl);
    CHECK(ListingIs(Calculator, 1, "01 R/S"));
    Calculator.HitShortcut('O', kCtrl);
    Calculator.GiveFileName(Longest);
    CHECK(ListingIs(Calculator, 1, "01 ENTER"));
    CHECK(StatusIs(Calculator, Longest));

    CHECK(Calculator.Folder().Count() == 2);
}

TEST_CASE("a file name of 300 characters is refused, and nothing is lost")
{
    cCalculator       Calculator;
    const std::string TooLong(300, 'n');
    const std::string Path = Calculator.Path("short.txt");
    AddEnter(&Calculator);

    Calculator.Choose(mnFile, IDM_SAVE_AS);
    Calculator.GiveFileName(TooLong);
    Calculator.PhotographScreen().Save("name-too-long");
    CHECK(Calculator.Answers(kNameTooLong, "OK"));
    Calculator.GiveFileName(Path);
    CHECK(Calculator.HasNoDialog());
    CHECK(StatusIs(Calculator, Path));
    CHECK(Calculator.Folder().Read("short.txt") == "ENTER\r\n");

    Calculator.HitShortcut('O', kCtrl);
    for (const std::string &Name : {TooLong, Calculator.Path("") + TooLong})
    {
        Calculator.GiveFileName(Name);
        CHECK(Calculator.Answers(kNameTooLong, "OK"));
    }
    Calculator.CloseDialogWith(VK_ESCAPE);
    CHECK(Calculator.HasNoDialog());
    CHECK(ListingIs(Calculator, 1, "01 ENTER"));
    CHECK(StatusIs(Calculator, Path));
    CHECK(Calculator.Folder().Count() == 2);
}
