#include "toolkit/disk_file.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <cwchar>

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

#include "toolkit/win32/wide_name.h"

static int Status(const char *szName, struct _stat64 *pStatus)
{
    return _wstat64(WideName(szName).c_str(), pStatus) == 0;
}

// The status of a folder is not found under a name that ends in a separator.
int IsFolder(const char *szName)
{
    const DWORD dwAttributes = GetFileAttributesW(WideName(szName).c_str());
    return dwAttributes != INVALID_FILE_ATTRIBUTES && (dwAttributes & FILE_ATTRIBUTE_DIRECTORY);
}

eFileKind KindOfFile(const char *szName)
{
    struct _stat64 Found;
    if (IsFolder(szName))
        return fkOther;
    if (!Status(szName, &Found))
        return errno == ENOENT || errno == ENOTDIR ? fkNone : fkOther;
    switch (Found.st_mode & _S_IFMT)
    {
    case _S_IFREG:
        return fkRegular;
    case _S_IFCHR:
        return fkDevice;
    case _S_IFIFO:
        return fkPipe;
    default:
        return fkOther;
    }
}

int IsBelowDevices(const char *)
{
    return 0;
}

static int IsRefused(wchar_t c)
{
    return c < L' ' || wcschr(L"<>\"|?*:", c) != nullptr;
}

// The system itself finds out about devices, and about blanks and points at the end of a
// name, which it ignores.
int ErrorOfName(const char *szName)
{
    std::wstring Whole = WholeWideName(szName);
    if (Whole.starts_with(L"\\\\.\\"))
        return ENODEV;
    if (Whole.starts_with(L"\\\\?\\"))
        Whole.erase(0, 4);
    if (Whole.find(L':') == 1)
        Whole.erase(0, 2);  // the drive
    return Whole.empty() || std::any_of(Whole.begin(), Whole.end(), IsRefused) ? EINVAL : 0;
}

int IsNameTaken(const char *szName)
{
    return GetFileAttributesW(WideName(szName).c_str()) != INVALID_FILE_ATTRIBUTES;
}

int IsMarkedReadOnly(const char *szName)
{
    struct _stat64 Found;
    return Status(szName, &Found) && (Found.st_mode & _S_IWRITE) == 0;
}

// Its volume and number there; 0 if there is no such file.
static int Identity(const char *szName, BY_HANDLE_FILE_INFORMATION *pIdentity)
{
    const DWORD  dwShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE hFile = CreateFileW(WideName(szName).c_str(), 0, dwShared, nullptr, OPEN_EXISTING,
                                     FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (hFile == INVALID_HANDLE_VALUE)
        return 0;
    const int bKnown = GetFileInformationByHandle(hFile, pIdentity);
    CloseHandle(hFile);
    return bKnown;
}

static int IsSame(const BY_HANDLE_FILE_INFORMATION &Of, const BY_HANDLE_FILE_INFORMATION &OfOther)
{
    return Of.dwVolumeSerialNumber == OfOther.dwVolumeSerialNumber &&
           Of.nFileIndexHigh == OfOther.nFileIndexHigh && Of.nFileIndexLow == OfOther.nFileIndexLow;
}

int IsFileOf(FILE *pStream, const char *szName)
{
    const auto                 hStream = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(pStream)));
    BY_HANDLE_FILE_INFORMATION Of, OfOther;
    return GetFileInformationByHandle(hStream, &Of) && Identity(szName, &OfOther) &&
           IsSame(Of, OfOther);
}

int IsSameFile(const char *szName, const char *szOther)
{
    BY_HANDLE_FILE_INFORMATION Of, OfOther;
    if (Identity(szName, &Of) && Identity(szOther, &OfOther))
        return IsSame(Of, OfOther);
    return CompareStringOrdinal(WholeWideName(szName).c_str(), -1, WholeWideName(szOther).c_str(),
                                -1, TRUE) == CSTR_EQUAL;
}

int HasOtherNames(const char *szName)
{
    BY_HANDLE_FILE_INFORMATION Of;
    return Identity(szName, &Of) && Of.nNumberOfLinks > 1;
}

int LengthOfFile(const char *szName, uint64_t *pnLength)
{
    struct _stat64 Found;
    if (!Status(szName, &Found) || (Found.st_mode & _S_IFMT) != _S_IFREG)
        return 0;
    *pnLength = static_cast<uint64_t>(Found.st_size);
    return 1;
}

std::string FollowLinks(const char *szName)
{
    return szName;
}

// After the last separator. The second byte of a character may look like one.
static const char *LastComponent(const char *szName)
{
    const char *pLast = szName;
    for (const char *p = szName; *p; p++)
        if (IsDBCSLeadByte(static_cast<BYTE>(*p)) && p[1])
            p++;
        else if (strchr("/\\:", *p))
            pLast = p + 1;
    return pLast;
}

std::string BesideFile(const char *szName, const char *szOther)
{
    return std::string(szName, LastComponent(szName)) + szOther;
}

int CutFile(const char *szName, uint64_t nLength)
{
    const int nFile = _wopen(WideName(szName).c_str(), _O_WRONLY | _O_BINARY | _O_NOINHERIT);
    if (nFile < 0)
        return 0;
    const int bCut = _chsize_s(nFile, static_cast<int64_t>(nLength)) == 0;
    return _close(nFile) == 0 && bCut;
}

int RemoveDiskFile(const char *szName)
{
    return DeleteFileW(WideName(szName).c_str());
}

// Modes are plain ASCII: "wb" becomes L"wb".
static std::wstring WideMode(const char *szMode)
{
    return std::wstring(szMode, szMode + strlen(szMode));
}

FILE *OpenDiskFile(const char *szName, const char *szMode)
{
    return _wfopen(WideName(szName).c_str(), WideMode(szMode).c_str());
}

FILE *CreateDiskFile(const char *szName, const char *szMode)
{
    // The line ends depend on the mode of the descriptor, whatever szMode says.
    const int nLineEnds = strchr(szMode, 'b') ? _O_BINARY : _O_TEXT;
    const int nFlags    = _O_WRONLY | _O_CREAT | _O_EXCL | _O_NOINHERIT | nLineEnds;
    const int nFile     = _wopen(WideName(szName).c_str(), nFlags, _S_IREAD | _S_IWRITE);
    if (nFile < 0)
        return nullptr;
    FILE *const pFile = _fdopen(nFile, szMode);
    if (pFile)
        return pFile;
    _close(nFile);
    RemoveDiskFile(szName);
    return nullptr;
}

FILE *BinaryStandardOutput()
{
    _setmode(_fileno(stdout), _O_BINARY);
    return stdout;
}

FILE *BinaryStandardInput()
{
    _setmode(_fileno(stdin), _O_BINARY);
    return stdin;
}

FILE *OpenNamelessFile()
{
    wchar_t szFolder[MAX_PATH + 1];
    wchar_t szName[MAX_PATH];
    if (GetTempPathW(MAX_PATH + 1, szFolder) == 0 ||
        GetTempFileNameW(szFolder, L"vor", 0, szName) == 0)
        return nullptr;
    // T: temporary, kept in memory as far as possible; D: deleted when it is closed.
    FILE *const pFile = _wfopen(szName, L"w+bTD");
    if (!pFile)
        DeleteFileW(szName);
    return pFile;
}

const char *DefaultLogName()
{
    return "C:\\windows\\temp\\dfltlog.txt";
}

int SyncToDisk(FILE *pFile)
{
    if (fflush(pFile) != 0)
        return 0;
    return _commit(_fileno(pFile)) == 0;
}
