// program_file.h - the program's file, to look at the resources in it.

#ifndef TESTS_WINDOW_PROGRAM_FILE_H
#define TESTS_WINDOW_PROGRAM_FILE_H

#include "toolkit/win32.h"

#include "tests/window/picture.h"

class cProgramFile
{
public:
    cProgramFile();
    ~cProgramFile();
    cProgramFile(const cProgramFile &)            = delete;
    cProgramFile &operator=(const cProgramFile &) = delete;

    HMODULE Module() const { return m_hModule; }

    // The bitmap resource nId.
    cPicture Bitmap(unsigned nId) const;

private:
    HMODULE m_hModule;
};

#endif
