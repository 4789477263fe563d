#include "toolkit/win32/win32.h"

#include "toolkit/win32/edit_box.h"

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "tests/unit/failing_memory.h"
#include "tests/win32/test_frame.h"
#include "toolkit/win32/gdi.h"

typedef HMODULE(WINAPI *cLoadLibrary)(LPCSTR, HANDLE, DWORD);
extern "C" cLoadLibrary __imp_LoadLibraryExA;

static const uint32_t kLimit = 500000;
static const int      kBoxId = 1003;

namespace
{

// An edit box in a frame, as the calculator creates it, or a rich-edit box.
struct cEditRig : cFrameRig
{
    explicit cEditRig(int bRich = 0, uint32_t nLimit = kLimit, DWORD dwStyle = WS_VISIBLE)
    {
        REQUIRE(m_Box.Create(&m_Frame, 10, 10, 200, 200, ES_NOHIDESEL | dwStyle, kBoxId, bRich, 1,
                             nLimit) == 1);
        REQUIRE(m_Box.SetFont("Courier New", 90, kFontFixedPitch) == 1);
        m_Frame.m_Commands.clear();
    }
    ~cEditRig() { m_Frame.Close(); }

    std::string Text() const
    {
        std::string  Text(m_Box.GetTextLength() + 1, '\0');
        const size_t nLength = m_Box.GetText(Text.data(), Text.size());
        Text.resize(nLength);
        return Text;
    }

    std::string Line(int nLine, size_t nSize = 40) const
    {
        char szText[40] = "untouched";
        CHECK(m_Box.GetLine(nLine, szText, nSize) == 1);
        return szText;
    }

    LRESULT Send(UINT nMessage, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return SendMessageA(m_Box.Window(), nMessage, wParam, lParam);
    }

    std::string SelectedText() const
    {
        DWORD nStart = 0;
        DWORD nEnd   = 0;
        Send(EM_GETSEL, reinterpret_cast<WPARAM>(&nStart), reinterpret_cast<LPARAM>(&nEnd));
        return Text().substr(nStart, nEnd - nStart);
    }

    int FirstVisible() const { return static_cast<int>(Send(EM_GETFIRSTVISIBLELINE)); }

    // Number of lines that fit in the view.
    int VisibleLines() const
    {
        RECT View = {};
        Send(EM_GETRECT, 0, reinterpret_cast<LPARAM>(&View));
        const LRESULT nBottom = Send(EM_CHARFROMPOS, 0, MAKELPARAM(View.left, View.bottom - 1));
        return HIWORD(nBottom) - FirstVisible() + 1;
    }

    int HasNotification(WORD nCode) const
    {
        for (const cCommand &Command : m_Frame.m_Commands)
            if (Command.m_nId == kBoxId && Command.m_nCode == nCode)
                return 1;
        return 0;
    }

    cEditBox m_Box{&m_Boxes};
};

static HMODULE WINAPI FindNoLibrary(LPCSTR, HANDLE, DWORD)
{
    SetLastError(ERROR_MOD_NOT_FOUND);
    return nullptr;
}

// While it exists, no library is found: the program's own reference to the platform's
// function leads elsewhere.
class cNoLibraries
{
public:
    cNoLibraries() : m_pFormer(__imp_LoadLibraryExA) { __imp_LoadLibraryExA = FindNoLibrary; }
    ~cNoLibraries() { __imp_LoadLibraryExA = m_pFormer; }
    cNoLibraries(const cNoLibraries &)            = delete;
    cNoLibraries &operator=(const cNoLibraries &) = delete;

private:
    cLoadLibrary m_pFormer;
};

// An invalid library file in the program's folder.
class cBrokenLibrary
{
public:
    explicit cBrokenLibrary(const char *szName)
    {
        char szProgram[260] = "";
        GetModuleFileNameA(nullptr, szProgram, sizeof szProgram);
        m_Name            = std::string(szProgram, strrchr(szProgram, '\\') + 1) + szName;
        FILE *const pFile = fopen(m_Name.c_str(), "wb");
        REQUIRE(pFile);
        fputs("no library", pFile);
        fclose(pFile);
    }
    ~cBrokenLibrary() { remove(m_Name.c_str()); }
    cBrokenLibrary(const cBrokenLibrary &)            = delete;
    cBrokenLibrary &operator=(const cBrokenLibrary &) = delete;

private:
    std::string m_Name;
};

}  // namespace

