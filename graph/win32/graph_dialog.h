// graph_dialog.h - what the dialogs of the graph's window have in common: they
// are modal above its frame and reach the plot.
//
// The calculator goes on while a dialog of the graph stands, so data lines may
// come and go under it. A dialog therefore keeps their numbers only, and asks
// the plot anew whenever it needs one.

#ifndef GRAPH_GRAPH_DIALOG_H
#define GRAPH_GRAPH_DIALOG_H

#include "toolkit/win32/win32.h"

#include <cstdint>
#include <memory>

#include "graph/win32/vantor_box.h"

// What a field of one line holds at most. A longer text is shown without its
// end.
const int kFieldText = 81;  // closing zero included

class cGraphDialog
{
public:
    explicit cGraphDialog(cVantorBox *pBox) : m_pBox(pBox), m_hDialog(nullptr) {}
    virtual ~cGraphDialog() {}
    cGraphDialog(const cGraphDialog &)            = delete;
    cGraphDialog &operator=(const cGraphDialog &) = delete;

    // Shows dialog nTemplate of the resources until it is closed.
    void Run(int nTemplate);

protected:
    // Fills the fields of the dialog, which is not shown yet.
    virtual void OnInit() {}

    // OK: returns 1 to close the dialog.
    virtual int OnOk() { return 1; }

    // A notification of a control other than OK and Cancel.
    virtual void OnControl(int /*nId*/, int /*nNotification*/) {}

    // The colour of a colour sample.
    virtual COLORREF SampleColour() const { return 0; }

    // --- the fields
    void SetText(int nId, const char *szText) const;
    void SetUnsigned(int nId, uint32_t nValue) const;
    void SetNumber(int nId, float fValue) const;  // six digits
    void SetChecked(int nId, int bChecked) const;
    void GetText(int nId, char (&szText)[kFieldText]) const;
    int  GetUnsigned(int nId, uint32_t nLeast, uint32_t nMost, uint32_t *pValue) const;
    int  GetNumber(int nId, float *pValue) const;
    int  IsChecked(int nId) const;

    // The number of a data line that exists. 0 if the field does not hold one.
    int GetLine(int nId, uint32_t *pnLine) const;

    // From nLeast to nMost with the arrows; the field takes other texts too.
    void SetSpinRange(int nSpinId, uint32_t nLeast, uint32_t nMost) const;

    // Of the data lines, 1 when there is none.
    void SetLineSpinRange(int nSpinId) const;

    // All that is in a field of many lines. Null, and the user has given up, if
    // there is no memory for it.
    std::unique_ptr<char[]> GetLongText(int nId) const;

    void Say(const char *szText) const;

    // Says what is wrong with a field and selects it. Always returns 0.
    int Refuse(int nId, const char *szText) const;

    cVantorBox *m_pBox;
    HWND        m_hDialog;

private:
    static INT_PTR CALLBACK DialogProc(HWND hDialog, UINT nMessage, WPARAM wParam, LPARAM lParam);

    void    LimitFields() const;
    INT_PTR OnMessage(UINT nMessage, WPARAM wParam, LPARAM lParam);
    void    OnCommand(int nId, int nNotification);
    void    DrawSample(const DRAWITEMSTRUCT &Item) const;
};

// The graph type as which a set is drawn: an odd one is drawn as gtPlot.
uint32_t DrawnType(const cVantorDataSet &Set);

// The name of a set's style in the table of its graph type. Null, which cannot
// be, if it has none.
const char *StyleName(const cVantorDataSet &Set);

// The table of a graph type.
const cVantorStyle *StylesOf(uint32_t nGraphType);

#endif
