// vorstek.h - the calculator as a window: the engine, the main window, and the
// host that carries out what the engine asks for.

#ifndef SHELL_WIN32_VORSTEK_H
#define SHELL_WIN32_VORSTEK_H

#include "toolkit/win32/win32.h"

#include "engine/vorstek_engine.h"
#include "graph/win32/vantor.h"
#include "graph/win32/vantor_host.h"
#include "shell/win32/button_array.h"
#include "shell/win32/edit_line_box.h"
#include "shell/win32/face_pictures.h"
#include "shell/win32/keypad_accessibility.h"
#include "shell/win32/keypad_tooltips.h"
#include "shell/win32/pane_focus.h"
#include "shell/win32/window_host.h"
#include "toolkit/win32/base_window.h"
#include "toolkit/win32/command_table.h"
#include "toolkit/win32/edit_box.h"
#include "toolkit/win32/gdi.h"
#include "toolkit/win32/message_table.h"
#include "toolkit/win32/status_bar.h"
#include "toolkit/win32/tool_bar.h"
#include "toolkit/win32/window_class.h"

struct cDisplayLine;
struct cWindowParts;

// The host is the first base: the other bases keep a pointer to its boxes.
class cVorstek : public cWindowHost, public cVantorHost, public cBaseWindow, public cVorstekEngine
{
public:
    cVorstek();
    ~cVorstek() override;

    const char *GetClassName() const override;

    // Creates and shows the window with everything in it. On a failure it shows
    // a message box, posts a quit message and returns 0.
    int Create();

    // A box is shown beside views that are up to date, also where the graph or the
    // trace asks for it in the middle of a run.
    eAnswer Ask(const char *szText, const char *szCaption, eButtons nButtons, eIcon nIcon) override;
    void    ReportUnowned(const char *szText, const char *szCaption) override;

    // What the engine asks for.
    void     StartSound(unsigned nId) override;
    void     DrawDisplay(const cDisplay &Display) override;
    void     BlankDisplay() override;
    unsigned DrainMessages(unsigned nLines) override;
    void     Pause(unsigned nMilliseconds) override;
    int      AskFileName(eFileDialog nDialog, char *szName, size_t nSize) override;
    void     SetStatusText(const char *szText) override;
    void     EnableCommand(unsigned nId, int bEnable) override;
    void     ShowListing(int bShow) override;
    void     ShowRegisters(int bShow) override;
    void     ShowGraph() override;
    void     ClearGraph() override;
    unsigned CountDataSets() override;
    int      AddGraphPoint(unsigned nLine, double dX, double dY) override;

    // What the graph's window asks for.
    int  IsDrawing() const override;
    void OnGraphHidden() override;
    void UseAccelerators(HWND hWnd, HACCEL hTable) override;

private:
    using cMessageRow = cMessageRowOf<cVorstek>;
    using cCommandRow = cCommandRowOf<cVorstek>;

