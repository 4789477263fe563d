// graph_window.h - the graph's window of a program that is driven from outside:
// its menus, its data and the fields of its dialogs.
//
//     cCalculator  Calculator;
//     cGraphWindow Graph(&Calculator);
//     Graph.Open("3.txt", "1\n2\n3\n");
//     Graph.Choose(gmEdit, IDM_REFORMAT_LINE);
//     Graph.Fill(IDC_LINE_WIDTH, "4");
//     Calculator.Click("OK");

#ifndef TESTS_WINDOW_GRAPH_WINDOW_H
#define TESTS_WINDOW_GRAPH_WINDOW_H

#include "toolkit/win32/win32.h"

#include <initializer_list>
#include <string>

#include "tests/window/calculator.h"
#include "tests/window/picture.h"

enum eGraphMenu
{
    gmFile,
    gmEdit,
    gmView,
    gmHelp
};

class cGraphWindow
{
public:
    // Shows the window with the calculator's menu. pCalculator must outlive it.
    explicit cGraphWindow(cCalculator *pCalculator);

    HWND Window() const { return m_hWnd; }
    HWND Plot() const;

    // A picture of the window after all changes have been painted.
    cPicture Photograph() const;
    unsigned ColourAt(int x, int y) const;  // in the plot

    // The plot without the frame: at this moment, or after all changes have been
    // painted.
    cPicture LookAtPlot() const;
    cPicture PhotographPlot() const;

    // Screen position of a point of the plot.
    POINT OnPlot(int x, int y) const;
    POINT MiddleOfPlot() const;

    HWND Legend() const;
    int  SelectedRow() const;  // of the legend, from 0; -1 for none

    // --- menu
    UINT        MenuState(unsigned nId) const;
    int         IsTicked(unsigned nId) const;  // whether the item has its mark
    std::string StatusText() const;

    // Opens a menu of the bar and clicks an item, both with the mouse.
    void Choose(eGraphMenu nMenu, unsigned nId);

    // --- data, by the commands of the File menu

    // Writes a data file and opens it.
    void Open(const std::string &File, const std::string &Content);

    // Saves to the file that was opened and returns its new content.
    std::string Saved(const std::string &File);

    // Number of data sets, as the legend lists them.
    int Count() const;

    // --- the topmost dialog

    std::string Caption() const;
    int         IsCentred() const;  // over this window

    HWND        Field(int nId) const;
    std::string Text(int nId) const;
    int         IsChecked(int nId) const;

    // Replaces the text in a field.
    void Fill(int nId, const std::string &Text);

    // Clicks a field of several lines and places the caret after its text.
    void GoToEnd(int nId);

    // Types lines, each followed by Enter, into the field that has the focus.
    void TypeLines(std::initializer_list<const char *> Lines);

    // Clicks the upper or the lower arrow of a spin control.
    void Spin(int nSpinId, int bUp);

    // Clicks the dialog's OK and then the OK of the box that follows. 0 if the
    // box has another text, or if the dialog then closes (Refuses), or stays
    // (Accepts).
    int Refuses(const std::string &Text);
    int Accepts(const std::string &Text);

    // The texts of a combo box, each followed by a blank.
    std::string Items(int nId) const;

    // The colour in the middle of a field, at this moment.
    unsigned ColourOf(int nId) const;

    // Waits until the middle of a field has this colour; 0 if it has another.
    int HasColour(int nId, unsigned nColour) const;

    void PhotographDialog(const std::string &Name) const;

    // Id of the field that has the focus.
    int FocusedField() const;

    // Closes the dialog with Escape after it has been painted.
    void Escape();

private:
    HWND Focus(int nId) const;
    void WaitForPaint() const;
    int  ClickOk(const std::string &Text);

    cCalculator *m_pCalculator;
    HWND         m_hWnd;
};

#endif
