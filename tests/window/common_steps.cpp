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
