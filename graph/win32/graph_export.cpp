#include "graph/win32/graph_export.h"

#include <cstdio>
#include <cstring>

#include "graph/plot_renderer.h"
#include "graph/win32/gdi_canvas.h"
#include "graph/win32/vantor_box.h"
#include "imaging/win32/bitmap_files.h"
#include "toolkit/retry_alloc.h"
#include "toolkit/win32/file_dialogs.h"
#include "toolkit/win32/gdi.h"

static const struct
{
    const char *m_szFilter;
    const char *m_szExtension;
} kKinds[] = {{"Bitmap Files (*.bmp)\0*.bmp\0", "bmp"}, {"GIF Files (*.gif)\0*.gif\0", "gif"}};

static int CanHoldBitmaps(cMessageBoxes *pBoxes)
{
    const cWindowDc Screen(nullptr);
    if (GetDeviceCaps(Screen.Get(), RASTERCAPS) & RC_DI_BITMAP)
        return 1;
    pBoxes->Ask("Sorry, your video hardware does not support this option.", "ERROR", bnOk, icNone);
    return 0;
}

// 0 if memory is short and the user gave up. Afterwards the bitmap is not selected
// into a context, so that its pixels can be read.
static int DrawPicture(HBITMAP hBitmap, const cVantorBox &Box, int nWidth, int nHeight)
{
    const cMemoryDc    Memory(nullptr);
    const cSelectGuard Selected(Memory.Get(), hBitmap);
    const cGdiFont     Font = Box.PictureFont();
    cGdiCanvas         Canvas(Memory.Get(), Font ? Font.Get() : Box.Font());
    const cRect        Whole = {0, 0, nWidth, nHeight};
    cPlotTarget        Target;
    Target.m_nKind = ptImage;
    Target.m_Rect  = Whole;
    Canvas.FillBox(Whole, Box.Settings().m_crBackground);
    return DrawPlot(LayOutPlot(Box, Target, Canvas), Box, &Canvas);
}

// Empty if memory is short and the user gave up.
static cGdiBitmap CreatePicture(int nWidth, int nHeight, cMessageBoxes *pBoxes)
{
    const cWindowDc Screen(nullptr);
    return AllocateWithRetry(
        pBoxes, [&] { return cGdiBitmap(CreateCompatibleBitmap(Screen.Get(), nWidth, nHeight)); });
}

static int Write(HBITMAP hBitmap, eImageKind nKind, uint32_t nBits, const char *szName,
                 cMessageBoxes *pBoxes)
{
    if (nKind == ikBmp)
        return WriteBmpFile(hBitmap, nullptr, nBits, szName, pBoxes);
    return WriteBitmapAsGif(hBitmap, nullptr, kGifBits, szName, 1, pBoxes);
}

// "C:\data\decay.txt" becomes "C:\data\decay".
static void RemoveExtension(char *szName)
{
    char *const pPoint = strrchr(szName, '.');
    if (pPoint && !strpbrk(pPoint, "\\/:"))
        *pPoint = 0;
}

static int ReportFailure(const char *szName, cMessageBoxes *pBoxes)
{
    char szText[kFileName + 40];
    snprintf(szText, sizeof szText, "Could not write the file:\n %s", szName);
    pBoxes->Ask(szText, nullptr, bnOk, icError);
    return 0;
}

int ExportGraph(cVantorBox *pBox, eImageKind nKind, const char *szGraphFile)
{
    cMessageBoxes *const pBoxes  = pBox->Boxes();
    cImageChoice *const  pChoice = pBox->Images();
    if (!CanHoldBitmaps(pBoxes) || !AskImageSize(pBox, nKind, pChoice))
        return 0;

    char szName[kFileName];
    snprintf(szName, sizeof szName, "%s", szGraphFile);
    RemoveExtension(szName);
    if (pChoice->m_nWidth < 1 || pChoice->m_nHeight < 1)
        return ReportFailure(szName, pBoxes);
    const cGdiBitmap Picture = CreatePicture(pChoice->m_nWidth, pChoice->m_nHeight, pBoxes);
    if (!Picture || !DrawPicture(Picture.Get(), *pBox, pChoice->m_nWidth, pChoice->m_nHeight))
        return 0;
    if (!AskFileName(fnSave, kKinds[nKind].m_szFilter, nullptr, kKinds[nKind].m_szExtension, pBoxes,
                     szName))
        return 0;
    if (!Write(Picture.Get(), nKind, pChoice->m_nBits, szName, pBoxes))
        return ReportFailure(szName, pBoxes);
    return 1;
}
