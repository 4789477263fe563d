#include "graph/short_line_reader.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "tests/unit/scratch_folder.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace
{

typedef std::vector<std::string> cLines;

}  // namespace

static cLines LinesOf(const cScratchFolder &Folder, const std::string &Content)
{
    Folder.Write("lines.txt", Content);
    auto pReader = std::make_unique<cShortLineReader>();
    REQUIRE(pReader->Open(Folder.Name("lines.txt").c_str()) == 1);
    cLines Lines;
    int    bCounted = 1;
    while (pReader->Next())
    {
        Lines.push_back(pReader->Text());
        bCounted = bCounted && pReader->LineNumber() == Lines.size();
    }
    CHECK(bCounted == 1);
    CHECK(pReader->Failed() == 0);
    CHECK(pReader->Next() == 0);
    pReader.reset();
    std::filesystem::remove(Folder.Name("lines.txt"));
    return Lines;
}

// The same by the plainest means: drop each carriage return before a newline,
// then take 99 bytes at most, ending at a newline.
static cLines PlainLines(const std::string &Content)
{
    std::string Text;
    for (size_t i = 0; i < Content.size(); i++)
        if (Content[i] != '\r' || i + 1 == Content.size() || Content[i + 1] != '\n')
            Text += Content[i];
    cLines Lines;
    for (size_t nStart = 0; nStart < Text.size();)
    {
        std::string Line;
        while (nStart < Text.size() && Line.size() < 99)
        {
            Line += Text[nStart++];
            if (Line.back() == '\n')
                break;
        }
        if (Line.back() == '\n')
            Line.pop_back();
        Lines.push_back(Line.c_str());  // a zero byte ends the text
    }
    return Lines;
}

TEST_CASE("a file is read line by line, with either line end or none at the end")
{
    cScratchFolder Folder;
    // clang-format off
    static const struct { const char *szContent; cLines Lines; } s_Rows[] =
    {
        { "",                   {}                      },
        { "\n",                 { "" }                  },
        { "a",                  { "a" }                 },
        { "a\n",                { "a" }                 },
        { "a\nb",               { "a", "b" }            },
        { "a\r\nb\r\n",         { "a", "b" }            },
        { "a\n\n\r\nb",         { "a", "", "", "b" }    },
        { "a\rb\n",             { "a\rb" }              },
        { "a\r\r\n",            { "a\r" }               },
        { "a\r",                { "a\r" }               },
        { "\r",                 { "\r" }                },
        { "a\x1A\nb\n",         { "a\x1A", "b" }        },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.szContent);
        CHECK(LinesOf(Folder, Row.szContent) == Row.Lines);
    }
}

