#include "graph/win32/vantor.h"

#include <cstdio>
#include <cstring>

#include "graph/graph_file_commands.h"
#include "graph/win32/vantor_dialogs.h"
#include "resources/resource.h"
#include "toolkit/win32/help_viewer.h"
#include "toolkit/win32/interrupt_watch.h"
#include "toolkit/win32/menu_items.h"
#include "toolkit/win32/page_setup.h"
#include "toolkit/win32/screen.h"
#include "toolkit/win32/wait_cursor.h"

const char *const kNotWhileRunning = "Not allowed while a calculator\n"
                                     "program is running (hit any\n"
                                     "calculator key to halt the program)\n";

static const char kTextFiles[] = "Text Files (*.TXT)\0*.TXT\0";

// clang-format off
const cVantor::cMessageRow cVantor::s_Messages[] =
{
    { WM_CREATE,     &cVantor::OnCreate     },
    { WM_CLOSE,      &cVantor::OnClose      },
    { WM_SIZE,       &cVantor::OnSize       },
    { WM_DPICHANGED, &cVantor::OnDpiChanged },
    { WM_SETFOCUS,   &cVantor::OnSetFocus   },
    { WM_COMMAND,    &cVantor::OnCommand    },
    { WM_MENUSELECT, &cVantor::OnMenuSelect },
};

const cVantor::cCommandRow cVantor::s_Commands[] =
{
    { IDM_GRAPH_NEW,        0, &cVantor::OnNew          },
    { IDM_GRAPH_OPEN,       0, &cVantor::OnOpen         },
    { IDM_GRAPH_APPEND,     0, &cVantor::OnAppend       },
    { IDM_ENTER_Y,          0, &cVantor::OnEnterY       },
    { IDM_ENTER_XY,         0, &cVantor::OnEnterXy      },
    { IDM_GRAPH_SAVE,       1, &cVantor::OnSave         },
    { IDM_GRAPH_SAVE_AS,    1, &cVantor::OnSaveAs       },
    { IDM_PRINT_SETUP,      0, &cVantor::OnPrintSetup   },
    { IDM_PRINT_GRAPH,      0, &cVantor::OnPrint        },
    { IDM_CREATE_BMP,       0, &cVantor::OnCreateBmp    },
    { IDM_CREATE_GIF,       0, &cVantor::OnCreateGif    },
    { IDM_GRAPH_EXIT,       1, &cVantor::OnExit         },
    { IDM_REFORMAT_PLOT,    0, &cVantor::OnReformatPlot },
    { IDM_AUTO_RANGE,       0, &cVantor::OnAutoRange    },
    { IDM_REFORMAT_LINE,    0, &cVantor::OnReformatLine },
    { IDM_EDIT_DATA_SET,    0, &cVantor::OnEditDataSet  },
    { IDM_DELETE_LINE,      0, &cVantor::OnDeleteLine   },
    { IDM_LEGEND,           1, &cVantor::OnLegend       },
    { IDM_GRID,             1, &cVantor::OnGrid         },
    { IDM_GRAPH_STATUS_BAR, 1, &cVantor::OnStatusBar    },
    { IDM_GRAPH_HELP,       1, &cVantor::OnHelp         },
    { IDM_GRAPH_ABOUT,      1, &cVantor::OnAbout        },
};
// clang-format on

cWindowClass cVantor::s_Class;

cVantor::cVantor(cMessageBoxes *pBoxes, cVantorHost *pHost)
    : cBaseWindow(pBoxes), m_pHost(pHost), m_StatusBar(pBoxes), m_Box(pBoxes),
      m_hAccelerators(nullptr), m_szFileName(""), m_ClassShare(&s_Class)
{
    m_dwStyle = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
}

const char *cVantor::GetClassName() const
{
    return "cVantor";
}

LRESULT CALLBACK cVantor::WindowProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    return HandleMessage(s_Messages, hWnd, nMessage, wParam, lParam);
}

int cVantor::Create(const cVantorBoxSettings &Settings, int nX, int nY, int nWidth, int nHeight,
                    int bHidden)
{
    const int nRightEdge = -1;
    if (!CreateFrame(nX, nY, nWidth, nHeight) ||
        !m_StatusBar.Create(this, 0, 0, 0, 0, IDC_GRAPH_STATUSBAR, 1, &nRightEdge))
        return 0;
    m_StatusBar.Show();
    ShowFileName();
    if (!m_Box.Create(this, Settings, IDC_PLOT))
        return 0;
    LayOut();
    if (!bHidden)
        ShowGraph();
    return 1;
}

