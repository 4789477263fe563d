// commands.cpp - the commands of menu, toolbar and accelerators.

#include "shell/win32/vorstek.h"

#include "resources/resource.h"
#include "shell/win32/dialogs.h"
#include "shell/win32/help.h"

struct cVorstek::cCommandRow
{
    unsigned m_nId;
    void (cVorstek::*m_pfnHandler)();
};

// clang-format off
const cVorstek::cCommandRow cVorstek::s_Commands[] =
{
    { IDM_NEW,              &cVorstek::OnNew             },
    { IDM_OPEN,             &cVorstek::OnOpen            },
    { IDM_SAVE,             &cVorstek::OnSave            },
    { IDM_SAVE_AS,          &cVorstek::OnSaveAs          },
    { IDM_PAGE_SETUP,       &cVorstek::OnPageSetup       },
    { IDM_PRINT,            &cVorstek::OnPrint           },
    { IDM_EXIT,             &cVorstek::OnExit            },
    { IDM_UNDO,             &cVorstek::OnUndo            },
    { IDM_CUT,              &cVorstek::OnCut             },
    { IDM_COPY,             &cVorstek::OnCopy            },
    { IDM_PASTE,            &cVorstek::OnPaste           },
    { IDM_DELETE,           &cVorstek::OnDelete          },
    { IDM_SELECT_ALL,       &cVorstek::OnSelectAll       },
    { IDM_REPAIR_HIGHLIGHT, &cVorstek::OnRepairHighlight },
    { IDM_TOOLBAR,          &cVorstek::OnToggleToolBar   },
    { IDM_STATUS_BAR,       &cVorstek::OnToggleStatusBar },
    { IDM_GRAPH,            &cVorstek::OnToggleGraph     },
    { IDM_OPTIONS,          &cVorstek::OnOptions         },
    { IDM_HELP,             &cVorstek::OnHelp            },
    { IDM_ABOUT,            &cVorstek::OnAbout           },
};
// clang-format on

static const UINT kEditMenu = 1;  // position in the menu bar

LRESULT cVorstek::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const unsigned nId     = LOWORD(wParam);
    const unsigned nNotice = HIWORD(wParam);
    if (nId == IDC_LISTING && (nNotice == EN_ERRSPACE || nNotice == EN_MAXTEXT))
        Ask("ERROR: File overflow has\ncaused text truncation.", nullptr, bnOk, icError);
    for (const cCommandRow &Row : s_Commands)
        if (Row.m_nId == nId)
        {
            (this->*Row.m_pfnHandler)();
            return 0;
        }
    return DefWindowProcA(m_hWnd, WM_COMMAND, wParam, lParam);
}

void cVorstek::OnNew()
{
    New();
}

void cVorstek::OnOpen()
{
    Open();
}

void cVorstek::OnSave()
{
    Save();
}

void cVorstek::OnSaveAs()
{
    SaveAs();
}

void cVorstek::OnPageSetup()
{
    m_ListingBox.PageSetup();
}

void cVorstek::OnPrint()
{
    m_ListingBox.Print(m_szFileName[0] ? m_szFileName : "UNTITLED");
}

void cVorstek::OnExit()
{
    SendMessageA(m_hWnd, WM_CLOSE, 0, 0);
}

void cVorstek::OnUndo()
{
    if (SendMessageA(m_ListingBox.Window(), EM_CANUNDO, 0, 0))
        SendMessageA(m_ListingBox.Window(), EM_UNDO, 0, 0);
    else
        Ask("Nothing to undo", nullptr, bnOk, icNone);
}

void cVorstek::OnCut()
{
    SendMessageA(m_ListingBox.Window(), WM_CUT, 0, 0);
}

void cVorstek::OnCopy()
{
    SendMessageA(m_ListingBox.Window(), WM_COPY, 0, 0);
}

void cVorstek::OnPaste()
{
    SendMessageA(m_ListingBox.Window(), WM_PASTE, 0, 0);
}

void cVorstek::OnDelete()
{
    SendMessageA(m_ListingBox.Window(), WM_CLEAR, 0, 0);
}

void cVorstek::OnSelectAll()
{
    SendMessageA(m_ListingBox.Window(), EM_SETSEL, 0, -1);
}

void cVorstek::OnRepairHighlight()
{
    RepairHighlight();
}

void cVorstek::ToggleBar(cBaseWindow *pBar, unsigned nCommand)
{
    if (pBar->IsVisible())
        pBar->Hide();
    else
        pBar->Show();
    CheckMenuItem(GetMenu(m_hWnd), nCommand,
                  MF_BYCOMMAND | static_cast<UINT>(pBar->IsVisible() ? MF_CHECKED : MF_UNCHECKED));
    LayOutAgain();
    // Otherwise the window's background would be painted where the bar was, over
    // the face that has moved there.
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void cVorstek::OnToggleToolBar()
{
    ToggleBar(&m_ToolBar, IDM_TOOLBAR);
}

void cVorstek::OnToggleStatusBar()
{
    ToggleBar(&m_StatusBar, IDM_STATUS_BAR);
}

void cVorstek::OnToggleGraph()
{
    if (!m_Graph.IsVisible())
    {
        m_Graph.ShowGraph();
        CheckGraph(1);
    }
    else
    {
        m_Graph.Hide();
        OnGraphHidden();
    }
}

void cVorstek::OnOptions()
{
    cOptions Options = {m_bKeepListingOpen, m_bKeepRegistersOpen, m_bTrace, m_bSoundOff};
    if (!AskOptions(m_hWnd, &Options))
        return;
    ApplyOptions(Options);
    SizeWindow();
}

void cVorstek::OnHelp()
{
    ShowHelp(&m_hHelpWnd);
}

void cVorstek::OnAbout()
{
    ShowAbout(m_hWnd);
}

LRESULT cVorstek::OnInitMenuPopup(WPARAM wParam, LPARAM lParam)
{
    if (LOWORD(lParam) == kEditMenu && !HIWORD(lParam))
        EnableEditCommands(reinterpret_cast<HMENU>(wParam));
    return 0;
}

void cVorstek::EnableEditCommands(HMENU hMenu)
{
    const HWND hBox      = m_ListingBox.Window();
    DWORD      dwStart   = 0;
    DWORD      dwEnd     = 0;
    const int  bWritable = !m_ListingBox.IsReadOnly();
    SendMessageA(hBox, EM_GETSEL, reinterpret_cast<WPARAM>(&dwStart),
                 reinterpret_cast<LPARAM>(&dwEnd));
    const int bSelected = dwStart != dwEnd;
    const int bUndo     = bWritable && SendMessageA(hBox, EM_CANUNDO, 0, 0);
    const int bPaste    = bWritable && IsClipboardFormatAvailable(CF_TEXT);

    const auto Enable = [hMenu](unsigned nId, int bEnable) {
        EnableMenuItem(hMenu, nId,
                       MF_BYCOMMAND | static_cast<UINT>(bEnable ? MF_ENABLED : MF_GRAYED));
    };
    Enable(IDM_UNDO, bUndo);
    Enable(IDM_CUT, bWritable && bSelected);
    Enable(IDM_COPY, bSelected);
    Enable(IDM_PASTE, bPaste);
    Enable(IDM_DELETE, bWritable && bSelected);
}
