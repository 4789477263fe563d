#include "toolkit/win32/choosers.h"

#include <algorithm>

#include "toolkit/win32/modal_guard.h"

static const int kCustomColours = 16;

namespace
{

// White until the user defines some.
struct cCustomColours
{
    cCustomColours() { std::fill(m_Colours, m_Colours + kCustomColours, RGB(255, 255, 255)); }

    COLORREF m_Colours[kCustomColours];
};

}  // namespace

int AskColour(HWND hOwner, COLORREF *pcrColour)
{
    static cCustomColours s_Custom;

    cCustomColours Custom = s_Custom;
    CHOOSECOLORA   Dialog = {};
    Dialog.lStructSize    = sizeof Dialog;
    Dialog.hwndOwner      = hOwner;
    Dialog.rgbResult      = *pcrColour;
    Dialog.lpCustColors   = Custom.m_Colours;
    Dialog.Flags          = CC_RGBINIT | CC_ANYCOLOR;

    const cModalGuard Others(hOwner);
    if (!ChooseColorA(&Dialog))
        return 0;
    s_Custom   = Custom;
    *pcrColour = Dialog.rgbResult;
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
