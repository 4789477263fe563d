#include "toolkit/disk_file.h"

#include <cerrno>
#include <climits>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "toolkit/posix/real_name.h"

static const int kMostLinks = 40;  // in a row, the system's own limit

eFileKind KindOfFile(const char *szName)
{
    struct stat Status;
    if (stat(szName, &Status) != 0)
        return errno == ENOENT || errno == ENOTDIR ? fkNone : fkOther;
    if (S_ISREG(Status.st_mode))
        return fkRegular;
    if (S_ISCHR(Status.st_mode) || S_ISBLK(Status.st_mode))
        return fkDevice;
    return S_ISFIFO(Status.st_mode) ? fkPipe : fkOther;
}

int IsFolder(const char *szName)
{
    struct stat Status;
    return stat(szName, &Status) == 0 && S_ISDIR(Status.st_mode);
}

// Names are bytes here; whether a file system takes them is found out by trying.
int ErrorOfName(const char *)
{
    return 0;
}

int IsNameTaken(const char *szName)
{
    struct stat Status;
    return lstat(szName, &Status) == 0;
}

int IsMarkedReadOnly(const char *szName)
{
    struct stat Status;
    return stat(szName, &Status) == 0 && (Status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
}

static std::string CurrentFolder()
{
    char szFolder[PATH_MAX];
    return getcwd(szFolder, sizeof szFolder) ? szFolder : "";
}

// One more component; links are followed as long as there is such a file.
static std::string Enter(const std::string &Folder, const std::string &Name)
{
    if (Name.empty() || Name == ".")
        return Folder;
    if (Name == "..")
        return Folder.substr(0, Folder.rfind('/') == std::string::npos ? 0 : Folder.rfind('/'));
    const std::string Entered = Folder + "/" + Name;
    const std::string Real    = RealName(Entered);
    return Real.empty() ? Entered : Real;
}

static std::string WholeName(const char *szName)
{
    std::string Whole = *szName == '/' ? "" : CurrentFolder();
    for (const char *pEnd = szName; *szName; szName = *pEnd ? pEnd + 1 : pEnd)
    {
        pEnd  = strchrnul(szName, '/');
        Whole = Enter(Whole, std::string(szName, pEnd));
    }
    return Whole;
}

static int IsSame(const struct stat &Status, const struct stat &Other)
{
    return Status.st_dev == Other.st_dev && Status.st_ino == Other.st_ino;
}

int IsSameFile(const char *szName, const char *szOther)
{
    struct stat Status, Other;
    if (stat(szName, &Status) == 0 && stat(szOther, &Other) == 0)
        return IsSame(Status, Other);
    return WholeName(szName) == WholeName(szOther);
}

int IsFileOf(FILE *pStream, const char *szName)
{
    struct stat Status, Other;
    return fstat(fileno(pStream), &Status) == 0 && stat(szName, &Other) == 0 &&
           IsSame(Status, Other);
}

int HasOtherNames(const char *szName)
{
    struct stat Status;
    return stat(szName, &Status) == 0 && Status.st_nlink > 1;
}

int LengthOfFile(const char *szName, uint64_t *pnLength)
{
    struct stat Status;
    if (stat(szName, &Status) != 0 || !S_ISREG(Status.st_mode))
        return 0;
    *pnLength = static_cast<uint64_t>(Status.st_size);
    return 1;
}

std::string BesideFile(const char *szName, const char *szOther)
{
    const char *const pSlash = strrchr(szName, '/');
    return pSlash ? std::string(szName, pSlash + 1) + szOther : szOther;
}

// 1 with what a link leads to, relative to its own folder; 0 for anything else.
static int FollowLink(std::string *pName)
{
    char          szTarget[PATH_MAX];
    const ssize_t nLength = readlink(pName->c_str(), szTarget, sizeof szTarget - 1);
    if (nLength < 0)
        return 0;
    szTarget[nLength] = 0;
    *pName            = *szTarget == '/' ? szTarget : BesideFile(pName->c_str(), szTarget);
    return 1;
}

std::string FollowLinks(const char *szName)
{
    std::string Name = szName;
    for (int i = 0; i < kMostLinks; i++)
        if (!FollowLink(&Name))
            return Name;
    errno = ELOOP;
    return "";
}

static int IsInDeviceFolder(const std::string &Name)
{
    const std::string Folder = RealName(BesideFile(Name.c_str(), ".")) + "/";
    return Folder.starts_with("/proc/") ||
           (Folder.starts_with("/dev/") && !Folder.starts_with("/dev/shm/"));
}

int IsBelowDevices(const char *szName)
{
    std::string Name = szName;
    for (int i = 0; i < kMostLinks; i++)
        if (IsInDeviceFolder(Name) || !FollowLink(&Name))
            return IsInDeviceFolder(Name);
    return 0;
}

int CutFile(const char *szName, uint64_t nLength)
{
    return truncate(szName, static_cast<off_t>(nLength)) == 0;
}

int RemoveDiskFile(const char *szName)
{
    return unlink(szName) == 0;
}

FILE *OpenDiskFile(const char *szName, const char *szMode)
{
    return fopen(szName, szMode);
}

FILE *CreateDiskFile(const char *szName, const char *szMode)
{
    const int nFile = open(szName, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (nFile < 0)
        return nullptr;
    FILE *const pFile = fdopen(nFile, szMode);
    if (pFile)
        return pFile;
    close(nFile);
    unlink(szName);
    return nullptr;
}

FILE *BinaryStandardOutput()
{
    return stdout;
}

FILE *BinaryStandardInput()
{
    return stdin;
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
