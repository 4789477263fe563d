#include "tests/window/graph_window.h"

#include <cstdlib>

#include <doctest/doctest.h>

#include "tests/window/input.h"
#include "tests/window/menus.h"
#include "tests/window/waiting.h"
#include "tests/window/window_state.h"

static HWND FindGraph(HWND hCalculator)
{
    DWORD dwProcess = 0;
    GetWindowThreadProcessId(hCalculator, &dwProcess);
    HWND hFound = nullptr;
    while ((hFound = FindWindowExA(nullptr, hFound, "cVantor", nullptr)) != nullptr)
    {
        DWORD dwOwner = 0;
        GetWindowThreadProcessId(hFound, &dwOwner);
        if (dwOwner == dwProcess)
            break;
    }
    return hFound;
}

cGraphWindow::cGraphWindow(cCalculator *pCalculator)
    : m_pCalculator(pCalculator), m_hWnd(FindGraph(pCalculator->Window()))
{
    REQUIRE(m_hWnd);
    if (!IsWindowVisible(m_hWnd))
        pCalculator->Choose(mnView, IDM_GRAPH);
    REQUIRE(WaitFor([this] { return IsWindowVisible(m_hWnd); }));
    pCalculator->Settle();
}

HWND cGraphWindow::Plot() const
{
    return GetDlgItem(m_hWnd, IDC_PLOT);
}

void cGraphWindow::WaitForPaint() const
{
    m_pCalculator->Settle();
    REQUIRE(
        WaitFor([this] { return !cProbeLink::Current()->AskWindow(m_hWnd, pbPaint).m_nValue; }));
}

cPicture cGraphWindow::Photograph() const
{
    WaitForPaint();
    return cPicture::OfScreen(RectOf(m_hWnd));
}

unsigned cGraphWindow::ColourAt(int x, int y) const
{
    WaitForPaint();
    return cPicture::OfScreen(RectOf(Plot())).At(x, y);
}

cPicture cGraphWindow::LookAtPlot() const
{
    return cPicture::OfScreen(RectOf(Plot()));
}

cPicture cGraphWindow::PhotographPlot() const
{
    WaitForPaint();
    return LookAtPlot();
}

POINT cGraphWindow::OnPlot(int x, int y) const
{
    POINT Point = {x, y};
    ClientToScreen(Plot(), &Point);
    return Point;
}

POINT cGraphWindow::MiddleOfPlot() const
{
    return MiddleOf(RectOf(Plot()));
}

HWND cGraphWindow::Legend() const
{
    return GetDlgItem(Plot(), IDC_LEGEND);
}

int cGraphWindow::SelectedRow() const
{
    return static_cast<int>(SendMessageA(Legend(), LB_GETCURSEL, 0, 0));
}

// --- menu

UINT cGraphWindow::MenuState(unsigned nId) const
{
    return static_cast<UINT>(cProbeLink::Current()->AskWindow(m_hWnd, pbMenuState, nId).m_nValue);
}

int cGraphWindow::IsTicked(unsigned nId) const
{
    return (MenuState(nId) & MF_CHECKED) != 0;
}

std::string cGraphWindow::StatusText() const
{
    return cProbeLink::Current()->AskWindow(m_hWnd, pbStatusText).m_szText;
}

void cGraphWindow::Choose(eGraphMenu nMenu, unsigned nId)
{
    ChooseItem(m_hWnd, nMenu, nId);
}

// --- data

void cGraphWindow::Open(const std::string &File, const std::string &Content)
{
    m_pCalculator->Folder().Write(File, Content);
    Choose(gmFile, IDM_GRAPH_OPEN);
    m_pCalculator->GiveFileName(m_pCalculator->Path(File));
    REQUIRE(m_pCalculator->HasNoDialog());
    const std::string Status = "filename: " + m_pCalculator->Path(File);
    REQUIRE(Eventually(Status, [this] { return StatusText(); }) == Status);
}

std::string cGraphWindow::Saved(const std::string &File)
{
    Choose(gmFile, IDM_GRAPH_SAVE);
    REQUIRE_FALSE(m_pCalculator->HasDialog());
    return m_pCalculator->Folder().Read(File);
}

int cGraphWindow::Count() const
{
    return static_cast<int>(SendDlgItemMessageA(Plot(), IDC_LEGEND, LB_GETCOUNT, 0, 0));
}

// --- the topmost dialog

std::string cGraphWindow::Caption() const
{
    return TextOf(m_pCalculator->Dialog());
}

