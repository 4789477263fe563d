#include "shell/win32/welcome_dialog.h"

#include <algorithm>

#include "resources/resource.h"
#include "shell/win32/drawn_pictures.h"
#include "shell/win32/sounds.h"
#include "toolkit/scale.h"
#include "toolkit/win32/center_window.h"
#include "toolkit/win32/scaled_bitmap.h"
#include "toolkit/win32/screen.h"

static const UINT kWelcomeTime = 2000;  // milliseconds

// Of the picture, in pixels at 96 dots per inch.
static const int kPictureWidth  = 600;
static const int kPictureHeight = 510;

static void AllowOk(HWND hDialog)
{
    PlayProgramSound(IDW_SLIDE_ON);  // also serves as the chime
    KillTimer(hDialog, IDT_WELCOME);
    EnableWindow(GetDlgItem(hDialog, IDOK), TRUE);
}

static RECT RectInDialog(HWND hDialog, HWND hChild)
{
    RECT Rect = {};
    GetWindowRect(hChild, &Rect);
    MapWindowPoints(nullptr, hDialog, reinterpret_cast<POINT *>(&Rect), 2);
    return Rect;
}

// The size of the picture that the screen has room for, beside the dialog's frame and
// the button with its margins.
static SIZE FittingSize(const SIZE &Wanted, const SIZE &Room)
{
    const LONG nWidth  = std::max<LONG>(std::min(Wanted.cx, Room.cx), 1);
    const LONG nHeight = std::max<LONG>(std::min(Wanted.cy, Room.cy), 1);
    if (MulDiv(Wanted.cy, nWidth, Wanted.cx) > nHeight)
        return {MulDiv(Wanted.cx, nHeight, Wanted.cy), nHeight};
    return {nWidth, MulDiv(Wanted.cy, nWidth, Wanted.cx)};
}

// Scales the picture if the screen has another resolution than usual, or is too small
// for it.
static void ScalePicture(HWND hDialog, HWND hPicture, const SIZE &Room, cGdiBitmap *pScaled)
{
    const cScale Scale(ScreenDpi(hDialog));
    const SIZE   Size =
        FittingSize({Scale.Length(kPictureWidth), Scale.Length(kPictureHeight)}, Room);
    if (Size.cx == kPictureWidth && Size.cy == kPictureHeight)
        return;
    const auto hOwn =
        reinterpret_cast<HBITMAP>(SendMessageA(hPicture, STM_GETIMAGE, IMAGE_BITMAP, 0));
    const cDrawnPicture Drawn = LoadDrawnPicture(piWelcome, Scale);
    *pScaled                  = ScaledBitmap(Drawn.m_Bitmap.Get(), Size.cx, Size.cy);
    SendMessageA(hPicture, STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(pScaled->Get()));
    SetWindowPos(hPicture, nullptr, 0, 0, Size.cx, Size.cy, SWP_NOMOVE | SWP_NOZORDER);
    DeleteObject(hOwn);
}

// The picture is measured in pixels, the dialog in units of a font that may be
// smaller than usual. Enlarges the dialog so that the button is below the picture, or
// shrinks it around a picture of another size.
static void FitPicture(HWND hDialog, cGdiBitmap *pScaled)
{
    const HWND hOk      = GetDlgItem(hDialog, IDOK);
    const HWND hPicture = FindWindowExA(hDialog, nullptr, "STATIC", nullptr);
    const RECT Ok       = RectInDialog(hDialog, hOk);
    const RECT Work     = WorkArea(hDialog);
    RECT       Client   = {};
    RECT       Window   = {};
    GetClientRect(hDialog, &Client);
    GetWindowRect(hDialog, &Window);

    const LONG nMargin = Client.bottom - Ok.bottom;
    const LONG nStrip  = Ok.bottom - Ok.top + 2 * nMargin;
    const SIZE Room    = {Work.right - Work.left - (Window.right - Window.left - Client.right),
                          Work.bottom - Work.top - (Window.bottom - Window.top - Client.bottom) -
                              nStrip};
    ScalePicture(hDialog, hPicture, Room, pScaled);

    const RECT Picture = RectInDialog(hDialog, hPicture);
    const LONG nLeast  = *pScaled ? -Client.bottom : 0;
    const LONG nRight  = std::max<LONG>(Picture.right - Client.right, nLeast);
    const LONG nDown   = std::max<LONG>(Picture.bottom + nMargin - Ok.top, nLeast);
    SetWindowPos(hOk, nullptr, Ok.left + nRight, Ok.top + nDown, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    SetWindowPos(hDialog, nullptr, 0, 0, Window.right - Window.left + nRight,
                 Window.bottom - Window.top + nDown, SWP_NOMOVE | SWP_NOZORDER);
}

// The area in which dialogs are centred may be larger than what can be seen.
static void MoveOntoScreen(HWND hDialog)
{
    const RECT Work   = WorkArea(hDialog);
    RECT       Window = {};
    GetWindowRect(hDialog, &Window);
    const LONG nTop = std::max(Work.bottom - (Window.bottom - Window.top), Work.top);
    if (Window.top > nTop)
        SetWindowPos(hDialog, nullptr, Window.left, nTop, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
}

static INT_PTR CALLBACK WelcomeProc(HWND hDialog, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    switch (nMessage)
    {
    case WM_INITDIALOG:
        FitPicture(hDialog, reinterpret_cast<cGdiBitmap *>(lParam));
        CenterWindow(hDialog);
        MoveOntoScreen(hDialog);
        SetTimer(hDialog, IDT_WELCOME, kWelcomeTime, nullptr);
        return TRUE;
    case WM_TIMER:
        AllowOk(hDialog);
        return TRUE;
    case WM_COMMAND:
        if (LOWORD(wParam) != IDOK && LOWORD(wParam) != IDCANCEL)
            return FALSE;
        EndDialog(hDialog, LOWORD(wParam));
        return TRUE;
    default:
        return FALSE;
    }
}

void ShowWelcome()
{
    cGdiBitmap Scaled;
    DialogBoxParamA(ProgramInstance(), MAKEINTRESOURCEA(IDD_WELCOME), nullptr, WelcomeProc,
                    reinterpret_cast<LPARAM>(&Scaled));
}
