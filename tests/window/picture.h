// picture.h - a copy of a part of the screen.

#ifndef TESTS_WINDOW_PICTURE_H
#define TESTS_WINDOW_PICTURE_H

#include "toolkit/win32/win32.h"

#include <string>
#include <vector>

class cPicture
{
public:
    // A copy of this part of the screen.
    static cPicture OfScreen(const RECT &Part);

    // A file of the kind PPM ("P6") with 8 bits per channel, which must exist.
    static cPicture OfFile(const std::string &Name);

    // A picture that Draw, called with a device context, draws on black.
    template <class cDraw> static cPicture Drawn(int nWidth, int nHeight, cDraw Draw)
    {
        cPicture   Picture(nWidth, nHeight);
        const auto hDc = Picture.Open();
        Draw(hDc);
        Picture.Close();
        return Picture;
    }

    int Width() const { return m_nWidth; }
    int Height() const { return m_nHeight; }

    // 0xRRGGBB; x and y within the picture.
    unsigned At(int x, int y) const;

    // Whether the part of this picture at (x, y) is Other.
    int Holds(int x, int y, const cPicture &Other) const;

    int operator==(const cPicture &Other) const;

    // Writes "pictures/NAME.bmp" under the current directory.
    void Save(const std::string &Name) const;

private:
    cPicture(int nWidth, int nHeight);
    HDC  Open();
    void Close();

    int                   m_nWidth;
    int                   m_nHeight;
    std::vector<unsigned> m_Pixels;  // row by row from the top

    HDC     m_hDc     = nullptr;
    HBITMAP m_hBitmap = nullptr;
    HGDIOBJ m_hFormer = nullptr;
    void   *m_pBits   = nullptr;
};

#endif
