// graph_dialog.h - the base class of the graph's dialogs, which are modal for the
// graph's frame.
//
// The calculator may keep running while a dialog is open, and may add and delete
// data lines. A dialog therefore stores only their numbers and looks a data line
// up each time it is needed.

#ifndef GRAPH_WIN32_GRAPH_DIALOG_H
#define GRAPH_WIN32_GRAPH_DIALOG_H

#include "toolkit/win32/win32.h"

#include <cstdint>
#include <memory>

#include "graph/win32/vantor_box.h"

// Maximum text of a single-line field. A longer text is shown truncated.
const int kFieldText = 81;  // terminating zero included

class cGraphDialog
{
public:
    explicit cGraphDialog(cVantorBox *pBox) : m_pBox(pBox), m_hDialog(nullptr) {}
    virtual ~cGraphDialog() {}
    cGraphDialog(const cGraphDialog &)            = delete;
    cGraphDialog &operator=(const cGraphDialog &) = delete;

    // Shows the dialog resource nTemplate until it is closed.
    void Run(int nTemplate);

protected:
    // Fills the fields before the dialog is shown.
    virtual void OnInit() {}

    // Handles the OK button. Returns 1 to close the dialog.
    virtual int OnOk() { return 1; }

    // Handles a notification of a control other than OK and Cancel.
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

    // Reads the number of an existing data line. 0 if the field contains none.
    int GetLine(int nId, uint32_t *pnLine) const;

    // The data line whose number is in a field. Null if the field contains none;
    // should the plot not have that line, szMissing is shown.
    const cVantorDataSet *FindLine(int nId, const char *szMissing) const;

    // Limits the arrows to nLeast to nMost; any text can be typed in the field.
    void SetSpinRange(int nSpinId, uint32_t nLeast, uint32_t nMost) const;

    // Limits the arrows to the numbers of the data lines, or to 1 if there is
    // none.
    void SetLineSpinRange(int nSpinId) const;

    // The complete text of a multi-line field. Null if memory is short and the
    // user gave up.
    std::unique_ptr<char[]> GetLongText(int nId) const;

    void Say(const char *szText) const;

    // Shows what is wrong with a field and selects its text. Always returns 0.
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

// The graph type as which a set is drawn: gtPlot for an unknown type.
uint32_t DrawnType(const cVantorDataSet &Set);

// The name of a set's style in the table of its graph type. Null for a style that
// is not in the table, which should not occur.
const char *StyleName(const cVantorDataSet &Set);

// The table of styles of a graph type, kStyles rows.
const cVantorStyle *StylesOf(uint32_t nGraphType);

#endif
