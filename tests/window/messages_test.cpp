// Every message box that can be reached, word by word.

#include "tests/window/calculator.h"

#include <doctest/doctest.h>

#include <functional>

#include "tests/window/input.h"
#include "tests/window/waiting.h"

namespace
{

const int kNone     = 0;
const int kError    = 32513;  // the platform's icons
const int kQuestion = 32514;

// Commands that no menu item gives are sent as a message of another program.
void SendCommand(cCalculator &Calculator, unsigned nId, unsigned nNotice = 0)
{
    PostMessageA(Calculator.Window(), WM_COMMAND, MAKEWPARAM(nId, nNotice), 0);
}

void Open(cCalculator &Calculator, const char *szFile)
{
    Calculator.HitShortcut('O', kCtrl);
    Calculator.GiveFileName(Calculator.Path(szFile));
}

void Modify(cCalculator &Calculator)
{
    Calculator.Slide(swMode, 0);
    Calculator.HitKey(11);  // ENTER
    Calculator.Slide(swMode, 1);
}

}  // namespace

TEST_CASE("the boxes have their words, buttons and icons")
{
    cCalculator     Calculator;
    cScratchFolder &Folder = Calculator.Folder();
    Folder.Write(
        "long.txt", std::string(100, '\n') + "ENTER\n" + [] {
            std::string Lines;
            for (int i = 0; i < 98; i++)
                Lines += "+\n";
            return Lines;
        }());
    Folder.Write("word.txt", "\nsto 5\n");
    Folder.Write("number.txt", "3.5 7\n");
    Folder.Write("operand.txt", "LBL 12\n");
    Folder.Write("loop.txt", "LBL 1\nGTO 1\n");
    Folder.Write("points.txt", "LBL 1\nSumG\nGTO 1\n");

    const std::vector<std::string> Ok          = {"OK"};
    const std::vector<std::string> OkCancel    = {"OK", "Cancel"};
    const std::vector<std::string> YesNoCancel = {"Yes", "No", "Cancel"};
    HANDLE                         hLocked     = INVALID_HANDLE_VALUE;
    const auto                     OpenIt      = [&](const char *szFile) {
        return [&Calculator, szFile] { Open(Calculator, szFile); };
    };
    const auto Nothing = [] {};

    const struct
    {
        std::function<void()> m_Do;
        cSeenBox              m_Box;
        int                   m_nIcon;
        const char           *m_szAnswer;
    } Rows[] = {
        {[&] { SendCommand(Calculator, IDM_UNDO); },
         {"Vorstek", "Nothing to undo", Ok},
         kNone,
         "OK"},
        {[&] { SendCommand(Calculator, IDC_LISTING, EN_MAXTEXT); },
         {"Vorstek", "ERROR: File overflow has\ncaused text truncation.", Ok},
         kError,
         "OK"},
        {[&] { SendCommand(Calculator, IDC_LISTING, EN_ERRSPACE); },
         {"Vorstek", "ERROR: File overflow has\ncaused text truncation.", Ok},
         kError,
         "OK"},
        {OpenIt("long.txt"), {"Vorstek", "Program memory overflow", Ok}, kNone, "OK"},
        {OpenIt("word.txt"),
         {"ERROR", "Error: unrecognized instr mnemonic on line #2:\nsto 5", OkCancel},
         kNone,
         "OK"},
        {OpenIt("number.txt"),
         {"ERROR", "Error: illegal number on line #1:\n3.5 7", OkCancel},
         kNone,
         "OK"},
        {OpenIt("operand.txt"),
         {"ERROR", "Error: illegal operand on line 1:\nLBL 12", OkCancel},
         kNone,
         "Cancel"},
        {Nothing, {"Vorstek", "Program Memory has been cleared", Ok}, kNone, "OK"},
        {[&] {
             hLocked = CreateFileA(Calculator.Path("loop.txt").c_str(), GENERIC_READ, 0, nullptr,
                                   OPEN_EXISTING, 0, nullptr);
             Open(Calculator, "loop.txt");
         },
         {"Vorstek",
          "ERROR: couldn't open the file '" + Calculator.Path("loop.txt") + "' for reading", Ok},
         kError,
         "OK"},
        {[&] {
             CloseHandle(hLocked);
             Open(Calculator, "points.txt");
             Calculator.HitKey(30);  // R/S
         },
         {"Vorstek",
          "The Vorstek's program must now halt\nsince the cVantor window has reached its\n"
          "memory limit\n",
          Ok},
         kNone,
         "OK"},
        {[&] {
             Open(Calculator, "loop.txt");
             Calculator.HitKey(30);
             Click(FramePoint(Calculator.Window(), HTCLOSE));
         },
         {"Vorstek",
          "Not allowed while a calculator\nprogram is running (hit any\n"
          "calculator key to halt the program)\n",
          Ok},
         kNone,
         "OK"},
        {[&] {
             Calculator.HitShortcut(VK_ESCAPE);
             Calculator.Settle();
             SetFileAttributesA(Calculator.Path("loop.txt").c_str(), FILE_ATTRIBUTE_READONLY);
             Calculator.HitShortcut('S', kCtrl);
         },
         {"Vorstek", "Could not write the file:\n " + Calculator.Path("loop.txt"), Ok},
         kError,
         "OK"},
        {[&] {
             Modify(Calculator);
             Calculator.HitShortcut('N', kCtrl);
         },
         {"Vorstek", "Save current changes in " + Calculator.Path("loop.txt") + "?", YesNoCancel},
         kQuestion,
         "No"},
        {[&] {
             Modify(Calculator);
             Calculator.HitShortcut('E', kCtrl);
         },
         {"Vorstek", "Save current changes in UNTITLED?", YesNoCancel},
         kQuestion,
         "Cancel"},
        {[&] {
             SendMessageA(Calculator.Listing(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(""));
             Calculator.HitShortcut('P', kCtrl);
         },
         {"Vorstek", "There is nothing to print", Ok},
         kNone,
         "OK"},
    };
    for (const auto &Row : Rows)
    {
        CAPTURE(Row.m_Box.m_Text);
        Row.m_Do();
        const cSeenBox Seen = Calculator.Box();
        CHECK(Seen.m_Text == Row.m_Box.m_Text);
        CHECK(Seen.m_Caption == Row.m_Box.m_Caption);
        CHECK((Seen.m_Buttons == Row.m_Box.m_Buttons));
        CHECK(Calculator.BoxIcon() == Row.m_nIcon);
        Calculator.Click(Row.m_szAnswer);
    }
    CHECK(Eventually(0, [&] { return Calculator.HasDialog(); }) == 0);
    SetFileAttributesA(Calculator.Path("loop.txt").c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_CASE("help that is not there is reported and the calculator goes on")
{
    cCalculator Calculator;
    Calculator.HitShortcut(VK_F1);
    const cSeenBox Seen = Calculator.Box();
    Calculator.PhotographScreen().Save("help");
    CHECK(Seen.m_Caption == "Vorstek");
    CHECK(Seen.m_Text == "ERROR: HtmlHelp() failed to find the VORSTEK.CHM file.\n\n"
                         "This probably means that your computer has an archaic\n"
                         "version of Internet Explorer.  You can download the\n"
                         "latest version of Internet Explorer from Microsoft's\n"
                         "web site or you can get Version 5.5 from the CD you\n"
                         "used to install this software (in either case, you\n"
                         "don't have to make it your default web browser).\n");
    CHECK((Seen.m_Buttons == std::vector<std::string>{"OK"}));
    CHECK(Calculator.BoxIcon() == kError);
    CHECK(GetWindow(Calculator.Dialog(), GW_OWNER) == nullptr);
    CHECK_FALSE(IsWindowEnabled(Calculator.Window()));
    Calculator.Click("OK");
    CHECK(Eventually(0, [&] { return Calculator.HasDialog(); }) == 0);
    CHECK(Eventually(Calculator.Window(), GetForegroundWindow) == Calculator.Window());

    Calculator.HitKey(16);
    CHECK(Calculator.ReadsX("7."));
}
