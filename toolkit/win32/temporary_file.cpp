#include "toolkit/temporary_file.h"

#include <cerrno>
#include <cstring>
#include <vector>

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include "toolkit/disk_file.h"
#include "toolkit/temporary_names.h"
#include "toolkit/win32/wide_name.h"

// Deleted once it is closed: while it is open, nobody may delete it.
void cTemporaryFile::Discard()
{
    Close();
    if (!m_Name.empty())
        RemoveDiskFile(m_Name.c_str());
    m_Name.clear();
}

// A program that saves lets nobody else delete its file.
void RemoveIfAbandoned(const std::string &Name)
{
    RemoveDiskFile(Name.c_str());
}

std::string TemporaryFolder()
{
    char        szFolder[MAX_PATH + 1] = "";
    const DWORD nLength                = GetTempPathA(sizeof szFolder, szFolder);
    return nLength < sizeof szFolder ? szFolder : "";
}

// --- creating

namespace
{

// What the new file has of the old one; nothing if there is none.
struct cInheritance
{
    explicit cInheritance(const std::wstring &Old);

    std::vector<BYTE>   m_Descriptor;
    SECURITY_ATTRIBUTES m_Security;
    DWORD               m_dwAttributes;
};

}  // namespace

cInheritance::cInheritance(const std::wstring &Old)
    : m_Security{sizeof m_Security, nullptr, FALSE}, m_dwAttributes(FILE_ATTRIBUTE_NORMAL)
{
    const DWORD dwKept       = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    const DWORD dwAttributes = GetFileAttributesW(Old.c_str());
    if (dwAttributes == INVALID_FILE_ATTRIBUTES)
        return;
    if (dwAttributes & dwKept)
        m_dwAttributes = dwAttributes & dwKept;
    DWORD nNeeded = 0;
    GetFileSecurityW(Old.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &nNeeded);
    m_Descriptor.resize(nNeeded);
    if (nNeeded > 0 && GetFileSecurityW(Old.c_str(), DACL_SECURITY_INFORMATION, m_Descriptor.data(),
                                        nNeeded, &nNeeded))
        m_Security.lpSecurityDescriptor = m_Descriptor.data();
}

// The C library does this for its own functions only.
static int ErrnoOf(DWORD dwError)
{
    switch (dwError)
    {
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_PATHNAME:
        return ENOENT;
    case ERROR_ACCESS_DENIED:
        return EACCES;
    case ERROR_FILENAME_EXCED_RANGE:
        return ENAMETOOLONG;
    case ERROR_WRITE_PROTECT:
        return EROFS;
    case ERROR_DISK_FULL:
        return ENOSPC;
    default:
        return 0;
    }
}

// Others may read it, not write or delete it.
static HANDLE CreateNew(const std::string &Name, cInheritance *pInheritance)
{
    const HANDLE hFile = CreateFileW(
        WideName(Name.c_str()).c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, FILE_SHARE_READ,
        &pInheritance->m_Security, CREATE_NEW, pInheritance->m_dwAttributes, nullptr);
    if (hFile == INVALID_HANDLE_VALUE)
        errno = ErrnoOf(GetLastError());
    return hFile;
}

// The stream owns the handle. Null, with the handle closed, without memory.
static FILE *StreamOf(HANDLE hFile, const char *szMode)
{
    // The line ends depend on the mode of the descriptor, whatever szMode says.
    const int nLineEnds = strchr(szMode, 'b') ? _O_BINARY : _O_TEXT;
    const int nFile     = _open_osfhandle(reinterpret_cast<intptr_t>(hFile), nLineEnds);
    if (nFile < 0)
    {
        CloseHandle(hFile);
        return nullptr;
    }
    FILE *const pFile = _fdopen(nFile, szMode);
    if (!pFile)
        _close(nFile);
    return pFile;
}

int cTemporaryFile::CreateIn(const std::string &Neighbour, const char *szMode)
{
    cInheritance Inheritance(WideName(m_Target.c_str()));
    m_Folder = Neighbour;
    RemoveAbandonedFiles(m_Folder);
    HANDLE hFile = INVALID_HANDLE_VALUE;
    for (unsigned i = 0; i < kTemporaryNames && hFile == INVALID_HANDLE_VALUE; i++)
    {
        m_Name = TemporaryName(m_Folder, i);
        hFile  = CreateNew(m_Name, &Inheritance);
        if (hFile == INVALID_HANDLE_VALUE && !IsNameTaken(m_Name.c_str()))
            break;
    }
    m_pFile = hFile == INVALID_HANDLE_VALUE ? nullptr : StreamOf(hFile, szMode);
    if (m_pFile)
        return 1;
    if (hFile != INVALID_HANDLE_VALUE)
        RemoveDiskFile(m_Name.c_str());
    m_Name.clear();
    return 0;
}

// It has been created with all that.
int cTemporaryFile::InheritFromTarget()
{
    return 1;
}

// --- the end

std::string cTemporaryFile::Name()
{
    return m_Name;
}

FILE *cTemporaryFile::OpenCopy()
{
    const DWORD  dwShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE hFile    = CreateFileW(WideName(m_Name.c_str()).c_str(), GENERIC_READ, dwShared,
                                        nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    return hFile == INVALID_HANDLE_VALUE ? nullptr : StreamOf(hFile, "rb");
}

// Renamed while it is open, so that no other program can take it for abandoned.
static int Rename(FILE *pFile, const std::wstring &Name)
{
    const size_t      nBytes = Name.size() * sizeof Name[0];
    std::vector<BYTE> Memory(sizeof(FILE_RENAME_INFO) + nBytes);
    FILE_RENAME_INFO *pInfo = reinterpret_cast<FILE_RENAME_INFO *>(Memory.data());
    pInfo->ReplaceIfExists  = TRUE;
    pInfo->FileNameLength   = static_cast<DWORD>(nBytes);
    memcpy(pInfo->FileName, Name.data(), nBytes);
    return SetFileInformationByHandle(reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(pFile))),
                                      FileRenameInfo, pInfo, static_cast<DWORD>(Memory.size()));
}

int cTemporaryFile::TakePlace()
{
    if (!Rename(m_pFile, WholeWideName(m_Target.c_str())))
        return 0;
    m_Name.clear();
    Close();
    return 1;
}