// "00\r\n01\r\n..."
static std::string NumberedLines(int nLines)
{
    std::string Text;
    for (int i = 0; i < nLines; i++)
    {
        char szLine[16];
        snprintf(szLine, sizeof szLine, "%02d\r\n", i);
        Text += szLine;
    }
    return Text;
}

TEST_CASE("an edit box begins with a copy of the system font")
{
    cRecordingBoxes Boxes;
    const cEditBox  Box(&Boxes);

    CHECK(std::string(Box.GetClassName()) == "EDIT");
    CHECK(Box.TextColour() == RGB(0, 0, 0));
    LOGFONTA System = {};
    GetObjectA(GetStockObject(SYSTEM_FONT), sizeof System, &System);
    CHECK(std::string(Box.FontDescription().lfFaceName) == System.lfFaceName);
    CHECK(Box.FontDescription().lfHeight == System.lfHeight);
    const int nDpi = GetDeviceCaps(cWindowDc(nullptr).Get(), LOGPIXELSY);
    CHECK(Box.PointSize() == abs(System.lfHeight) * 720 / nDpi);
}

TEST_CASE("an edit box is a hidden multi-line control with both scroll bars")
{
    const cEditRig Rig(0, kLimit, 0);

    const LONG_PTR nStyle = GetWindowLongPtrA(Rig.m_Box.Window(), GWL_STYLE);
    for (const LONG_PTR nWanted : {ES_MULTILINE, ES_AUTOVSCROLL, ES_AUTOHSCROLL, ES_NOHIDESEL})
        CHECK((nStyle & nWanted) == nWanted);
    CHECK((nStyle & WS_VISIBLE) == 0);
    CHECK(Rig.m_Box.IsVisible() == 0);
    CHECK(GetDlgCtrlID(Rig.m_Box.Window()) == kBoxId);
    CHECK(Rig.Send(EM_GETLIMITTEXT) == kLimit);
}

TEST_CASE("an edit box that cannot be created shows an error")
{
    cNoFrameRig Rig;
    cEditBox    Box(&Rig.m_Boxes);

    CHECK(Box.Create(&Rig.m_Frame, 0, 0, 10, 10, 0, 1, 0, 0, kLimit) == 0);

    CHECK(ShowedOnlyError(Rig.m_Boxes, "ERROR: CreateWindow() failed in cEditBox::Create()"));
    CHECK(Rig.m_Boxes.m_QuitCodes.empty());
}

TEST_CASE("an edit box is read-only for the user and not for the program")
{
    cEditRig Rig;
    CHECK(Rig.m_Box.IsReadOnly() == 0);

    Rig.m_Box.SetReadOnly(1);
    CHECK(Rig.m_Box.IsReadOnly() == 1);
    Rig.Send(WM_CHAR, 'x');
    CHECK(Rig.Text() == "");
    Rig.m_Box.InsertLine(0, "a\r\n");
    CHECK(Rig.Text() == "a\r\n");

    Rig.m_Box.SetReadOnly(0);
    CHECK(Rig.m_Box.IsReadOnly() == 0);
}

