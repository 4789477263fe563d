// short_line_reader.h - a text file as a sequence of lines of at most 99 bytes.
// Reads in blocks; a line costs no allocation, the file no memory but one block.

#ifndef GRAPH_SHORT_LINE_READER_H
#define GRAPH_SHORT_LINE_READER_H

#include <cstddef>
#include <cstdint>
#include <cstdio>

#include "toolkit/reading_watch.h"

// A line of the file, its newline and a closing zero fit into this many bytes.
// A longer one is read as two or more lines.
const size_t kShortLine = 100;

const size_t kReadBlock = 65536;  // bytes asked of the file at once

class cShortLineReader
{
public:
    // Where a line begins, for GoBack.
    struct cMark
    {
        uint64_t nOffset;  // bytes from the start of the file
        uint32_t nLinesBefore;
    };

    cShortLineReader();
    ~cShortLineReader();
    cShortLineReader(const cShortLineReader &)            = delete;
    cShortLineReader &operator=(const cShortLineReader &) = delete;

    // Returns 1, or 0 when szFile is not a regular file or cannot be opened. A
    // directory, a pipe or a device is refused without being opened. Comes first,
    // and once.
    int Open(const char *szFile);

    // pWatch may end the reading, and outlives this object; null: nothing does.
    void SetWatch(cReadingWatch *pWatch) { m_pWatch = pWatch; }

    // Reads the next line. Returns 0 at the end of the file, when the file cannot be
    // read any further (Failed), and when the watch has ended the reading (Stopped).
    int Next();

    // The line read last, without its newline and without a carriage return
    // before that. A line of exactly 99 characters is followed by an empty one,
    // which holds its newline. A zero byte in the file ends the text early.
    const char *Text() const { return m_szLine; }

    // How many lines have been read: the first line is 1.
    uint32_t LineNumber() const { return m_nLine; }

    // 1 when the file could not be read to its end.
    int Failed() const { return m_bFailed; }

    int Stopped() const { return m_bStopped; }

    // Where the line read last begins.
    cMark LineStart() const { return m_LineStart; }

    // The next call of Next reads the line that begins at Mark, again from the file.
    // Returns 0 when the file cannot be set back there.
    int GoBack(const cMark &Mark);

private:
    void Fill();

    FILE          *m_pFile;
    cReadingWatch *m_pWatch;
    uint64_t       m_nBlockOffset;  // position of the block in the file
    size_t         m_nNext;         // first byte of the block not yet read
    size_t         m_nEnd;          // bytes in the block
    uint32_t       m_nLine;
    int            m_bAtEnd;  // the file has no bytes after the block
    int            m_bFailed;
    int            m_bStopped;
    cMark          m_LineStart;
    char           m_szLine[kShortLine];
    char           m_Block[kReadBlock];
};

#endif
