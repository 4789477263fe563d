// vantor.h - the graph's top-level window: a frame with a menu, a status bar and
// the plot. It belongs to a host, the calculator, or is independent.

#ifndef GRAPH_WIN32_VANTOR_H
#define GRAPH_WIN32_VANTOR_H

#include "toolkit/win32/win32.h"

#include "graph/win32/vantor_box.h"
#include "graph/win32/vantor_host.h"
#include "toolkit/win32/base_window.h"
#include "toolkit/win32/command_table.h"
#include "toolkit/win32/file_dialogs.h"
#include "toolkit/win32/message_table.h"
#include "toolkit/win32/status_bar.h"
#include "toolkit/win32/window_class.h"

class cVantor : public cBaseWindow
{
public:
    // pHost must outlive the object. Null for an independent graph, whose window
    // is destroyed when the user closes it.
    cVantor(cMessageBoxes *pBoxes, cVantorHost *pHost);

    const char *GetClassName() const override;  // "cVantor"

    // Creates the frame with everything in it. The platform chooses a position or
    // a size of 0. 0, after a message box, if anything cannot be created.
    int Create(const cVantorBoxSettings &Settings, int nX, int nY, int nWidth, int nHeight,
               int bHidden);

    // Shows and activates the frame, and restores a minimised one.
    void ShowGraph();

    // Shows a hidden frame without activating it: the calculator, whose program
    // is drawing, keeps the keyboard.
    void ShowInactive();

    HACCEL Accelerators() const { return m_hAccelerators; }

    // --- used by the calculator
    uint32_t Count() const { return m_Box.Count(); }
    int      AddPoint(uint32_t nLine, float fX, float fY) { return m_Box.AddPoint(nLine, fX, fY); }
    int      ClearAll() { return m_Box.ClearAll(); }

    cVantorBox *Box() { return &m_Box; }

private:
    using cMessageRow = cMessageRowOf<cVantor>;
    using cCommandRow = cCommandRowOf<cVantor>;

    static const cMessageRow s_Messages[];
    static const cCommandRow s_Commands[];
    static cWindowClass      s_Class;
    static LRESULT CALLBACK  WindowProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam);

    int  CreateFrame(int nX, int nY, int nWidth, int nHeight);
    void LayOut();

    // --- messages
    LRESULT OnCreate(WPARAM wParam, LPARAM lParam);
    LRESULT OnClose(WPARAM wParam, LPARAM lParam);
    LRESULT OnSize(WPARAM wParam, LPARAM lParam);
    LRESULT OnDpiChanged(WPARAM wParam, LPARAM lParam);
    LRESULT OnSetFocus(WPARAM wParam, LPARAM lParam);
    LRESULT OnCommand(WPARAM wParam, LPARAM lParam);
    LRESULT OnMenuSelect(WPARAM wParam, LPARAM lParam);

    // --- commands
    void OnNew();
    void OnOpen();
    void OnAppend();
    void OnEnterY();
    void OnEnterXy();
    void OnSave();
    void OnSaveAs();
    void OnPrintSetup();
    void OnPrint();
    void OnCreateBmp();
    void OnCreateGif();
    void OnExit();
    void OnReformatPlot();
    void OnAutoRange();
    void OnReformatLine();
    void OnEditDataSet();
    void OnDeleteLine();
    void OnLegend();
    void OnGrid();
    void OnStatusBar();
    void OnHelp();
    void OnAbout();

    int  AskName(eFileNameDialog nDialog, char (&szName)[kFileName]) const;
    void ShowFileName();

    cVantorHost      *m_pHost;
    cStatusBar        m_StatusBar;
    cVantorBox        m_Box;
    HACCEL            m_hAccelerators;
    char              m_szFileName[kFileName];
    cWindowClassShare m_ClassShare;
};

#endif
