#include "toolkit/disk_file.h"

#include <cstring>

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

static const int kLongestName = 32768;  // characters, terminating zero included
static const int kMode        = 8;      // characters of a stream's mode, terminating zero included

// Modes are plain ASCII: "wb" becomes L"wb".
static void WideMode(const char *szMode, wchar_t (&szWide)[kMode])
{
    int i = 0;
    for (; i < kMode - 1 && szMode[i]; i++)
        szWide[i] = static_cast<unsigned char>(szMode[i]);
    szWide[i] = L'\0';
}

std::filesystem::path PathOfName(const char *szFileName)
{
    std::wstring Wide(kLongestName, L'\0');
    const int    nLength = MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, szFileName, -1,
                                               Wide.data(), kLongestName);
    if (nLength < 1)
        return std::filesystem::path();
    Wide.resize(static_cast<size_t>(nLength) - 1);
    return std::filesystem::path(Wide);
}

FILE *OpenDiskFile(const std::filesystem::path &Path, const char *szMode)
{
    wchar_t szWide[kMode];
    WideMode(szMode, szWide);
    return _wfopen(Path.c_str(), szWide);
}

FILE *CreateDiskFile(const std::filesystem::path &Path, const char *szMode)
{
    // The line ends depend on the mode of the descriptor, whatever szMode says.
    const int nLineEnds = strchr(szMode, 'b') ? _O_BINARY : _O_TEXT;
    const int nFlags    = _O_WRONLY | _O_CREAT | _O_EXCL | _O_NOINHERIT | nLineEnds;
    const int nFile     = _wopen(Path.c_str(), nFlags, _S_IREAD | _S_IWRITE);
    if (nFile < 0)
        return nullptr;
    FILE *const pFile = _fdopen(nFile, szMode);
    if (!pFile)
        _close(nFile);
    return pFile;
}

const char *DefaultLogName()
{
    return "C:\\windows\\temp\\dfltlog.txt";
}

int SyncToDisk(FILE *pFile)
{
    if (fflush(pFile) != 0)
        return 0;
    return _commit(_fileno(pFile)) == 0;
}
