// win32.h - the platform's headers. Each Win32 file includes this one first and
// no other header of the platform; it is how such a file is told from a
// portable one. Calls are the ANSI ones, written with their A.

#ifndef TOOLKIT_WIN32_H
#define TOOLKIT_WIN32_H

#define WIN32_LEAN_AND_MEAN
#define NOMINMAX

#include <windows.h>

#include <commctrl.h>
#include <commdlg.h>
#include <mmsystem.h>
#include <richedit.h>
#include <shellapi.h>

// It would rename cCallbackObj::GetClassName in the files that include
// <windows.h>, and only there.
#undef GetClassName

// The program itself: where its resources are and its window classes belong.
inline HINSTANCE ProgramInstance()
{
    return GetModuleHandleA(nullptr);
}

#endif
