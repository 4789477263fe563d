#include "toolkit/win32/edit_box.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <utility>

#include "toolkit/highlight_scroll.h"
#include "toolkit/win32/page_setup.h"
#include "toolkit/win32/screen.h"
#include "toolkit/win32/system_library.h"
#include "toolkit/win32/text_printer.h"

static const char kLineEnd[] = "\r\n";

static const int  kScrollToLeftEdge = -120;  // characters; wider than any view
static const int  kRichScrollMargin = 2;     // lines; a rich-edit control may clip the last ones
static const char kRichLibrary[]    = "RICHED20.DLL";
static const char kRichLibraryFailure[] =
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
    "the phrase \"Windows Installer\".\n";

// Version 5.30, as the upper half of a file version: 5 * 65536 + 30.
static const DWORD kRichScrollVersion = 327710;

namespace
{

// The lines of a box, for the printer. The empty line after the last line end is
// not counted.
class cBoxLines : public cTextSource
{
public:
    explicit cBoxLines(const cEditBox &Box) : m_Box(Box) {}

    int CountLines() const override
    {
        const int nLast = m_Box.GetLineCount() - 1;
        return m_Box.GetLineLength(nLast) > 0 ? nLast + 1 : nLast;
    }

    int GetLineLength(int nLine) const override { return m_Box.GetLineLength(nLine); }

    int GetLine(int nLine, char *szText, size_t nSize) const override
    {
        return m_Box.GetLine(nLine, szText, nSize);
    }

private:
    const cEditBox &m_Box;
};

}  // namespace

cEditBox::cEditBox(cMessageBoxes *pBoxes)
    : cBaseWindow(pBoxes), m_LogFont(), m_nPointSize(0), m_nDpi(ScreenDpi(nullptr)),
      m_crText(RGB(0, 0, 0)), m_Margins{kDefaultMargin, kDefaultMargin, kDefaultMargin,
                                        kDefaultMargin},
      m_bLandscape(0), m_bRich(0), m_bPlainTextMode(0), m_bRichScrollOk(0)
{
    m_dwStyle = WS_CHILD | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL;
    m_dwExStyle = WS_EX_CLIENTEDGE;

    LOGFONTA System = {};
    GetObjectA(GetStockObject(SYSTEM_FONT), sizeof System, &System);
    UseFont(System);
}

// The library of a window that still exists stays loaded.
cEditBox::~cEditBox()
{
    if (IsWindow(m_hWnd))
        m_hRichLib.Release();
}

const char *cEditBox::GetClassName() const
{
    return m_bRich ? "RichEdit20A" : "EDIT";
}

int cEditBox::Create(cBaseWindow *pOwner, int nX, int nY, int nWidth, int nHeight, DWORD dwStyle,
                     uint32_t nId, int bRich, int bPlainText, uint32_t nTextLimit)
{
    m_bRich          = bRich ? 1 : 0;
    m_bPlainTextMode = bPlainText ? 1 : 0;
    if (m_bRich && !LoadRichLibrary())
        return 0;
    if (!CreateChild(pOwner, dwStyle, nX, nY, nWidth, nHeight, nId))
        return ReportFailure("ERROR: CreateWindow() failed in cEditBox::Create()");

    SendMessageA(m_hWnd, EM_LIMITTEXT, nTextLimit, 0);
    if (m_bRich)
        SetUpRichText();
    SendMessageA(m_hWnd, WM_SETFONT, reinterpret_cast<WPARAM>(m_hFont.Get()), FALSE);
    return 1;
}

int cEditBox::LoadRichLibrary()
{
    m_hRichLib.Reset(LoadSystemLibrary(kRichLibrary));
    if (!m_hRichLib)
    {
        m_pBoxes->Ask(kRichLibraryFailure, nullptr, bnOk, icError);
        m_pBoxes->PostQuit(0);
        return 0;
    }
    m_bRichScrollOk = IsRichScrollOk() ? 1 : 0;
    return 1;
}

// 0 also if the version cannot be determined.
int cEditBox::IsRichScrollOk() const
{
    DWORD       nIgnored = 0;
    const DWORD nSize    = GetFileVersionInfoSizeA(kRichLibrary, &nIgnored);
    if (nSize == 0)
        return 0;
    const std::unique_ptr<BYTE[]> Data(
        AllocateWithRetry(m_pBoxes, [nSize] { return new (std::nothrow) BYTE[nSize]; }));
    if (!Data || !GetFileVersionInfoA(kRichLibrary, 0, nSize, Data.get()))
        return 0;

    VS_FIXEDFILEINFO *pVersion = nullptr;
    UINT              nLength  = 0;
    if (!VerQueryValueA(Data.get(), "\\", reinterpret_cast<void **>(&pVersion), &nLength))
        return 0;
    return pVersion->dwFileVersionMS >= kRichScrollVersion;
}

