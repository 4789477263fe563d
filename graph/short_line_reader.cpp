#include "graph/short_line_reader.h"

#include <algorithm>
#include <climits>
#include <cstring>

#include "toolkit/disk_file.h"

static const size_t kMostBytes = kShortLine - 1;  // of a line, newline included

// To cut a line, one byte more than it can hold must be seen: a carriage
// return and a newline there count as one byte.
static const size_t kLookAhead = kMostBytes + 1;

cShortLineReader::cShortLineReader()
    : m_pFile(nullptr), m_pWatch(nullptr), m_nBlockOffset(0), m_nNext(0), m_nEnd(0), m_nLine(0),
      m_bAtEnd(0), m_bFailed(0), m_bStopped(0), m_LineStart{0, 0}
{
    m_szLine[0] = '\0';
}

cShortLineReader::~cShortLineReader()
{
    if (m_pFile)
        fclose(m_pFile);
}

int cShortLineReader::Open(const char *szFile)
{
    if (KindOfFile(szFile) != fkRegular)
        return 0;
    m_pFile = OpenDiskFile(szFile, "rb");
    if (!m_pFile)
        return 0;
    setvbuf(m_pFile, nullptr, _IONBF, 0);  // the block is the buffer
    return 1;
}

int cShortLineReader::Next()
{
    if (m_nEnd - m_nNext < kLookAhead && !m_bAtEnd)
        Fill();
    const size_t nLeft = m_nEnd - m_nNext;
    if (nLeft == 0)
        return 0;

    const char  *pStart   = m_Block + m_nNext;
    const size_t nMost    = std::min(nLeft, kMostBytes);
    const void  *pNewline = memchr(pStart, '\n', nMost);
    size_t       nText    = nMost;
    size_t       nUsed    = nMost;
    if (pNewline)
    {
        nText = static_cast<size_t>(static_cast<const char *>(pNewline) - pStart);
        nUsed = nText + 1;
        if (nText > 0 && pStart[nText - 1] == '\r')
            nText--;
    }
    else if (nLeft > nMost && pStart[nMost - 1] == '\r' && pStart[nMost] == '\n')
    {
        nText = nMost - 1;
        nUsed = nMost + 1;
    }

    memcpy(m_szLine, pStart, nText);
    m_szLine[nText] = '\0';
    m_LineStart     = {m_nBlockOffset + m_nNext, m_nLine};
    m_nNext += nUsed;
    m_nLine++;
    return 1;
}

int cShortLineReader::GoBack(const cMark &Mark)
{
    // Only a header of gigabytes of comments could be further away than that.
    if (Mark.nOffset > static_cast<uint64_t>(LONG_MAX))
        return 0;
    if (fseek(m_pFile, static_cast<long>(Mark.nOffset), SEEK_SET) != 0)
        return 0;
    m_nBlockOffset = Mark.nOffset;
    m_nNext        = 0;
    m_nEnd         = 0;
    m_nLine        = Mark.nLinesBefore;
    m_bAtEnd       = 0;
    return 1;
}

// Moves the rest of the block to its front and reads on after it.
void cShortLineReader::Fill()
{
    if (m_pWatch && !m_pWatch->GoesOn())
    {
        m_nNext    = m_nEnd;
        m_bAtEnd   = 1;
        m_bStopped = 1;
        return;
    }
    const size_t nLeft = m_nEnd - m_nNext;
    memmove(m_Block, m_Block + m_nNext, nLeft);
    m_nBlockOffset += m_nNext;
    m_nNext  = 0;
    m_nEnd   = nLeft + fread(m_Block + nLeft, 1, kReadBlock - nLeft, m_pFile);
    m_bAtEnd = m_nEnd < kReadBlock;
    if (ferror(m_pFile))
        m_bFailed = 1;
}
