#include "console/input_file.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <new>
#include <utility>

#include "console/file_reason.h"
#include "console/progress_line.h"

static const size_t kCopiedBlock = 64 * 1024;

std::string ShownInput(const std::string &Name)
{
    return Name == kStandardInput ? "standard input" : "'" + Name + "'";
}

std::string ShownOutput(const std::string &Name)
{
    return Name == kStandardOutput ? "standard output" : "'" + Name + "'";
}

std::string NameWithoutFolder(const std::string &Name)
{
    return Name.substr(Name.find_last_of("/\\") + 1);
}

int RefuseInput(const cStreams &Streams, const std::string &Name, const std::string &Why)
{
    ReportUsage(Streams, "cannot read " + ShownInput(Name) + (Why.empty() ? "" : ": ") + Why);
    return 0;
}

std::string TooLongInput()
{
    return "longer than " + std::to_string(kMostMegabytes) + " MB";
}

cOpenFile OpenNamedInput(const std::string &Name, const cStreams &Streams)
{
    errno = 0;
    cOpenFile File(IsFolder(Name.c_str()) ? nullptr : OpenDiskFile(Name.c_str(), "rb"), fclose);
    if (!File && errno == ENOMEM)
        throw std::bad_alloc();
    if (!File)
        RefuseInput(Streams, Name, WhyNotRead(Name, errno));
    return File;
}

// Opening a pipe would wait for its writer.
int IsRegularInput(const std::string &Name, const cStreams &Streams)
{
    const eFileKind nKind = KindOfFile(Name.c_str());
    if (nKind == fkPipe || nKind == fkDevice)
        return RefuseInput(Streams, Name, "not a regular file");
    return OpenNamedInput(Name, Streams) != nullptr;
}

// Standard input, and whatever is no regular file, is as long as its writer wants;
// a device may have no end.
static uint64_t MostBytes(const std::string &Name)
{
    const char *const szName = Name == kStandardInput ? "/dev/stdin" : Name.c_str();
    return KindOfFile(szName) == fkDevice ? kMostInput : kAnyLength;
}

// 1, or 0 with the reason why not all of pFrom could be copied.
static int CopyStream(FILE *pFrom, cProgressLine *pProgress, uint64_t nMost, cSeekableInput *pInput,
                      std::string *pWhy)
{
    const std::unique_ptr<char[]> Block(new char[kCopiedBlock]);
    FILE *const                   pTo = pInput->m_File.get();
    size_t                        nRead;
    pInput->m_nLength = 0;
    do
    {
        nRead = fread(Block.get(), 1, kCopiedBlock, pFrom);
        pInput->m_nLength += nRead;
        if (pProgress)
            pProgress->Advance(nRead);
        if (pInput->m_nLength > nMost)
            *pWhy = TooLongInput();
        else if (fwrite(Block.get(), 1, nRead, pTo) != nRead)
            *pWhy = "there is no room for a copy of it";
    }
    while (nRead > 0 && pWhy->empty());
    if (pWhy->empty() && ferror(pFrom))
        *pWhy = "it fails while it is read";
    if (pWhy->empty() && (fflush(pTo) != 0 || fseek(pTo, 0, SEEK_SET) != 0))
        *pWhy = "there is no room for a copy of it";
    return pWhy->empty();
}

static int CopyInput(const std::string &Name, FILE *pFrom, const cStreams &Streams,
                     cProgressLine *pProgress, cSeekableInput *pInput)
{
    pInput->m_File.reset(OpenNamelessFile());
    if (!pInput->m_File)
        return RefuseInput(Streams, Name, "no temporary file can be created for it");
    std::string Why;
    if (pProgress)
        pProgress->Begin();
    const int bCopied = CopyStream(pFrom, pProgress, MostBytes(Name), pInput, &Why);
    if (pProgress)
        pProgress->End();
    return bCopied ? 1 : RefuseInput(Streams, Name, Why);
}

int OpenSeekableInput(const std::string &Name, const cStreams &Streams, cProgressLine *pProgress,
                      cSeekableInput *pInput)
{
    if (Name == kStandardInput)
        return CopyInput(Name, BinaryStandardInput(), Streams, pProgress, pInput);
    cOpenFile File = OpenNamedInput(Name, Streams);
    if (!File)
        return 0;
    if (KindOfFile(Name.c_str()) != fkRegular)
        return CopyInput(Name, File.get(), Streams, pProgress, pInput);
    pInput->m_File = std::move(File);
    return LengthOfFile(Name.c_str(), &pInput->m_nLength) || RefuseInput(Streams, Name, "");
}

// Only a regular file loses what is in it.
int IsNoInput(const std::string &Output, const std::vector<std::string> &Inputs,
              const cStreams &Streams)
{
    const char *const szOutput = Output.c_str();
    if (Output == kStandardOutput || KindOfFile(szOutput) != fkRegular)
        return 1;
    for (const std::string &Input : Inputs)
        if (Input == kStandardInput ? IsFileOf(stdin, szOutput)
                                    : IsSameFile(Input.c_str(), szOutput))
        {
            ReportUsage(Streams, "cannot write '" + Output + "': it is also " +
                                     (Input == Output ? "the input" : ShownInput(Input)));
            return 0;
        }
    return 1;
}
