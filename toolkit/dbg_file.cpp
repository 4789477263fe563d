#include "toolkit/dbg_file.h"

#include <algorithm>
#include <cstdarg>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "toolkit/disk_file.h"
#include "toolkit/message_box.h"
#include "toolkit/read_file.h"

static const char kDefaultName[]   = "C:\\windows\\temp\\dfltlog.txt";
static const char kTextExtension[] = ".txt";
static const char kBackupSuffix[]  = "_older";

static const size_t kExtensionLength = sizeof kTextExtension - 1;
static const size_t kSuffixLength    = sizeof kBackupSuffix - 1;

// Text mode; where the C library supports "c", a flush reaches the disk.
static const char kOpenMode[] = "wtc";

static void CopyStream(FILE *pFrom, FILE *pTo)
{
    char   Block[16384];
    size_t nRead = fread(Block, 1, sizeof Block, pFrom);
    while (nRead > 0 && fwrite(Block, 1, nRead, pTo) == nRead)
        nRead = fread(Block, 1, sizeof Block, pFrom);
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
    : m_pFile(nullptr), m_bEnabled(1), m_nMaxMegabytes(std::min(nMaxMegabytes, kMostDbgMegabytes)),
      m_pBoxes(pBoxes), m_bComplete(1)
{
    snprintf(m_szFileName, sizeof m_szFileName, "%s", szFileName);
    CopyToBackup();
    if (!Open() && !OpenDefault())
        GiveUp("FATAL ERROR in cDbgFile ctor");
}

cDbgFile::~cDbgFile()
{
    Close();
}

int cDbgFile::Close()
{
    if (m_pFile)
    {
        // Not every library's fclose reports that the last bytes were not written.
        if (fflush(m_pFile) != 0 || ferror(m_pFile))
            m_bComplete = 0;
        if (fclose(m_pFile) != 0)
            m_bComplete = 0;
    }
    m_pFile = nullptr;
    return m_bComplete;
}

int cDbgFile::printf(const char *szFormat, ...)
{
    if (!m_bEnabled || !m_pFile)
        return 0;

    char    szMessage[kDbgMessage];
    va_list pArguments;
    va_start(pArguments, szFormat);
    vsnprintf(szMessage, sizeof szMessage, szFormat, pArguments);
    va_end(pArguments);

    if (!KeepWithinCap())
        return 0;
    return fputs(szMessage, m_pFile) >= 0;
}

// Opening a pipe might wait for a reader for ever.
int cDbgFile::Open()
{
    std::error_code Error;
    m_pFile = std::filesystem::is_fifo(PathOfName(m_szFileName), Error)
                  ? nullptr
                  : fopen(m_szFileName, kOpenMode);
    return m_pFile != nullptr;
}

int cDbgFile::OpenDefault()
{
    snprintf(m_szFileName, sizeof m_szFileName, "%s", kDefaultName);
    return Open();
}

// Starts a new file when the present one is above the cap. 0 if that failed.
int cDbgFile::KeepWithinCap()
{
    if (ftell(m_pFile) <= static_cast<long>(m_nMaxMegabytes) * kDbgMegabyte)
        return 1;

    Close();
    CopyToBackup();
    if (Open())
        return 1;
    GiveUp("FATAL ERROR in cDbgFile::printf()");
    return 0;
}

// A log that does not exist yet has no backup, which is not an error; nor does a
// terminal or another device have one, because reading it might never end.
void cDbgFile::CopyToBackup() const
{
    if (!IsRegularFile(m_szFileName))
        return;
    FILE *const pFrom = fopen(m_szFileName, "rb");
    if (!pFrom)
        return;

    char szBackup[kDbgFileName];
    DbgBackupName(m_szFileName, szBackup);
    FILE *const pTo = fopen(szBackup, "wb");
    if (pTo)
    {
        CopyStream(pFrom, pTo);
        fclose(pTo);
    }
    fclose(pFrom);
}

void cDbgFile::GiveUp(const char *szCaption)
{
    char szText[kDbgFileName + 64];
    snprintf(szText, sizeof szText, "couldn't fopen() the output file named:\n%s", m_szFileName);
    m_bEnabled  = 0;
    m_bComplete = 0;
    m_pBoxes->ReportUnowned(szText, szCaption);
    m_pBoxes->PostQuit(0);
}
