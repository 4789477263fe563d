// read_file.h - reads a complete file into memory.

#ifndef TOOLKIT_READ_FILE_H
#define TOOLKIT_READ_FILE_H

#include <cstddef>

class cMessageBoxes;

// 1 for a regular file or a link to one. Opening a folder, a device or a pipe
// might succeed, and reading it might never end.
int IsRegularFile(const char *szName);

class cFileText
{
public:
    cFileText() : m_pText(nullptr), m_nLength(0) {}
    ~cFileText();
    cFileText(const cFileText &)            = delete;
    cFileText &operator=(const cFileText &) = delete;

    // Reads the file as it is on disk, line ends included. 0 if it is
    // not a regular file, cannot be read to its end, or memory is short and the
    // user gave up.
    int Read(const char *szName, cMessageBoxes *pBoxes);

    const char *Text() const { return m_pText; }  // null unless Read returned 1
    size_t      Length() const { return m_nLength; }

private:
    char  *m_pText;
    size_t m_nLength;
};

#endif
