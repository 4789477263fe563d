#include "toolkit/replacement_file.h"

#include <algorithm>
#include <cerrno>
#include <memory>

#include "toolkit/disk_file.h"

// Renaming checks the folder's permissions, not the file's, and root passes every
// check; a file that is marked read-only must not be replaced by anybody.
static int MayWrite(const char *szName)
{
    if (IsMarkedReadOnly(szName))
    {
        errno = EACCES;
        return 0;
    }

    // Appending nothing changes nothing.
    FILE *const pFile = OpenDiskFile(szName, "ab");
    if (!pFile)
        return 0;
    return fclose(pFile) == 0;
}

cReplacementFile::cReplacementFile() : m_pDevice(nullptr), m_pFile(nullptr) {}

cReplacementFile::~cReplacementFile()
{
    const int nError = errno;
    if (m_pDevice)
        fclose(m_pDevice);
    m_Temporary.Discard();
    errno = nError;
}

int cReplacementFile::Open(const char *szFileName, const char *szMode)
{
    m_Target                   = FollowLinks(szFileName);
    const char *const szTarget = m_Target.c_str();
    const eFileKind   nKind    = m_Target.empty() ? fkOther : KindOfFile(szTarget);
    if (const int nError = ErrorOfName(szTarget))
    {
        errno = nError;
        return 0;
    }
    if (nKind == fkDevice)
        m_pFile = m_pDevice = OpenDiskFile(szTarget, szMode);
    else if (nKind == fkNone || (nKind == fkRegular && MayWrite(szTarget)))
        m_pFile = m_Temporary.Create(szTarget, szMode) ? m_Temporary.Stream() : nullptr;
    else if (!m_Target.empty() && IsFolder(szTarget))
        errno = EISDIR;
    if (m_pFile)
        errno = 0;
    return m_pFile != nullptr;
}

int cReplacementFile::Commit()
{
    if (m_pDevice)
        return CommitDevice();
    const int bDone =
        m_Temporary.Sync() && (m_Temporary.CanTakePlace() ? m_Temporary.TakePlace() : Overwrite());
    const int nError = errno;
    m_Temporary.Discard();
    errno = nError;
    return bDone;
}

int cReplacementFile::CommitDevice()
{
    const int bWritten = !ferror(m_pDevice);
    const int bClosed  = fclose(m_pDevice) == 0;
    m_pDevice          = nullptr;
    return bWritten && bClosed;
}

// --- overwriting

// The file grows to the length before anything in it changes: if the disk has no room
// for that, nothing is lost.
static int MakeRoom(const char *szName, uint64_t nFormer, uint64_t nLength)
{
    static const char s_Zeros[4096] = {};
    const cOpenFile   File(OpenDiskFile(szName, "ab"), fclose);
    int               bDone = File != nullptr;
    for (uint64_t n = nFormer; bDone && n < nLength; n += sizeof s_Zeros)
    {
        const auto nPart = static_cast<size_t>(std::min<uint64_t>(sizeof s_Zeros, nLength - n));
        bDone            = fwrite(s_Zeros, 1, nPart, File.get()) == nPart;
    }
    return bDone && SyncToDisk(File.get());
}

static int CopyAll(FILE *pFrom, FILE *pTo)
{
    char   Part[4096];
    size_t nPart;
    while ((nPart = fread(Part, 1, sizeof Part, pFrom)) > 0)
        if (fwrite(Part, 1, nPart, pTo) != nPart)
            return 0;
    return !ferror(pFrom) && SyncToDisk(pTo);
}

int cReplacementFile::Overwrite()
{
    const char *const szTarget = m_Target.c_str();
    const std::string Copy     = m_Temporary.Name();
    const cOpenFile   From(Copy.empty() ? nullptr : m_Temporary.OpenCopy(), fclose);
    const cOpenFile   To(From ? OpenDiskFile(szTarget, "r+b") : nullptr, fclose);
    uint64_t          nFormer, nLength;
    if (!To || !LengthOfFile(szTarget, &nFormer) || !LengthOfFile(Copy.c_str(), &nLength))
        return 0;
    if (!MakeRoom(szTarget, nFormer, nLength))
    {
        CutFile(szTarget, nFormer);
        return 0;
    }
    const int bDone = CopyAll(From.get(), To.get()) && CutFile(szTarget, nLength);
    if (!bDone)
        m_Temporary.Keep();
    return bDone;
}
