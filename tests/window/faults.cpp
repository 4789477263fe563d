#include "tests/window/faults.h"

#include <cstdlib>
#include <cstring>

#include "toolkit/retry_alloc.h"

namespace
{

using cMalloc        = void *(__cdecl *)(size_t);
using cRealloc       = void *(__cdecl *)(void *, size_t);
using cWriteFile     = BOOL(WINAPI *)(HANDLE, LPCVOID, DWORD, LPDWORD, LPOVERLAPPED);
using cCreateFileA   = decltype(&CreateFileA);
using cCreateFileW   = decltype(&CreateFileW);
using cGetDeviceCaps = int(WINAPI *)(HDC, int);
using cCreateBitmap  = HBITMAP(WINAPI *)(HDC, int, int);

}  // namespace

static cWriteFile     s_pfnWriteFile     = nullptr;
static cCreateFileA   s_pfnCreateFileA   = nullptr;
static cCreateFileW   s_pfnCreateFileW   = nullptr;
static cGetDeviceCaps s_pfnGetDeviceCaps = nullptr;
static cCreateBitmap  s_pfnCreateBitmap  = nullptr;
static cMalloc        s_pfnMalloc        = nullptr;
static cRealloc       s_pfnRealloc       = nullptr;
static DWORD          s_dwThread         = 0;
static int            s_nFailing         = 0;
static int            s_nGivenAnswer     = 0;
static cMemoryCounts  s_Counts           = {};
static char           s_szGivenFile[MAX_PATH];
static DWORD          s_nRoom    = 0;
static int            s_nColumns = 0;

// Redirects all calls of the module from one function to another.
static void ReplaceCall(HMODULE hModule, FARPROC pfnFormer, FARPROC pfnNew)
{
    auto *const pBase    = reinterpret_cast<BYTE *>(hModule);
    const auto *pDos     = reinterpret_cast<const IMAGE_DOS_HEADER *>(pBase);
    const auto *pHeaders = reinterpret_cast<const IMAGE_NT_HEADERS *>(pBase + pDos->e_lfanew);
    const auto &Imports  = pHeaders->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (auto *pLibrary =
             reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR *>(pBase + Imports.VirtualAddress);
         pLibrary->Name != 0; pLibrary++)
        for (auto *pCall = reinterpret_cast<FARPROC *>(pBase + pLibrary->FirstThunk);
             *pCall != nullptr; pCall++)
        {
            DWORD dwFormer = 0;
            if (*pCall != pfnFormer ||
                !VirtualProtect(pCall, sizeof *pCall, PAGE_READWRITE, &dwFormer))
                continue;
            *pCall = pfnNew;
            VirtualProtect(pCall, sizeof *pCall, dwFormer, &dwFormer);
        }
}

// Redirects the calls of the program and of the C library, which writes files for the
// program. Returns the platform's function.
static FARPROC ReplaceCalls(const char *szLibrary, const char *szName, FARPROC pfnNew)
{
    const FARPROC pfnFormer = GetProcAddress(GetModuleHandleA(szLibrary), szName);
    ReplaceCall(GetModuleHandleA(nullptr), pfnFormer, pfnNew);
    ReplaceCall(GetModuleHandleA("msvcrt.dll"), pfnFormer, pfnNew);
    return pfnFormer;
}

template <class cFunction> static FARPROC AsAny(cFunction pfnFunction)
{
    return reinterpret_cast<FARPROC>(reinterpret_cast<void (*)()>(pfnFunction));
}

template <class cFunction> static cFunction As(FARPROC pfnAny)
{
    return reinterpret_cast<cFunction>(reinterpret_cast<void (*)()>(pfnAny));
}

static BOOL WINAPI WriteWithinRoom(HANDLE hFile, LPCVOID pBytes, DWORD nBytes, LPDWORD pnWritten,
                                   LPOVERLAPPED pOverlapped)
{
    if (nBytes <= s_nRoom)
    {
        s_nRoom -= nBytes;
        return s_pfnWriteFile(hFile, pBytes, nBytes, pnWritten, pOverlapped);
    }
    *pnWritten = 0;
    SetLastError(ERROR_DISK_FULL);
    return FALSE;
}

static HANDLE Refused()
{
    SetLastError(ERROR_ACCESS_DENIED);
    return INVALID_HANDLE_VALUE;
}

static int MayCreate(DWORD dwDisposition)
{
    return dwDisposition == CREATE_NEW || dwDisposition == CREATE_ALWAYS ||
           dwDisposition == OPEN_ALWAYS;
}

static HANDLE WINAPI OpenOnlyA(LPCSTR szName, DWORD dwAccess, DWORD dwShare,
                               LPSECURITY_ATTRIBUTES pRights, DWORD dwDisposition, DWORD dwFlags,
                               HANDLE hTemplate)
{
    if (MayCreate(dwDisposition) && GetFileAttributesA(szName) == INVALID_FILE_ATTRIBUTES)
        return Refused();
    return s_pfnCreateFileA(szName, dwAccess, dwShare, pRights, dwDisposition, dwFlags, hTemplate);
}

