#include "toolkit/win32/win32.h"

#include "graph/win32/vantor.h"

#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "resources/resource.h"
#include "tests/unit/recording_boxes.h"
#include "tests/unit/scratch_folder.h"
#include "tests/win32/dialog_driver.h"
#include "tests/win32/file_dialog_steps.h"
#include "tests/win32/test_frame.h"
#include "toolkit/win32/gdi.h"

static const COLORREF kPaper = RGB(255, 255, 255);
static const char     kTwoSets[] =
    "ExplicitX\r\nSetLabels \"up\" , \"down\"\r\n"
    "0.000000 , 1.000000 , 3.000000\r\n1.000000 , 2.000000 , 2.000000\r\n"
    "2.000000 , 3.000000 , 1.000000\r\n";

namespace
{

// A host that records the calls of its graph.
class cRecordingHost : public cVantorHost
{
public:
    int  IsDrawing() const override { return m_bDrawing; }
    void OnGraphHidden() override { m_nHidden++; }
    void UseAccelerators(HWND hWnd, HACCEL hTable) override
    {
        m_hKeysGoTo = hWnd;
        m_hTable    = hTable;
    }

    int    m_bDrawing  = 0;
    int    m_nHidden   = 0;
    HWND   m_hKeysGoTo = nullptr;
    HACCEL m_hTable    = nullptr;
};

// A frame of 640 by 480; its window is destroyed with it.
struct cGraphRig
{
    explicit cGraphRig(cVantorHost *pHost = nullptr, int bHidden = 0) : m_Graph(&m_Boxes, pHost)
    {
        REQUIRE(m_Graph.Create({}, 1, 1, 640, 480, bHidden) == 1);
        m_Graph.Box()->AutoRange();
        HandleWaitingMessages();
    }
    ~cGraphRig()
    {
        if (m_Graph.Window())
            DestroyWindow(m_Graph.Window());
    }

    void Command(unsigned nId) { SendMessageA(m_Graph.Window(), WM_COMMAND, nId, 0); }

    std::string FileName() const
    {
        char szText[300] = "";
        SendDlgItemMessageA(m_Graph.Window(), IDC_GRAPH_STATUSBAR, SB_GETTEXTA, 0,
                            reinterpret_cast<LPARAM>(szText));
        return szText;
    }

    cRecordingBoxes m_Boxes;
    cVantor         m_Graph;
};

}  // namespace

static int IsRegistered(const char *szClass)
{
    WNDCLASSA Class;
    return GetClassInfoA(ProgramInstance(), szClass, &Class) != FALSE;
}

// Pixels of the plot's window that are not its background.
static int CountInk(HWND hPlot)
{
    RECT Client = {};
    GetClientRect(hPlot, &Client);
    const cWindowDc Window(hPlot);
    int             nInk = 0;
    for (int y = 0; y < Client.bottom; y += 3)
        for (int x = 0; x < Client.right; x++)
            nInk += GetPixel(Window.Get(), x, y) != kPaper;
    return nInk;
}

TEST_CASE("an independent graph opens, shows and saves a file, and is destroyed when closed")
{
    cGraphRig            Rig;
    const cScratchFolder Folder;
    Folder.Write("two.txt", kTwoSets);
    CHECK(IsWindowVisible(Rig.m_Graph.Window()));
    CHECK(Rig.FileName() == "filename: UNTITLED");
    const int nAxes = CountInk(Rig.m_Graph.Box()->Window());
    CHECK(nAxes > 0);

    {
        const std::string   Name = FullPath(Folder.Name("two.txt"));
        const cDialogDriver Driver([&](HWND hDialog) { return GiveFileName(hDialog, Name); });
        Rig.Command(IDM_GRAPH_OPEN);
        CHECK(Driver.IsDone());
        CHECK(Rig.FileName() == "filename: " + Name);
    }
    REQUIRE(Rig.m_Graph.Count() == 2);
    CHECK(Rig.m_Graph.Box()->DataSet(2)->m_pY[2] == 1.0F);
    UpdateWindow(Rig.m_Graph.Window());
    UpdateWindow(Rig.m_Graph.Box()->Window());
    CHECK(CountInk(Rig.m_Graph.Box()->Window()) > nAxes + 200);

    {
        const std::string   Name = FullPath(Folder.Name("copy.txt"));
        const cDialogDriver Driver([&](HWND hDialog) { return GiveFileName(hDialog, Name); });
        Rig.Command(IDM_GRAPH_SAVE_AS);
        CHECK(Driver.IsDone());
    }
    CHECK(Folder.Read("copy.txt") == kTwoSets);
    CHECK(Rig.m_Boxes.m_Boxes.empty());

    const HWND hWnd = Rig.m_Graph.Window();
    Rig.Command(IDM_GRAPH_EXIT);
    CHECK_FALSE(IsWindow(hWnd));
    CHECK(!Rig.m_Graph.Window());
    CHECK(Rig.m_Boxes.m_QuitCodes.empty());
}

