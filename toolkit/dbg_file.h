// dbg_file.h - a text log with a size cap and one backup. It writes the trace of
// a running program to "tracelog.txt".

#ifndef TOOLKIT_DBG_FILE_H
#define TOOLKIT_DBG_FILE_H

#include <cstddef>
#include <cstdint>
#include <cstdio>

class cMessageBoxes;

// Lets the compiler check a format against its arguments, as for the C
// library's printf. Positions count from 1, and a member's first is "this".
#ifdef __MINGW32__
#define TOOLKIT_PRINTF_FORMAT(nFormat, nFirst)                                                     \
    __attribute__((format(__MINGW_PRINTF_FORMAT, nFormat, nFirst)))
#else
#define TOOLKIT_PRINTF_FORMAT(nFormat, nFirst) __attribute__((format(printf, nFormat, nFirst)))
#endif

const int      kDbgFileName      = 260;  // characters of a file name, closing zero included
const int      kDbgMessage       = 512;  // characters of one message, closing zero included
const uint32_t kMostDbgMegabytes = 100;
const long     kDbgMegabyte      = 1000000;  // bytes

// The name of a log's backup: "tracelog_older.txt" for "tracelog.txt",
// "trace_older" for "trace". Only 253 characters of szName count.
void DbgBackupName(const char *szName, char (&szBackup)[kDbgFileName]);

// What is in neither the log nor its backup any more; the worse, the greater.
enum eLogLoss
{
    loNone,
    loOldest,  // the backup holds the newest part only: the log was full more than once
    loBackup,  // a backup could not be written
    loLog      // the log itself could not be written
};

class cDbgFile
{
public:
    // Keeps the content of szFileName as its backup and opens the file empty.
    // nMaxMegabytes is the cap in units of 1,000,000 bytes; more than 100 count as
    // 100. With 0, each message becomes the backup when the next one is written. If the
    // file cannot be opened, DefaultLogName() takes its place; if there is none or
    // it cannot be opened either, a box says so, quit is posted, and the log
    // ignores all writes. pBoxes must outlive the log.
    cDbgFile(const char *szFileName, uint32_t nMaxMegabytes, cMessageBoxes *pBoxes);

    // Writes to a stream that is open already and stays open. It has no cap and no
    // backup; FileName() is "".
    cDbgFile(FILE *pStream, cMessageBoxes *pBoxes);
    virtual ~cDbgFile();
    cDbgFile(const cDbgFile &)            = delete;
    cDbgFile &operator=(const cDbgFile &) = delete;

    // Writes a text, cut to 511 characters; the caller adds the line end. A file
    // above the cap becomes the backup first and starts empty
    // again, so it exceeds the cap by at most one message. Returns 1, or 0 if
    // nothing was written.
    int printf(const char *szFormat, ...) TOOLKIT_PRINTF_FORMAT(2, 3);

    // The same for a finished text of at most 511 characters.
    int Write(const char *pText, size_t nLength);

    // Hands what was written to the system, so that others see it in the file.
    void Flush();

    // Closes the log. Returns 1, or 0 if anything could not be written.
    int Close();

    // What is lost so far; complete once the log is closed.
    eLogLoss Loss() const { return m_nLoss; }

    const char *FileName() const { return m_szFileName; }
    uint32_t    MaxMegabytes() const { return m_nMaxMegabytes; }  // 0 also for a stream

private:
    int  Open();
    int  OpenDefault();
    int  KeepWithinCap();
    int  CopyToBackup() const;
    void Lose(eLogLoss nLoss);
    void CloseStream(FILE *pFile);
    void GiveUp(const char *szCaption);

    FILE          *m_pFile;     // null when closed
    int            m_bForeign;  // the stream stays open
    uint32_t       m_bEnabled;  // 0 once opening failed for good
    char           m_szFileName[kDbgFileName];
    uint32_t       m_nMaxMegabytes;
    long           m_nMost;  // bytes that the file may have by now
    cMessageBoxes *m_pBoxes;
    unsigned       m_nBackups;  // made of what this log has written
    eLogLoss       m_nLoss;
};

#endif
