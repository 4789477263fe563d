// New, Open, Save and Save As with their real dialogs.

#include "tests/window/calculator.h"

#include <doctest/doctest.h>

#include <filesystem>

#include "tests/window/common_steps.h"
#include "tests/window/input.h"
#include "tests/window/probe_link.h"
#include "tests/window/waiting.h"

namespace
{

const unsigned kFileMenu = 0;

const char kSaveUntitled[] = "Save current changes in UNTITLED?";

// One ENTER more at the current line.
void Modify(cCalculator &Calculator)
{
    Calculator.Slide(swMode, 0);
    Calculator.HitKey(11);
    Calculator.Slide(swMode, 1);
}

int HasClosed(cCalculator &Calculator)
{
    return Eventually(0, [&] { return Calculator.HasDialog(); }) == 0;
}

int StatusIs(cCalculator &Calculator, const std::string &Name)
{
    const std::string Text = "filename: " + Name;
    return Eventually(Text, [&] { return Calculator.StatusText(); }) == Text;
}

int ListingIs(cCalculator &Calculator, unsigned nLine, const std::string &Text)
{
    return Eventually(Text, [&] {
               const std::vector<std::string> Lines = Calculator.ListingLines();
               return nLine < Lines.size() ? Lines[nLine] : "";
           }) == Text;
}

void Open(cCalculator &Calculator, const std::string &File)
{
    Calculator.HitShortcut('O', kCtrl);
    Calculator.GiveFileName(Calculator.Path(File));
}

}  // namespace

TEST_CASE("nothing is lost without a question, and a cancelled dialog changes nothing")
{
    cCalculator Calculator;
    Modify(Calculator);

    Calculator.ClickButton(IDM_NEW);
    CHECK(Calculator.Answers(kSaveUntitled, "Cancel"));
    CHECK(ListingIs(Calculator, 1, "01 ENTER"));
    Calculator.ClickButton(IDM_OPEN);
    CHECK(Calculator.Answers(kSaveUntitled, "Cancel"));
    CHECK(HasClosed(Calculator));
    Calculator.ClickButton(IDM_OPEN);
    CHECK(Calculator.Answers(kSaveUntitled, "No"));
    CHECK(Calculator.Box().m_Caption == "Open");
    Calculator.CloseDialogWith(VK_ESCAPE);
    CHECK(HasClosed(Calculator));
    CHECK(ListingIs(Calculator, 1, "01 ENTER"));
    CHECK(StatusIs(Calculator, "UNTITLED"));

    // Yes, and then no name: the program stays.
    Calculator.HitShortcut('N', kCtrl);
    CHECK(Calculator.Answers(kSaveUntitled, "Yes"));
    CHECK(Calculator.Box().m_Caption == "Save As");
    Calculator.CloseDialogWith(VK_ESCAPE);
    CHECK(HasClosed(Calculator));
    CHECK(ListingIs(Calculator, 1, "01 ENTER"));

    // Yes with a name of blanks and an accent: the extension is added.
    const std::string Name = "caf\xE9 au lait";
    Calculator.HitShortcut('N', kCtrl);
    CHECK(Calculator.Answers(kSaveUntitled, "Yes"));
    Calculator.GiveFileName(Calculator.Path(Name));
    CHECK(HasClosed(Calculator));
    CHECK(Calculator.Folder().Read(Name + ".txt") == "ENTER\r\n");
    CHECK(ListingIs(Calculator, 1, "01 R/S"));
    CHECK(StatusIs(Calculator, "UNTITLED"));

    // Opened again, changed, and saved under its name without a question.
    Open(Calculator, Name + ".txt");
    CHECK(StatusIs(Calculator, Calculator.Path(Name + ".txt")));
    CHECK(ListingIs(Calculator, 1, "01 ENTER"));
    Calculator.HitKeys({3, 29, 28, 24});  // GTO . 0 1
    Modify(Calculator);
    Calculator.ClickButton(IDM_SAVE);
    CHECK(HasClosed(Calculator));
    CHECK(Calculator.Folder().Read(Name + ".txt") == "ENTER\r\nENTER\r\n");
    Calculator.HitShortcut('N', kCtrl);
    CHECK(ListingIs(Calculator, 1, "01 R/S"));
    CHECK_FALSE(Calculator.HasDialog());

    // Save As asks before it replaces a file.
    Modify(Calculator);
    Calculator.Choose(kFileMenu, IDM_SAVE_AS);
    Calculator.GiveFileName(Calculator.Path(Name + ".txt"));
    CHECK(Calculator.Box().m_Buttons.size() == 2);
    Calculator.PhotographScreen().Save("overwrite");
    Calculator.Click("No");
    Calculator.CloseDialogWith(VK_ESCAPE);
    CHECK(HasClosed(Calculator));
    CHECK(Calculator.Folder().Read(Name + ".txt") == "ENTER\r\nENTER\r\n");
    Calculator.HitShortcut('S', kCtrl);
    Calculator.GiveFileName(Calculator.Path(Name + ".txt"));
    Calculator.Click("Yes");
    CHECK(HasClosed(Calculator));
    CHECK(StatusIs(Calculator, Calculator.Path(Name + ".txt")));
    CHECK(Calculator.Folder().Read(Name + ".txt") == "ENTER\r\n");

    // Leaving: Cancel stays, Yes saves and goes.
    Modify(Calculator);
    const std::string Question = "Save current changes in " + Calculator.Path(Name + ".txt") + "?";
    Click(FramePoint(Calculator.Window(), HTCLOSE));
    CHECK(Calculator.Answers(Question, "Cancel"));
    CHECK(Calculator.IsRunning());
    Calculator.Choose(kFileMenu, IDM_EXIT);
    CHECK(Calculator.Answers(Question, "Yes"));
    CHECK(Calculator.ExitCode() == 0);
    CHECK(Calculator.Folder().Read(Name + ".txt") == "ENTER\r\nENTER\r\n");
}

