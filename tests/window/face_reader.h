// face_reader.h - reads the texts that are painted on the calculator's face, by
// comparing their pixels with those of each character.

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
    explicit cFaceReader(eFaceFont nFont);

    // The text of nLength characters that begins at (x, y) of the picture. A
    // place where no character stands alone on black gives a '?'.
    std::string Read(const cPicture &Picture, int x, int y, int nLength) const;

private:
    int                   m_nWidth;  // of every character
    std::vector<cPicture> m_Characters;
};

#endif
