// progress_bar.h - the platform's progress bar.

#ifndef TOOLKIT_WIN32_PROGRESS_BAR_H
#define TOOLKIT_WIN32_PROGRESS_BAR_H

#include "toolkit/win32/win32.h"

#include "toolkit/win32/base_window.h"

class cProgressBar : public cBaseWindow
{
public:
    explicit cProgressBar(cMessageBoxes *pBoxes);

    const char *GetClassName() const override;  // "msctls_progress32"

    // A hidden bar from 0 to nMaximum; Step() advances it by nStep. 0, after a
    // message box, if it cannot be created.
    int Create(cBaseWindow *pOwner, DWORD dwStyle, int nX, int nY, int nWidth, int nHeight,
               uint32_t nId, int nMaximum, int nStep);

    // Clamps nPosition to the range from 0 to the maximum.
    void SetPosition(int nPosition);

    // Advances by one step; beyond the maximum it starts again at 0.
    void Step();
};

#endif
