#include "tests/window/common_steps.h"

#include "tests/window/input.h"
#include "tests/window/keys.h"
#include "tests/window/waiting.h"
#include "tests/window/window_state.h"

std::string MissingHelpText(const std::string &File)
{
    return "ERROR: HtmlHelp() failed to find the " + File +
           " file.\n\n"
           "This probably means that your computer has an archaic\n"
           "version of Internet Explorer.  You can download the\n"
           "latest version of Internet Explorer from Microsoft's\n"
           "web site or you can get Version 5.5 from the CD you\n"
           "used to install this software (in either case, you\n"
           "don't have to make it your default web browser).\n";
}

void OpenFile(cCalculator *pCalculator, const std::string &File)
{
    pCalculator->HitShortcut('O', kCtrl);
    pCalculator->GiveFileName(pCalculator->Path(File));
}

void OpenListing(cCalculator *pCalculator, const std::string &Listing)
{
    pCalculator->Folder().Write("program.txt", Listing);
    OpenFile(pCalculator, "program.txt");
    REQUIRE(pCalculator->HasNoDialog());
    pCalculator->Settle();
}

void RunListing(cCalculator *pCalculator, const std::string &Listing)
{
    OpenListing(pCalculator, Listing);
    pCalculator->HitKey(kKeyRunStop);
}

void AddEnter(cCalculator *pCalculator)
{
    pCalculator->Slide(swMode, 0);
    pCalculator->HitKey(kKeyEnter);
    pCalculator->Slide(swMode, 1);
}

int IsProgramRunning(const cCalculator &Calculator)
{
    Calculator.Settle();
    return (Calculator.MenuState(IDM_NEW) & MF_GRAYED) != 0;
}

int HasHalted(const cCalculator &Calculator)
{
    return WaitFor([&] { return !IsProgramRunning(Calculator); });
}

void PostCommand(const cCalculator &Calculator, unsigned nId)
{
    PostMessageA(Calculator.Window(), WM_COMMAND, nId, 0);
}

void PostSystemCommand(const cCalculator &Calculator, unsigned nCommand)
{
    PostMessageA(Calculator.Window(), WM_SYSCOMMAND, nCommand, 0);
}

void Minimise(const cCalculator &Calculator)
{
    PostSystemCommand(Calculator, SC_MINIMIZE);
    REQUIRE(WaitFor([&] { return IsIconic(Calculator.Window()); }));
}

void Restore(const cCalculator &Calculator)
{
    PostSystemCommand(Calculator, SC_RESTORE);
    REQUIRE(WaitFor([&] { return !IsIconic(Calculator.Window()); }));
}

void FillField(cCalculator *pCalculator, int nId, const std::string &Text)
{
    const HWND hField = GetDlgItem(pCalculator->Dialog(), nId);
    pCalculator->FocusControl(nId);
    SendMessageA(hField, EM_SETSEL, 0, -1);
    Type(Text);
    REQUIRE(Eventually(Text, [&] { return TextOfControl(*pCalculator, nId); }) == Text);
}

std::string TextOfControl(const cCalculator &Calculator, int nId)
{
    char szText[100] = "";
    SendDlgItemMessageA(Calculator.Dialog(), nId, WM_GETTEXT, sizeof szText,
                        reinterpret_cast<LPARAM>(szText));
    return szText;
}

void PhotographDialog(const cCalculator &Calculator, const std::string &Name)
{
    Calculator.SettlePaint();
    cPicture::OfScreen(RectOf(Calculator.Dialog())).Save(Name);
}

cPicture PhotographFace(const cCalculator &Calculator)
{
    Calculator.SettlePaint();
    const RECT Rect = RectOf(Calculator.Keypad());
    return cPicture::OfScreen(Rect);
}

int LooksLike(const cCalculator &Calculator, const cPicture &Face)
{
    return WaitFor([&] { return PhotographFace(Calculator) == Face; });
}

void Repaint(const cCalculator &Calculator)
{
    RedrawWindow(Calculator.Window(), nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    Calculator.SettlePaint();
}

int ToolState(const cCalculator &Calculator, unsigned nId)
{
    return static_cast<int>(SendMessageA(Calculator.ToolBar(), TB_GETSTATE, nId, 0));
}
