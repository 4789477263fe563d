#include "toolkit/win32/win32.h"

#include "shell/win32/edit_line_box.h"

#include <memory>
#include <string>

#include <doctest/doctest.h>

#include "engine/memory_line_box.h"
#include "tests/win32/test_frame.h"

namespace
{

// A line box with its edit box.
struct cWindowBoxRig : cFrameRig
{
    cWindowBoxRig()
    {
        REQUIRE(m_EditBox.Create(&m_Frame, 10, 10, 200, 200, ES_NOHIDESEL | WS_VISIBLE, 1003, 0, 0,
                                 500000) == 1);
    }
    ~cWindowBoxRig() { m_Frame.Close(); }

    cLineBox &Box() { return m_LineBox; }

    cEditBox     m_EditBox{&m_Boxes};
    cEditLineBox m_LineBox{&m_EditBox};
};

struct cMemoryBoxRig
{
    cLineBox &Box() { return m_LineBox; }

    cMemoryLineBox m_LineBox;
};

}  // namespace

static std::string Text(const cLineBox &Box)
{
    std::string Text(Box.GetTextLength() + 1, '\0');
    Text.resize(Box.GetText(Text.data(), Text.size()));
    return Text;
}

static std::string Line(const cLineBox &Box, unsigned nLine, size_t nSize = 20)
{
    char szText[20];
    CHECK(Box.GetLine(nLine, szText, nSize) == 1);
    return szText;
}

// These tests run for the line box of a window and the one in memory.

TEST_CASE_TEMPLATE("a line box counts no empty line after the last line end", cRig, cWindowBoxRig,
                   cMemoryBoxRig)
{
    cRig      Rig;
    cLineBox &Box = Rig.Box();
    CHECK(Box.CountLines() == 0);

    Box.SetText("\r\n");
    CHECK(Box.CountLines() == 1);
    Box.SetText("a\r\nb\r\n");
    CHECK(Box.CountLines() == 2);
    Box.SetText("a\r\n\r\n");
    CHECK(Box.CountLines() == 2);
    Box.SetText("a\r\nb");
    CHECK(Box.CountLines() == 2);
}

TEST_CASE_TEMPLATE("a line box returns lines with their line end, cut to the buffer", cRig,
                   cWindowBoxRig, cMemoryBoxRig)
{
    cRig      Rig;
    cLineBox &Box = Rig.Box();
    Box.SetText("01 PI\r\n02 sqrt\r\n");

    CHECK(Line(Box, 0) == "01 PI\r\n");
    CHECK(Line(Box, 1) == "02 sqrt\r\n");
    CHECK(Line(Box, 1, 7) == "02 s\r\n");
    CHECK(Line(Box, 2) == "\r\n");
    CHECK(Line(Box, 0xFFFFFFFF) == "\r\n");
}

TEST_CASE_TEMPLATE("a line box inserts before a line and appends after the last", cRig,
                   cWindowBoxRig, cMemoryBoxRig)
{
    cRig      Rig;
    cLineBox &Box = Rig.Box();

    CHECK(Box.InsertLine(0, "b\r\n") == 1);
    CHECK(Box.InsertLine(0, "a\r\n") == 1);
    CHECK(Box.InsertLine(2, "c\r\n") == 1);
    CHECK(Box.InsertLine(4, "d\r\n") == 0);
    CHECK(Box.InsertLine(0xFFFFFFFF, "d\r\n") == 0);

    CHECK(Text(Box) == "a\r\nb\r\nc\r\n");
}

TEST_CASE_TEMPLATE("a line box replaces and removes lines", cRig, cWindowBoxRig, cMemoryBoxRig)
{
    cRig      Rig;
    cLineBox &Box = Rig.Box();
    Box.SetText("a\r\nb\r\nc\r\n");

    CHECK(Box.ReplaceLine(1, "new\r\n") == 1);
    CHECK(Box.ReplaceLine(2, "") == 1);
    CHECK(Box.ReplaceLine(2, "x\r\n") == 0);
    CHECK(Box.ReplaceLine(0xFFFFFFFF, "x\r\n") == 0);

    CHECK(Text(Box) == "a\r\nnew\r\n");
}

TEST_CASE_TEMPLATE("a line box returns all its text or as much as fits", cRig, cWindowBoxRig,
                   cMemoryBoxRig)
{
    cRig      Rig;
    cLineBox &Box = Rig.Box();
    CHECK(Box.SetText("a\r\nbc\r\n") == 1);

    char szText[5];
    CHECK(Box.GetTextLength() == 7);
    CHECK(Box.GetText(szText, sizeof szText) == 4);
    CHECK(std::string(szText) == "a\r\nb");
}

TEST_CASE_TEMPLATE("a line box keeps characters beyond ASCII", cRig, cWindowBoxRig, cMemoryBoxRig)
{
    cRig              Rig;
    cLineBox         &Box = Rig.Box();
    const std::string All = "01 PI ; \xe4\xf6\xfc\xdf \x80\xff \x81\x8d\t\r\n";

    CHECK(Box.SetText(All.c_str()) == 1);

    CHECK(Text(Box) == All);
}

TEST_CASE_TEMPLATE("a line that does not exist cannot be highlighted", cRig, cWindowBoxRig,
                   cMemoryBoxRig)
{
    cRig      Rig;
    cLineBox &Box = Rig.Box();
    Box.SetText("a\r\nb\r\n");

    CHECK(Box.HighlightLine(1) == 1);
    CHECK(Box.HighlightLine(2) == 0);
    CHECK(Box.HighlightLine(0xFFFFFFFF) == 0);
}

TEST_CASE("a highlighted line is selected in the window, and stays so after a refused highlight")
{
    cWindowBoxRig Rig;
    Rig.Box().SetText("a\r\nbb\r\nccc\r\n");

    Rig.Box().HighlightLine(1);
    Rig.Box().HighlightLine(3);

    CHECK(SendMessageA(Rig.m_EditBox.Window(), EM_GETSEL, 0, 0) == MAKELONG(3, 7));
}

TEST_CASE("a text that the window cannot hold is reported")
{
    cWindowBoxRig Rig;
    SendMessageA(Rig.m_EditBox.Window(), EM_LIMITTEXT, 5, 0);

    CHECK(Rig.Box().SetText("a\r\nb\r\n") == 0);
    CHECK(Text(Rig.Box()) == "a\r\nb\r");
}
