#include "toolkit/win32/tool_images.h"

#include <algorithm>

#include "toolkit/win32/gdi.h"
#include "toolkit/win32/scaled_bitmap.h"

static const int kLargeSide = 24;  // pixels of the platform's large images

namespace
{

// A toolbar that is never shown, with the large standard images.
class cLargeImages
{
public:
    explicit cLargeImages(int nImages)
        : m_hBar(CreateToolbarEx(GetDesktopWindow(), WS_POPUP, 0, nImages, HINST_COMMCTRL,
                                 IDB_STD_LARGE_COLOR, nullptr, 0, kLargeSide, kLargeSide,
                                 kLargeSide, kLargeSide, sizeof(TBBUTTON)))
    {
    }
    ~cLargeImages() { DestroyWindow(m_hBar); }
    cLargeImages(const cLargeImages &)            = delete;
    cLargeImages &operator=(const cLargeImages &) = delete;

    HIMAGELIST Get() const
    {
        return reinterpret_cast<HIMAGELIST>(SendMessageA(m_hBar, TB_GETIMAGELIST, 0, 0));
    }

private:
    HWND m_hBar;
};

}  // namespace

namespace
{

// The ground of the toolbar, on a bitmap of this size.
class cGround
{
public:
    cGround(HBITMAP hBitmap, SIZE Size) : m_Dc(nullptr), m_Selected(m_Dc.Get(), hBitmap)
    {
        const RECT Whole = {0, 0, Size.cx, Size.cy};
        FillRect(m_Dc.Get(), &Whole, GetSysColorBrush(COLOR_BTNFACE));
    }

    HDC Dc() const { return m_Dc.Get(); }

private:
    cMemoryDc    m_Dc;
    cSelectGuard m_Selected;
};

}  // namespace

static cGdiBitmap CreateImage(SIZE Size)
{
    return cGdiBitmap(CreateCompatibleBitmap(cWindowDc(nullptr).Get(), Size.cx, Size.cy));
}

static void DrawListImage(HDC hTo, SIZE Size, HIMAGELIST hList, int nImage)
{
    int nWidth  = 0;
    int nHeight = 0;
    ImageList_GetIconSize(hList, &nWidth, &nHeight);
    const cGdiBitmap Bitmap = CreateImage({nWidth, nHeight});
    const cGround    Ground(Bitmap.Get(), {nWidth, nHeight});
    ImageList_Draw(hList, nImage, Ground.Dc(), 0, 0, ILD_TRANSPARENT);
    StretchPart(hTo, {0, 0, Size.cx, Size.cy}, Ground.Dc(), {0, 0, nWidth, nHeight});
}

static void DrawStripImage(HDC hTo, SIZE Size, HBITMAP hStrip, int nImage, int nImages)
{
    BITMAP Info = {};
    GetObjectA(hStrip, sizeof Info, &Info);
    const int           nWidth = Info.bmWidth / nImages;
    const cGdiBitmap    Bitmap = CreateImage({nWidth, Info.bmHeight});
    const cGround       Ground(Bitmap.Get(), {nWidth, Info.bmHeight});
    const cMemoryDc     Strip(nullptr);
    const cSelectGuard  Selected(Strip.Get(), hStrip);
    const BLENDFUNCTION Blend = {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
    GdiAlphaBlend(Ground.Dc(), 0, 0, nWidth, Info.bmHeight, Strip.Get(), nImage * nWidth, 0, nWidth,
                  Info.bmHeight, Blend);
    StretchPart(hTo, {0, 0, Size.cx, Size.cy}, Ground.Dc(), {0, 0, nWidth, Info.bmHeight});
}

cImageList ScaledToolImages(HIMAGELIST hList, int nStandard, HBITMAP hStrip, SIZE Size)
{
    const cLargeImages Large(nStandard);
    const int          nLarge  = ImageList_GetImageCount(Large.Get());
    const int          nImages = ImageList_GetImageCount(hList);
    cImageList Scaled(ImageList_Create(Size.cx, Size.cy, ILC_COLOR24 | ILC_MASK, nImages, 0));
    for (int i = 0; i < nImages && Scaled; i++)
    {
        const cGdiBitmap Image = CreateImage(Size);
        {
            const cGround Ground(Image.Get(), Size);
            if (i >= nStandard && hStrip)
                DrawStripImage(Ground.Dc(), Size, hStrip, i - nStandard, nImages - nStandard);
            else
                DrawListImage(Ground.Dc(), Size,
                              i < std::min(nLarge, nStandard) ? Large.Get() : hList, i);
        }
        if (ImageList_AddMasked(Scaled.Get(), Image.Get(), GetSysColor(COLOR_BTNFACE)) < 0)
            Scaled.Reset();
    }
    return Scaled;
}
