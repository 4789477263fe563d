// paper_tray.h - the documents that the test's own printer has printed.
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

static const int kInch = 100;  // in the units of cInk

// The bounds of printed ink, in hundredths of an inch from the upper left corner of the
// page.
struct cInk
{
    int m_nLeft;
    int m_nTop;
    int m_nRight;
    int m_nBottom;
};

// A printed page.
struct cPrintedPage
{
    std::vector<std::string> m_Lines;    // trimmed
    cPicture                 m_Picture;  // 100 pixels per inch

    // Bounds of all ink, or of the ink with the colour 0xRRGGBB; all 0 without ink.
    cInk Ink() const;
    cInk InkOf(unsigned nColour) const;
};

struct cPrintedDocument
{
    std::string               m_Title;
    std::vector<cPrintedPage> m_Pages;  // the first 20 of a long document

    // The lines of all pages, also of a long document.
    std::vector<std::vector<std::string>> m_Texts;

    // Saves the page nPage, counted from 1, as a picture.
    void Save(unsigned nPage, const std::string &Name) const;
};

class cPaperTray
{
public:
    // Ignores the documents that have been printed so far.
    cPaperTray();

    // Waits for the next document.
    cPrintedDocument Next();

private:
    int HasDocument(int nNumber) const;

    std::string m_Folder;
    int         m_nTaken;  // the number of the last document; they count from 1
};

#endif
