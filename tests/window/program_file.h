// program_file.h - the resources in the program's file.

#ifndef TESTS_WINDOW_PROGRAM_FILE_H
#define TESTS_WINDOW_PROGRAM_FILE_H

#include "toolkit/win32/win32.h"

#include <string>

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

    // The bytes of resource nId of a kind, "WAVE" or a number of the platform's;
    // empty if there is none.
    std::string Bytes(const char *szKind, unsigned nId) const;

private:
    HMODULE m_hModule;
};

#endif