TEST_CASE("two graphs share their window classes, which are unregistered with the last one")
{
    REQUIRE_FALSE(IsRegistered("cVantor"));
    {
        cGraphRig First;
        CHECK(IsRegistered("cVantor"));
        CHECK(IsRegistered("cVantorBox"));
        {
            cGraphRig Second;
            CHECK(GetClassLongPtrA(First.m_Graph.Window(), GCW_ATOM) ==
                  GetClassLongPtrA(Second.m_Graph.Window(), GCW_ATOM));
            CHECK(First.m_Boxes.m_Boxes.empty());
            CHECK(Second.m_Boxes.m_Boxes.empty());

            // Each has its own data.
            CHECK(Second.m_Graph.AddPoint(1, 1.0F, 2.0F) == 1);
            CHECK(Second.m_Graph.Count() == 1);
            CHECK(First.m_Graph.Count() == 0);
        }
        CHECK(IsRegistered("cVantor"));
        CHECK(IsRegistered("cVantorBox"));
        CHECK(First.m_Graph.AddPoint(1, 1.0F, 2.0F) == 1);
        CHECK(IsWindowVisible(First.m_Graph.Window()));
    }
    CHECK_FALSE(IsRegistered("cVantor"));
    CHECK_FALSE(IsRegistered("cVantorBox"));
}

TEST_CASE("a graph with a host is hidden when it is closed, and keeps its data")
{
    cRecordingHost Host;
    cGraphRig      Rig(&Host, 1);
    CHECK_FALSE(IsWindowVisible(Rig.m_Graph.Window()));
    CHECK(Rig.m_Graph.AddPoint(1, 1.0F, 2.0F) == 1);

    for (const auto &[nMessage, wParam] :
         {std::pair<UINT, WPARAM>{WM_CLOSE, 0}, {WM_COMMAND, IDM_GRAPH_EXIT}})
    {
        Host.m_nHidden = 0;
        Rig.m_Graph.ShowGraph();
        CHECK(IsWindowVisible(Rig.m_Graph.Window()));
        CHECK(Host.m_nHidden == 0);

        SendMessageA(Rig.m_Graph.Window(), nMessage, wParam, 0);

        CHECK(Host.m_nHidden == 1);
        CHECK_FALSE(IsWindowVisible(Rig.m_Graph.Window()));
        CHECK(Rig.m_Graph.Count() == 1);
    }
}

TEST_CASE("the accelerators are those of the graph that got the focus last")
{
    cRecordingHost Host;
    cGraphRig      First(&Host);
    cGraphRig      Second(&Host);
    for (const cGraphRig *const pRig : {&First, &Second, &First})
    {
        SetFocus(pRig->m_Graph.Window());
        CHECK(Host.m_hKeysGoTo == pRig->m_Graph.Window());
        CHECK(Host.m_hTable == pRig->m_Graph.Accelerators());
    }

    cRecordingHost Other;
    cGraphRig      Hidden(&Other, 1);
    CHECK(Hidden.m_Graph.Accelerators());
    CHECK(!Other.m_hKeysGoTo);
}

TEST_CASE("while a program runs, a graph refuses commands that would change it")
{
    cRecordingHost Host;
    cGraphRig      Rig(&Host);
    CHECK(Rig.m_Graph.AddPoint(1, 1.0F, 2.0F) == 1);
    Host.m_bDrawing = 1;

    Rig.Command(IDM_GRAPH_NEW);

    CHECK(Rig.m_Graph.Count() == 1);
    REQUIRE(Rig.m_Boxes.m_Boxes.size() == 1);
    CHECK(Rig.m_Boxes.m_Boxes[0].m_Text == "Not allowed while a calculator\n"
                                           "program is running (hit any\n"
                                           "calculator key to halt the program)\n");
    Rig.Command(IDM_GRID);
    CHECK(Rig.m_Graph.Box()->Settings().m_bHorzGrid == 1);
    CHECK(Rig.m_Boxes.m_Boxes.size() == 1);

    Host.m_bDrawing = 0;
    Rig.Command(IDM_GRAPH_NEW);
    CHECK(Rig.m_Graph.Count() == 0);
}

TEST_CASE("a graph that comes to a finer screen draws everything larger")
{
    cGraphRig         Rig;
    cVantorBox *const pBox   = Rig.m_Graph.Box();
    const cPlotLayout Usual  = pBox->Layout();
    const int         nTicks = static_cast<int>(Usual.m_Range.m_nHorzTicks);
    const RECT        Wanted = {5, 7, 1285, 967};

    SendMessageA(Rig.m_Graph.Window(), WM_DPICHANGED, MAKEWPARAM(192, 192),
                 reinterpret_cast<LPARAM>(&Wanted));

    const cPlotLayout Fine   = pBox->Layout();
    RECT              Window = {};
    GetWindowRect(Rig.m_Graph.Window(), &Window);
    CHECK(EqualRect(&Window, &Wanted));
    CHECK(Fine.m_nTickLength == 2 * Usual.m_nTickLength);
    CHECK(std::abs(Fine.m_nTextHeight - 2 * Usual.m_nTextHeight) <= 2);
    pBox->AutoRange();
    CHECK(static_cast<int>(pBox->Layout().m_Range.m_nHorzTicks) == nTicks);

    // A picture or a page does not depend on the screen.
    const cGdiFont Font = pBox->PictureFont();
    CHECK(!Font);
    CHECK(pBox->BoxSettings().m_bSystemFont);
    SendMessageA(Rig.m_Graph.Window(), WM_DPICHANGED, MAKEWPARAM(96, 96),
                 reinterpret_cast<LPARAM>(&Wanted));
    CHECK(pBox->Layout().m_nTextHeight == Usual.m_nTextHeight);
}

