#include "toolkit/temporary_file.h"

#include <cerrno>
#include <cstdlib>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "toolkit/disk_file.h"
#include "toolkit/temporary_names.h"

// For the owner alone until it has the permissions of the file that it is to replace.
static const mode_t kPrivate = 0600;
static const mode_t kNewFile = 0666;  // without what the user's mask takes away

// It is locked until it has no name.
void cTemporaryFile::Discard()
{
    if (!m_Name.empty())
        unlink(m_Name.c_str());
    m_Name.clear();
    Close();
}

// --- files of programs that were killed

// A program that saves holds a lock on its file. Where the file system knows no locks,
// nothing is removed.
static int Lock(int nFile)
{
    return flock(nFile, LOCK_EX | LOCK_NB) == 0;
}

// 1 if the name still is that of the open file.
static int IsNameOf(const std::string &Name, int nFile)
{
    struct stat Status, Named;
    return fstat(nFile, &Status) == 0 && lstat(Name.c_str(), &Named) == 0 &&
           Status.st_dev == Named.st_dev && Status.st_ino == Named.st_ino;
}

static int IsOwnFile(int nFile)
{
    struct stat Status;
    return fstat(nFile, &Status) == 0 && S_ISREG(Status.st_mode) && Status.st_nlink == 1 &&
           Status.st_uid == geteuid();
}

void RemoveIfAbandoned(const std::string &Name)
{
    const int nFile = open(Name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (nFile < 0)
        return;
    if (IsOwnFile(nFile) && Lock(nFile) && IsNameOf(Name, nFile))
        unlink(Name.c_str());
    close(nFile);
}

// --- creating

static std::string FolderOf(const std::string &Neighbour)
{
    return BesideFile(Neighbour.c_str(), ".");
}

// The name by which a file without a name can be given one; "" where that is unknown.
static std::string NameOfHandle(int nFile)
{
    const std::string Name = "/proc/self/fd/" + std::to_string(nFile);
    struct stat       Status;
    return lstat(Name.c_str(), &Status) == 0 ? Name : "";
}

// -1 where files without names are unknown, as on other systems and file systems.
static int OpenNameless(const std::string &Neighbour, mode_t nMode)
{
#ifdef O_TMPFILE
    const std::string Folder = FolderOf(Neighbour);
    const int         nFile  = open(Folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, nMode);
    if (nFile < 0 || !NameOfHandle(nFile).empty())
        return nFile;
    close(nFile);
#endif
    return -1;
}

// Another program may take the new file for an abandoned one before it is locked; then
// there is no such name any more.
static int OpenNamed(const std::string &Neighbour, mode_t nMode, std::string *pName)
{
    for (unsigned i = 0; i < kTemporaryNames; i++)
    {
        *pName          = TemporaryName(Neighbour, i);
        const int nFile = open(pName->c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, nMode);
        if (nFile < 0 && errno != EEXIST)
            break;
        if (nFile < 0)
            continue;
        Lock(nFile);
        if (IsNameOf(*pName, nFile))
            return nFile;
        close(nFile);
    }
    pName->clear();
    return -1;
}

int cTemporaryFile::CreateIn(const std::string &Neighbour, const char *szMode)
{
    const mode_t nMode = KindOfFile(m_Target.c_str()) == fkNone ? kNewFile : kPrivate;
    m_Folder           = Neighbour;
    RemoveAbandonedFiles(m_Folder);
    int nFile = OpenNameless(m_Folder, nMode);
    if (nFile < 0)
        nFile = OpenNamed(m_Folder, nMode, &m_Name);
    if (nFile < 0)
        return 0;
    Lock(nFile);
    m_pFile = fdopen(nFile, szMode);
    if (m_pFile)
        return 1;
    close(nFile);
    if (!m_Name.empty())
        unlink(m_Name.c_str());
    m_Name.clear();
    return 0;
}

// The owner first: changing it takes some permissions away.
int cTemporaryFile::InheritFromTarget()
{
    const int   nFile = fileno(m_pFile);
    struct stat Old, New;
    if (stat(m_Target.c_str(), &Old) != 0 || fstat(nFile, &New) != 0)
        return 0;
    if ((New.st_uid != Old.st_uid || New.st_gid != Old.st_gid) &&
        fchown(nFile, Old.st_uid, Old.st_gid) != 0)
        return 0;
    return fchmod(nFile, Old.st_mode & 07777) == 0;
}

std::string TemporaryFolder()
{
    const char *const szFolder = getenv("TMPDIR");
    return std::string(szFolder && *szFolder ? szFolder : "/tmp") + "/";
}

// --- the end

// 0 if there is such a name already, or another reason.
static int GiveName(int nFile, const std::string &Name)
{
    return linkat(AT_FDCWD, NameOfHandle(nFile).c_str(), AT_FDCWD, Name.c_str(),
                  AT_SYMLINK_FOLLOW) == 0;
}

std::string cTemporaryFile::Name()
{
    for (unsigned i = 0; m_Name.empty() && i < kTemporaryNames; i++)
    {
        std::string Name = TemporaryName(m_Folder, i);
        if (GiveName(fileno(m_pFile), Name))
            m_Name = std::move(Name);
        else if (errno != EEXIST)
            break;
    }
    return m_Name;
}

FILE *cTemporaryFile::OpenCopy()
{
    return fopen(m_Name.c_str(), "rb");
}

// Until its folder is on the disk, a name may be lost in a power failure. A file system
// that cannot do that has done what it can.
static void SyncFolder(const std::string &Neighbour)
{
    const int nFolder = open(FolderOf(Neighbour).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (nFolder < 0)
        return;
    fsync(nFolder);
    close(nFolder);
}

int cTemporaryFile::TakePlace()
{
    const int bNew = m_Name.empty() && GiveName(fileno(m_pFile), m_Target);
    if (!bNew && (Name().empty() || rename(m_Name.c_str(), m_Target.c_str()) != 0))
        return 0;
    m_Name.clear();
    SyncFolder(m_Folder);
    Close();
    return 1;
}
