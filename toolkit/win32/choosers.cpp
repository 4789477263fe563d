#include "toolkit/win32/choosers.h"

#include <algorithm>

#include "toolkit/win32/modal_guard.h"

namespace
{

const int kCustomColors = 16;

// White until the user mixes some.
struct cCustomColors
{
    cCustomColors() { std::fill(m_Colors, m_Colors + kCustomColors, RGB(255, 255, 255)); }

    COLORREF m_Colors[kCustomColors];
};

}  // namespace

int AskColor(HWND hOwner, COLORREF *pcrColor)
{
    static cCustomColors s_Custom;

    cCustomColors Custom = s_Custom;
    CHOOSECOLORA  Dialog = {};
    Dialog.lStructSize   = sizeof Dialog;
    Dialog.hwndOwner     = hOwner;
    Dialog.rgbResult     = *pcrColor;
    Dialog.lpCustColors  = Custom.m_Colors;
    Dialog.Flags         = CC_RGBINIT | CC_ANYCOLOR;

    const cModalGuard Others(hOwner);
    if (!ChooseColorA(&Dialog))
        return 0;
    s_Custom  = Custom;
    *pcrColor = Dialog.rgbResult;
    return 1;
}

int AskFont(HWND hOwner, LOGFONTA *pFont, COLORREF *pcrText)
{
    LOGFONTA    Font   = *pFont;
    CHOOSEFONTA Dialog = {};
    Dialog.lStructSize = sizeof Dialog;
    Dialog.hwndOwner   = hOwner;
    Dialog.lpLogFont   = &Font;
    Dialog.rgbColors   = *pcrText;
    Dialog.Flags       = CF_SCREENFONTS | CF_INITTOLOGFONTSTRUCT | CF_EFFECTS | CF_FORCEFONTEXIST;

    const cModalGuard Others(hOwner);
    if (!ChooseFontA(&Dialog))
        return 0;
    *pFont   = Font;
    *pcrText = Dialog.rgbColors;
    return 1;
}