TEST_CASE("the font of an edit box is set by face, tenths of a point and style")
{
    cEditRig Rig;

    CHECK(Rig.m_Box.SetFont("Liberation Sans", 120,
                            kFontBold | kFontItalic | kFontUnderline | kFontStrikeOut) == 1);

    LOGFONTA    Font  = {};
    const HFONT hFont = reinterpret_cast<HFONT>(Rig.Send(WM_GETFONT));
    REQUIRE(GetObjectA(hFont, sizeof Font, &Font) != 0);
    CHECK(std::string(Font.lfFaceName) == "Liberation Sans");
    CHECK(Font.lfHeight == -MulDiv(120, GetDeviceCaps(cWindowDc(nullptr).Get(), LOGPIXELSY), 720));
    CHECK(Font.lfWeight == FW_BOLD);
    CHECK(Font.lfItalic != 0);
    CHECK(Font.lfUnderline != 0);
    CHECK(Font.lfStrikeOut != 0);
    CHECK(Rig.m_Box.PointSize() == 120);
    CHECK(std::string(Rig.m_Box.FontDescription().lfFaceName) == "Liberation Sans");

    CHECK(Rig.m_Box.SetFont("Liberation Sans", 75, 0) == 1);
    GetObjectA(reinterpret_cast<HFONT>(Rig.Send(WM_GETFONT)), sizeof Font, &Font);
    CHECK(Font.lfWeight == FW_NORMAL);
    CHECK(Font.lfItalic == 0);
    CHECK(Rig.m_Box.PointSize() == 75);
}

TEST_CASE("the substitute of a missing fixed-pitch face is fixed-pitch too")
{
    cEditRig Rig;
    REQUIRE(Rig.m_Box.SetFont("No Such Face", 90, kFontFixedPitch) == 1);

    const cWindowDc    Dc(Rig.m_Box.Window());
    const cSelectGuard Selected(Dc.Get(), reinterpret_cast<HFONT>(Rig.Send(WM_GETFONT)));
    SIZE               Narrow = {};
    SIZE               Wide   = {};
    GetTextExtentPoint32A(Dc.Get(), "iiii", 4, &Narrow);
    GetTextExtentPoint32A(Dc.Get(), "WWWW", 4, &Wide);
    CHECK(Narrow.cx == Wide.cx);
}

TEST_CASE("a control gets the font that was set before it was created")
{
    cFrameRig Rig;
    cEditBox  Box(&Rig.m_Boxes);
    REQUIRE(Box.SetFont("Liberation Mono", 110, kFontFixedPitch) == 1);

    REQUIRE(Box.Create(&Rig.m_Frame, 0, 0, 100, 100, 0, 1, 0, 0, kLimit) == 1);

    LOGFONTA Font = {};
    GetObjectA(reinterpret_cast<HFONT>(SendMessageA(Box.Window(), WM_GETFONT, 0, 0)), sizeof Font,
               &Font);
    CHECK(std::string(Font.lfFaceName) == "Liberation Mono");
    Rig.m_Frame.Close();
}

TEST_CASE("lines of an edit box are read with their line end")
{
    cEditRig Rig;
    Rig.m_Box.SetText("first\r\n\r\nlast");

    CHECK(Rig.m_Box.GetLineCount() == 3);
    CHECK(Rig.Line(0) == "first\r\n");
    CHECK(Rig.Line(1) == "\r\n");
    CHECK(Rig.Line(2) == "last\r\n");
    CHECK(Rig.m_Box.GetLineLength(0) == 5);
    CHECK(Rig.m_Box.GetLineLength(1) == 0);
    CHECK(Rig.m_Box.GetLineLength(2) == 4);
}

TEST_CASE("a line of an edit box is cut so that its line end fits")
{
    cEditRig Rig;
    Rig.m_Box.SetText("abcdefgh\r\n");

    CHECK(Rig.Line(0, 8) == "abcde\r\n");
    CHECK(Rig.Line(0, 4) == "a\r\n");
    CHECK(Rig.Line(0, 3) == "\r\n");
}

TEST_CASE("a line that an edit box does not have reads as empty")
{
    cEditRig Rig;
    Rig.m_Box.SetText("a\r\nb\r\n");

    CHECK(Rig.Line(2) == "\r\n");
    CHECK(Rig.Line(3) == "\r\n");
    CHECK(Rig.Line(-1) == "\r\n");
    CHECK(Rig.m_Box.GetLineLength(3) == 0);
    CHECK(Rig.m_Box.GetLineLength(-1) == 0);
}

