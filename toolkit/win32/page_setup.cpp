#include "toolkit/win32/page_setup.h"

#include "toolkit/win32/modal_guard.h"
#include "toolkit/win32/owned_handle.h"

namespace
{

// A printer's settings in global memory, locked until the end of the scope.
class cLockedMode
{
public:
    explicit cLockedMode(HGLOBAL hMode)
        : m_hMode(hMode), m_pMode(static_cast<DEVMODEA *>(GlobalLock(hMode)))
    {
    }
    ~cLockedMode()
    {
        if (m_pMode)
            GlobalUnlock(m_hMode);
    }
    cLockedMode(const cLockedMode &)            = delete;
    cLockedMode &operator=(const cLockedMode &) = delete;

    // Null for a printer without settings.
    DEVMODEA *Get() const { return m_pMode; }

private:
    HGLOBAL   m_hMode;
    DEVMODEA *m_pMode;
};

}  // namespace

// Initialises the dialog with the settings of the default printer and with this
// orientation. The settings count only together with the printer's name. Both
// stay null if there is no printer; otherwise the caller frees them.
static void BeginWithDefaultPrinter(int bLandscape, PAGESETUPDLGA *pDialog)
{
    PAGESETUPDLGA Default = {};
    Default.lStructSize   = sizeof Default;
    Default.Flags         = PSD_RETURNDEFAULT | PSD_NOWARNING;
    if (!PageSetupDlgA(&Default))
        return;
    pDialog->hDevMode  = Default.hDevMode;
    pDialog->hDevNames = Default.hDevNames;

    const cLockedMode Mode(Default.hDevMode);
    if (!Mode.Get())
        return;
    Mode.Get()->dmFields |= DM_ORIENTATION;
    Mode.Get()->dmOrientation = bLandscape ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
}

static void ReadOrientation(HGLOBAL hMode, int *pbLandscape)
{
    const cLockedMode Mode(hMode);
    if (Mode.Get())
        *pbLandscape = Mode.Get()->dmOrientation == DMORIENT_LANDSCAPE;
}

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
    // The dialog may have replaced both.
    const cGlobalMemory Mode(Dialog.hDevMode);
    const cGlobalMemory Names(Dialog.hDevNames);
    if (!bDone)
        return 0;
    const cPageMargins Read = {Dialog.rtMargin.left, Dialog.rtMargin.top, Dialog.rtMargin.right,
                               Dialog.rtMargin.bottom};
    *pMargins               = bMetric ? InchMargins(Read) : Read;
    ReadOrientation(Mode.Get(), pbLandscape);
    return 1;
}
