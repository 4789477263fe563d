// win32.h - the platform's headers. Every Win32 file includes this one first and
// no other header of the platform. The ANSI functions are called, by their full
// names: CreateWindowExA.

#ifndef TOOLKIT_WIN32_WIN32_H
#define TOOLKIT_WIN32_WIN32_H

#define WIN32_LEAN_AND_MEAN
#ifndef NOMINMAX  // the C++ library may have defined it already
#define NOMINMAX
#endif

#include <windows.h>

#include <commctrl.h>
#include <commdlg.h>
#include <mmsystem.h>
#include <richedit.h>
#include <shellapi.h>
#include <wincodec.h>

// The macro would rename cCallbackObj::GetClassName, but only in the files that
// include <windows.h>.
#undef GetClassName

// The program itself, which owns the resources and the window classes.
inline HINSTANCE ProgramInstance()
{
    return GetModuleHandleA(nullptr);
}

#endif
