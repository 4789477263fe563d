// progress_bar.h - the platform's progress bar.

#ifndef TOOLKIT_PROGRESS_BAR_H
#define TOOLKIT_PROGRESS_BAR_H

#include "toolkit/win32/win32.h"

#include "toolkit/win32/base_window.h"

class cProgressBar : public cBaseWindow
{
public:
    explicit cProgressBar(cMessageBoxes *pBoxes);

    const char *GetClassName() const override;  // "msctls_progress32"

    // A hidden bar from 0 to nMaximum, whose Step() goes nStep on. 0, and a box
    // has said so, if it cannot be created.
    int Create(cBaseWindow *pOwner, DWORD dwStyle, int nX, int nY, int nWidth, int nHeight,
               uint32_t nId, int nMaximum, int nStep);

    // 0 to the maximum; what lies outside becomes the nearer end.
    void SetPosition(int nPosition);

    // One step on; behind the maximum it begins again at 0.
    void Step();
};

#endif
