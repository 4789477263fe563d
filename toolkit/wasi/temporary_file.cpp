#include "toolkit/temporary_file.h"

#include <cstdio>

#include "toolkit/disk_file.h"
#include "toolkit/temporary_names.h"

void cTemporaryFile::Discard()
{
    Close();
    if (!m_Name.empty())
        RemoveDiskFile(m_Name.c_str());
    m_Name.clear();
}

// A file that another program is writing cannot be told from one that was left behind.
void RemoveIfAbandoned(const std::string &) {}

int cTemporaryFile::CreateIn(const std::string &Neighbour, const char *szMode)
{
    m_Folder = Neighbour;
    for (unsigned i = 0; !m_pFile && i < kTemporaryNames; i++)
    {
        m_Name = TemporaryName(m_Folder, i);
        if (!IsNameTaken(m_Name.c_str()))
            m_pFile = CreateDiskFile(m_Name.c_str(), szMode);
    }
    if (!m_pFile)
        m_Name.clear();
    return m_pFile != nullptr;
}

// There are neither owners nor permissions.
int cTemporaryFile::InheritFromTarget()
{
    return 1;
}

std::string TemporaryFolder()
{
    return "/tmp/";
}

std::string cTemporaryFile::Name()
{
    return m_Name;
}

FILE *cTemporaryFile::OpenCopy()
{
    return fopen(m_Name.c_str(), "rb");
}

int cTemporaryFile::TakePlace()
{
    if (rename(m_Name.c_str(), m_Target.c_str()) != 0)
        return 0;
    m_Name.clear();
    Close();
    return 1;
}
