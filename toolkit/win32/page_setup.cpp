#include "toolkit/win32/page_setup.h"

#include "toolkit/win32/modal_guard.h"

namespace
{

// Lets the dialog begin with what the platform says of the default printer, and
// with the orientation that is asked for. The mode counts only together with
// the printer's name. Without a printer both stay null; else the caller frees
// them.
void BeginWithDefaultPrinter(int bLandscape, PAGESETUPDLGA *pDialog)
{
    PAGESETUPDLGA Default = {};
    Default.lStructSize   = sizeof Default;
    Default.Flags         = PSD_RETURNDEFAULT | PSD_NOWARNING;
    if (!PageSetupDlgA(&Default))
        return;
    pDialog->hDevMode  = Default.hDevMode;
    pDialog->hDevNames = Default.hDevNames;

    auto *const pMode = static_cast<DEVMODEA *>(GlobalLock(Default.hDevMode));
    if (!pMode)
        return;
    pMode->dmFields |= DM_ORIENTATION;
    pMode->dmOrientation = bLandscape ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
    GlobalUnlock(Default.hDevMode);
}

void ReadOrientation(HGLOBAL hMode, int *pbLandscape)
{
    const auto *const pMode = static_cast<const DEVMODEA *>(GlobalLock(hMode));
    if (!pMode)
        return;
    *pbLandscape = pMode->dmOrientation == DMORIENT_LANDSCAPE;
    GlobalUnlock(hMode);
}

}  // namespace

int IsMetricLocale()
{
    char szMeasure[4] = "";
    GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_IMEASURE, szMeasure, sizeof szMeasure);
    return szMeasure[0] == '0';
}

int AskPageSetup(cPageMargins *pMargins, int *pbLandscape)
{
    const int          bMetric = IsMetricLocale();
    const cPageMargins Shown   = bMetric ? MetricMargins(*pMargins) : *pMargins;

    PAGESETUPDLGA Dialog = {};
    Dialog.lStructSize   = sizeof Dialog;
    Dialog.hwndOwner     = GetForegroundWindow();
    Dialog.Flags         = PSD_MARGINS;
    Dialog.Flags |= bMetric ? PSD_INHUNDREDTHSOFMILLIMETERS : PSD_INTHOUSANDTHSOFINCHES;
    BeginWithDefaultPrinter(*pbLandscape, &Dialog);
    Dialog.rtMargin = {Shown.m_nLeft, Shown.m_nTop, Shown.m_nRight, Shown.m_nBottom};

    const cModalGuard Others(Dialog.hwndOwner);
    const int         bDone = PageSetupDlgA(&Dialog) ? 1 : 0;
    if (bDone)
    {
        const cPageMargins Read = {Dialog.rtMargin.left, Dialog.rtMargin.top, Dialog.rtMargin.right,
                                   Dialog.rtMargin.bottom};
        *pMargins               = bMetric ? InchMargins(Read) : Read;
        ReadOrientation(Dialog.hDevMode, pbLandscape);
    }
    GlobalFree(Dialog.hDevMode);
    GlobalFree(Dialog.hDevNames);
    return bDone;
}
