#include "toolkit/disk_file.h"

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

static const int kLongestName = 32768;  // characters, terminating zero included

// The name in Unicode, "" for one that cannot be converted. The C library's own
// functions would read it in the same way, but know no names of more than 260
// characters.
static std::wstring Wide(const char *szName)
{
    std::wstring Name(kLongestName, L'\0');
    const int    nLength =
        MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, szName, -1, Name.data(), kLongestName);
    Name.resize(nLength > 0 ? static_cast<size_t>(nLength) - 1 : 0);
    return Name;
}

static int Status(const char *szName, struct _stat64 *pStatus)
{
    return _wstat64(Wide(szName).c_str(), pStatus) == 0;
}

// The status of a folder is not found under a name that ends in a separator.
int IsFolder(const char *szName)
{
    const DWORD dwAttributes = GetFileAttributesW(Wide(szName).c_str());
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

int IsNameTaken(const char *szName)
{
    return GetFileAttributesW(Wide(szName).c_str()) != INVALID_FILE_ATTRIBUTES;
}

int IsMarkedReadOnly(const char *szName)
{
    struct _stat64 Found;
    return Status(szName, &Found) && (Found.st_mode & _S_IWRITE) == 0;
}

// Its volume and number there; 0 if there is no such file.
static int Identity(const std::wstring &Name, BY_HANDLE_FILE_INFORMATION *pIdentity)
{
    const DWORD  dwShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE hFile    = CreateFileW(Name.c_str(), 0, dwShared, nullptr, OPEN_EXISTING,
                                        FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (hFile == INVALID_HANDLE_VALUE)
        return 0;
    const int bKnown = GetFileInformationByHandle(hFile, pIdentity);
    CloseHandle(hFile);
    return bKnown;
}

static std::wstring WholeName(const std::wstring &Name)
{
    std::wstring Whole(kLongestName, L'\0');
    Whole.resize(GetFullPathNameW(Name.c_str(), kLongestName, Whole.data(), nullptr));
    return Whole;
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
    return GetFileInformationByHandle(hStream, &Of) && Identity(Wide(szName), &OfOther) &&
           IsSame(Of, OfOther);
}

int IsSameFile(const char *szName, const char *szOther)
{
    const std::wstring         Names[] = {Wide(szName), Wide(szOther)};
    BY_HANDLE_FILE_INFORMATION Of, OfOther;
    if (Identity(Names[0], &Of) && Identity(Names[1], &OfOther))
        return IsSame(Of, OfOther);
    return CompareStringOrdinal(WholeName(Names[0]).c_str(), -1, WholeName(Names[1]).c_str(), -1,
                                TRUE) == CSTR_EQUAL;
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

int CopyPermissions(const char *szFrom, const char *szTo)
{
    struct _stat64 Found;
    return Status(szFrom, &Found) &&
           _wchmod(Wide(szTo).c_str(), Found.st_mode & (_S_IREAD | _S_IWRITE)) == 0;
}

int CutFile(const char *szName, uint64_t nLength)
{
    const int nFile = _wopen(Wide(szName).c_str(), _O_WRONLY | _O_BINARY | _O_NOINHERIT);
    if (nFile < 0)
        return 0;
    const int bCut = _chsize_s(nFile, static_cast<int64_t>(nLength)) == 0;
    return _close(nFile) == 0 && bCut;
}

int RemoveDiskFile(const char *szName)
{
    return DeleteFileW(Wide(szName).c_str());
}

int MoveOver(const char *szFrom, const char *szTo)
{
    return MoveFileExW(Wide(szFrom).c_str(), Wide(szTo).c_str(), MOVEFILE_REPLACE_EXISTING);
}

// Modes are plain ASCII: "wb" becomes L"wb".
static std::wstring WideMode(const char *szMode)
{
    return std::wstring(szMode, szMode + strlen(szMode));
}

FILE *OpenDiskFile(const char *szName, const char *szMode)
{
    return _wfopen(Wide(szName).c_str(), WideMode(szMode).c_str());
}

FILE *CreateDiskFile(const char *szName, const char *szMode)
{
    // The line ends depend on the mode of the descriptor, whatever szMode says.
    const int nLineEnds = strchr(szMode, 'b') ? _O_BINARY : _O_TEXT;
    const int nFlags    = _O_WRONLY | _O_CREAT | _O_EXCL | _O_NOINHERIT | nLineEnds;
    const int nFile     = _wopen(Wide(szName).c_str(), nFlags, _S_IREAD | _S_IWRITE);
    if (nFile < 0)
        return nullptr;
    FILE *const pFile = _fdopen(nFile, szMode);
    if (!pFile)
        _close(nFile);
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
