#include "toolkit/replacement_file.h"

#include <filesystem>
#include <optional>
#include <string>

#include <doctest/doctest.h>

#include "tests/unit/scratch_folder.h"
#include "toolkit/disk_file.h"

#ifndef _WIN32
#include <csignal>

#include <sys/resource.h>
#include <sys/stat.h>
#endif

#ifdef __linux__
#include <fcntl.h>
#include <linux/capability.h>
#include <sys/file.h>
#include <sys/syscall.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

// Saves Content under Name. Returns what Commit returns, or 0 if Open does.
static int Save(const std::string &Name, const std::string &Content)
{
    cReplacementFile File;
    if (!File.Open(Name.c_str(), "wb"))
        return 0;
    fwrite(Content.data(), 1, Content.size(), File.Stream());
    return File.Commit();
}

// Whether a file of this name could be saved; saves nothing.
static int Opens(const std::string &Name)
{
    cReplacementFile File;
    return File.Open(Name.c_str(), "wb");
}

TEST_CASE("saving makes a file that did not exist")
{
    cScratchFolder Folder;

    CHECK(Save(Folder.Name("new.txt"), "01 PI\r\n") == 1);

    CHECK(Folder.Read("new.txt") == "01 PI\r\n");
    CHECK(Folder.Count() == 1);
}

TEST_CASE("saving replaces the old content, longer or shorter")
{
    cScratchFolder Folder;
    Folder.Write("program.txt", "the old content");

    CHECK(Save(Folder.Name("program.txt"), "new") == 1);
    CHECK(Folder.Read("program.txt") == "new");
    CHECK(Save(Folder.Name("program.txt"), "new and longer than the old content") == 1);
    CHECK(Folder.Read("program.txt") == "new and longer than the old content");
    CHECK(Folder.Count() == 1);
}

TEST_CASE("a file may be saved empty")
{
    cScratchFolder Folder;
    Folder.Write("program.txt", "old");

    CHECK(Save(Folder.Name("program.txt"), "") == 1);

    CHECK(Folder.Read("program.txt") == "");
}

TEST_CASE("the old file is whole until the new one is committed")
{
    cScratchFolder Folder;
    Folder.Write("program.txt", "old");

    cReplacementFile File;
    REQUIRE(File.Open(Folder.Name("program.txt").c_str(), "wb") == 1);
    fputs("new", File.Stream());
    fflush(File.Stream());

    CHECK(Folder.Read("program.txt") == "old");
    CHECK(File.Commit() == 1);
    CHECK(Folder.Read("program.txt") == "new");
}

TEST_CASE("what is not committed leaves the old file and nothing beside it")
{
    cScratchFolder Folder;
    Folder.Write("program.txt", "old");

    {
        cReplacementFile File;
        REQUIRE(File.Open(Folder.Name("program.txt").c_str(), "wb") == 1);
        fputs("half a prog", File.Stream());
    }

    CHECK(Folder.Read("program.txt") == "old");
    CHECK(Folder.Count() == 1);
}

TEST_CASE("text mode writes the line ends of the platform, binary mode what it is given")
{
    cScratchFolder   Folder;
    cReplacementFile Text;
    cReplacementFile Binary;

    REQUIRE(Text.Open(Folder.Name("text.txt").c_str(), "w") == 1);
    REQUIRE(Binary.Open(Folder.Name("binary.txt").c_str(), "wb") == 1);
    fputs("line\n", Text.Stream());
    fputs("line\n", Binary.Stream());
    REQUIRE(Text.Commit() == 1);
    REQUIRE(Binary.Commit() == 1);

#ifdef _WIN32
    CHECK(Folder.Read("text.txt") == "line\r\n");
#else
    CHECK(Folder.Read("text.txt") == "line\n");
#endif
    CHECK(Folder.Read("binary.txt") == "line\n");
}

TEST_CASE("what a program left that was killed while saving is removed by the next save")
{
    cScratchFolder Folder;
    for (const char *szName : {"~vorstek.000", "~vorstek.001", "~vorstek.009"})
        Folder.Write(szName, "half");

    CHECK(Save(Folder.Name("program.txt"), "new") == 1);

    CHECK(Folder.Read("program.txt") == "new");
    CHECK(Folder.Count() == 1);
}

TEST_CASE("files of other names, and folders, are no temporary ones")
{
    cScratchFolder Folder;
    for (const char *szName : {"~vorstek.tmp", "~vorstek.0000", "~save000.tmp", "vorstek.000"})
        Folder.Write(szName, "somebody's own");
    fs::create_directory(Folder.Name("~vorstek.000"));

    CHECK(Save(Folder.Name("program.txt"), "new") == 1);

    CHECK(Folder.Read("program.txt") == "new");
    CHECK(Folder.Count() == 6);
}