static int OrDefault(int nValue)
{
    return nValue ? nValue : CW_USEDEFAULT;
}

int cVantor::CreateFrame(int nX, int nY, int nWidth, int nHeight)
{
    WNDCLASSA Class     = DescribeClass(GetClassName(), WindowProc);
    Class.style         = CS_HREDRAW | CS_VREDRAW;
    Class.hIcon         = LoadIconA(ProgramInstance(), MAKEINTRESOURCEA(IDI_GRAPH));
    Class.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    Class.lpszMenuName  = MAKEINTRESOURCEA(IDR_GRAPH_MENU);
    if (!m_ClassShare.Acquire(Class))
        return ReportFailure("ERROR: RegisterClass() failed in cVantor::Create()");
    const HWND hWnd = CreateWindowExA(
        m_dwExStyle, GetClassName(), "cVantor", m_dwStyle, OrDefault(nX), OrDefault(nY),
        OrDefault(nWidth), OrDefault(nHeight), nullptr, nullptr, ProgramInstance(), this);
    if (!hWnd)
        return ReportFailure("ERROR: CreateWindow() failed in cVantor::Create()");
    SetCreated(hWnd);
    return 1;
}

void cVantor::ShowGraph()
{
    Show();
    if (IsIconic(m_hWnd))
        ShowWindow(m_hWnd, SW_RESTORE);
    UpdateWindow(m_hWnd);
}

void cVantor::ShowInactive()
{
    if (m_bVisible)
        return;
    ShowWindow(m_hWnd, SW_SHOWNOACTIVATE);
    m_bVisible = 1;
    UpdateWindow(m_hWnd);
}

void cVantor::LayOut()
{
    RECT Client = {};
    GetClientRect(m_hWnd, &Client);
    int nBottom = Client.bottom;
    if (m_StatusBar.IsVisible())
    {
        RECT Bar = {};
        m_StatusBar.AutoSize();
        GetWindowRect(m_StatusBar.Window(), &Bar);
        nBottom -= Bar.bottom - Bar.top;
    }
    m_Box.Move(0, 0, Client.right, nBottom > 0 ? nBottom : 0, 1);
}

// --- messages

LRESULT cVantor::OnCreate(WPARAM, LPARAM)
{
    m_hAccelerators =
        LoadAcceleratorsA(ProgramInstance(), MAKEINTRESOURCEA(IDR_GRAPH_ACCELERATORS));
    if (!m_hAccelerators)
        m_pBoxes->Ask("ERROR: LoadAccelerators() failed in cVantorWndProc()", nullptr, bnOk,
                      icNone);
    return 0;
}

LRESULT cVantor::OnClose(WPARAM, LPARAM)
{
    if (!m_pHost)
    {
        DestroyWindow(m_hWnd);
        return 0;
    }
    Hide();
    m_pHost->OnGraphHidden();
    return 0;
}

// While the frame is minimised, the plot keeps the size in which it will be shown
// again, so that a range set meanwhile gets the right number of ticks.
LRESULT cVantor::OnSize(WPARAM wParam, LPARAM)
{
    if (m_Box.IsCreated() && wParam != SIZE_MINIMIZED)
        LayOut();
    return 0;
}

LRESULT cVantor::OnDpiChanged(WPARAM wParam, LPARAM lParam)
{
    m_Box.SetDpi(LOWORD(wParam));
    m_StatusBar.SetDpi(LOWORD(wParam));
    TakeRect(m_hWnd, *reinterpret_cast<const RECT *>(lParam));
    return 0;
}

LRESULT cVantor::OnSetFocus(WPARAM, LPARAM)
{
    if (m_pHost && m_hAccelerators)
        m_pHost->UseAccelerators(m_hWnd, m_hAccelerators);
    return 0;
}

LRESULT cVantor::OnMenuSelect(WPARAM wParam, LPARAM lParam)
{
    m_StatusBar.OnMenuSelect(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HMENU>(lParam));
    return 0;
}

LRESULT cVantor::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const cCommandRow *const pRow = FindCommand(s_Commands, LOWORD(wParam));
    if (!pRow)
        return DefWindowProcA(m_hWnd, WM_COMMAND, wParam, lParam);
    // A dialog is open: only another program can have sent this.
    if (!IsWindowEnabled(m_hWnd))
        return 0;
    if (!pRow->m_bWhileRunning && m_pHost && m_pHost->IsDrawing())
        m_pBoxes->Ask(kNotWhileRunning, nullptr, bnOk, icNone);
    else
        (this->*pRow->m_pfnHandler)();
    return 0;
}

