#include "console/run_files.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>
#include <vector>

#include "toolkit/dbg_file.h"
#include "toolkit/disk_file.h"
#include "toolkit/replacement_file.h"

namespace fs = std::filesystem;

namespace
{

struct cNamedFile
{
    const char *m_szRole;  // as in the usage text
    std::string m_Name;
};

}  // namespace

static std::vector<cNamedFile> FilesOf(const cRunOptions &Options)
{
    std::vector<cNamedFile> Files = {{"PROGRAM", Options.m_Program}};
    if (!Options.m_TraceFile.empty())
    {
        char szBackup[kDbgFileName];
        DbgBackupName(Options.m_TraceFile.c_str(), szBackup);
        Files.push_back({"--trace", Options.m_TraceFile});
        Files.push_back({"the backup of --trace", szBackup});
    }
    if (!Options.m_GraphFile.empty())
        Files.push_back({"--graph", Options.m_GraphFile});
    return Files;
}

// Follows links to folders as far as the path exists.
static fs::path WholePath(const fs::path &Path)
{
    std::error_code Error;
    const fs::path  Absolute = fs::absolute(Path, Error);
    const fs::path  Whole    = fs::weakly_canonical(Absolute, Error);
    return Error ? Absolute.lexically_normal() : Whole;
}

static int IsSameFile(const std::string &Name, const std::string &Other)
{
    std::error_code Error;
    const fs::path  Path      = PathOfName(Name.c_str());
    const fs::path  OtherPath = PathOfName(Other.c_str());
    if (fs::equivalent(Path, OtherPath, Error))
        return 1;
    const fs::path Whole = WholePath(Path);
    return !Whole.empty() && Whole == WholePath(OtherPath);
}

// The log is overwritten in place.
static int IsTraceWritable(const std::string &Name)
{
    typedef std::unique_ptr<FILE, int (*)(FILE *)> cOpenFile;

    std::error_code Error;
    const fs::path  Path = PathOfName(Name.c_str());
    if (fs::exists(fs::symlink_status(Path, Error)))
        return !fs::is_fifo(Path, Error) && cOpenFile(OpenDiskFile(Path, "ab"), fclose);
    const int bMade = cOpenFile(CreateDiskFile(Path, "wb"), fclose) != nullptr;
    if (bMade)
        fs::remove(Path, Error);
    return bMade;
}

// A graph is written next to its old file. Opening one and discarding it at once
// fails in the same cases as saving it after the run.
static int IsGraphWritable(const std::string &Name)
{
    cReplacementFile File;
    return File.Open(Name.c_str(), "wb");
}

int AreFilesApart(const cRunOptions &Options, std::string *pError)
{
    const std::vector<cNamedFile> Files = FilesOf(Options);
    for (size_t nFile = 1; nFile < Files.size(); nFile++)
        for (size_t nFormer = 0; nFormer < nFile; nFormer++)
            if (IsSameFile(Files[nFile].m_Name, Files[nFormer].m_Name))
            {
                *pError = std::string(Files[nFormer].m_szRole) + " and " + Files[nFile].m_szRole +
                          " are the same file '" + Files[nFile].m_Name + "'";
                return 0;
            }
    return 1;
}

int AreFilesWritable(const cRunOptions &Options, std::string *pError)
{
    const std::string *pName = nullptr;
    if (!Options.m_TraceFile.empty() && !IsTraceWritable(Options.m_TraceFile))
        pName = &Options.m_TraceFile;
    else if (!Options.m_GraphFile.empty() && !IsGraphWritable(Options.m_GraphFile))
        pName = &Options.m_GraphFile;
    if (!pName)
        return 1;
    *pError = "cannot write '" + *pName + "'";
    return 0;
}
