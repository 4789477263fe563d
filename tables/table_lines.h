// table_lines.h - the lines of a text of any length, from a buffer of fixed size.

#ifndef TABLES_TABLE_LINES_H
#define TABLES_TABLE_LINES_H

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string_view>

// Bytes of the longest line; some 100,000 numbers.
const size_t kLongestTableLine = 1024 * 1024;

class cTableLines
{
public:
    // Reads pFile, which the caller opens and closes, from its start on.
    explicit cTableLines(FILE *pFile);

    // The next line read is the first again. Returns 0 if the file cannot be set back.
    int Rewind();

    // Gives the next line without its line end: LF, CR LF, or a CR alone. It is valid
    // until the next call. Returns 0 at the end of the file, and if it cannot be read
    // any further.
    int Next(std::string_view *pLine);

    // The line read last: 1 is the first. 1 if a CR alone ended it.
    unsigned LineNumber() const { return m_nLine; }
    int      EndedWithCr() const { return m_bCr; }

    // Why there is no further line, if not because all have been read.
    int Failed() const { return m_bFailed; }
    int TooLong() const { return m_bTooLong; }

    // Bytes that have been read from the file since it was opened or set back.
    uint64_t BytesRead() const { return m_nBytes; }

private:
    const char *FindStop();
    int         Fill();

    FILE                   *m_pFile;
    std::unique_ptr<char[]> m_Buffer;
    const char             *m_pNext;  // the next line
    const char             *m_pLf;  // the first LF after it or the end of the buffer; null: unknown
    const char             *m_pEnd;  // of the bytes in the buffer
    uint64_t                m_nBytes;
    unsigned                m_nLine;
    int                     m_bAtEnd;  // the file has no bytes after the buffer
    int                     m_bCr;
    int                     m_bFailed;
    int                     m_bTooLong;
};

#endif
