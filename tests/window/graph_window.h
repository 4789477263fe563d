// graph_window.h - the graph's window of a program that is worked from outside:
// its menus, its data, and the fields of its dialogs.
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
    // Shows the window with the calculator's menu. pCalculator outlives it.
    explicit cGraphWindow(cCalculator *pCalculator);

    HWND Window() const { return m_hWnd; }
    HWND Plot() const;

    // What it shows once everything has been painted.
    cPicture Photograph() const;
    unsigned ColourAt(int x, int y) const;  // in the plot

    // The plot without the frame: at once, and when all has been painted.
    cPicture LookAtPlot() const;
    cPicture PhotographPlot() const;

    // Where a point of the plot is on the screen.
    POINT OnPlot(int x, int y) const;

    HWND Legend() const;
    int  SelectedRow() const;  // of the legend, from 0; -1 for none

    // --- menu
    UINT        MenuState(unsigned nId) const;
    std::string StatusText() const;

    // Opens a menu of the bar and clicks an item, both with the mouse.
    void Choose(eGraphMenu nMenu, unsigned nId);

    // --- data, by the commands of the File menu

    // Writes a data file and opens it.
    void Open(const std::string &File, const std::string &Content);

    // Saves to the file that has been opened, and returns what is in it then.
    std::string Saved(const std::string &File);

    // How many data lines there are, told by the legend.
    int Count() const;

    // --- the dialog in front

    std::string Caption() const;
    int         IsCentred() const;  // above the middle of this window

    HWND        Field(int nId) const;
    std::string Text(int nId) const;
    int         IsChecked(int nId) const;

    // Clicks into a field and types another text over what is there.
    void Fill(int nId, const std::string &Text);

    // Clicks into a field of many lines and goes behind its text.
    void GoToEnd(int nId);

    // Types lines into the field that has the focus, Enter behind each.
    void TypeLines(std::initializer_list<const char *> Lines);

    // Clicks the upper or the lower arrow of a spin control.
    void Spin(int nSpinId, int bUp);

    // Clicks OK and answers the box that comes up. 0 if it is not the expected
    // one, or if the dialog does not stay, or go, behind it.
    int Refuses(const std::string &Text);
    int Accepts(const std::string &Text);

    // The texts of a combo box, a blank behind each.
    std::string Items(int nId) const;

    // The colour in the middle of a field.
    unsigned ColourOf(int nId) const;

    void PhotographDialog(const std::string &Name) const;

    // The field that has the keyboard.
    int FocusedField() const;

    // Closes the dialog with Escape, once it has been painted.
    void Escape();

private:
    HWND Focus(int nId) const;
    void WaitForPaint() const;
    int  ClickOk(const std::string &Text);

    cCalculator *m_pCalculator;
    HWND         m_hWnd;
};

#endif