TEST_CASE("files that cannot be read leave the program alone or leave an empty one")
{
    cCalculator     Calculator;
    cScratchFolder &Folder = Calculator.Folder();
    Folder.Write("good.txt", "; twice\nENTER\n+\n");
    Folder.Write("bad.txt", "CHS\nno such word\n+\n");
    Folder.Write("picture.bmp", std::string("BM\0\x01\xFF\x00\x02\n\r\x1A more", 15));
    std::filesystem::create_directory(Folder.Name("folder"));
    Open(Calculator, "good.txt");
    CHECK(ListingIs(Calculator, 2, "01 ENTER"));

    // The dialog itself refuses what is not there, and goes into a folder.
    Calculator.HitShortcut('O', kCtrl);
    Calculator.GiveFileName(Calculator.Path("missing.txt"));
    CHECK(Calculator.Box().m_Buttons.size() == 1);
    Calculator.Click("OK");
    Calculator.EnterFileName(Calculator.Path("folder"));
    CHECK(Calculator.Box().m_Caption == "Open");
    Calculator.CloseDialogWith(VK_ESCAPE);
    CHECK(HasClosed(Calculator));
    CHECK(ListingIs(Calculator, 2, "01 ENTER"));
    CHECK(StatusIs(Calculator, Calculator.Path("good.txt")));

    // A rejected line is kept and marked, or the load is given up.
    const char szRejected[] = "Error: unrecognized instr mnemonic on line #2:\nno such word";
    Open(Calculator, "bad.txt");
    CHECK(Calculator.Box().m_Text == szRejected);
    CHECK(ListingIs(Calculator, 0, "00"));
    CHECK(ListingIs(Calculator, 1, "01 CHS"));
    CHECK(SendMessageA(Calculator.Listing(), EM_GETLINECOUNT, 0, 0) == 3);  // the last is empty
    Calculator.PhotographScreen().Save("bad-line");
    CHECK(Calculator.Answers(szRejected, "OK", "ERROR"));
    CHECK(ListingIs(Calculator, 2, "-- no such word"));
    CHECK(ListingIs(Calculator, 3, "02 +"));
    CHECK(StatusIs(Calculator, Calculator.Path("bad.txt")));
    Calculator.HitShortcut('S', kCtrl);
    Calculator.Settle();
    CHECK(Folder.Read("bad.txt") == "CHS\r\nno such word\r\n+\r\n");
    Open(Calculator, "bad.txt");
    CHECK(Calculator.Answers(szRejected, "Cancel", "ERROR"));
    CHECK(Calculator.Answers("Program Memory has been cleared", "OK"));
    CHECK(ListingIs(Calculator, 1, "01 R/S"));
    CHECK(StatusIs(Calculator, "UNTITLED"));

    // A file of another kind is no listing.
    Open(Calculator, "picture.bmp");
    CHECK(Calculator.Box().m_Caption == "ERROR");
    Calculator.Click("Cancel");
    CHECK(Calculator.Answers("Program Memory has been cleared", "OK"));

    // One that cannot be opened leaves the program and takes the name.
    Open(Calculator, "good.txt");
    CHECK(StatusIs(Calculator, Calculator.Path("good.txt")));
    const HANDLE hLocked = CreateFileA(Calculator.Path("bad.txt").c_str(), GENERIC_READ, 0, nullptr,
                                       OPEN_EXISTING, 0, nullptr);
    Open(Calculator, "bad.txt");
    CHECK(Calculator.Answers(
        "ERROR: couldn't open the file '" + Calculator.Path("bad.txt") + "' for reading", "OK"));
    CloseHandle(hLocked);
    CHECK(ListingIs(Calculator, 2, "01 ENTER"));
    CHECK(StatusIs(Calculator, "UNTITLED"));
}

