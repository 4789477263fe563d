#include "tables/table_lines.h"

#include <cstdio>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "tests/unit/scratch_folder.h"
#include "toolkit/disk_file.h"

namespace
{

// A file and its lines.
class cLinesRig
{
public:
    explicit cLinesRig(const std::string &Content) : m_File(nullptr, fclose)
    {
        m_Folder.Write("table.txt", Content);
        m_File.reset(OpenDiskFile(m_Folder.Name("table.txt").c_str(), "rb"));
        REQUIRE(m_File);
        m_Lines = std::make_unique<cTableLines>(m_File.get());
    }

    // What is left, each line with "|" after it or, if a CR alone ended it, "^".
    std::string Rest()
    {
        std::string      Text;
        std::string_view Line;
        while (m_Lines->Next(&Line))
            Text.append(Line).append(m_Lines->EndedWithCr() ? "^" : "|");
        return Text;
    }

    cScratchFolder               m_Folder;
    cOpenFile                    m_File;
    std::unique_ptr<cTableLines> m_Lines;
};

}  // namespace

TEST_CASE("lines end with LF, CR LF or a CR alone")
{
    static const struct
    {
        const char *szContent;
        const char *szLines;
    } s_Rows[] = {
        {"", ""},
        {"a", "a|"},
        {"a\n", "a|"},
        {"\n\na", "||a|"},
        {"a\r\nb\r\n", "a|b|"},
        {"a\rb\rc", "a^b^c|"},
        {"a\r", "a^"},
        {"a\r\r\nb", "a^|b|"},
        {"\r\n\r\r\n", "|^|"},
        {"a\rb\nc\r\nd", "a^b|c|d|"},
    };
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.szContent);
        CHECK(cLinesRig(Row.szContent).Rest() == Row.szLines);
    }
}

TEST_CASE("a line end may lie anywhere at the border of two blocks")
{
    const size_t kBlock = 128 * 1024;
    for (size_t nBefore = kBlock - 4; nBefore < kBlock + 4; nBefore++)
        for (const char *const szEnd : {"\n", "\r\n", "\r"})
        {
            CAPTURE(nBefore);
            CAPTURE(szEnd);
            const std::string Long(nBefore, 'x');
            const char       *szMark = szEnd[0] == '\r' && szEnd[1] == '\0' ? "^" : "|";

            const std::string Lines = cLinesRig(Long + szEnd + "y\nz").Rest();

            CHECK((Lines == Long + szMark + "y|z|"));
        }
}

TEST_CASE("random texts have the lines that a simple reader finds")
{
    std::mt19937 Random(7);
    for (int i = 0; i < 20; i++)
    {
        std::string Content, Expected;
        for (size_t nLine = 0; nLine < 400; nLine++)
        {
            const std::string Line(Random() % 2000, 'a');
            const char *const szEnd = Random() % 3 == 0 ? "\r" : Random() % 2 ? "\r\n" : "\n";
            Content += Line + szEnd;
            // What follows begins with no LF, so that a CR is alone.
            Expected += Line + (std::string(szEnd) == "\r" ? "^" : "|");
            Content += "b";
            Expected += "b";
        }

        CHECK((cLinesRig(Content).Rest() == Expected + "|"));
    }
}

TEST_CASE("the lines are counted, and come again after going back")
{
    cLinesRig        Rig("a\nb\nc\n");
    std::string_view Line;
    CHECK(Rig.m_Lines->Next(&Line) == 1);
    CHECK(Rig.m_Lines->Next(&Line) == 1);
    CHECK(Rig.m_Lines->LineNumber() == 2);

    CHECK(Rig.m_Lines->Rewind() == 1);

    CHECK(Rig.m_Lines->LineNumber() == 0);
    CHECK(Rig.Rest() == "a|b|c|");
    CHECK(Rig.m_Lines->LineNumber() == 3);
    CHECK(Rig.m_Lines->BytesRead() == 6);
    CHECK(Rig.m_Lines->Failed() == 0);
    CHECK(Rig.m_Lines->TooLong() == 0);
}

TEST_CASE("a line has at most a megabyte")
{
    const std::string Longest(kLongestTableLine - 1, 'x');

    CHECK((cLinesRig("a\n" + Longest + "\nb").Rest() == "a|" + Longest + "|b|"));
    cLinesRig TooLong("a\n" + Longest + "xx\nb");
    CHECK(TooLong.Rest() == "a|");
    CHECK(TooLong.m_Lines->TooLong() == 1);
    CHECK(TooLong.m_Lines->LineNumber() == 1);
}
