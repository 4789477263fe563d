#include "toolkit/replacement_file.h"

#include <system_error>

#include "toolkit/disk_file.h"

namespace fs = std::filesystem;

static const int kMostLinks       = 40;    // in a row, the system's own limit
static const int kMostTemporaries = 1000;  // left by computers that were switched off while saving
static const int kTemporaryName   = 16;

// The target of Path once all links are followed; it need not exist. Empty for
// circular links.
static fs::path FollowLinks(fs::path Path)
{
    for (int i = 0; i < kMostLinks; i++)
    {
        std::error_code Error;
        const fs::path  Next = fs::read_symlink(Path, Error);
        if (Error)
            return Path;
        Path = Path.parent_path() / Next;  // an absolute Next replaces the parent
    }
    return fs::path();
}

// rename() checks the folder's permissions, not the file's, and root passes every
// check; a file that is marked read-only must not be replaced by anybody.
static int MayWrite(const fs::path &Path, fs::perms nPermissions)
{
    const fs::perms nAnyWrite =
        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    if ((nPermissions & nAnyWrite) == fs::perms::none)
        return 0;

    // Appending nothing changes nothing.
    FILE *const pFile = OpenDiskFile(Path, "ab");
    if (!pFile)
        return 0;
    return fclose(pFile) == 0;
}

cReplacementFile::cReplacementFile() : m_pFile(nullptr) {}

cReplacementFile::~cReplacementFile()
{
    if (m_pFile)
        fclose(m_pFile);
    RemoveTemporary();
}

int cReplacementFile::Open(const char *szFileName, const char *szMode)
{
    m_Target = FollowLinks(PathOfName(szFileName));
    if (m_Target.empty())
        return 0;

    std::error_code       Error;
    const fs::file_status Status = fs::status(m_Target, Error);
    switch (Status.type())
    {
    case fs::file_type::not_found:
        return OpenTemporary(szMode);
    case fs::file_type::regular:
        return MayWrite(m_Target, Status.permissions()) && OpenTemporary(szMode);
    case fs::file_type::character:
    case fs::file_type::block:
        m_pFile = OpenDiskFile(m_Target, szMode);
        return m_pFile != nullptr;
    default:
        return 0;
    }
}

// A short name, so that it fits wherever the target's name fits.
int cReplacementFile::OpenTemporary(const char *szMode)
{
    for (int i = 0; i < kMostTemporaries; i++)
    {
        char szName[kTemporaryName];
        snprintf(szName, sizeof szName, "~save%03d.tmp", i);
        const fs::path Path = m_Target.parent_path() / szName;
        m_pFile             = CreateDiskFile(Path, szMode);
        if (m_pFile)
        {
            m_Temporary = Path;
            return 1;
        }
        std::error_code Error;
        if (!fs::exists(fs::symlink_status(Path, Error)))
            return 0;
    }
    return 0;
}

int cReplacementFile::Commit()
{
    if (!m_pFile)
        return 0;
    const int bDone = Finish() && (m_Temporary.empty() || TakePlace());
    RemoveTemporary();
    return bDone;
}

// Flushes and closes the stream. 1 if no byte was lost.
int cReplacementFile::Finish()
{
    const int bWritten = !ferror(m_pFile);
    const int bSynced  = m_Temporary.empty() ? fflush(m_pFile) == 0 : SyncToDisk(m_pFile);
    const int bClosed  = fclose(m_pFile) == 0;
    m_pFile            = nullptr;
    return bWritten && bSynced && bClosed;
}

int cReplacementFile::TakePlace()
{
    std::error_code       Error;
    const fs::file_status Old = fs::status(m_Target, Error);
    if (fs::exists(Old))
    {
        fs::permissions(m_Temporary, Old.permissions(), Error);
        if (Error)
            return 0;
    }
    fs::rename(m_Temporary, m_Target, Error);
    if (Error)
        return 0;
    m_Temporary.clear();
    return 1;
}

// The file no longer exists once it has replaced the target.
void cReplacementFile::RemoveTemporary()
{
    std::error_code Ignored;
    if (!m_Temporary.empty())
        fs::remove(m_Temporary, Ignored);
    m_Temporary.clear();
}