TEST_CASE("two files can be saved in a folder at the same time")
{
    cScratchFolder   Folder;
    cReplacementFile First, Second;
    REQUIRE(First.Open(Folder.Name("first.txt").c_str(), "wb") == 1);
    fputs("1", First.Stream());
    REQUIRE(Second.Open(Folder.Name("second.txt").c_str(), "wb") == 1);
    fputs("2", Second.Stream());

    CHECK(Save(Folder.Name("third.txt"), "3") == 1);
    CHECK(Second.Commit() == 1);
    CHECK(First.Commit() == 1);

    CHECK(Folder.Read("first.txt") + Folder.Read("second.txt") == "12");
    CHECK(Folder.Count() == 3);
}

TEST_CASE("a file that cannot be opened as a stream is not left behind")
{
    cScratchFolder   Folder;
    cReplacementFile File;

    CHECK(File.Open(Folder.Name("program.txt").c_str(), "?") == 0);
    CHECK(CreateDiskFile(Folder.Name("other.txt").c_str(), "?") == nullptr);

    CHECK(Folder.Count() == 0);
}

TEST_CASE("a file with two names keeps both")
{
    cScratchFolder Folder;
    Folder.Write("first.txt", "the old content");
    fs::create_hard_link(Folder.Name("first.txt"), Folder.Name("second.txt"));

    for (const char *szContent : {"new", "new and longer than the old content", ""})
    {
        CAPTURE(szContent);
        CHECK(Save(Folder.Name("first.txt"), szContent) == 1);
        CHECK(Folder.Read("first.txt") == szContent);
        CHECK(Folder.Read("second.txt") == szContent);
        CHECK(Folder.Count() == 2);
    }
}

TEST_CASE("the longest file name that the folder takes can be saved")
{
    cScratchFolder Folder;
#ifdef _WIN32
    const size_t nLongest = 150;  // the folder's path counts as well there
#else
    const size_t nLongest = 255;
#endif
    const std::string Long(nLongest, 'n');

    CHECK(Save(Folder.Name(Long), "first") == 1);
    CHECK(Save(Folder.Name(Long), "second") == 1);

    CHECK(Folder.Read(Long) == "second");
    CHECK(Folder.Count() == 1);
}

TEST_CASE("a name in the user's code page can be saved")
{
    cScratchFolder    Folder;
    const std::string Name = "M\xFCller 5 \x80.txt";  // u with dots, Euro sign

    CHECK(Save(Folder.Name(Name), "first") == 1);
    CHECK(Save(Folder.Name(Name), "second") == 1);

    CHECK(Folder.Read(Name) == "second");
    CHECK(Folder.Count() == 1);
}

TEST_CASE("a read-only file is not replaced")
{
    cScratchFolder Folder;
    Folder.Write("program.txt", "old");
    fs::permissions(Folder.Name("program.txt"), fs::perms::owner_read);

    CHECK(Opens(Folder.Name("program.txt")) == 0);

    CHECK(Folder.Read("program.txt") == "old");
    CHECK(Folder.Count() == 1);
    fs::permissions(Folder.Name("program.txt"), fs::perms::owner_all);
}

TEST_CASE("a folder is not replaced")
{
    cScratchFolder Folder;
    fs::create_directory(Folder.Name("folder"));

    CHECK(Opens(Folder.Name("folder")) == 0);
    CHECK(Opens(Folder.Name("folder/")) == 0);
    CHECK(Opens(Folder.Name("")) == 0);

    CHECK(fs::is_directory(Folder.Name("folder")));
    CHECK(Folder.Count() == 1);
}

TEST_CASE("no file can be saved in a folder that does not exist, or without a name")
{
    cScratchFolder Folder;

    CHECK(Opens(Folder.Name("nowhere/program.txt")) == 0);
    CHECK(Opens("") == 0);

    CHECK(Folder.Count() == 0);
}

TEST_CASE("a commit without an opened file fails")
{
    cReplacementFile File;

    CHECK(File.Commit() == 0);
}

TEST_CASE("a target that becomes a folder meanwhile stays one")
{
    cScratchFolder   Folder;
    cReplacementFile File;
    REQUIRE(File.Open(Folder.Name("program.txt").c_str(), "wb") == 1);
    fs::create_directories(Folder.Name("program.txt/inside"));

    CHECK(File.Commit() == 0);
    CHECK(Folder.Count() == 1);
    CHECK(fs::is_directory(Folder.Name("program.txt/inside")));
}

#ifndef _WIN32

