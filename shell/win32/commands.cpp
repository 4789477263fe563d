// commands.cpp - the commands of menu, toolbar and accelerators.

#include "shell/win32/vorstek.h"

#include "engine/run_lock.h"
#include "engine/vorstek_state.h"
#include "resources/resource.h"
#include "shell/win32/dialogs.h"
#include "shell/win32/help.h"
#include "toolkit/win32/menu_items.h"

// A command that is not allowed during a run is one of run_lock.h: it is grey in the
// menu and the toolbar, and is ignored if another program sends it. "Exit" is grey
// too, but is carried out if it is sent: closing the window ends the run.
// clang-format off
constexpr cVorstek::cCommandRow cVorstek::s_Commands[] =
{
    { IDM_NEW,              0, &cVorstek::OnNew             },
    { IDM_OPEN,             0, &cVorstek::OnOpen            },
    { IDM_SAVE,             1, &cVorstek::OnSave            },
    { IDM_SAVE_AS,          1, &cVorstek::OnSaveAs          },
    { IDM_PAGE_SETUP,       1, &cVorstek::OnPageSetup       },
    { IDM_PRINT,            1, &cVorstek::OnPrint           },
    { IDM_EXIT,             1, &cVorstek::OnExit            },
    { IDM_UNDO,             1, &cVorstek::OnUndo            },
    { IDM_CUT,              1, &cVorstek::OnCut             },
    { IDM_COPY,             1, &cVorstek::OnCopy            },
    { IDM_PASTE,            1, &cVorstek::OnPaste           },
    { IDM_DELETE,           1, &cVorstek::OnDelete          },
    { IDM_SELECT_ALL,       1, &cVorstek::OnSelectAll       },
    { IDM_REPAIR_HIGHLIGHT, 1, &cVorstek::OnRepairHighlight },
    { IDM_COPY_X,           1, &cVorstek::OnCopyX           },
    { IDM_PASTE_NUMBER,     1, &cVorstek::OnPasteNumber     },
    { IDM_TOOLBAR,          1, &cVorstek::OnToggleToolBar   },
    { IDM_STATUS_BAR,       1, &cVorstek::OnToggleStatusBar },
    { IDM_GRAPH,            1, &cVorstek::OnToggleGraph     },
    { IDM_OPTIONS,          0, &cVorstek::OnOptions         },
    { IDM_HELP,             1, &cVorstek::OnHelp            },
    { IDM_ABOUT,            1, &cVorstek::OnAbout           },
};
// clang-format on

static const UINT kEditMenu = 1;  // position in the menu bar

// Whether the rows allow during a run what the engine leaves enabled.
template <class cRow, size_t nRows> static constexpr int AgreeWithEngine(const cRow (&Rows)[nRows])
{
    for (const cRow &Row : Rows)
        if (Row.m_nId != IDM_EXIT && Row.m_bWhileRunning == IsLockedInRun(Row.m_nId))
            return 0;
    return 1;
}

LRESULT cVorstek::OnCommand(WPARAM wParam, LPARAM lParam)
{
    static_assert(AgreeWithEngine(s_Commands));
    const unsigned nId     = LOWORD(wParam);
    const unsigned nNotice = HIWORD(wParam);
    if (nId == IDC_LISTING && (nNotice == EN_ERRSPACE || nNotice == EN_MAXTEXT))
        Ask("ERROR: File overflow has\ncaused text truncation.", nullptr, bnOk, icError);
    const cCommandRow *const pRow = FindCommand(s_Commands, nId);
    if (!pRow)
        return DefWindowProcA(m_hWnd, WM_COMMAND, wParam, lParam);
    // A dialog is open: only another program can have sent this.
    if (!IsWindowEnabled(m_hWnd))
        return 0;
    if (pRow->m_bWhileRunning || !IsRunning())
        (this->*pRow->m_pfnHandler)();
    return 0;
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
    const char *const szName = State().m_szFileName;
    m_ListingBox.Print(szName[0] ? szName : "UNTITLED");
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
    pBar->SetVisible(!pBar->IsVisible());
    CheckItem(GetMenu(m_hWnd), nCommand, pBar->IsVisible());
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
    const cVorstekState &Current = State();
    cOptions Options = {Current.m_bKeepListingOpen, Current.m_bKeepRegistersOpen, Current.m_bTrace,
                        Current.m_bSoundOff};
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

    EnableItem(hMenu, IDM_UNDO, bUndo);
    EnableItem(hMenu, IDM_CUT, bWritable && bSelected);
    EnableItem(hMenu, IDM_COPY, bSelected);
    EnableItem(hMenu, IDM_PASTE, bPaste);
    EnableItem(hMenu, IDM_DELETE, bWritable && bSelected);
}
