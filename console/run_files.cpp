#include "console/run_files.h"

#include <cerrno>
#include <cstdio>
#include <vector>

#include "console/file_reason.h"
#include "console/input_file.h"
#include "toolkit/dbg_file.h"
#include "toolkit/disk_file.h"
#include "toolkit/replacement_file.h"

namespace
{

struct cNamedFile
{
    const char *m_szRole;  // as in the usage text
    std::string m_Name;
};

}  // namespace

static int HasTraceFile(const cRunOptions &Options)
{
    return !Options.m_TraceFile.empty() && Options.m_TraceFile != kStandardOutput;
}

static int HasGraphFile(const cRunOptions &Options)
{
    return !Options.m_GraphFile.empty() && Options.m_GraphFile != kStandardOutput;
}

static std::vector<cNamedFile> FilesOf(const cRunOptions &Options)
{
    std::vector<cNamedFile> Files;
    if (Options.m_Program != kStandardInput)
        Files.push_back({"PROGRAM", Options.m_Program});
    if (HasTraceFile(Options))
    {
        char szBackup[kDbgFileName];
        DbgBackupName(Options.m_TraceFile.c_str(), szBackup);
        Files.push_back({"--trace", Options.m_TraceFile});
        Files.push_back({"the backup of --trace", szBackup});
    }
    if (HasGraphFile(Options))
        Files.push_back({"--graph", Options.m_GraphFile});
    return Files;
}

// "" or why not. The log is overwritten in place, and its backup is a file next to
// it: of a device or a standard stream that would be "/dev/stderr_older".
static std::string WhyNotTraced(const std::string &Name)
{
    const char *const szName = Name.c_str();
    const eFileKind   nKind  = KindOfFile(szName);
    if (const int nError = ErrorOfName(szName))
        return UnwritableText(Name, nError);
    if (IsBelowDevices(szName) || nKind == fkDevice || nKind == fkPipe)
        return "cannot write '" + Name + "': not a regular file";
    for (FILE *const pStream : {stdin, stdout, stderr})
        if (IsFileOf(pStream, szName))
            return "cannot write '" + Name + "': it is a standard stream";
    errno = 0;
    if (IsNameTaken(szName))
        return cOpenFile(OpenDiskFile(szName, "ab"), fclose) ? "" : UnwritableText(Name, errno);
    if (!cOpenFile(CreateDiskFile(szName, "wb"), fclose))
        return UnwritableText(Name, errno);
    RemoveDiskFile(szName);
    return "";
}

// "" or why not. What a log holds is copied to its backup before anything is written.
static std::string WhyNotBackedUp(const std::string &Name)
{
    uint64_t nLength;
    char     szBackup[kDbgFileName];
    DbgBackupName(Name.c_str(), szBackup);
    const int bCopied = LengthOfFile(Name.c_str(), &nLength) && nLength > 0;
    return bCopied ? WhyNotTraced(szBackup) : "";
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
            if (IsSameFile(Files[nFile].m_Name.c_str(), Files[nFormer].m_Name.c_str()))
            {
                *pError = std::string(Files[nFormer].m_szRole) + " and " + Files[nFile].m_szRole +
                          " are the same file '" + Files[nFile].m_Name + "'";
                return 0;
            }
    return 1;
}

int AreFilesWritable(const cRunOptions &Options, std::string *pError)
{
    if (HasTraceFile(Options))
        *pError = WhyNotTraced(Options.m_TraceFile);
    if (HasTraceFile(Options) && pError->empty())
        *pError = WhyNotBackedUp(Options.m_TraceFile);
    if (pError->empty() && HasGraphFile(Options) && !IsGraphWritable(Options.m_GraphFile))
        *pError = UnwritableText(Options.m_GraphFile, errno);
    return pError->empty();
}