TEST_CASE("a line is inserted before another, also after the last line end")
{
    cEditRig Rig;

    CHECK(Rig.m_Box.InsertLine(0, "b\r\n") == 1);
    CHECK(Rig.m_Box.InsertLine(0, "a\r\n") == 1);
    CHECK(Rig.m_Box.InsertLine(2, "c\r\n") == 1);

    CHECK(Rig.Text() == "a\r\nb\r\nc\r\n");
}

TEST_CASE("a line cannot be inserted before one that does not exist")
{
    cEditRig Rig;
    Rig.m_Box.SetText("a\r\n");

    CHECK(Rig.m_Box.InsertLine(2, "x\r\n") == 0);
    CHECK(Rig.m_Box.InsertLine(-1, "x\r\n") == 0);

    CHECK(Rig.Text() == "a\r\n");
}

TEST_CASE("a line is replaced with its line end")
{
    cEditRig Rig;
    Rig.m_Box.SetText("a\r\nb\r\nc\r\n");

    CHECK(Rig.m_Box.ReplaceLine(1, "new\r\n") == 1);
    CHECK(Rig.Text() == "a\r\nnew\r\nc\r\n");
    CHECK(Rig.m_Box.ReplaceLine(2, "last\r\n") == 1);
    CHECK(Rig.Text() == "a\r\nnew\r\nlast\r\n");
    CHECK(Rig.m_Box.ReplaceLine(0, "") == 1);
    CHECK(Rig.Text() == "new\r\nlast\r\n");
}

TEST_CASE("the last line cannot be replaced")
{
    cEditRig Rig;
    Rig.m_Box.SetText("a\r\nb");

    CHECK(Rig.m_Box.ReplaceLine(1, "x\r\n") == 0);
    CHECK(Rig.m_Box.ReplaceLine(2, "x\r\n") == 0);
    CHECK(Rig.m_Box.ReplaceLine(-1, "x\r\n") == 0);

    CHECK(Rig.Text() == "a\r\nb");
}

TEST_CASE("changing a line outside the view does not scroll")
{
    cEditRig Rig;
    Rig.m_Box.SetText(NumberedLines(99).c_str());
    Rig.Send(EM_LINESCROLL, 0, 40);

    Rig.m_Box.ReplaceLine(5, "above\r\n");
    CHECK(Rig.FirstVisible() == 40);
    Rig.m_Box.ReplaceLine(98, "below\r\n");
    CHECK(Rig.FirstVisible() == 40);
    Rig.m_Box.InsertLine(99, "behind\r\n");
    CHECK(Rig.FirstVisible() == 40);
}

TEST_CASE("the text of an edit box is cut to the buffer")
{
    cEditRig Rig;
    Rig.m_Box.SetText("abc\r\ndef\r\n");
    char szText[6];

    CHECK(Rig.m_Box.GetTextLength() == 10);
    CHECK(Rig.m_Box.GetText(szText, sizeof szText) == 5);

    CHECK(std::string(szText) == "abc\r\n");
}

TEST_CASE("setting the text of an edit box replaces everything")
{
    cEditRig Rig;
    Rig.m_Box.SetText("a longer text\r\nthan the next\r\n");

    CHECK(Rig.m_Box.SetText("new\r\n") == 1);
    CHECK(Rig.Text() == "new\r\n");
    CHECK(Rig.m_Box.SetText("") == 1);
    CHECK(Rig.Text() == "");
}

TEST_CASE("a text beyond the limit is cut and the owner is notified")
{
    cEditRig Rig(0, 10);

    CHECK(Rig.m_Box.SetText("0123456789") == 1);
    CHECK_FALSE(Rig.HasNotification(EN_MAXTEXT));
    CHECK(Rig.m_Box.SetText("abcdefghijkl") == 0);

    CHECK(Rig.Text() == "abcdefghij");
    CHECK(Rig.HasNotification(EN_MAXTEXT));
}

TEST_CASE("an inserted line beyond the limit is cut and the owner is notified")
{
    cEditRig Rig(0, 10);
    Rig.m_Box.SetText("01\r\n");

    CHECK(Rig.m_Box.InsertLine(0, "abcdefgh\r\n") == 1);

    CHECK(Rig.Text() == "abcdef01\r\n");
    CHECK(Rig.HasNotification(EN_MAXTEXT));
}

