// status_bar.h - the platform's status bar: parts with texts, in their place
// the help of a menu item while the menu is open, and a progress bar if one is
// wanted.

#ifndef TOOLKIT_STATUS_BAR_H
#define TOOLKIT_STATUS_BAR_H

#include "toolkit/win32/win32.h"

#include <cstdio>  // __MINGW_PRINTF_FORMAT

#include "toolkit/win32/base_window.h"

class cProgressBar;

const int kStatusText   = 513;  // characters of a part's text, closing zero included
const int kMenuHelpText = 129;  // characters of a menu item's help, closing zero included

class cStatusBar : public cBaseWindow
{
public:
    explicit cStatusBar(cMessageBoxes *pBoxes);
    ~cStatusBar() override;

    const char *GetClassName() const override;  // "msctls_statusbar32"

    // A hidden bar; position and size hold until the first AutoSize().
    // pRightEdges are those of the parts, in pixels; -1 reaches to the bar's
    // end. 0, and a box has said so, if it cannot be created.
    int Create(cBaseWindow *pOwner, int nX, int nY, int nWidth, int nHeight, uint32_t nId,
               int nParts, const int *pRightEdges);

    // The text of a part, from 0; cut to 512 characters. 0 if there is no such
    // part.
    int SetText(int nPart, const char *szFormat, ...)
        __attribute__((format(__MINGW_PRINTF_FORMAT, 3, 4)));

    // WM_MENUSELECT: shows the string resource with the item's id; nothing for
    // pop-ups, separators and the system menu. nFlags 0xFFFF without a menu
    // means that the menu has closed, and the parts come back.
    void OnMenuSelect(UINT nItem, UINT nFlags, HMENU hMenu);

    // Goes to the lower edge of the owner, as wide as it is, and puts the
    // progress bar into the last part.
    void AutoSize();

    // The bar, a child of this one, which belongs to it from now on and takes
    // the place of an earlier one. Null for none.
    void          SetProgressBar(cProgressBar *pProgressBar);
    cProgressBar *ProgressBar() const { return m_pProgressBar; }

private:
    void PlaceProgressBar();
    int  LastPartLeft() const;

    cProgressBar *m_pProgressBar;
};

#endif