// Saves Content in Folder on a disk that takes files of nMost bytes.
static int SaveOnLittleDisk(const std::string &Name, const std::string &Content, rlim_t nMost)
{
    rlimit Former;
    REQUIRE(getrlimit(RLIMIT_FSIZE, &Former) == 0);
    rlimit Small                      = Former;
    Small.rlim_cur                    = nMost;
    void (*const pFormerHandler)(int) = signal(SIGXFSZ, SIG_IGN);

    REQUIRE(setrlimit(RLIMIT_FSIZE, &Small) == 0);
    const int bSaved = Save(Name, Content);
    REQUIRE(setrlimit(RLIMIT_FSIZE, &Former) == 0);
    signal(SIGXFSZ, pFormerHandler);
    return bSaved;
}

TEST_CASE("a disk that fills up leaves the old file and nothing beside it")
{
    cScratchFolder Folder;
    Folder.Write("program.txt", "old");
    const std::string Large(100000, 'x');

    CHECK(SaveOnLittleDisk(Folder.Name("small.txt"), Large.substr(0, 50000), 50000) == 1);
    CHECK(SaveOnLittleDisk(Folder.Name("program.txt"), Large, 50000) == 0);
    CHECK(SaveOnLittleDisk(Folder.Name("program.txt"), Large.substr(0, 50001), 50000) == 0);

    CHECK(Folder.Read("program.txt") == "old");
    CHECK(Folder.Count() == 2);
}

TEST_CASE("a new file has the permissions of any other, and one that replaces those of the old")
{
    cScratchFolder Folder;
    Folder.Write("other.txt", "made by the system");
    Folder.Write("private.txt", "old");
    fs::permissions(Folder.Name("private.txt"), fs::perms::owner_read | fs::perms::owner_write);

    for (const auto &Row :
         {std::pair("new.txt", "other.txt"), std::pair("private.txt", "private.txt")})
    {
        const char *const szName = Row.first;
        const char *const szAs   = Row.second;
        CAPTURE(szName);
        cReplacementFile File;
        struct stat      Written;
        REQUIRE(File.Open(Folder.Name(szName).c_str(), "wb") == 1);
        REQUIRE(fstat(fileno(File.Stream()), &Written) == 0);  // before there is anything in it
        CHECK(fs::perms(Written.st_mode & 07777) == fs::status(Folder.Name(szAs)).permissions());
        CHECK(File.Commit() == 1);
        CHECK(fs::status(Folder.Name(szName)).permissions() ==
              fs::status(Folder.Name(szAs)).permissions());
    }
}

TEST_CASE("a device is written directly and reports what it cannot take")
{
    CHECK(Save("/dev/null", "gone") == 1);
    CHECK(fs::is_character_file("/dev/null"));
#ifdef __linux__
    CHECK(Save("/dev/full", "does not fit") == 0);
    CHECK(fs::is_character_file("/dev/full"));
#endif
}

TEST_CASE("a pipe is refused, not waited for")
{
    cScratchFolder Folder;
    REQUIRE(mkfifo(Folder.Name("pipe").c_str(), 0600) == 0);

    CHECK(Save(Folder.Name("pipe"), "lost") == 0);
    CHECK(fs::is_fifo(Folder.Name("pipe")));
}

TEST_CASE("a link stays, and the file that it points to is replaced")
{
    cScratchFolder Folder;
    fs::create_directory(Folder.Name("programs"));
    Folder.Write("programs/program.txt", "old");
    fs::create_symlink("programs/program.txt", Folder.Name("second.txt"));
    fs::create_symlink("second.txt", Folder.Name("first.txt"));

    CHECK(Save(Folder.Name("first.txt"), "new") == 1);

    CHECK(fs::is_symlink(Folder.Name("first.txt")));
    CHECK(fs::is_symlink(Folder.Name("second.txt")));
    CHECK_FALSE(fs::is_symlink(Folder.Name("programs/program.txt")));
    CHECK(Folder.Read("programs/program.txt") == "new");
    CHECK(Folder.Count() == 3);
}

TEST_CASE("a link to a file that does not exist makes that file")
{
    cScratchFolder Folder;
    fs::create_symlink(fs::absolute(Folder.Name("program.txt")), Folder.Name("link.txt"));

    CHECK(Save(Folder.Name("link.txt"), "new") == 1);

    CHECK(fs::is_symlink(Folder.Name("link.txt")));
    CHECK(Folder.Read("program.txt") == "new");
}

TEST_CASE("links that lead in a circle are not replaced")
{
    cScratchFolder Folder;
    fs::create_symlink("second.txt", Folder.Name("first.txt"));
    fs::create_symlink("first.txt", Folder.Name("second.txt"));

    CHECK(Opens(Folder.Name("first.txt")) == 0);

    CHECK(fs::is_symlink(Folder.Name("first.txt")));
    CHECK(Folder.Count() == 2);
}