TEST_CASE("a text as long as the limit is kept")
{
    cEditRig    Rig;
    std::string Text;
    while (Text.size() < kLimit)
        Text += "12345678\r\n";

    CHECK(Rig.m_Box.SetText(Text.c_str()) == 1);

    CHECK(Rig.m_Box.GetTextLength() == kLimit);
    CHECK(Rig.m_Box.GetLineCount() == 50001);
    CHECK(Rig.Line(49999) == "12345678\r\n");
}

TEST_CASE("setting the text does not scroll")
{
    cEditRig Rig;
    Rig.m_Box.SetText(NumberedLines(99).c_str());
    Rig.Send(EM_LINESCROLL, 0, 40);
    REQUIRE(Rig.FirstVisible() == 40);

    Rig.m_Box.SetText(NumberedLines(98).c_str());

    CHECK(Rig.FirstVisible() == 40);
}

TEST_CASE("the view moves to the remaining lines when the text becomes short")
{
    cEditRig Rig;
    Rig.m_Box.SetText(NumberedLines(99).c_str());
    Rig.Send(EM_LINESCROLL, 0, 40);

    Rig.m_Box.SetText(NumberedLines(3).c_str());

    CHECK(Rig.FirstVisible() == 0);
}

TEST_CASE("setting the text clears the undo buffer and moves the caret to the start")
{
    cEditRig Rig;
    Rig.Send(WM_CHAR, 'x');
    REQUIRE(Rig.Send(EM_CANUNDO) != 0);

    Rig.m_Box.SetText("abc\r\n");

    CHECK(Rig.Send(EM_CANUNDO) == 0);
    CHECK(Rig.SelectedText() == "");
    CHECK(Rig.Send(EM_GETSEL) == 0);
}

TEST_CASE("setting the text of a hidden edit box does not show it")
{
    cEditRig Rig(0, kLimit, 0);

    Rig.m_Box.SetText("abc\r\n");

    CHECK_FALSE(IsWindowVisible(Rig.m_Box.Window()));
}

TEST_CASE("setting the text paints a visible edit box once")
{
    cEditRig Rig;
    UpdateWindow(Rig.m_Box.Window());
    REQUIRE_FALSE(GetUpdateRect(Rig.m_Box.Window(), nullptr, FALSE));

    Rig.m_Box.SetText(NumberedLines(99).c_str());

    CHECK(GetUpdateRect(Rig.m_Box.Window(), nullptr, FALSE));
    CHECK(IsWindowVisible(Rig.m_Box.Window()));
}

TEST_CASE("highlighting selects lines with their line ends")
{
    cEditRig Rig;
    Rig.m_Box.SetText("a\r\nbb\r\nccc\r\n");

    CHECK(Rig.m_Box.HighlightLines(1, 1) == 1);
    CHECK(Rig.SelectedText() == "bb\r\n");
    CHECK(Rig.m_Box.HighlightLines(0, 2) == 1);
    CHECK(Rig.SelectedText() == "a\r\nbb\r\n");
}

TEST_CASE("highlighting the last line selects to the end of the text")
{
    cEditRig Rig;
    Rig.m_Box.SetText("a\r\nbb\r\nccc");
    CHECK(Rig.m_Box.HighlightLines(2, 1) == 1);
    CHECK(Rig.SelectedText() == "ccc");

    Rig.m_Box.SetText("a\r\nbb\r\nccc\r\n");
    CHECK(Rig.m_Box.HighlightLines(2, 1) == 1);
    CHECK(Rig.SelectedText() == "ccc\r\n");
    CHECK(Rig.m_Box.HighlightLines(1, 50) == 1);
    CHECK(Rig.SelectedText() == "bb\r\nccc\r\n");
}

TEST_CASE("highlighting a line that does not exist changes nothing")
{
    cEditRig Rig;
    Rig.m_Box.SetText("a\r\nbb\r\n");
    Rig.m_Box.HighlightLines(1, 1);

    CHECK(Rig.m_Box.HighlightLines(3, 1) == 0);
    CHECK(Rig.m_Box.HighlightLines(-1, 1) == 0);

    CHECK(Rig.SelectedText() == "bb\r\n");
}

