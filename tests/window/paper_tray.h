// paper_tray.h - what comes out of the printer beside which the test runs, and
// the printer's dialogs.
//
//     cPaperTray Tray;
//     Calculator.HitShortcut('P', kCtrl);
//     Calculator.Click("OK");
//     CHECK(Tray.Next().m_Pages.size() == 5);

#ifndef TESTS_WINDOW_PAPER_TRAY_H
#define TESTS_WINDOW_PAPER_TRAY_H

#include "toolkit/win32/win32.h"

#include <string>
#include <vector>

#include "tests/window/picture.h"

// Of a page or of what stands on it; hundredths of an inch from its upper left.
struct cInk
{
    int m_nLeft;
    int m_nTop;
    int m_nRight;
    int m_nBottom;
};

// A page as it came out.
struct cPrintedPage
{
    std::vector<std::string> m_Lines;    // without blanks before and behind
    cPicture                 m_Picture;  // 100 pixels per inch

    // What is not white, or what has the colour 0xRRGGBB; all 0 if nothing is.
    cInk Ink() const;
    cInk InkOf(unsigned nColour) const;
};

struct cPrintedDocument
{
    std::string               m_Title;
    std::vector<cPrintedPage> m_Pages;  // of long documents the first 20

    // The texts of all pages, also of a long document.
    std::vector<std::vector<std::string>> m_Texts;

    // Leaves the page nPage, from 1, among the photographs.
    void Save(unsigned nPage, const std::string &Name) const;
};

class cPaperTray
{
public:
    // Only what is printed from now on counts.
    cPaperTray();

    // The next document that comes out; waits for it.
    cPrintedDocument Next();

private:
    int HasDocument(int nNumber) const;

    std::string m_Folder;
    int         m_nTaken;  // the number of the last document; they count from 1
};

#endif
