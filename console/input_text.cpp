#include "console/input_text.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <istream>
#include <limits>
#include <memory>
#include <new>

#include "toolkit/disk_file.h"

static const size_t kFirstRead = 8 * 1024;

// Of what is no regular file; reading a device might never end.
static const size_t kMostMegabytes = 64;
static const size_t kMostInput     = kMostMegabytes * 1024 * 1024;

static int RefuseInput(const cStreams &Streams, const std::string &Shown, const std::string &Why)
{
    ReportUsage(Streams, "cannot read " + Shown + (Why.empty() ? "" : ": ") + Why);
    return 0;
}

static std::string TooLong()
{
    return "longer than " + std::to_string(kMostMegabytes) + " MB";
}

// Reads with Read(pTo, nRoom), which returns 0 at the end. 0 if there are more than
// nMost bytes.
template <class cRead> static int ReadBlocks(size_t nMost, std::string *pText, cRead Read)
{
    size_t nRead;
    pText->clear();
    do
    {
        const size_t nFormer = pText->size();
        pText->resize(nFormer + std::max(kFirstRead, nFormer));
        nRead = Read(pText->data() + nFormer, pText->size() - nFormer);
        pText->resize(nFormer + nRead);
    }
    while (nRead > 0 && pText->size() <= nMost);
    return nRead == 0;
}

static int ReadStandardInput(const cStreams &Streams, std::string *pText)
{
    std::istream *const pIn   = Streams.m_pIn;
    const int           bEnds = ReadBlocks(kMostInput, pText, [pIn](char *pTo, size_t nRoom) {
        pIn->read(pTo, static_cast<std::streamsize>(nRoom));
        return static_cast<size_t>(pIn->gcount());
    });
    if (!bEnds || pIn->bad())
        return RefuseInput(Streams, "standard input", bEnds ? "" : TooLong());
    return 1;
}

// "" if it is something that can be opened, as far as this is known.
static std::string WhyNotOpened(const char *szName)
{
    if (KindOfFile(szName) == fkNone)
        return "no such file";
    return IsFolder(szName) ? "is a directory" : "";
}

int ReadInput(const std::string &Name, const cStreams &Streams, std::string *pText)
{
    if (Name == kStandardInput)
        return ReadStandardInput(Streams, pText);
    const std::string Shown = "'" + Name + "'";
    const std::string Why   = WhyNotOpened(Name.c_str());
    if (!Why.empty())
        return RefuseInput(Streams, Shown, Why);
    const std::unique_ptr<FILE, int (*)(FILE *)> File(OpenDiskFile(Name.c_str(), "rb"), fclose);
    if (!File && errno == ENOMEM)
        throw std::bad_alloc();
    if (!File)
        return RefuseInput(Streams, Shown, errno == EACCES ? "permission denied" : "");
    const int    bRegular = KindOfFile(Name.c_str()) == fkRegular;
    const size_t nMost    = bRegular ? std::numeric_limits<size_t>::max() : kMostInput;
    const int    bEnds    = ReadBlocks(nMost, pText, [&File](char *pTo, size_t nRoom) {
        return fread(pTo, 1, nRoom, File.get());
    });
    if (!bEnds)
        return RefuseInput(Streams, Shown, TooLong());
    return ferror(File.get()) ? RefuseInput(Streams, Shown, "it fails while it is read") : 1;
}