TEST_CASE("files that cannot be written keep the program and its question")
{
    cCalculator     Calculator;
    cScratchFolder &Folder = Calculator.Folder();
    std::filesystem::create_directory(Folder.Name("folder"));
    Folder.Write("folder/good.txt", "ENTER\n");
    const std::string Path    = Calculator.Path("folder\\good.txt");
    const std::string Failure = "Could not write the file:\n " + Path;
    Open(Calculator, "folder\\good.txt");
    CHECK(StatusIs(Calculator, Path));

    // deleted in the meantime: written anew
    std::filesystem::remove(Folder.Name("folder/good.txt"));
    Calculator.HitShortcut('S', kCtrl);
    Calculator.Settle();
    CHECK(HasClosed(Calculator));
    CHECK(Folder.Read("folder/good.txt") == "ENTER\r\n");

    // read-only
    SetFileAttributesA(Path.c_str(), FILE_ATTRIBUTE_READONLY);
    Modify(Calculator);
    Calculator.HitShortcut('S', kCtrl);
    CHECK(Calculator.Answers(Failure, "OK"));
    CHECK(Folder.Read("folder/good.txt") == "ENTER\r\n");
    CHECK(StatusIs(Calculator, Path));
    Calculator.HitShortcut('N', kCtrl);
    CHECK(Calculator.Answers("Save current changes in " + Path + "?", "Yes"));
    CHECK(Calculator.Answers(Failure, "OK"));
    CHECK(ListingIs(Calculator, 2, "02 ENTER"));
    SetFileAttributesA(Path.c_str(), FILE_ATTRIBUTE_NORMAL);

    // its folder gone
    std::filesystem::remove_all(Folder.Name("folder"));
    Calculator.HitShortcut('S', kCtrl);
    CHECK(Calculator.Answers(Failure, "OK"));
    CHECK(HasClosed(Calculator));
    CHECK(StatusIs(Calculator, Path));
}

TEST_CASE("a folder that takes no new files keeps the old one, and the program is not lost")
{
    cCalculator     Calculator;
    cScratchFolder &Folder = Calculator.Folder();
    Folder.Write("good.txt", "ENTER\n");
    const std::string Path    = Calculator.Path("good.txt");
    const std::string NewPath = Calculator.Path("new.txt");
    Open(Calculator, "good.txt");
    CHECK(StatusIs(Calculator, Path));
    Modify(Calculator);
    const size_t nFiles = Folder.Count();
    cProbeLink::Current()->Ask(pbReadOnly);

    Calculator.HitShortcut('S', kCtrl);
    CHECK(Calculator.Answers("Could not write the file:\n " + Path, "OK"));
    Calculator.Choose(kFileMenu, IDM_SAVE_AS);
    Calculator.GiveFileName(NewPath);
    CHECK(Calculator.Answers("Could not write the file:\n " + NewPath, "OK"));
    CHECK(HasClosed(Calculator));
    CHECK(Folder.Read("good.txt") == "ENTER\n");
    CHECK(Folder.Count() == nFiles);
    CHECK(ListingIs(Calculator, 2, "02 ENTER"));
    CHECK(StatusIs(Calculator, Path));

    // The program still asks before it goes, and stays.
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
    Modify(Calculator);

    const std::string Folder  = Calculator.Path("");
    const std::string Longest = Folder + std::string(kLongest - Folder.size() - 4, 'n') + ".txt";
    Calculator.Choose(kFileMenu, IDM_SAVE_AS);
    Calculator.GiveFileName(Longest);
    CHECK(HasClosed(Calculator));
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
    Modify(Calculator);

    Calculator.Choose(kFileMenu, IDM_SAVE_AS);
    Calculator.GiveFileName(TooLong);
    Calculator.PhotographScreen().Save("name-too-long");
    CHECK(Calculator.Answers(kNameTooLong, "OK"));
    Calculator.GiveFileName(Path);
    CHECK(HasClosed(Calculator));
    CHECK(StatusIs(Calculator, Path));
    CHECK(Calculator.Folder().Read("short.txt") == "ENTER\r\n");

    Calculator.HitShortcut('O', kCtrl);
    for (const std::string &Name : {TooLong, Calculator.Path("") + TooLong})
    {
        Calculator.GiveFileName(Name);
        CHECK(Calculator.Answers(kNameTooLong, "OK"));
    }
    Calculator.CloseDialogWith(VK_ESCAPE);
    CHECK(HasClosed(Calculator));
    CHECK(ListingIs(Calculator, 1, "01 ENTER"));
    CHECK(StatusIs(Calculator, Path));
    CHECK(Calculator.Folder().Count() == 2);
}
