#include "toolkit/read_file.h"

#include <cstdio>
#include <cstdlib>

#include "toolkit/disk_file.h"
#include "toolkit/retry_alloc.h"

static const size_t kFirstBlock = 64 * 1024;

cFileText::~cFileText()
{
    free(m_pText);
}

int IsRegularFile(const char *szName)
{
    return KindOfFile(szName) == fkRegular;
}

// The file may grow or shrink meanwhile, so its size is not used.
int cFileText::Read(const char *szName, cMessageBoxes *pBoxes)
{
    if (!IsRegularFile(szName))
        return 0;
    const cOpenFile File(fopen(szName, "rb"), fclose);
    if (!File)
        return 0;
    size_t nRoom = 0;
    while (m_nLength == nRoom)
    {
        nRoom               = nRoom ? 2 * nRoom : kFirstBlock;
        char *const pLarger = AllocateWithRetry(
            pBoxes, [this, nRoom] { return static_cast<char *>(realloc(m_pText, nRoom)); });
        if (!pLarger)
            return 0;
        m_pText = pLarger;
        m_nLength += fread(m_pText + m_nLength, 1, nRoom - m_nLength, File.get());
    }
    return !ferror(File.get());
}
