#include "toolkit/replacement_file.h"

#include "toolkit/disk_file.h"

static const int kMostTemporaries = 1000;  // left by computers that were switched off while saving
static const int kTemporaryName   = 16;

// Renaming checks the folder's permissions, not the file's, and root passes every
// check; a file that is marked read-only must not be replaced by anybody.
static int MayWrite(const char *szName)
{
    if (IsMarkedReadOnly(szName))
        return 0;

    // Appending nothing changes nothing.
    FILE *const pFile = OpenDiskFile(szName, "ab");
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
    m_Target = FollowLinks(szFileName);
    if (m_Target.empty())
        return 0;
    switch (KindOfFile(m_Target.c_str()))
    {
    case fkNone:
        return OpenTemporary(szMode);
    case fkRegular:
        return MayWrite(m_Target.c_str()) && OpenTemporary(szMode);
    case fkDevice:
        m_pFile = OpenDiskFile(m_Target.c_str(), szMode);
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
        const std::string Name = BesideFile(m_Target.c_str(), szName);
        m_pFile                = CreateDiskFile(Name.c_str(), szMode);
        if (m_pFile)
        {
            m_Temporary = Name;
            return 1;
        }
        if (!IsNameTaken(Name.c_str()))
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
    const char *const szTarget = m_Target.c_str();
    if (KindOfFile(szTarget) != fkNone && !CopyPermissions(szTarget, m_Temporary.c_str()))
        return 0;
    if (!MoveOver(m_Temporary.c_str(), szTarget))
        return 0;
    m_Temporary.clear();
    return 1;
}

// The file no longer exists once it has replaced the target.
void cReplacementFile::RemoveTemporary()
{
    if (!m_Temporary.empty())
        RemoveDiskFile(m_Temporary.c_str());
    m_Temporary.clear();
}
