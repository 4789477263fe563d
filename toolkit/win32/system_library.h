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

// A function of such a library; null if it, or the library, is not there.
template <class cCall> cCall FindFunction(HMODULE hLibrary, const char *szName)
{
    const FARPROC pfnFound = hLibrary ? GetProcAddress(hLibrary, szName) : nullptr;
    return reinterpret_cast<cCall>(reinterpret_cast<void *>(pfnFound));
}

// Libraries that the platform loads for its own purposes come from there too, from now
// on.
inline void LoadFromSystemOnly()
{
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
}

#endif
