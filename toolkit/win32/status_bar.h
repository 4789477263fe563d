// status_bar.h - the platform's status bar: parts with texts, replaced by the help
// text of a menu item while a menu is open, and an optional progress bar.

#ifndef TOOLKIT_WIN32_STATUS_BAR_H
#define TOOLKIT_WIN32_STATUS_BAR_H

#include "toolkit/win32/win32.h"

#include <cstdio>  // __MINGW_PRINTF_FORMAT
#include <memory>

#include "toolkit/win32/base_window.h"
#include "toolkit/win32/gdi.h"

class cProgressBar;

const int kStatusText   = 513;  // characters of a part's text, terminating zero included
const int kMenuHelpText = 129;  // characters of a menu item's help, terminating zero included

class cStatusBar : public cBaseWindow
{
public:
    explicit cStatusBar(cMessageBoxes *pBoxes);
    ~cStatusBar() override;

    const char *GetClassName() const override;  // "msctls_statusbar32"

    // A hidden bar. Position and size apply until the first AutoSize().
    // pRightEdges are the right edges of the parts, in pixels; -1 is the end of
    // the bar. 0, after a message box, if it cannot be created.
    int Create(cBaseWindow *pOwner, int nX, int nY, int nWidth, int nHeight, uint32_t nId,
               int nParts, const int *pRightEdges);

    // Sets the text of a part, counted from 0, cut to 512 characters. 0 if there
    // is no such part.
    int SetText(int nPart, const char *szFormat, ...)
        __attribute__((format(__MINGW_PRINTF_FORMAT, 3, 4)));

    // Uses the platform's font for status bars on a screen with nDpi dots per inch,
    // where it knows that.
    void SetDpi(int nDpi);

    // For WM_MENUSELECT: shows the string resource with the id of the item, or
    // nothing for pop-ups, separators and the system menu. nFlags 0xFFFF without
    // a menu means that the menu was closed; the parts are shown again.
    void OnMenuSelect(UINT nItem, UINT nFlags, HMENU hMenu);

    // Moves to the bottom edge of the owner, in the owner's width, and places the
    // progress bar in the last part.
    void AutoSize();

    // Takes over the progress bar, a child of this bar, and deletes the one
    // before. Null for none.
    void          SetProgressBar(cProgressBar *pProgressBar);
    cProgressBar *ProgressBar() const { return m_pProgressBar.get(); }

private:
    void PlaceProgressBar();
    int  LastPartLeft() const;

    std::unique_ptr<cProgressBar> m_pProgressBar;
    cGdiFont                      m_Font;  // empty until SetDpi: the control's own
};

#endif
