// nameless_file.cpp - a part of disk_file.h. There is no folder that every program may
// write, so the content is kept in memory.

#include <cstdio>
#include <cstring>
#include <string>

#include "toolkit/disk_file.h"

namespace
{

struct cMemoryFile
{
    std::string m_Content;
    size_t      m_nAt = 0;
};

}  // namespace

static ssize_t Read(void *pCookie, char *pBuffer, size_t nSize)
{
    auto *const  pFile = static_cast<cMemoryFile *>(pCookie);
    const size_t nRead = pFile->m_nAt < pFile->m_Content.size()
                             ? pFile->m_Content.copy(pBuffer, nSize, pFile->m_nAt)
                             : 0;
    pFile->m_nAt += nRead;
    return static_cast<ssize_t>(nRead);
}

static ssize_t Write(void *pCookie, const char *pBuffer, size_t nSize)
{
    auto *const  pFile = static_cast<cMemoryFile *>(pCookie);
    std::string &Text  = pFile->m_Content;
    if (Text.size() < pFile->m_nAt + nSize)
        Text.resize(pFile->m_nAt + nSize);
    memcpy(&Text[pFile->m_nAt], pBuffer, nSize);
    pFile->m_nAt += nSize;
    return static_cast<ssize_t>(nSize);
}

static int Seek(void *pCookie, off_t *pnOffset, int nWhence)
{
    auto *const pFile  = static_cast<cMemoryFile *>(pCookie);
    off_t       nStart = 0;
    if (nWhence == SEEK_CUR)
        nStart = static_cast<off_t>(pFile->m_nAt);
    else if (nWhence == SEEK_END)
        nStart = static_cast<off_t>(pFile->m_Content.size());
    if (nStart + *pnOffset < 0)
        return -1;
    *pnOffset += nStart;
    pFile->m_nAt = static_cast<size_t>(*pnOffset);
    return 0;
}

static int Close(void *pCookie)
{
    delete static_cast<cMemoryFile *>(pCookie);
    return 0;
}

FILE *OpenNamelessFile()
{
    auto *const pContent = new cMemoryFile;
    FILE *const pFile    = fopencookie(pContent, "w+", {Read, Write, Seek, Close});
    if (!pFile)
        delete pContent;
    return pFile;
}