void cEditBox::SetUpRichText()
{
    if (m_bPlainTextMode)
        SendMessageA(m_hWnd, EM_SETTEXTMODE, TM_PLAINTEXT, 0);
    const LRESULT nEvents = SendMessageA(m_hWnd, EM_GETEVENTMASK, 0, 0);
    SendMessageA(m_hWnd, EM_SETEVENTMASK, 0, nEvents | ENM_CHANGE);
}

void cEditBox::SetReadOnly(int bReadOnly)
{
    SendMessageA(m_hWnd, EM_SETREADONLY, bReadOnly ? TRUE : FALSE, 0);
}

int cEditBox::IsReadOnly() const
{
    return (GetWindowLongPtrA(m_hWnd, GWL_STYLE) & ES_READONLY) != 0;
}

int cEditBox::SetFont(const char *szFace, int nPointSize, unsigned nStyles)
{
    LOGFONTA LogFont    = {};
    LogFont.lfHeight    = -MulDiv(nPointSize, m_nDpi, kTenthsPerInch);
    LogFont.lfWeight    = nStyles & kFontBold ? FW_BOLD : FW_NORMAL;
    LogFont.lfItalic    = (nStyles & kFontItalic) != 0;
    LogFont.lfUnderline = (nStyles & kFontUnderline) != 0;
    LogFont.lfStrikeOut = (nStyles & kFontStrikeOut) != 0;
    LogFont.lfCharSet   = DEFAULT_CHARSET;
    if (nStyles & kFontFixedPitch)
        LogFont.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
    snprintf(LogFont.lfFaceName, sizeof LogFont.lfFaceName, "%s", szFace);

    if (!UseFont(LogFont))
        return 0;
    m_nPointSize = nPointSize;
    return 1;
}

void cEditBox::SetDpi(int nDpi)
{
    const int nPointSize = m_nPointSize;
    LOGFONTA  LogFont    = m_LogFont;
    LogFont.lfHeight     = -MulDiv(nPointSize, nDpi, kTenthsPerInch);
    m_nDpi               = nDpi;
    if (UseFont(LogFont))
        m_nPointSize = nPointSize;
}

// Creates and sets a font. The old one is deleted only after the control has the
// new one.
int cEditBox::UseFont(const LOGFONTA &LogFont)
{
    cGdiFont Font(CreateFontIndirectA(&LogFont));
    if (!Font)
        return 0;
    if (m_bCreated)
        SendMessageA(m_hWnd, WM_SETFONT, reinterpret_cast<WPARAM>(Font.Get()), TRUE);
    m_hFont      = std::move(Font);
    m_LogFont    = LogFont;
    m_nPointSize = static_cast<int>(std::abs(LogFont.lfHeight)) * kTenthsPerInch / m_nDpi;
    return 1;
}

int cEditBox::GetLineCount() const
{
    return static_cast<int>(SendMessageA(m_hWnd, EM_GETLINECOUNT, 0, 0));
}

int cEditBox::GetLineLength(int nLine) const
{
    const int nStart = LineStart(nLine);
    if (nStart < 0)
        return 0;
    return static_cast<int>(SendMessageA(m_hWnd, EM_LINELENGTH, static_cast<WPARAM>(nStart), 0));
}

int cEditBox::GetLine(int nLine, char *szText, size_t nSize) const
{
    const WORD nRoom   = static_cast<WORD>(std::min<size_t>(nSize - kLineEndLength - 1, 0xFFFF));
    size_t     nLength = 0;
    if (nLine >= 0 && nRoom > 0)
    {
        // The platform expects the size of the buffer in its first two bytes.
        memcpy(szText, &nRoom, sizeof nRoom);
        nLength = static_cast<size_t>(SendMessageA(m_hWnd, EM_GETLINE, static_cast<WPARAM>(nLine),
                                                   reinterpret_cast<LPARAM>(szText)));
    }
    if (m_bRich && nLength > 0 && szText[nLength - 1] == '\r')
        nLength--;
    memcpy(szText + nLength, kLineEnd, sizeof kLineEnd);
    return 1;
}

int cEditBox::InsertLine(int nLine, const char *szText)
{
    const int nStart = LineStart(nLine);
    if (nStart < 0)
        return 0;
    ReplaceRange(nStart, nStart, szText);
    return 1;
}

int cEditBox::ReplaceLine(int nLine, const char *szText)
{
    const int nStart = LineStart(nLine);
    if (nStart < 0)
        return 0;
    const int nEnd = LineStart(nLine + 1);
    if (nEnd < 0)
        return 0;
    ReplaceRange(nStart, nEnd, szText);
    return 1;
}

size_t cEditBox::GetTextLength() const
{
    return static_cast<size_t>(SendMessageA(m_hWnd, WM_GETTEXTLENGTH, 0, 0));
}

size_t cEditBox::GetText(char *szText, size_t nSize) const
{
    return static_cast<size_t>(
        SendMessageA(m_hWnd, WM_GETTEXT, nSize, reinterpret_cast<LPARAM>(szText)));
}

