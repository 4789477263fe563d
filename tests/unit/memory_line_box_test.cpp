#include "engine/memory_line_box.h"

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include <doctest/doctest.h>

static std::string Line(const cLineBox &Box, unsigned nLine, size_t nSize = 100)
{
    std::vector<char> Text(nSize, '?');
    CHECK(Box.GetLine(nLine, Text.data(), nSize) == 1);
    REQUIRE(memchr(Text.data(), 0, nSize));
    return Text.data();
}

static std::string All(const cLineBox &Box)
{
    std::vector<char> Text(Box.GetTextLength() + 1, '?');
    CHECK(Box.GetText(Text.data(), Text.size()) == Box.GetTextLength());
    return Text.data();
}

TEST_CASE("a new box is empty")
{
    cMemoryLineBox Box;

    CHECK(Box.CountLines() == 0);
    CHECK(Box.GetTextLength() == 0);
    CHECK(All(Box) == "");
    CHECK(Line(Box, 0) == "\r\n");
    CHECK(Box.HighlightedLine() == 0);
}

TEST_CASE("a text is divided at CR LF, with no empty line after the last")
{
    cMemoryLineBox Box;

    CHECK(Box.SetText("one\r\n\r\nthree\r\n") == 1);

    CHECK(Box.CountLines() == 3);
    CHECK(Line(Box, 0) == "one\r\n");
    CHECK(Line(Box, 1) == "\r\n");
    CHECK(Line(Box, 2) == "three\r\n");
    CHECK(Box.GetTextLength() == 14);
    CHECK(All(Box) == "one\r\n\r\nthree\r\n");
}

TEST_CASE("a CR or an LF alone divides nothing")
{
    cMemoryLineBox Box;

    Box.SetText("a\rb\nc\r\r\nd\r\n");

    CHECK(Box.CountLines() == 2);
    CHECK(Line(Box, 0) == "a\rb\nc\r\r\n");
    CHECK(Line(Box, 1) == "d\r\n");
}

TEST_CASE("a line that does not exist reads as empty")
{
    cMemoryLineBox Box;
    Box.SetText("one\r\n");

    CHECK(Line(Box, 1) == "\r\n");
    CHECK(Line(Box, 0xFFFFFFFF) == "\r\n");
}

TEST_CASE("a line is cut to the buffer, its line end stays")
{
    cMemoryLineBox Box;
    Box.SetText("0123456789\r\n");

    CHECK(Line(Box, 0, 13) == "0123456789\r\n");
    CHECK(Line(Box, 0, 12) == "012345678\r\n");
    CHECK(Line(Box, 0, 4) == "0\r\n");
    CHECK(Line(Box, 0, 3) == "\r\n");
}

TEST_CASE("the text is cut to the buffer")
{
    cMemoryLineBox Box;
    char           szText[6] = "?????";
    Box.SetText("one\r\ntwo\r\n");

    CHECK(Box.GetText(szText, sizeof szText) == 5);
    CHECK(std::string(szText) == "one\r\n");
    CHECK(Box.GetText(szText, 1) == 0);
    CHECK(std::string(szText) == "");
}

TEST_CASE("lines are inserted before others and at the end")
{
    cMemoryLineBox Box;

    CHECK(Box.InsertLine(0, "b\r\n") == 1);
    CHECK(Box.InsertLine(0, "a\r\n") == 1);
    CHECK(Box.InsertLine(2, "d\r\n") == 1);
    CHECK(Box.InsertLine(2, "c\r\n") == 1);
    CHECK(All(Box) == "a\r\nb\r\nc\r\nd\r\n");
    CHECK(Box.CountLines() == 4);

    CHECK(Box.InsertLine(5, "x\r\n") == 0);
    CHECK(Box.InsertLine(0xFFFFFFFF, "x\r\n") == 0);
    CHECK(All(Box) == "a\r\nb\r\nc\r\nd\r\n");
}

TEST_CASE("lines are replaced by longer, shorter and no text")
{
    cMemoryLineBox Box;
    Box.SetText("one\r\ntwo\r\nthree\r\n");

    CHECK(Box.ReplaceLine(1, "twenty-two\r\n") == 1);
    CHECK(All(Box) == "one\r\ntwenty-two\r\nthree\r\n");
    CHECK(Line(Box, 2) == "three\r\n");

    CHECK(Box.ReplaceLine(0, "1\r\n") == 1);
    CHECK(Box.ReplaceLine(2, "iii33\r\n") == 1);
    CHECK(All(Box) == "1\r\ntwenty-two\r\niii33\r\n");

    CHECK(Box.ReplaceLine(1, "") == 1);
    CHECK(All(Box) == "1\r\niii33\r\n");
    CHECK(Box.CountLines() == 2);

    CHECK(Box.ReplaceLine(2, "x\r\n") == 0);
    CHECK(All(Box) == "1\r\niii33\r\n");
}

TEST_CASE("only a line that exists is highlighted")
{
    cMemoryLineBox Box;
    Box.SetText("a\r\nb\r\nc\r\n");

    CHECK(Box.HighlightLine(2) == 1);
    CHECK(Box.HighlightedLine() == 2);

    CHECK(Box.HighlightLine(3) == 0);
    CHECK(Box.HighlightLine(0xFFFFFFFF) == 0);
    CHECK(Box.HighlightedLine() == 2);
}

TEST_CASE("random changes give what a list of texts gives")
{
    cMemoryLineBox           Box;
    std::vector<std::string> Lines;
    std::mt19937             Random(5);
    for (int i = 0; i < 3000; i++)
    {
        CAPTURE(i);
        const unsigned    nLine = static_cast<unsigned>(Random() % (Lines.size() + 2));
        const std::string Text  = std::string(Random() % 4, 'x') + "\r\n";
        const auto        Place = static_cast<std::ptrdiff_t>(nLine);
        const int         bLine = nLine < Lines.size();
        switch (Random() % 3)
        {
        case 0:
            REQUIRE(Box.InsertLine(nLine, Text.c_str()) == (nLine <= Lines.size()));
            if (nLine <= Lines.size() && Lines.size() < 60)
                Lines.insert(Lines.begin() + Place, Text);
            else if (nLine <= Lines.size())
            {
                Lines.clear();
                Box.SetText("");
            }
            break;
        case 1:
            REQUIRE(Box.ReplaceLine(nLine, Text.c_str()) == bLine);
            if (bLine)
                Lines[nLine] = Text;
            break;
        case 2:
            REQUIRE(Box.ReplaceLine(nLine, "") == bLine);
            if (bLine && Random() % 2)
                Lines.erase(Lines.begin() + Place);
            else if (bLine)
            {
                Box.InsertLine(nLine, Text.c_str());
                Lines[nLine] = Text;
            }
            break;
        }

        std::string Expected;
        for (const std::string &Each : Lines)
            Expected += Each;
        REQUIRE(All(Box) == Expected);
        REQUIRE(Box.CountLines() == Lines.size());
        for (unsigned n = 0; n < Lines.size(); n++)
            REQUIRE(Line(Box, n) == Lines[n]);
    }
    CHECK(Lines.size() > 5);
}
