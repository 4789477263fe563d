#include "tests/window/paper_tray.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iterator>

#include <doctest/doctest.h>

#include "tests/window/waiting.h"

namespace fs = std::filesystem;

static const unsigned kPaperWhite = 0xFFFFFF;

static std::string ContentOf(const std::string &Name)
{
    std::string Content;
    FILE *const pFile = fopen(Name.c_str(), "rb");
    if (!pFile)
        return Content;
    char Block[4096];
    for (size_t nRead; (nRead = fread(Block, 1, sizeof Block, pFile)) > 0;)
        Content.append(Block, nRead);
    fclose(pFile);
    return Content;
}

static std::string WithoutBlanks(const std::string &Text)
{
    const size_t nFirst = Text.find_first_not_of(" \r");
    if (nFirst == std::string::npos)
        return "";
    return Text.substr(nFirst, Text.find_last_not_of(" \r") - nFirst + 1);
}

// Fonts have one glyph for the semicolon and the Greek question mark, which is read
// back as the latter.
static std::string WithSemicolons(std::string Text)
{
    static const std::string s_Greek = "\xCD\xBE";  // UTF-8
    for (size_t nAt; (nAt = Text.find(s_Greek)) != std::string::npos;)
        Text.replace(nAt, s_Greek.size(), ";");
    return Text;
}

// The lines that are not blank.
static std::vector<std::string> LinesOf(const std::string &Text)
{
    std::vector<std::string> Lines;
    for (size_t nStart = 0; nStart < Text.size();)
    {
        const size_t      nEnd = std::min(Text.find('\n', nStart), Text.size());
        const std::string Line = WithoutBlanks(Text.substr(nStart, nEnd - nStart));
        if (!Line.empty())
            Lines.push_back(Line);
        nStart = nEnd + 1;
    }
    return Lines;
}

// A form feed ends each page.
static std::vector<std::vector<std::string>> TextsOf(const std::string &Text)
{
    std::vector<std::vector<std::string>> Pages;
    for (size_t nStart = 0; nStart < Text.size();)
    {
        const size_t nEnd = std::min(Text.find('\f', nStart), Text.size());
        Pages.push_back(LinesOf(Text.substr(nStart, nEnd - nStart)));
        nStart = nEnd + 1;
    }
    return Pages;
}

static std::vector<std::string> PagesIn(const std::string &Folder)
{
    std::vector<std::string> Names;
    for (const auto &Entry : fs::directory_iterator(Folder))
        if (Entry.path().extension() == ".ppm")
            Names.push_back(Entry.path().string());
    std::sort(Names.begin(), Names.end());
    return Names;
}

template <class cIsInk> static cInk Bounds(const cPicture &Picture, cIsInk IsInk)
{
    cInk Found = {Picture.Width(), Picture.Height(), 0, 0};
    for (int y = 0; y < Picture.Height(); y++)
        for (int x = 0; x < Picture.Width(); x++)
            if (IsInk(Picture.At(x, y)))
                Found = {std::min(Found.m_nLeft, x), std::min(Found.m_nTop, y),
                         std::max(Found.m_nRight, x + 1), std::max(Found.m_nBottom, y + 1)};
    return Found.m_nRight > 0 ? Found : cInk();
}

cInk cPrintedPage::Ink() const
{
    return Bounds(m_Picture, [](unsigned nPixel) { return nPixel != kPaperWhite; });
}

cInk cPrintedPage::InkOf(unsigned nColour) const
{
    return Bounds(m_Picture, [nColour](unsigned nPixel) { return nPixel == nColour; });
}

void cPrintedDocument::Save(unsigned nPage, const std::string &Name) const
{
    REQUIRE(nPage <= m_Pages.size());
    m_Pages[nPage - 1].m_Picture.Save(Name);
}

cPaperTray::cPaperTray() : m_nTaken(0)
{
    const char *const szFolder = getenv("PAPER_TRAY");
    REQUIRE_MESSAGE(szFolder, "not started by scripts/with-printer");
    m_Folder = szFolder;
    while (HasDocument(m_nTaken + 1))
        m_nTaken++;
}

int cPaperTray::HasDocument(int nNumber) const
{
    return fs::exists(m_Folder + "/" + std::to_string(nNumber) + "/title");
}

cPrintedDocument cPaperTray::Next()
{
    m_nTaken++;
    REQUIRE_MESSAGE(WaitFor([this] { return HasDocument(m_nTaken); }), "nothing was printed");
    const std::string Folder = m_Folder + "/" + std::to_string(m_nTaken);
    REQUIRE_MESSAGE(fs::exists(Folder + "/text"), ContentOf(Folder + "/log"));

    cPrintedDocument Document;
    Document.m_Title                     = ContentOf(Folder + "/title");
    Document.m_Texts                     = TextsOf(WithSemicolons(ContentOf(Folder + "/text")));
    const std::vector<std::string> Names = PagesIn(Folder);
    REQUIRE(Names.size() <= Document.m_Texts.size());
    for (size_t i = 0; i < Names.size(); i++)
        Document.m_Pages.push_back({Document.m_Texts[i], cPicture::OfFile(Names[i])});
    return Document;
}