TEST_CASE("the permissions of the old file are kept")
{
    cScratchFolder Folder;
    Folder.Write("program.txt", "old");
    const fs::perms nPermissions = fs::perms::owner_all | fs::perms::group_read;
    fs::permissions(Folder.Name("program.txt"), nPermissions);

    CHECK(Save(Folder.Name("program.txt"), "new") == 1);

    CHECK(fs::status(Folder.Name("program.txt")).permissions() == nPermissions);
}

#endif

#ifdef __linux__

namespace
{

// Root is asked for no permission. For the life of this object the test is
// treated like any other user.
class cWithoutRootRights
{
public:
    cWithoutRootRights()
    {
        REQUIRE(syscall(SYS_capget, &m_Header, m_Former) == 0);
        __user_cap_data_struct None[2] = {m_Former[0], m_Former[1]};
        None[0].effective              = 0;
        None[1].effective              = 0;
        REQUIRE(syscall(SYS_capset, &m_Header, None) == 0);
    }

    ~cWithoutRootRights() { syscall(SYS_capset, &m_Header, m_Former); }

    cWithoutRootRights(const cWithoutRootRights &)            = delete;
    cWithoutRootRights &operator=(const cWithoutRootRights &) = delete;

private:
    __user_cap_header_struct m_Header    = {_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct   m_Former[2] = {};
};

}  // namespace

TEST_CASE("a file that only others may write is not replaced")
{
    cScratchFolder Folder;
    Folder.Write("program.txt", "old");
    fs::permissions(Folder.Name("program.txt"), fs::perms::owner_read | fs::perms::others_write);

    {
        const cWithoutRootRights Guard;
        CHECK(Opens(Folder.Name("program.txt")) == 0);
    }

    CHECK(Folder.Read("program.txt") == "old");
    CHECK(Folder.Count() == 1);
}

TEST_CASE("in a folder that may not be changed a file is overwritten, and none is made")
{
    cScratchFolder Folder;
    Folder.Write("program.txt", "old");
    fs::permissions(Folder.Name(""), fs::perms::owner_read | fs::perms::owner_exec);

    {
        const cWithoutRootRights Guard;
        CHECK(Save(Folder.Name("program.txt"), "new and longer") == 1);
        CHECK(Opens(Folder.Name("other.txt")) == 0);
    }

    fs::permissions(Folder.Name(""), fs::perms::owner_all);
    CHECK(Folder.Read("program.txt") == "new and longer");
    CHECK(Folder.Count() == 1);
}

// Whom the test gives a file, if it may.
static const uid_t kSomebody = 4321;

TEST_CASE("the owner of a file stays, for root and for others who may write it")
{
    cScratchFolder Folder;
    for (const int bRoot : {1, 0})
    {
        CAPTURE(bRoot);
        Folder.Write("program.txt", "old");
        fs::permissions(Folder.Name("program.txt"), fs::perms(0666));
        chown(Folder.Name("program.txt").c_str(), kSomebody, kSomebody) == 0 ||
            printf("only root can give files away\n");
        struct stat Before, After;
        REQUIRE(stat(Folder.Name("program.txt").c_str(), &Before) == 0);

        std::optional<cWithoutRootRights> Guard;
        if (!bRoot)
            Guard.emplace();
        CHECK(Save(Folder.Name("program.txt"), "new") == 1);
        Guard.reset();

        REQUIRE(stat(Folder.Name("program.txt").c_str(), &After) == 0);
        CHECK(After.st_uid == Before.st_uid);
        CHECK(After.st_gid == Before.st_gid);
        CHECK(After.st_mode == Before.st_mode);
        CHECK(Folder.Read("program.txt") == "new");
        CHECK(Folder.Count() == 1);
    }
}

TEST_CASE("a disk without room for the new content leaves a file that is overwritten as it was")
{
    cScratchFolder Folder;
    Folder.Write("first.txt", "old");
    fs::create_hard_link(Folder.Name("first.txt"), Folder.Name("second.txt"));

    CHECK(SaveOnLittleDisk(Folder.Name("first.txt"), std::string(9000, 'x'), 8000) == 0);

    CHECK(Folder.Read("first.txt") == "old");
    CHECK(Folder.Read("second.txt") == "old");
    CHECK(Folder.Count() == 2);
}

TEST_CASE("a file that another program is saving is left alone")
{
    cScratchFolder Folder;
    Folder.Write("~vorstek.000", "half");
    const int nSaving = open(Folder.Name("~vorstek.000").c_str(), O_RDWR);
    REQUIRE(flock(nSaving, LOCK_EX) == 0);

    CHECK(Save(Folder.Name("program.txt"), "new") == 1);
    CHECK(Folder.Read("~vorstek.000") == "half");

    close(nSaving);
    CHECK(Save(Folder.Name("program.txt"), "newer") == 1);
    CHECK(Folder.Count() == 1);
}

#endif