TEST_CASE("a line has at most 99 bytes with its newline and without its carriage return")
{
    cScratchFolder Folder;
    // clang-format off
    static const struct { size_t nLength; std::vector<size_t> Pieces; } s_Rows[] =
    {
        {  97, { 97 }           },
        {  98, { 98 }           },
        {  99, { 99, 0 }        },
        { 100, { 99, 1 }        },
        { 197, { 99, 98 }       },
        { 198, { 99, 99, 0 }    },
        { 199, { 99, 99, 1 }    },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
        for (const std::string LineEnd : {"\n", "\r\n"})
        {
            CAPTURE(Row.nLength);
            CAPTURE(LineEnd.size());

            const cLines Lines = LinesOf(Folder, std::string(Row.nLength, 'x') + LineEnd + "next");

            std::vector<size_t> Pieces;
            for (const std::string &Line : Lines)
                Pieces.push_back(Line.size());
            std::vector<size_t> Expected = Row.Pieces;
            Expected.push_back(4);
            CHECK(Pieces == Expected);
        }
}

TEST_CASE("99 characters at the end of the file are one line")
{
    cScratchFolder Folder;

    CHECK(LinesOf(Folder, std::string(99, 'x')) == cLines{std::string(99, 'x')});
}

TEST_CASE("a carriage return inside a line counts for its length")
{
    cScratchFolder    Folder;
    const std::string Start(98, 'x');

    CHECK(LinesOf(Folder, Start + "\rx\n") == cLines{Start + "\r", "x"});
}

TEST_CASE("a zero byte ends the text of its line only")
{
    cScratchFolder Folder;

    CHECK(LinesOf(Folder, std::string("a\0b\n\0\nc", 7)) == cLines{"a", "", "c"});
}

TEST_CASE("any bytes give the same lines as reading byte by byte")
{
    cScratchFolder Folder;
    std::mt19937   Random(2718);
    // clang-format off
    static const struct { const char *szBytes; size_t nBytes; } s_Alphabets[] =
    {
        { "x\n",            2 },
        { "xxxxxxxxxxxxxxxxxxxxxxxxxxxxx\r\n", 31 },
        { "\r\n",           2 },
        { "x\0\r\n",        4 },
    };
    // clang-format on
    for (const auto &Alphabet : s_Alphabets)
        for (int nRun = 0; nRun < 5; nRun++)
        {
            // Some blocks long, so that lines lie across the ends of blocks.
            std::string  Content;
            const size_t nLength = 3 * kReadBlock + Random() % 400;
            while (Content.size() < nLength)
            {
                if (Random() % 120 == 0)
                    Content += std::string(Random() % 300, 'y');
                Content += Alphabet.szBytes[Random() % Alphabet.nBytes];
            }

            const int bSame = LinesOf(Folder, Content) == PlainLines(Content);
            CHECK(bSame);
        }
}

TEST_CASE("lines lie across the end of a block in every way")
{
    cScratchFolder Folder;
    for (size_t nBefore = kReadBlock - 205; nBefore <= kReadBlock + 2; nBefore++)
    {
        std::string Content;
        while (Content.size() < nBefore)
            Content += std::string(std::min<size_t>(60, nBefore - Content.size() - 1), 'a') + "\n";
        Content += std::string(98, 'b') + "\r\n" + std::string(99, 'c') + "\r\nd";

        const int bSame = LinesOf(Folder, Content) == PlainLines(Content);
        CAPTURE(nBefore);
        REQUIRE(bSame);
    }
}

TEST_CASE("the reader goes back to a line and counts on from there")
{
    cScratchFolder Folder;
    std::string    Content = "; first\r\nsecond\r\n";
    for (int i = 0; i < 20000; i++)
        Content += "row " + std::to_string(i) + "\n";
    Folder.Write("lines.txt", Content);
    auto pReader = std::make_unique<cShortLineReader>();
    REQUIRE(pReader->Open(Folder.Name("lines.txt").c_str()) == 1);
    pReader->Next();
    pReader->Next();
    const cShortLineReader::cMark Second = pReader->LineStart();
    for (int i = 0; i < 15000; i++)
        pReader->Next();
    const cShortLineReader::cMark Late = pReader->LineStart();
    while (pReader->Next())
        continue;

    REQUIRE(pReader->GoBack(Second) == 1);
    REQUIRE(pReader->Next() == 1);
    CHECK(std::string(pReader->Text()) == "second");
    CHECK(pReader->LineNumber() == 2);

    REQUIRE(pReader->GoBack(Late) == 1);
    REQUIRE(pReader->Next() == 1);
    CHECK(std::string(pReader->Text()) == "row 14999");
    CHECK(pReader->LineNumber() == 15002);
    CHECK(pReader->LineStart().nOffset == Late.nOffset);
    CHECK(pReader->LineStart().nLinesBefore == 15001);
}

TEST_CASE("only regular files are opened")
{
    cScratchFolder Folder;
    std::filesystem::create_directory(Folder.Name("folder"));
    std::vector<std::string> Names = {Folder.Name("missing.txt"), Folder.Name("folder"),
                                      Folder.Name(""), ""};
#ifdef _WIN32
    Names.insert(Names.end(), {"NUL", "CON", "COM1"});
#else
    // Opening a pipe without a writer would wait for ever, and the zeros
    // would have no end.
    REQUIRE(mkfifo(Folder.Name("pipe").c_str(), 0600) == 0);
    Names.insert(Names.end(), {Folder.Name("pipe"), "/dev/zero", "/dev/null", "/dev/tty"});
#endif
    for (const std::string &Name : Names)
    {
        CAPTURE(Name);
        auto pReader = std::make_unique<cShortLineReader>();

        CHECK(pReader->Open(Name.c_str()) == 0);
    }
}

#ifdef __linux__

TEST_CASE("a file that cannot be read to its end has failed")
{
    // The memory of the program itself: a regular file, but nothing lies at
    // its beginning.
    auto pReader = std::make_unique<cShortLineReader>();
    REQUIRE(pReader->Open("/proc/self/mem") == 1);

    CHECK(pReader->Next() == 0);
    CHECK(pReader->Failed() == 1);
}

#endif

TEST_CASE("a name in the user's code page is opened")
{
    cScratchFolder Folder;
    Folder.Write("M\xFCller.txt", "7\n");
    auto pReader = std::make_unique<cShortLineReader>();

    CHECK(pReader->Open(Folder.Name("M\xFCller.txt").c_str()) == 1);
    CHECK(pReader->Next() == 1);
}