static HANDLE WINAPI OpenOnlyW(LPCWSTR szName, DWORD dwAccess, DWORD dwShare,
                               LPSECURITY_ATTRIBUTES pRights, DWORD dwDisposition, DWORD dwFlags,
                               HANDLE hTemplate)
{
    if (MayCreate(dwDisposition) && GetFileAttributesW(szName) == INVALID_FILE_ATTRIBUTES)
        return Refused();
    return s_pfnCreateFileW(szName, dwAccess, dwShare, pRights, dwDisposition, dwFlags, hTemplate);
}

static int WINAPI CapsWithoutDibs(HDC hDc, int nIndex)
{
    const int nCaps = s_pfnGetDeviceCaps(hDc, nIndex);
    return nIndex == RASTERCAPS ? nCaps & ~RC_DI_BITMAP : nCaps;
}

static HBITMAP WINAPI BitmapWithinRoom(HDC hDc, int nWidth, int nHeight)
{
    return nWidth <= s_nColumns ? s_pfnCreateBitmap(hDc, nWidth, nHeight) : nullptr;
}

static HFONT WINAPI NoFont(const LOGFONTA *)
{
    return nullptr;
}

void LeaveRoomOnDisk(DWORD nBytes)
{
    s_nRoom = nBytes;
    if (!s_pfnWriteFile)
        s_pfnWriteFile =
            As<cWriteFile>(ReplaceCalls("kernel32.dll", "WriteFile", AsAny(&WriteWithinRoom)));
}

void MakeFoldersReadOnly()
{
    if (s_pfnCreateFileA)
        return;
    s_pfnCreateFileA =
        As<cCreateFileA>(ReplaceCalls("kernel32.dll", "CreateFileA", AsAny(&OpenOnlyA)));
    s_pfnCreateFileW =
        As<cCreateFileW>(ReplaceCalls("kernel32.dll", "CreateFileW", AsAny(&OpenOnlyW)));
}

void HideDibSupport()
{
    if (!s_pfnGetDeviceCaps)
        s_pfnGetDeviceCaps =
            As<cGetDeviceCaps>(ReplaceCalls("gdi32.dll", "GetDeviceCaps", AsAny(&CapsWithoutDibs)));
}

void LeaveRoomForBitmaps(int nColumns)
{
    s_nColumns = nColumns;
    if (!s_pfnCreateBitmap)
        s_pfnCreateBitmap = As<cCreateBitmap>(
            ReplaceCalls("gdi32.dll", "CreateCompatibleBitmap", AsAny(&BitmapWithinRoom)));
}

void RefuseFonts()
{
    ReplaceCalls("gdi32.dll", "CreateFontIndirectA", AsAny(&NoFont));
}

// --- memory

static int MustFail()
{
    return GetCurrentThreadId() == s_dwThread && ++s_Counts.m_nAllocations == s_nFailing;
}

static void *__cdecl MallocButOne(size_t nSize)
{
    return MustFail() ? nullptr : s_pfnMalloc(nSize);
}

static void *__cdecl ReallocButOne(void *pOld, size_t nSize)
{
    return MustFail() ? nullptr : s_pfnRealloc(pOld, nSize);
}

static int WINAPI AnsweredBox(HWND, LPCSTR szText, LPCSTR, UINT nType)
{
    if (strcmp(szText, kMemoryFailureText) != 0)
        return (nType & MB_TYPEMASK) == MB_YESNOCANCEL ? IDNO : IDOK;
    s_Counts.m_nBoxes++;
    return s_nGivenAnswer;
}

static void WINAPI CountedQuit(int)
{
    s_Counts.m_nQuits++;
}

static BOOL WINAPI GivenFile(LPOPENFILENAMEA pDialog)
{
    strncpy(pDialog->lpstrFile, s_szGivenFile, pDialog->nMaxFile - 1);
    pDialog->lpstrFile[pDialog->nMaxFile - 1] = 0;
    return TRUE;
}

void FailAllocation(int nFailing, eGivenAnswer nAnswer)
{
    s_nFailing     = nFailing;
    s_nGivenAnswer = nAnswer == gaRetry ? IDRETRY : IDCANCEL;
    s_Counts       = {};
    if (s_pfnMalloc)
        return;
    s_dwThread   = GetCurrentThreadId();
    s_pfnMalloc  = As<cMalloc>(ReplaceCalls("msvcrt.dll", "malloc", AsAny(&MallocButOne)));
    s_pfnRealloc = As<cRealloc>(ReplaceCalls("msvcrt.dll", "realloc", AsAny(&ReallocButOne)));
    ReplaceCalls("user32.dll", "MessageBoxA", AsAny(&AnsweredBox));
    ReplaceCalls("user32.dll", "PostQuitMessage", AsAny(&CountedQuit));
}

cMemoryCounts CountAllocations()
{
    return s_Counts;
}

void AnswerFileDialogs(const char *szName)
{
    strncpy(s_szGivenFile, szName, sizeof s_szGivenFile - 1);
    ReplaceCalls("comdlg32.dll", "GetOpenFileNameA", AsAny(&GivenFile));
    ReplaceCalls("comdlg32.dll", "GetSaveFileNameA", AsAny(&GivenFile));
}