TEST_CASE("the plot is never erased before it is painted")
{
    cGraphRig Rig;
    CHECK(Rig.m_Graph.AddPoint(1, 1.0F, 2.0F) == 1);
    const cWindowDc    Screen(nullptr);
    const cMemoryDc    Memory(nullptr);
    const cGdiBitmap   Bitmap(CreateCompatibleBitmap(Screen.Get(), 8, 8));
    const cSelectGuard Selected(Memory.Get(), Bitmap.Get());
    const COLORREF     kGreen = RGB(0, 255, 0);
    for (int i = 0; i < 64; i++)
        SetPixel(Memory.Get(), i % 8, i / 8, kGreen);

    const LRESULT nErased = SendMessageA(Rig.m_Graph.Box()->Window(), WM_ERASEBKGND,
                                         reinterpret_cast<WPARAM>(Memory.Get()), 0);

    CHECK(nErased != 0);
    for (int i = 0; i < 64; i++)
        CHECK(GetPixel(Memory.Get(), i % 8, i / 8) == kGreen);

    // The frame does not paint over its children, and the class has no background
    // brush.
    CHECK((GetWindowLongA(Rig.m_Graph.Window(), GWL_STYLE) & WS_CLIPCHILDREN) != 0);
    CHECK(GetClassLongPtrA(Rig.m_Graph.Box()->Window(), GCLP_HBRBACKGROUND) == 0);
}

TEST_CASE("each dialog fits on a screen of 640 by 480, above a frame of any size")
{
    cGraphRig Rig;
    CHECK(Rig.m_Graph.AddPoint(1, 1.0F, 2.0F) == 1);
    for (const SIZE Frame : {SIZE{640, 480}, SIZE{200, 150}})
    {
        SetWindowPos(Rig.m_Graph.Window(), nullptr, 0, 0, Frame.cx, Frame.cy, SWP_NOZORDER);
        for (const int nCommand :
             {IDM_REFORMAT_PLOT, IDM_REFORMAT_LINE, IDM_EDIT_DATA_SET, IDM_DELETE_LINE, IDM_ENTER_Y,
              IDM_ENTER_XY, IDM_GRAPH_ABOUT, IDM_CREATE_BMP, IDM_CREATE_GIF})
        {
            CAPTURE(nCommand);
            RECT                Place = {};
            const cDialogDriver Driver([&](HWND hDialog) {
                GetWindowRect(hDialog, &Place);
                Press(hDialog, IDCANCEL);
                return 1;
            });
            Rig.Command(static_cast<unsigned>(nCommand));
            REQUIRE(Driver.IsDone());
            CHECK(Place.left >= 0);
            CHECK(Place.top >= 0);
            CHECK(Place.right <= 640);
            CHECK(Place.bottom <= 480);
        }
    }
}

TEST_CASE("a graph whose class cannot be registered shows an error and is not created")
{
    static const struct
    {
        const char *m_szClass;
        const char *m_szText;
    } s_Rows[] = {
        {"cVantor", "ERROR: RegisterClass() failed in cVantor::Create()"},
        {"cVantorBox", "ERROR: RegisterClass() failed in cVantorBox::Create()"},
    };
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.m_szClass);
        WNDCLASSA Other     = {};
        Other.lpfnWndProc   = &DefWindowProcA;
        Other.hInstance     = ProgramInstance();
        Other.lpszClassName = Row.m_szClass;
        REQUIRE(RegisterClassA(&Other));
        cRecordingBoxes Boxes;
        {
            cVantor Graph(&Boxes, nullptr);
            CHECK(Graph.Create({}, 0, 0, 0, 0, 1) == 0);
            CHECK(ShowedOnlyError(Boxes, Row.m_szText));
            if (Graph.Window())
                DestroyWindow(Graph.Window());
        }
        UnregisterClassA(Row.m_szClass, ProgramInstance());
    }
}

TEST_CASE("the platform chooses a position and a size of 0")
{
    cRecordingBoxes Boxes;
    cVantor         Graph(&Boxes, nullptr);
    REQUIRE(Graph.Create({}, 0, 0, 0, 0, 1) == 1);
    RECT Place = {};
    GetWindowRect(Graph.Window(), &Place);
    CHECK(Place.right - Place.left >= 320);
    CHECK(Place.bottom - Place.top >= 240);
    DestroyWindow(Graph.Window());
}
