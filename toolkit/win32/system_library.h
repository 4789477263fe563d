// system_library.h - loads libraries of the system, and only those.

#ifndef TOOLKIT_WIN32_SYSTEM_LIBRARY_H
#define TOOLKIT_WIN32_SYSTEM_LIBRARY_H

#include "toolkit/win32/win32.h"

// Loads a library by its name from the system's folder: the program's folder and the
// current one may contain anybody's. Null if there is none.
inline HMODULE LoadSystemLibrary(const char *szName)
{
    return LoadLibraryExA(szName, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
}

// The same for the libraries that the platform loads for its own purposes, from now on.
inline void LoadFromSystemOnly()
{
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
}

#endif
