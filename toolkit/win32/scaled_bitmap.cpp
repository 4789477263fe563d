#include "toolkit/win32/scaled_bitmap.h"

// HALFTONE moves the origin of brushes.
void StretchPart(HDC hTo, const RECT &To, HDC hFrom, const RECT &From)
{
    SetStretchBltMode(hTo, HALFTONE);
    SetBrushOrgEx(hTo, 0, 0, nullptr);
    StretchBlt(hTo, To.left, To.top, To.right - To.left, To.bottom - To.top, hFrom, From.left,
               From.top, From.right - From.left, From.bottom - From.top, SRCCOPY);
}

cGdiBitmap ScaledBitmap(HBITMAP hBitmap, int nWidth, int nHeight)
{
    BITMAP Info = {};
    GetObjectA(hBitmap, sizeof Info, &Info);
    cGdiBitmap Scaled(CreateCompatibleBitmap(cWindowDc(nullptr).Get(), nWidth, nHeight));

    const cMemoryDc    From(nullptr);
    const cMemoryDc    To(nullptr);
    const cSelectGuard FromBitmap(From.Get(), hBitmap);
    const cSelectGuard ToBitmap(To.Get(), Scaled.Get());
    StretchPart(To.Get(), {0, 0, nWidth, nHeight}, From.Get(), {0, 0, Info.bmWidth, Info.bmHeight});
    return Scaled;
}