TEST_CASE("highlighting a line in the middle of the view does not scroll")
{
    cEditRig Rig;
    Rig.m_Box.SetText(NumberedLines(99).c_str());
    Rig.Send(EM_LINESCROLL, 0, 40);
    const int nVisible = Rig.VisibleLines();
    REQUIRE(nVisible > 6);

    Rig.m_Box.HighlightLines(40 + nVisible / 2, 1);
    CHECK(Rig.FirstVisible() == 40);
    Rig.m_Box.HighlightLines(41, 1);
    CHECK(Rig.FirstVisible() == 40);
    Rig.m_Box.HighlightLines(40 + nVisible - 2, 1);
    CHECK(Rig.FirstVisible() == 40);
}

TEST_CASE("highlighting a line at the edge of the view or outside scrolls it to the middle")
{
    cEditRig Rig;
    Rig.m_Box.SetText(NumberedLines(99).c_str());
    const int nVisible = Rig.VisibleLines();
    const int nMiddle  = (nVisible - 1) / 2;  // below the first visible line
    for (const int nLine : {40, 39, 20, 40 + nVisible - 1, 40 + nVisible, 80})
    {
        CAPTURE(nLine);
        Rig.Send(EM_LINESCROLL, 0, 40 - Rig.FirstVisible());
        REQUIRE(Rig.FirstVisible() == 40);
        const int nScroll = nLine - (40 + 40 + nVisible - 1) / 2;

        Rig.m_Box.HighlightLines(nLine, 1);

        CHECK(Rig.FirstVisible() == 40 + nScroll);
        CHECK(nLine - Rig.FirstVisible() >= nMiddle);
        CHECK(nLine - Rig.FirstVisible() <= nMiddle + 1);
    }
}

TEST_CASE("highlighting scrolls back to the left edge")
{
    cEditRig Rig;
    Rig.m_Box.SetText((std::string(300, 'a') + "\r\nb\r\nc\r\n").c_str());
    Rig.Send(EM_LINESCROLL, 60, 0);
    REQUIRE(static_cast<short>(LOWORD(Rig.Send(EM_POSFROMCHAR, 0))) < 0);

    Rig.m_Box.HighlightLines(1, 1);

    CHECK(static_cast<short>(LOWORD(Rig.Send(EM_POSFROMCHAR, 0))) >= 0);
}

TEST_CASE("highlighting works beyond the 65536th line")
{
    cEditRig    Rig;
    std::string Text;
    for (int i = 0; i < 100000; i++)
        Text += "x\r\n";
    Rig.m_Box.SetText(Text.c_str());
    Rig.Send(EM_LINESCROLL, 0, 70000);
    const int nFirst = Rig.FirstVisible();
    REQUIRE(nFirst == 70000);

    Rig.m_Box.HighlightLines(70003, 1);
    CHECK(Rig.FirstVisible() == nFirst);
    Rig.m_Box.HighlightLines(90000, 1);
    CHECK(Rig.FirstVisible() > 89900);
    CHECK(Rig.FirstVisible() < 90000);
}

TEST_CASE("highlighting works in a box too small to show a line")
{
    cEditRig Rig;
    Rig.m_Box.SetText(NumberedLines(99).c_str());
    Rig.m_Box.Move(0, 0, 0, 0, 0);

    CHECK(Rig.m_Box.HighlightLines(50, 1) == 1);

    CHECK(Rig.SelectedText() == "50\r\n");
}

