#include "toolkit/disk_file.h"

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

std::filesystem::path PathOfName(const char *szFileName)
{
    return szFileName;
}

FILE *OpenDiskFile(const std::filesystem::path &Path, const char *szMode)
{
    return fopen(Path.c_str(), szMode);
}

FILE *CreateDiskFile(const std::filesystem::path &Path, const char *szMode)
{
    const int nFile = open(Path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (nFile < 0)
        return nullptr;
    FILE *const pFile = fdopen(nFile, szMode);
    if (!pFile)
        close(nFile);
    return pFile;
}

const char *DefaultLogName()
{
    return nullptr;
}

int SyncToDisk(FILE *pFile)
{
    if (fflush(pFile) != 0)
        return 0;

    // EINVAL: a file system that cannot synchronise; nothing more can be done.
    return fsync(fileno(pFile)) == 0 || errno == EINVAL;
}
