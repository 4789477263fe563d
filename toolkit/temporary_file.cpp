#include "toolkit/temporary_file.h"

#include "toolkit/disk_file.h"
#include "toolkit/temporary_names.h"

cTemporaryFile::cTemporaryFile()
    : m_pFile(nullptr), m_bSameFolder(0), m_bSameOwner(0), m_bOtherNames(0)
{
}

int cTemporaryFile::Create(const char *szTarget, const char *szMode)
{
    m_Target            = szTarget;
    const int bReplaces = KindOfFile(szTarget) != fkNone;
    m_bSameFolder       = CreateIn(m_Target, szMode);
    if (!m_bSameFolder && (!bReplaces || !CreateIn(TemporaryFolder(), szMode)))
        return 0;
    m_bSameOwner  = !bReplaces || (m_bSameFolder && InheritFromTarget());
    m_bOtherNames = bReplaces && HasOtherNames(szTarget);
    return 1;
}

int cTemporaryFile::Sync()
{
    return m_pFile && !ferror(m_pFile) && SyncToDisk(m_pFile);
}

void cTemporaryFile::Close()
{
    if (m_pFile)
        fclose(m_pFile);
    m_pFile = nullptr;
}
