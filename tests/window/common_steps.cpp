#include "tests/window/common_steps.h"

#include "tests/window/input.h"
#include "tests/window/waiting.h"

static const unsigned kKeyRunStop = 30;

void OpenListing(cCalculator *pCalculator, const std::string &Listing)
{
    pCalculator->Folder().Write("program.txt", Listing);
    HitKey('O', kCtrl);
    pCalculator->GiveFileName(pCalculator->Path("program.txt"));
    REQUIRE(Eventually(0, [&] { return pCalculator->HasDialog(); }) == 0);
    pCalculator->Settle();
}

void RunListing(cCalculator *pCalculator, const std::string &Listing)
{
    OpenListing(pCalculator, Listing);
    pCalculator->HitKey(kKeyRunStop);
}

void PostCommand(const cCalculator &Calculator, unsigned nId)
{
    PostMessageA(Calculator.Window(), WM_COMMAND, nId, 0);
}

void PostSystemCommand(const cCalculator &Calculator, unsigned nCommand)
{
    PostMessageA(Calculator.Window(), WM_SYSCOMMAND, nCommand, 0);
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

cPicture PhotographFace(const cCalculator &Calculator)
{
    RECT Rect = {};
    Calculator.SettlePaint();
    GetWindowRect(Calculator.Keypad(), &Rect);
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