TEST_CASE("an edit box is painted in its text colour on white, also when read-only")
{
    cEditRig Rig;
    Rig.m_Box.SetTextColour(RGB(1, 2, 3));
    Rig.m_Box.SetReadOnly(1);
    COLORREF crText          = 0;
    HBRUSH   hBrush          = nullptr;
    Rig.m_Frame.m_OnCtlColor = [&](HDC hDc) {
        hBrush = Rig.m_Box.OnCtlColor(hDc);
        crText = GetTextColor(hDc);
        return hBrush;
    };

    RedrawWindow(Rig.m_Box.Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);

    CHECK(hBrush == GetStockObject(WHITE_BRUSH));
    CHECK(crText == RGB(1, 2, 3));
    RECT Client;
    GetClientRect(Rig.m_Box.Window(), &Client);
    CHECK(GetPixel(cWindowDc(Rig.m_Box.Window()).Get(), Client.right / 2, Client.bottom / 2) ==
          RGB(255, 255, 255));
}

TEST_CASE("printing an empty text shows a message instead")
{
    cEditRig Rig;

    CHECK(Rig.m_Box.Print("a.txt") == 0);

    REQUIRE(Rig.m_Boxes.m_Boxes.size() == 1);
    CHECK(Rig.m_Boxes.m_Boxes[0].m_Text == "There is nothing to print");
    CHECK(Rig.m_Boxes.m_Boxes[0].m_Caption == "");
    CHECK(Rig.m_Boxes.m_Boxes[0].m_nButtons == bnOk);
    CHECK(Rig.m_Boxes.m_Boxes[0].m_nIcon == icNone);
}

TEST_CASE("a rich edit box uses the control of the rich-edit library")
{
    cEditRig Rig(1);

    CHECK(std::string(Rig.m_Box.GetClassName()) == "RichEdit20A");
    char szClass[20] = "";
    GetClassNameA(Rig.m_Box.Window(), szClass, sizeof szClass);
    CHECK(std::string(szClass) == "RichEdit20A");
    CHECK((Rig.Send(EM_GETTEXTMODE) & TM_PLAINTEXT) != 0);
    CHECK((Rig.Send(EM_GETEVENTMASK) & ENM_CHANGE) != 0);
    CHECK(Rig.Send(EM_GETLIMITTEXT) == kLimit);
}

TEST_CASE("a rich edit box keeps its text attributes unless plain text is asked for")
{
    cFrameRig Rig;
    cEditBox  Box(&Rig.m_Boxes);

    REQUIRE(Box.Create(&Rig.m_Frame, 0, 0, 100, 100, 0, 1, 1, 0, kLimit) == 1);

    CHECK((SendMessageA(Box.Window(), EM_GETTEXTMODE, 0, 0) & TM_RICHTEXT) != 0);
    Rig.m_Frame.Close();
}

TEST_CASE("lines of a rich edit box are read, inserted and replaced as in a plain one")
{
    cEditRig Rig(1);

    CHECK(Rig.m_Box.SetText("a\r\nb\r\n") == 1);
    CHECK(Rig.m_Box.GetLineCount() == 3);
    CHECK(Rig.Line(0) == "a\r\n");
    CHECK(Rig.Line(1) == "b\r\n");
    CHECK(Rig.Line(2) == "\r\n");
    CHECK(Rig.m_Box.InsertLine(1, "new\r\n") == 1);
    CHECK(Rig.Text() == "a\r\nnew\r\nb\r\n");
    CHECK(Rig.m_Box.ReplaceLine(0, "") == 1);
    CHECK(Rig.Text() == "new\r\nb\r\n");
    CHECK(Rig.m_Box.InsertLine(7, "x\r\n") == 0);
    CHECK(Rig.m_Box.ReplaceLine(7, "x\r\n") == 0);
}

TEST_CASE("a rich edit box is read-only for the user too")
{
    cEditRig Rig(1);

    Rig.m_Box.SetReadOnly(1);
    CHECK(Rig.m_Box.IsReadOnly() == 1);
    Rig.m_Box.SetReadOnly(0);
    CHECK(Rig.m_Box.IsReadOnly() == 0);
}

