#include "console/input_text.h"

#include <algorithm>
#include <cstdio>
#include <istream>

#include "toolkit/disk_file.h"

static const size_t kFirstRead = 8 * 1024;

// Reads with Read(pTo, nRoom), which returns 0 at the end. 0 if there are more than
// nMost bytes.
template <class cRead> static int ReadBlocks(uint64_t nMost, std::string *pText, cRead Read)
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
        return RefuseInput(Streams, kStandardInput, bEnds ? "" : TooLongInput());
    return 1;
}

int ReadInput(const std::string &Name, const cStreams &Streams, std::string *pText)
{
    if (Name == kStandardInput)
        return ReadStandardInput(Streams, pText);
    const cOpenFile File = OpenNamedInput(Name, Streams);
    if (!File)
        return 0;
    const int      bRegular = KindOfFile(Name.c_str()) == fkRegular;
    const uint64_t nMost    = bRegular ? kAnyLength : kMostInput;
    const int      bEnds    = ReadBlocks(nMost, pText, [&File](char *pTo, size_t nRoom) {
        return fread(pTo, 1, nRoom, File.get());
    });
    if (!bEnds)
        return RefuseInput(Streams, Name, TooLongInput());
    return ferror(File.get()) ? RefuseInput(Streams, Name, "it fails while it is read") : 1;
}
