#include "console/input_text.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <istream>
#include <iterator>
#include <memory>

#include "toolkit/disk_file.h"

static const size_t kFirstRead = 8 * 1024;

static int ReadStandardInput(const cStreams &Streams, std::string *pText)
{
    pText->assign(std::istreambuf_iterator<char>(*Streams.m_pIn), {});
    if (!Streams.m_pIn->bad())
        return 1;
    ReportUsage(Streams, "cannot read standard input");
    return 0;
}

// Null if it is a file that can be opened, as far as this is known.
static const char *WhyNotOpened(const char *szName)
{
    switch (KindOfFile(szName))
    {
    case fkNone:
        return "no such file";
    case fkDevice:
    case fkPipe:
        return "not a regular file";
    default:
        return IsFolder(szName) ? "is a directory" : nullptr;
    }
}

static int RefuseInput(const cStreams &Streams, const std::string &Name, const char *szWhy)
{
    ReportUsage(Streams, "cannot read '" + Name + "'" + (szWhy ? ": " : "") + (szWhy ? szWhy : ""));
    return 0;
}

int ReadInput(const std::string &Name, const cStreams &Streams, std::string *pText)
{
    if (Name == kStandardInput)
        return ReadStandardInput(Streams, pText);
    if (const char *const szWhy = WhyNotOpened(Name.c_str()))
        return RefuseInput(Streams, Name, szWhy);
    const std::unique_ptr<FILE, int (*)(FILE *)> File(OpenDiskFile(Name.c_str(), "rb"), fclose);
    if (!File)
        return RefuseInput(Streams, Name, errno == EACCES ? "permission denied" : nullptr);
    pText->clear();
    size_t nRead;
    do
    {
        const size_t nFormer = pText->size();
        pText->resize(nFormer + std::max(kFirstRead, nFormer));
        nRead = fread(pText->data() + nFormer, 1, pText->size() - nFormer, File.get());
        pText->resize(nFormer + nRead);
    }
    while (nRead > 0);
    return ferror(File.get()) ? RefuseInput(Streams, Name, "it fails while it is read") : 1;
}
