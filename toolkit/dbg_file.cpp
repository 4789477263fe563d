#include "toolkit/dbg_file.h"

#include <algorithm>
#include <cstdarg>
#include <cstring>

#include "toolkit/disk_file.h"
#include "toolkit/message_box.h"
#include "toolkit/read_file.h"

static const char kTextExtension[] = ".txt";
static const char kBackupSuffix[]  = "_older";

// Bytes that a character takes in the file at most: a line end may take two.
static const long kMostBytes = 2;

static const size_t kExtensionLength = sizeof kTextExtension - 1;
static const size_t kSuffixLength    = sizeof kBackupSuffix - 1;

// Text mode; where the C library supports "c", a flush reaches the disk.
static const char kOpenMode[] = "wtc";

// 1, or 0 if not everything was copied.
static int CopyStream(FILE *pFrom, FILE *pTo)
{
    char   Block[16384];
    size_t nRead = fread(Block, 1, sizeof Block, pFrom);
    while (nRead > 0 && fwrite(Block, 1, nRead, pTo) == nRead)
        nRead = fread(Block, 1, sizeof Block, pFrom);
    return nRead == 0 && !ferror(pFrom) && fflush(pTo) == 0;
}

// Overwrites an older file in place and then cuts it, which is faster than writing a
// new one. 0 if the copy is not complete.
static int CopyOver(FILE *pFrom, const char *szTo)
{
    FILE *pTo = IsRegularFile(szTo) ? fopen(szTo, "r+b") : nullptr;
    if (!pTo)
        pTo = fopen(szTo, "wb");
    if (!pTo)
        return 0;
    const int  bCopied = CopyStream(pFrom, pTo);
    const long nLength = ftell(pTo);
    const int  bClosed = fclose(pTo) == 0;
    return nLength >= 0 && CutFile(szTo, static_cast<uint64_t>(nLength)) && bCopied && bClosed;
}

void DbgBackupName(const char *szName, char (&szBackup)[kDbgFileName])
{
    const size_t nLength = std::min(strlen(szName), kDbgFileName - 1 - kSuffixLength);
    size_t       nStem   = nLength;
    if (nLength >= kExtensionLength &&
        memcmp(szName + nLength - kExtensionLength, kTextExtension, kExtensionLength) == 0)
        nStem -= kExtensionLength;
    snprintf(szBackup, sizeof szBackup, "%.*s%s%.*s", static_cast<int>(nStem), szName,
             kBackupSuffix, static_cast<int>(nLength - nStem), szName + nStem);
}

cDbgFile::cDbgFile(const char *szFileName, uint32_t nMaxMegabytes, cMessageBoxes *pBoxes)
    : m_pFile(nullptr), m_bForeign(0), m_bEnabled(1),
      m_nMaxMegabytes(std::min(nMaxMegabytes, kMostDbgMegabytes)), m_nMost(0), m_pBoxes(pBoxes),
      m_nBackups(0), m_nLoss(loNone)
{
    snprintf(m_szFileName, sizeof m_szFileName, "%s", szFileName);
    if (!CopyToBackup())
        Lose(loBackup);
    if (!Open() && !OpenDefault())
        GiveUp("FATAL ERROR in cDbgFile ctor");
}

cDbgFile::cDbgFile(FILE *pStream, cMessageBoxes *pBoxes)
    : m_pFile(pStream), m_bForeign(1), m_bEnabled(1), m_szFileName{}, m_nMaxMegabytes(0),
      m_nMost(0), m_pBoxes(pBoxes), m_nBackups(0), m_nLoss(loNone)
{
}

cDbgFile::~cDbgFile()
{
    Close();
}

int cDbgFile::Close()
{
    if (m_pFile)
        CloseStream(m_pFile);
    m_pFile = nullptr;
    return m_nLoss < loBackup;
}

void cDbgFile::Lose(eLogLoss nLoss)
{
    m_nLoss = std::max(m_nLoss, nLoss);
}

void cDbgFile::CloseStream(FILE *pFile)
{
    // Not every library's fclose reports that the last bytes were not written.
    if (fflush(pFile) != 0 || ferror(pFile))
        Lose(loLog);
    if (!m_bForeign && fclose(pFile) != 0)
        Lose(loLog);
}

int cDbgFile::printf(const char *szFormat, ...)
{
    char    szMessage[kDbgMessage];
    va_list pArguments;
    va_start(pArguments, szFormat);
    vsnprintf(szMessage, sizeof szMessage, szFormat, pArguments);
    va_end(pArguments);

    return Write(szMessage, strlen(szMessage));
}

int cDbgFile::Write(const char *pText, size_t nLength)
{
    if (!m_bEnabled || !m_pFile || !KeepWithinCap())
        return 0;
    m_nMost += m_bForeign ? 0 : kMostBytes * static_cast<long>(nLength);
    return fwrite(pText, 1, nLength, m_pFile) == nLength;
}

void cDbgFile::Flush()
{
    if (m_pFile && fflush(m_pFile) != 0)
        Lose(loLog);
}

// Opening a pipe might wait for a reader for ever.
int cDbgFile::Open()
{
    m_pFile = KindOfFile(m_szFileName) == fkPipe ? nullptr : fopen(m_szFileName, kOpenMode);
    return m_pFile != nullptr;
}

int cDbgFile::OpenDefault()
{
    const char *const szDefault = DefaultLogName();
    if (!szDefault)
        return 0;
    snprintf(m_szFileName, sizeof m_szFileName, "%s", szDefault);
    return Open();
}

// Starts a new file when the present one is above the cap. 0 if that failed. Asking
// for the length is dear, so it is asked for only when the file might be as long.
// What has no length, such as a terminal, stays open.
//
// The full file is closed last: once closed, its content is on its way to the disk,
// and emptying the file would wait for that. Unless it holds bytes that could not be
// written, because closing would try again and write them into the new file.
int cDbgFile::KeepWithinCap()
{
    const long nCap = static_cast<long>(m_nMaxMegabytes) * kDbgMegabyte;
    if (m_bForeign || m_nMost <= nCap)
        return 1;
    m_nMost = std::max(ftell(m_pFile), 0L);
    if (m_nMost <= nCap)
        return 1;

    m_nMost     = 0;
    FILE *pFull = m_pFile;
    if (fflush(pFull) != 0)
    {
        CloseStream(pFull);
        pFull = nullptr;
    }
    if (!CopyToBackup())
        Lose(loBackup);
    else if (m_nBackups++ > 0)
        Lose(loOldest);
    const int bOpened = Open();
    if (pFull)
        CloseStream(pFull);
    if (bOpened)
        return 1;
    GiveUp("FATAL ERROR in cDbgFile::printf()");
    return 0;
}

// A log that does not exist yet has no backup, which is not an error; nor does a
// terminal or another device have one, because reading it might never end.
int cDbgFile::CopyToBackup() const
{
    if (!IsRegularFile(m_szFileName))
        return 1;
    FILE *const pFrom = fopen(m_szFileName, "rb");
    if (!pFrom)
        return 0;

    char szBackup[kDbgFileName];
    DbgBackupName(m_szFileName, szBackup);
    const int bCopied = CopyOver(pFrom, szBackup);
    fclose(pFrom);
    return bCopied;
}

void cDbgFile::GiveUp(const char *szCaption)
{
    char szText[kDbgFileName + 64];
    snprintf(szText, sizeof szText, "couldn't fopen() the output file named:\n%s", m_szFileName);
    m_bEnabled = 0;
    Lose(loLog);
    m_pBoxes->ReportUnowned(szText, szCaption);
    m_pBoxes->PostQuit(0);
}