TEST_CASE("highlighting in a rich edit box scrolls lines near the last visible one to the middle")
{
    cEditRig Rig(1);
    Rig.m_Box.SetText(NumberedLines(99).c_str());
    Rig.m_Box.HighlightLines(50, 1);
    const int nFirst = Rig.FirstVisible();
    RECT      View   = {};
    Rig.Send(EM_GETRECT, 0, reinterpret_cast<LPARAM>(&View));
    POINTL        Bottom     = {View.left, View.bottom - 1};
    const LRESULT nCharacter = Rig.Send(EM_CHARFROMPOS, 0, reinterpret_cast<LPARAM>(&Bottom));
    const int     nLast      = static_cast<int>(Rig.Send(EM_EXLINEFROMCHAR, 0, nCharacter));
    REQUIRE(nFirst > 30);
    REQUIRE(nLast > nFirst + 6);

    CHECK(Rig.m_Box.HighlightLines(nLast - 3, 1) == 1);
    CHECK(Rig.FirstVisible() == nFirst);
    CHECK(Rig.m_Box.HighlightLines(nFirst + 1, 1) == 1);
    CHECK(Rig.FirstVisible() == nFirst);

    CHECK(Rig.m_Box.HighlightLines(nLast - 2, 1) == 1);
    CHECK(Rig.FirstVisible() == nFirst + nLast - 2 - (nFirst + nLast) / 2);
    CHECK(Rig.m_Box.HighlightLines(200, 1) == 0);
}

TEST_CASE("the rich-edit library is unloaded with its box")
{
    {
        const cEditRig Rig(1);
        CHECK(GetModuleHandleA("RICHED20.DLL"));
    }

    CHECK(!GetModuleHandleA("RICHED20.DLL"));
}

TEST_CASE("a file in the program's folder is not taken for the rich-edit library")
{
    const cBrokenLibrary Broken("RICHED20.DLL");
    const cEditRig       Rig(1);

    CHECK(Rig.m_Boxes.m_Boxes.empty());
}

TEST_CASE("without the rich-edit library a box says where to get it, and the program quits")
{
    const cNoLibraries None;
    cFrameRig          Rig;
    cEditBox           Box(&Rig.m_Boxes);

    CHECK(Box.Create(&Rig.m_Frame, 0, 0, 100, 100, 0, 1, 1, 1, kLimit) == 0);

    CHECK(ShowedOnlyError(Rig.m_Boxes,
                          "\nERROR: RICHED20.DLL not found.\n\n"
                          "This probably means you are running Windows 95 which\n"
                          "didn't include the RICHED20.DLL file.  You can acquire\n"
                          "the RICHED20.DLL file by installing Microsoft's free\n"
                          "\"Windows Installer\".  The necessary file can be found\n"
                          "in the RichEd20 folder on the CD you used to install\n"
                          "this software.  You need to run InstMsi2a.exe if your\n"
                          "computer uses Windows 95/98/ME.  You need to run\n"
                          "InstMsi2w.exe if your computer uses Windows NT/2000.\n\n"
                          "Alternatively, you can get the latest and greatest\n"
                          "version of the InstMsi2.exe file appropriate for your\n"
                          "operating system by searching Microsoft's web site for\n"
                          "the phrase \"Windows Installer\".\n",
                          0));
    CHECK(Rig.m_Boxes.m_QuitCodes == std::vector<int>{0});
    CHECK(Box.IsCreated() == 0);
}

TEST_CASE("a rich edit box of unknown version scrolls only up, and only as far as necessary")
{
    cFrameRig Rig;
    cEditBox  Box(&Rig.m_Boxes);
    {
        const cFailingMemory Memory(0, 1);  // for the library's version
        REQUIRE(Box.Create(&Rig.m_Frame, 0, 0, 100, 100, 0, 1, 1, 1, kLimit) == 1);
    }
    CHECK(Rig.m_Boxes.m_Boxes.size() == 1);
    CHECK(Rig.m_Boxes.m_QuitCodes == std::vector<int>{0});
    Box.SetText(NumberedLines(99).c_str());
    SendMessageA(Box.Window(), EM_LINESCROLL, 0, 50);

    CHECK(Box.HighlightLines(5, 1) == 1);

    const LRESULT nFirst = SendMessageA(Box.Window(), EM_GETFIRSTVISIBLELINE, 0, 0);
    CHECK(nFirst <= 6);  // the caret is after the line
    CHECK(nFirst > 0);
    Rig.m_Frame.Close();
}