    static const cMessageRow s_Messages[];
    static const cCommandRow s_Commands[];
    static cWindowClass      s_Class;
    static LRESULT CALLBACK  WindowProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam);

    // --- creation, step by step
    int  CreateMainWindow();
    int  CreateBars();
    void ScaleToolBar();
    int  CreateBoxes();
    int  CreateBox(cEditBox *pBox, uint32_t nId, const char *szName);
    int  CreateKeypad();
    int  CreateGraph();
    int  AddKeys(const int *pStarts);
    void ChangeFace();
    int  DescribeKeypad();
    int  Listen(uint32_t nSlot, cCallbackRec::cMemberCall pfnMember);
    void CreateFonts();
    void FindScale(int nDpi);

    // --- layout
    cWindowParts Parts() const;
    static int   HeightOf(const cBaseWindow &Bar);  // 0 while it is hidden
    int          IsFitted() const;
    int          IsLowestScreen() const;
    int          LimitHeight(int nHeight) const;
    int          LimitTop(int nTop, int nHeight) const;
    void         SizeWindow();
    void         SizeWithBoxes();
    void         SizeToBoxes();
    void         LayOut(int nClientWidth, int nClientHeight);
    void         LayOutAgain();
    void         PlaceBox(cEditBox *pBox, const struct cFaceRect &Rect);
    void         ShowBox(cEditBox *pBox, int bShow);

    // --- callbacks of the keypad
    static void OnKeyEvent(void *pTarget, cCallbackObj *pSender, void *pArgument, uintptr_t);
    static void OnDisplayUncovered(void *pTarget, cCallbackObj *pSender, void *pArgument,
                                   uintptr_t);

    // --- messages
    LRESULT OnCreate(WPARAM wParam, LPARAM lParam);
    LRESULT OnDestroy(WPARAM wParam, LPARAM lParam);
    LRESULT OnSize(WPARAM wParam, LPARAM lParam);
    LRESULT OnDpiChanged(WPARAM wParam, LPARAM lParam);
    LRESULT OnSetFocus(WPARAM wParam, LPARAM lParam);
    LRESULT OnKillFocus(WPARAM wParam, LPARAM lParam);
    LRESULT OnPaint(WPARAM wParam, LPARAM lParam);
    LRESULT OnClose(WPARAM wParam, LPARAM lParam);
    LRESULT OnQueryEndSession(WPARAM wParam, LPARAM lParam);
    LRESULT OnGetMinMaxInfo(WPARAM wParam, LPARAM lParam);
    LRESULT OnDisplayChange(WPARAM wParam, LPARAM lParam);
    LRESULT OnNotify(WPARAM wParam, LPARAM lParam);
    LRESULT OnKeyDown(WPARAM wParam, LPARAM lParam);
    LRESULT OnParentNotify(WPARAM wParam, LPARAM lParam);
    LRESULT OnCharacter(WPARAM wParam, LPARAM lParam);
    LRESULT OnCommand(WPARAM wParam, LPARAM lParam);
    LRESULT OnSysCommand(WPARAM wParam, LPARAM lParam);
    LRESULT OnContextMenu(WPARAM wParam, LPARAM lParam);
    LRESULT OnInitMenuPopup(WPARAM wParam, LPARAM lParam);
    LRESULT OnMenuSelect(WPARAM wParam, LPARAM lParam);
    LRESULT OnCtlColor(WPARAM wParam, LPARAM lParam);
    LRESULT OnQueryNewPalette(WPARAM wParam, LPARAM lParam);
    LRESULT OnPaletteChanged(WPARAM wParam, LPARAM lParam);
    LRESULT OnMouseMove(WPARAM wParam, LPARAM lParam);

    // --- commands
    void OnNew();
    void OnOpen();
    void OnSave();
    void OnSaveAs();
    void OnPageSetup();
    void OnPrint();
    void OnExit();
    void OnUndo();
    void OnCut();
    void OnCopy();
    void OnPaste();
    void OnDelete();
    void OnSelectAll();
    void OnRepairHighlight();
    void OnCopyX();
    void OnPasteNumber();
    void OnToggleToolBar();
    void OnToggleStatusBar();
    void OnToggleGraph();
    void OnOptions();
    void OnHelp();
    void OnAbout();

    // --- display; Face is the origin of its texts
    HFONT LineFont(const cDisplayLine &Line) const;
    RECT  LineRect(const cDisplayLine &Line, POINT Face) const;
    RECT  BlankedRect(POINT Face) const;
    void  DrawLines(HDC hDc, const cDisplay &Display, POINT Face) const;
    void  ShowLines(const cDisplay &Display, POINT Face) const;

    int  DrainEvery(DWORD dwPeriod);  // milliseconds
    int  DispatchWaiting();
    void PressKeys(const cKeySequence &Keys);
    void CheckGraph(int bShown);
    void ToggleBar(cBaseWindow *pBar, unsigned nCommand);
    void EnableEditCommands(HMENU hMenu);

    cToolBar     m_ToolBar;
    cStatusBar   m_StatusBar;
    cEditBox     m_ListingBox;
    cEditBox     m_RegistersBox;
    cEditLineBox m_ListingLines;
    cEditLineBox m_RegistersLines;
    cButtonArray m_Keypad;
    cVantor      m_Graph;
    cPaneFocus   m_Panes;

    cKeypadTooltips      m_Tips;
    cKeypadAccessibility m_Accessibility;

    unsigned m_nKeyDown;  // virtual key, until its character has come; 0 for none

    int           m_nListingWidth;
    int           m_nRegistersWidth;
    cScale        m_Scale;        // of everything in the client area
    int           m_nFaceOffset;  // number of rows of the face hidden on a low screen
    HACCEL        m_hAccelerators;
    cFacePictures m_Pictures;
    cGdiFont      m_hLargeFont;
    cGdiFont      m_hSmallFont;
    HDC           m_hDisplayDc;     // the face's, in memory, while it is painted
    int           m_bBlanked;       // the display is blanked together with its next text
    int           m_bFonts;         // CreateFonts has been called
    int           m_bSizeLater;     // boxes were shown or hidden while the window was minimised
    HWND          m_hHelpWnd;       // null while no help is open
    DWORD         m_dwLastDrain;    // tick counts in milliseconds: its end,
    DWORD         m_dwLastRefresh;  // the start of this
    DWORD         m_dwRefreshTime;  // milliseconds that it took

    cWindowClassShare m_ClassShare;
};

#endif
