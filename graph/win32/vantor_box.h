// vantor_box.h - the plot in a window: painting, the readout of points with the
// mouse, and the legend below it.

#ifndef GRAPH_WIN32_VANTOR_BOX_H
#define GRAPH_WIN32_VANTOR_BOX_H

#include "toolkit/win32/win32.h"

#include "graph/nearest_point.h"
#include "graph/plot_layout.h"
#include "graph/vantor_plot.h"
#include "graph/win32/back_buffer.h"
#include "graph/win32/graph_export.h"
#include "graph/win32/graph_print.h"
#include "toolkit/scale.h"
#include "toolkit/win32/base_window.h"
#include "toolkit/win32/gdi.h"
#include "toolkit/win32/list_box.h"
#include "toolkit/win32/message_table.h"
#include "toolkit/win32/window_class.h"

// The plot's settings and the font, which needs the platform.
struct cVantorBoxSettings : cVantorPlotSettings
{
    LOGFONTA m_LogFont     = {};
    int      m_bSystemFont = 1;  // 1: the stock SYSTEM_FONT; m_LogFont is ignored
};

// The legend's list. A horizontal scroll bar would hide rows of this low list.
class cLegendWindow : public cListBox
{
public:
    explicit cLegendWindow(cMessageBoxes *pBoxes) : cListBox(pBoxes)
    {
        m_dwStyle &= ~static_cast<DWORD>(WS_HSCROLL);
    }
};

class cVantorBox : public cBaseWindow, public cVantorPlot
{
public:
    explicit cVantorBox(cMessageBoxes *pBoxes);
    ~cVantorBox() override;

    const char *GetClassName() const override;  // "cVantorBox"

    // A child window of a frame, to which the context menu sends its commands as
    // WM_COMMAND. 0, after a message box, if it cannot be created.
    int Create(cBaseWindow *pOwner, const cVantorBoxSettings &Settings, uint32_t nId);

    // Applies all settings, font included, and fixes the range to theirs.
    void               Apply(const cVantorBoxSettings &Settings);
    cVantorBoxSettings BoxSettings() const;

    // The positions of everything in the window.
    const cPlotLayout &Layout();

    // The dots per inch of the screen that shows the window. Everything in it is
    // drawn in that scale; pictures and pages are not.
    void          SetDpi(int nDpi);
    const cScale &Scale() const { return m_Scale; }

    // The font of the plot in the window, and its size in tenths of a point.
    HFONT           Font() const;
    const LOGFONTA &FontDescription() const { return m_LogFont; }
    int             FontTenths() const { return m_nFontTenths; }

    // The same font for a picture, or empty for the stock SYSTEM_FONT.
    cGdiFont PictureFont() const { return ScaledFont(cScale()); }

    // The user's last choices for pictures and for printing.
    cImageChoice *Images() { return &m_Images; }
    cPageChoice  *Page() { return &m_Page; }

protected:
    void OnPlotChanged() override;
    void OnPointAdded(uint32_t nLine) override;
    void OnLabelAdded(uint32_t nLine) override;
    void OnLabelChanged(uint32_t nLine) override;
    void OnLabelRemoved(uint32_t nLine) override;
    void OnChecksChanged() override;

private:
    using cMessageRow = cMessageRowOf<cVantorBox>;

    static const cMessageRow s_Messages[];
    static cWindowClass      s_Class;
    static LRESULT CALLBACK  WindowProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam);

    // --- messages
    LRESULT OnSize(WPARAM wParam, LPARAM lParam);
    LRESULT OnEraseBackground(WPARAM wParam, LPARAM lParam);
    LRESULT OnPaint(WPARAM wParam, LPARAM lParam);
    LRESULT OnSetCursor(WPARAM wParam, LPARAM lParam);
    LRESULT OnLButtonDown(WPARAM wParam, LPARAM lParam);
    LRESULT OnMouseMove(WPARAM wParam, LPARAM lParam);
    LRESULT OnLButtonUp(WPARAM wParam, LPARAM lParam);
    LRESULT OnCaptureChanged(WPARAM wParam, LPARAM lParam);
    LRESULT OnContextMenu(WPARAM wParam, LPARAM lParam);
    LRESULT OnCommand(WPARAM wParam, LPARAM lParam);
    LRESULT OnDrawItem(WPARAM wParam, LPARAM lParam);

    // --- painting
    void        MakeFont(const cVantorBoxSettings &Settings);
    cGdiFont    ScaledFont(const cScale &Scale) const;
    cPlotTarget Target() const;
    void        PlaceLegend();
    void        DrawIntoBuffer();
    RECT        TitleStrip();

    // --- legend
    int  CreateLegend();
    void DrawRow(HDC hDc, int nWidth, int nHeight, uint32_t nLine, int bSelected) const;
    void DrawLegendLabel(HDC hDc, const RECT &Row, const char *szLabel, int bSelected) const;
    int  RowHeight() const;
    int  Borders() const;
    int  IsOnLegendBorder(int y);
    void DragLegendBorder(int y);

    // --- readout
    void FindReadout();
    void DrawReadout(HDC hDc);
    void DrawCrossHair(HDC hDc) const;
    RECT CrossHairBox() const;
    void EraseReadout();

    cScale            m_Scale;
    int               m_bSystemFont;
    LOGFONTA          m_LogFont;  // in pixels of the first screen
    cGdiFont          m_Font;     // empty: the stock SYSTEM_FONT
    int               m_nFontTenths;
    cLegendWindow     m_Legend;  // one row for each data line
    cBackBuffer       m_Buffer;
    int               m_bDrawn;           // the buffer contains the current plot
    int               m_bDrawing;         // the plot is being drawn into the buffer
    int               m_bPaintRequested;  // the platform will send WM_PAINT
    cPlotLayout       m_Layout;
    int               m_bLaidOut;         // m_Layout is that of the current plot
    int               m_bDraggingLegend;  // the mouse drags the legend's upper border
    int               m_bReadingOut;      // the mouse button is held down over the plot
    cPoint            m_Mouse;            // its position then
    int               m_bReadoutShown;
    cNearestPoint     m_Nearest;  // the point of the readout
    cImageChoice      m_Images;
    cPageChoice       m_Page;
    cWindowClassShare m_ClassShare;
};

#endif
