#include "tests/window/face_reader.h"

#include "toolkit/win32/gdi.h"

static const char     kFirstCharacter  = ' ';
static const char     kLastCharacter   = '~';
static const int      kSegmentPoints[] = {12, 8};
static const COLORREF kLit             = RGB(255, 0, 0);

static HFONT CreateFaceFont(const char *szFace, eFaceFont nFont, int nDpi)
{
    const int nHeight = -MulDiv(kSegmentPoints[nFont], nDpi, 72);
    return CreateFontA(nHeight, 0, 0, 0, FW_NORMAL, 0, 0, 0, ANSI_CHARSET, OUT_DEFAULT_PRECIS,
                       CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, FIXED_PITCH | FF_MODERN, szFace);
}

static int IsInstalled(const cWindowDc &Screen, const char *szFace)
{
    int bFound = 0;
    EnumFontsA(
        Screen.Get(), szFace,
        [](const LOGFONTA *, const TEXTMETRICA *, DWORD, LPARAM lParam) {
            *reinterpret_cast<int *>(lParam) = 1;
            return 0;
        },
        reinterpret_cast<LPARAM>(&bFound));
    return bFound;
}

cFaceReader::cFaceReader(eFaceFont nFont, int nDpi) : m_nWidth(0)
{
    const cWindowDc Screen(nullptr);
    const char *szFace = IsInstalled(Screen, "Lucida Console") ? "Lucida Console" : "Courier New";
    const cGdiFont     Font(CreateFaceFont(szFace, nFont, nDpi));
    const cSelectGuard Selected(Screen.Get(), Font.Get());
    SIZE               Cell = {};
    GetTextExtentPoint32A(Screen.Get(), "M", 1, &Cell);
    m_nWidth = Cell.cx;
    for (char c = kFirstCharacter; c <= kLastCharacter; c++)
        m_Characters.push_back(cPicture::Drawn(Cell.cx, Cell.cy, [&](HDC hDc) {
            const cSelectGuard Drawing(hDc, Font.Get());
            SetTextColor(hDc, kLit);
            SetBkColor(hDc, RGB(0, 0, 0));
            TextOutA(hDc, 0, 0, &c, 1);
        }));
}

std::string cFaceReader::Read(const cPicture &Picture, int x, int y, int nLength) const
{
    std::string Text;
    for (int i = 0; i < nLength; i++, x += m_nWidth)
    {
        char cRead = '?';
        for (size_t k = 0; k < m_Characters.size(); k++)
            if (Picture.Holds(x, y, m_Characters[k]))
                cRead = static_cast<char>(kFirstCharacter + static_cast<char>(k));
        Text += cRead;
    }
    return Text;
}