// --- files

void cVantor::ShowFileName()
{
    m_StatusBar.SetText(0, "filename: %s", m_szFileName[0] ? m_szFileName : "UNTITLED");
}

void cVantor::OnNew()
{
    m_Box.ClearAll();
    m_szFileName[0] = 0;
    ShowFileName();
}

// Proposes the name of the graph's file when saving.
int cVantor::AskName(eFileNameDialog nDialog, char (&szName)[kFileName]) const
{
    snprintf(szName, sizeof szName, "%s", nDialog == fnSave ? m_szFileName : "");
    return AskFileName(nDialog, kTextFiles, nullptr, "txt", m_pBoxes, szName);
}

void cVantor::OnOpen()
{
    char szName[kFileName];
    if (!AskName(fnOpen, szName))
        return;
    const cWaitCursor Wait;
    cInterruptWatch   Watch;
    if (!OpenGraphFile(&m_Box, m_pBoxes, szName, &Watch))
        return;
    snprintf(m_szFileName, sizeof m_szFileName, "%s", szName);
    ShowFileName();
}

void cVantor::OnAppend()
{
    char szName[kFileName];
    if (!AskName(fnOpen, szName))
        return;
    const cWaitCursor Wait;
    cInterruptWatch   Watch;
    AppendGraphFile(&m_Box, m_pBoxes, szName, &Watch);
}

void cVantor::OnSave()
{
    if (m_szFileName[0])
        SaveGraphFile(m_Box, m_pBoxes, m_szFileName);
    else
        OnSaveAs();
}

// For an empty graph SaveGraphFile shows a message; no name is asked for.
void cVantor::OnSaveAs()
{
    char szName[kFileName] = "";
    if (Count() > 0 && !AskName(fnSave, szName))
        return;
    if (!SaveGraphFile(m_Box, m_pBoxes, szName))
        return;
    snprintf(m_szFileName, sizeof m_szFileName, "%s", szName);
    ShowFileName();
}

// --- printing and pictures

void cVantor::OnPrintSetup()
{
    cPageChoice *const pPage = m_Box.Page();
    AskPageSetup(&pPage->m_Margins, &pPage->m_bTurned);
}

void cVantor::OnPrint()
{
    char szTitle[64] = "";
    GetWindowTextA(m_hWnd, szTitle, sizeof szTitle);
    PrintGraph(&m_Box, m_hWnd, szTitle, m_pBoxes);
}

void cVantor::OnCreateBmp()
{
    ExportGraph(&m_Box, ikBmp, m_szFileName);
}

void cVantor::OnCreateGif()
{
    ExportGraph(&m_Box, ikGif, m_szFileName);
}

void cVantor::OnExit()
{
    SendMessageA(m_hWnd, WM_CLOSE, 0, 0);
}

// --- data and appearance

void cVantor::OnEnterY()
{
    EnterYData(&m_Box);
}

void cVantor::OnEnterXy()
{
    EnterXyData(&m_Box);
}

void cVantor::OnReformatPlot()
{
    ReformatPlot(&m_Box);
}

void cVantor::OnAutoRange()
{
    m_Box.AutoRange();
}

void cVantor::OnReformatLine()
{
    ReformatLine(&m_Box);
}

void cVantor::OnEditDataSet()
{
    EditDataSet(&m_Box);
}

void cVantor::OnDeleteLine()
{
    DeleteLine(&m_Box);
}

void cVantor::OnLegend()
{
    m_Box.SetLegend(!m_Box.Settings().m_bLegend);
}

void cVantor::OnGrid()
{
    const int bGrid = !m_Box.Settings().m_bHorzGrid && !m_Box.Settings().m_bVertGrid;
    m_Box.SetGrid(bGrid, bGrid);
}

void cVantor::OnStatusBar()
{
    m_StatusBar.SetVisible(!m_StatusBar.IsVisible());
    CheckItem(GetMenu(m_hWnd), IDM_GRAPH_STATUS_BAR, m_StatusBar.IsVisible());
    LayOut();
}

// --- help

void cVantor::OnHelp()
{
    const char *const szTopic = "HtmlHelp\\cVantor Introduction.htm";
    if (OpenHelpTopic("cVantor.CHM", szTopic))
        return;
    char szText[kMissingHelpText];
    FormatMissingHelp("CVANTOR.CHM", szText);
    m_pBoxes->Ask(szText, nullptr, bnOk, icNone);
}

void cVantor::OnAbout()
{
    ShowGraphAbout(&m_Box);
}