int cGraphWindow::IsCentred() const
{
    const POINT Dialog = MiddleOf(RectOf(m_pCalculator->Dialog()));
    const POINT Frame  = MiddleOf(RectOf(m_hWnd));
    return abs(Dialog.x - Frame.x) <= 1 && abs(Dialog.y - Frame.y) <= 1;
}

HWND cGraphWindow::Field(int nId) const
{
    const HWND hField = GetDlgItem(m_pCalculator->Dialog(), nId);
    REQUIRE_MESSAGE(hField, "no field " << nId);
    return hField;
}

std::string cGraphWindow::Text(int nId) const
{
    return TextOf(Field(nId));
}

int cGraphWindow::IsChecked(int nId) const
{
    return SendMessageA(Field(nId), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

// Shift and an arrow key would not select the text reliably: a keyboard event of
// the screen can release held keys in between.
void cGraphWindow::Fill(int nId, const std::string &Text)
{
    const HWND hField = Focus(nId);
    SendMessageA(hField, EM_SETSEL, 0, -1);
    ::HitKey(VK_DELETE);
    REQUIRE(Eventually(std::string(), [hField] { return TextOf(hField); }) == "");
    Type(Text);
    m_pCalculator->Settle();
}

void cGraphWindow::GoToEnd(int nId)
{
    const HWND   hField  = Focus(nId);
    const size_t nLength = TextOf(hField).size();
    SendMessageA(hField, EM_SETSEL, nLength, static_cast<LPARAM>(nLength));
}

HWND cGraphWindow::Focus(int nId) const
{
    m_pCalculator->FocusControl(nId);
    return Field(nId);
}

void cGraphWindow::TypeLines(std::initializer_list<const char *> Lines)
{
    for (const char *const szLine : Lines)
    {
        Type(szLine);
        ::HitKey(VK_RETURN);
    }
    m_pCalculator->Settle();
}

void cGraphWindow::Spin(int nSpinId, int bUp)
{
    const RECT Rect     = RectOf(Field(nSpinId));
    const LONG nQuarter = (Rect.bottom - Rect.top) / 4;
    ::Click({(Rect.left + Rect.right) / 2, bUp ? Rect.top + nQuarter : Rect.bottom - nQuarter});
    m_pCalculator->Settle();
}

int cGraphWindow::ClickOk(const std::string &Text)
{
    const HWND hDialog = m_pCalculator->Dialog();
    ClickMiddleOf(Field(IDOK));
    REQUIRE(WaitFor([hDialog] { return !IsWindowEnabled(hDialog); }));
    return m_pCalculator->Answers(Text, "OK");
}

int cGraphWindow::Refuses(const std::string &Text)
{
    const HWND hDialog = m_pCalculator->Dialog();
    return ClickOk(Text) && WaitFor([hDialog] { return IsWindowEnabled(hDialog); });
}

int cGraphWindow::Accepts(const std::string &Text)
{
    const HWND hDialog = m_pCalculator->Dialog();
    return ClickOk(Text) && WaitFor([hDialog] { return !IsWindow(hDialog); });
}

std::string cGraphWindow::Items(int nId) const
{
    std::string   Items;
    const HWND    hField = Field(nId);
    const LRESULT nCount = SendMessageA(hField, CB_GETCOUNT, 0, 0);
    for (WPARAM i = 0; i < static_cast<WPARAM>(nCount); i++)
    {
        // Across processes the text arrives as wide characters in any case.
        WCHAR szItem[100] = {};
        SendMessageW(hField, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(szItem));
        for (const WCHAR *pChar = szItem; *pChar; pChar++)
            Items += static_cast<char>(*pChar);
        Items += ' ';
    }
    return Items;
}

unsigned cGraphWindow::ColourOf(int nId) const
{
    WaitForPaint();
    const cPicture Picture = cPicture::OfScreen(RectOf(Field(nId)));
    return Picture.At(Picture.Width() / 2, Picture.Height() / 2);
}

int cGraphWindow::HasColour(int nId, unsigned nColour) const
{
    return Eventually(nColour, [&] { return ColourOf(nId); }) == nColour;
}

void cGraphWindow::PhotographDialog(const std::string &Name) const
{
    WaitForPaint();
    cPicture::OfScreen(RectOf(m_pCalculator->Dialog())).Save(Name);
}

int cGraphWindow::FocusedField() const
{
    return m_pCalculator->FocusedControl();
}

void cGraphWindow::Escape()
{
    const HWND hDialog = m_pCalculator->Dialog();
    WaitForPaint();
    ::HitKey(VK_ESCAPE);
    REQUIRE(WaitFor([hDialog] { return !IsWindow(hDialog); }));
}
