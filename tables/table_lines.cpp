#include "tables/table_lines.h"

#include <algorithm>
#include <cstring>

// Bytes asked of the file at once; less than the buffer, so that short lines stay in
// the processor's cache.
static const size_t kTableBlock = 128 * 1024;

static const char *FindByte(const char *pFrom, const char *pEnd, char c)
{
    return static_cast<const char *>(memchr(pFrom, c, static_cast<size_t>(pEnd - pFrom)));
}

cTableLines::cTableLines(FILE *pFile)
    : m_pFile(pFile), m_Buffer(new char[kLongestTableLine]), m_pNext(m_Buffer.get()),
      m_pLf(nullptr), m_pEnd(m_Buffer.get()), m_nBytes(0), m_nLine(0), m_bAtEnd(0), m_bCr(0),
      m_bFailed(0), m_bTooLong(0)
{
}

int cTableLines::Rewind()
{
    clearerr(m_pFile);
    m_pNext = m_pEnd = m_Buffer.get();
    m_pLf            = nullptr;
    m_nBytes         = 0;
    m_nLine          = 0;
    m_bAtEnd = m_bCr = m_bFailed = m_bTooLong = 0;
    return fseek(m_pFile, 0, SEEK_SET) == 0;
}

int cTableLines::Next(std::string_view *pLine)
{
    const char *pStop = FindStop();
    while (!pStop && Fill())
        pStop = FindStop();
    if (!pStop)
        return 0;
    *pLine          = std::string_view(m_pNext, static_cast<size_t>(pStop - m_pNext));
    const int bCr   = pStop < m_pEnd && *pStop == '\r';
    const int bCrLf = bCr && pStop + 1 < m_pEnd && pStop[1] == '\n';
    m_bCr           = bCr && !bCrLf;
    m_pNext         = pStop == m_pEnd ? pStop : pStop + 1 + bCrLf;
    m_nLine++;
    return 1;
}

// The end of the next line, without what ends it. Null if it is not in the buffer.
const char *cTableLines::FindStop()
{
    if (!m_pLf || m_pLf < m_pNext)
    {
        m_pLf = FindByte(m_pNext, m_pEnd, '\n');
        if (!m_pLf)
            m_pLf = m_pEnd;
    }
    const char *const pCr = FindByte(m_pNext, m_pLf, '\r');
    // An LF may follow a CR that is the last byte in the buffer.
    if (pCr && (pCr + 1 < m_pEnd || m_bAtEnd))
        return pCr;
    if (m_pLf < m_pEnd)
        return m_pLf;
    return m_bAtEnd && m_pNext < m_pEnd ? m_pEnd : nullptr;
}

// Moves the rest of the buffer to its front and reads on after it. Returns 0 if
// there is nothing to read, or no room for it.
int cTableLines::Fill()
{
    char *const  pBuffer = m_Buffer.get();
    const size_t nLeft   = static_cast<size_t>(m_pEnd - m_pNext);
    if (m_bAtEnd)
        return 0;
    m_bTooLong = nLeft == kLongestTableLine;
    if (m_bTooLong)
        return 0;
    memmove(pBuffer, m_pNext, nLeft);
    const size_t nWanted = std::min(kTableBlock, kLongestTableLine - nLeft);
    const size_t nRead   = fread(pBuffer + nLeft, 1, nWanted, m_pFile);
    m_pNext              = pBuffer;
    m_pEnd               = pBuffer + nLeft + nRead;
    m_pLf                = nullptr;
    m_nBytes += nRead;
    m_bAtEnd  = nRead < nWanted;
    m_bFailed = ferror(m_pFile) != 0;
    return 1;
}