int cEditBox::SetText(const char *szText)
{
    // WM_SETREDRAW TRUE would also show a hidden box.
    const int bDrawn = (GetWindowLongPtrA(m_hWnd, GWL_STYLE) & WS_VISIBLE) != 0;
    const int nFirst = FirstVisibleLine();
    if (bDrawn)
        SendMessageA(m_hWnd, WM_SETREDRAW, FALSE, 0);

    ReplaceRange(0, -1, szText);
    SendMessageA(m_hWnd, EM_EMPTYUNDOBUFFER, 0, 0);
    SendMessageA(m_hWnd, EM_SETSEL, 0, 0);
    ScrollTo(kScrollToLeftEdge, nFirst);

    if (bDrawn)
    {
        SendMessageA(m_hWnd, WM_SETREDRAW, TRUE, 0);
        RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
    }
    return GetTextLength() == strlen(szText);
}

int cEditBox::HighlightLines(int nLine, int nCount)
{
    const int nStart = LineStart(nLine);
    if (nStart < 0)
        return 0;
    const int nNext = LineStart(nLine + nCount);
    const int nEnd  = nNext < 0 ? TextEnd() : nNext;

    const int nFirst = FirstVisibleLine();
    const int nScroll =
        HighlightScroll(nLine, nFirst, LastVisibleLine(), m_bRich ? kRichScrollMargin : 0);
    SendMessageA(m_hWnd, EM_SETSEL, static_cast<WPARAM>(nStart), nEnd);
    ScrollTo(m_bRich ? 0 : kScrollToLeftEdge, nFirst + nScroll);
    if (!ScrollsByLines() && nScroll < 0)
        SendMessageA(m_hWnd, EM_SCROLLCARET, 0, 0);
    return 1;
}

HBRUSH cEditBox::OnCtlColor(HDC hDc) const
{
    SetTextColor(hDc, m_crText);
    return static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
}

int cEditBox::PageSetup()
{
    return AskPageSetup(&m_Margins, &m_bLandscape);
}

int cEditBox::Print(const char *szDocument)
{
    if (GetTextLength() == 0)
    {
        m_pBoxes->Ask("There is nothing to print", nullptr, bnOk, icNone);
        return 0;
    }
    const cTextLook Look = {m_LogFont, m_nPointSize, m_crText, m_Margins, m_bLandscape};
    return PrintText(cBoxLines(*this), Look, GetAncestor(m_hWnd, GA_ROOT), szDocument, m_pBoxes);
}

// Character index at which a line starts; -1 if there is no such line.
int cEditBox::LineStart(int nLine) const
{
    if (nLine < 0)  // the platform would use the caret's line
        return -1;
    return static_cast<int>(SendMessageA(m_hWnd, EM_LINEINDEX, static_cast<WPARAM>(nLine), 0));
}

int cEditBox::TextEnd() const
{
    const int nLast = GetLineCount() - 1;
    return LineStart(nLast) + GetLineLength(nLast);
}

int cEditBox::FirstVisibleLine() const
{
    return static_cast<int>(SendMessageA(m_hWnd, EM_GETFIRSTVISIBLELINE, 0, 0));
}

// The line at the bottom of the view, or the last line of a text that ends above
// it.
int cEditBox::LastVisibleLine() const
{
    RECT View = {};
    SendMessageA(m_hWnd, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&View));
    if (m_bRich)
    {
        POINTL        Bottom = {View.left, View.bottom - 1};
        const LRESULT nCharacter =
            SendMessageA(m_hWnd, EM_CHARFROMPOS, 0, reinterpret_cast<LPARAM>(&Bottom));
        return static_cast<int>(SendMessageA(m_hWnd, EM_EXLINEFROMCHAR, 0, nCharacter));
    }

    const int     nFirst = FirstVisibleLine();
    const LRESULT nFound =
        SendMessageA(m_hWnd, EM_CHARFROMPOS, 0, MAKELPARAM(View.left, View.bottom - 1));
    if (nFound == -1)  // the box is too small to show anything
        return nFirst;

    // The control reports only the lower 16 bits of the line number.
    return nFirst + static_cast<WORD>(HIWORD(nFound) - nFirst);
}

// nEnd -1 is the end of the text. The view does not scroll.
void cEditBox::ReplaceRange(int nStart, int nEnd, const char *szText)
{
    const int nFirst = FirstVisibleLine();
    SendMessageA(m_hWnd, EM_SETSEL, static_cast<WPARAM>(nStart), nEnd);
    SendMessageA(m_hWnd, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(szText));
    ScrollTo(0, nFirst);
}

// Old rich-edit controls cannot.
int cEditBox::ScrollsByLines() const
{
    return !m_bRich || m_bRichScrollOk;
}

// Scrolls by nCharacters, and makes nFirstLine the first visible line: the
// control itself may have scrolled when text was selected or replaced.
void cEditBox::ScrollTo(int nCharacters, int nFirstLine)
{
    if (ScrollsByLines())
        SendMessageA(m_hWnd, EM_LINESCROLL, static_cast<WPARAM>(nCharacters),
                     nFirstLine - FirstVisibleLine());
}
