// face_reader.h - reads the texts on the calculator's face by comparing their pixels
// with those of each character.

#ifndef TESTS_WINDOW_FACE_READER_H
#define TESTS_WINDOW_FACE_READER_H

#include "toolkit/win32/win32.h"

#include <string>
#include <vector>

#include "tests/window/picture.h"

enum eFaceFont
{
    ffLarge,  // 12 points
    ffSmall   // 8 points
};

class cFaceReader
{
public:
    // The font on a screen with nDpi dots per inch.
    cFaceReader(eFaceFont nFont, int nDpi);

    // The text of nLength characters at (x, y) of the picture, with '?' for everything
    // that is not exactly one character on black.
    std::string Read(const cPicture &Picture, int x, int y, int nLength) const;

private:
    int                   m_nWidth;  // of every character
    std::vector<cPicture> m_Characters;
};

#endif
