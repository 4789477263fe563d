// calculator.h - the real program, started and worked from outside: with the
// mouse on its face, with keys, through its menus and dialogs.
//
//     cCalculator Calculator;
//     Calculator.HitKeys({24, 11, 25, 19});  // 1 ENTER 2 +
//     CHECK(Calculator.ReadsX("3.00"));

#ifndef TESTS_WINDOW_CALCULATOR_H
#define TESTS_WINDOW_CALCULATOR_H

#include "toolkit/win32.h"

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "resources/resource.h"
#include "tests/unit/scratch_folder.h"
#include "tests/window/picture.h"
#include "tests/window/probe_link.h"

// A message box as it stands on the screen.
struct cSeenBox
{
    std::string              m_Caption;
    std::string              m_Text;
    std::vector<std::string> m_Buttons;  // without their mnemonic marks

    bool operator==(const cSeenBox &) const = default;
};

// A process that ends with its owner, whatever it is doing.
struct cOwnedProcess : PROCESS_INFORMATION
{
    cOwnedProcess() : PROCESS_INFORMATION() {}
    ~cOwnedProcess();
    cOwnedProcess(const cOwnedProcess &)            = delete;
    cOwnedProcess &operator=(const cOwnedProcess &) = delete;
};

enum eSwitch
{
    swStackView,
    swMode
};

// "Z:\\calculator\\loop.txt" for "loop.txt".
std::string FullPath(const std::string &Name);

class cCalculator
{
public:
    // Starts the program in a folder of its own. It goes on to the calculator
    // unless the welcome box is wanted.
    explicit cCalculator(int bStayAtWelcome = 0);

    cCalculator(const cCalculator &)            = delete;
    cCalculator &operator=(const cCalculator &) = delete;

    // The welcome box; null when it has gone.
    HWND Welcome() const;
    void PassWelcome();

    HWND Window() const { return m_hWnd; }
    HWND Keypad() const { return Child("cButtonArray", IDC_KEYPAD); }
    HWND Listing() const { return Child("Edit", IDC_LISTING); }
    HWND Registers() const { return Child("Edit", IDC_REGISTERS); }
    HWND ToolBar() const { return Child(TOOLBARCLASSNAMEA, IDC_TOOLBAR); }
    HWND StatusBar() const { return Child(STATUSCLASSNAMEA, IDC_STATUSBAR); }

    // --- the face

    // Where a point of the unshifted face is on the screen.
    POINT OnFace(int x, int y) const;
    POINT OnKey(unsigned nCode) const;

    // Clicks keys, each when the one before has been taken.
    void HitKeys(std::initializer_list<unsigned> Codes);
    void HitKey(unsigned nCode) { HitKeys({nCode}); }
    void Slide(eSwitch nSwitch, int bRight);

    // --- what the display shows, read from the screen, without blanks at the
    // ends. Each waits until it is the expected text; 0 if it never is.
    int ReadsX(const std::string &Text) const;            // main line
    int ReadsProgramLine(const std::string &Text) const;  // main line in program mode
    int ReadsBottom(const std::string &Text) const;       // "LastOp:  +"
    int ReadsAngle(const std::string &Text) const;        // "rad"

    // Any text on the display; places are those of the composed lines.
    std::string Read(int bSmall, int nLeft, int nTop, int nLength) const;

    // --- the windows beside it
    std::vector<std::string> ListingLines() const;
    std::vector<std::string> RegistersLines() const;
    std::string              HighlightedLine() const;
    std::string              StatusText() const;
    int                      IsListingShown() const;
    int                      IsRegistersShown() const;

    // --- menu
    UINT        MenuState(unsigned nId) const;
    std::string MenuText(unsigned nId) const;

    // Opens a menu of the bar and clicks an item, both with the mouse.
    void Choose(unsigned nMenu, unsigned nId);

    // --- boxes and dialogs

    // The dialog in front, message boxes included; waits for one. Null if none
    // comes.
    HWND Dialog() const;
    int  HasDialog() const;

    // The box in front, waited for; all empty if none comes.
    cSeenBox Box() const;

    // Clicks a control of the dialog in front: a check box, a radio button.
    void Check(int nId);

    // Clicks the button with this text, waits until the dialog has gone.
    void Click(const std::string &Button);

    // Waits for the box, compares it, clicks the button. 0 if it is not so.
    int Answers(const std::string &Text, const std::string &Button,
                const std::string &Caption = "Vorstek");

    // The file dialogs: types the name and presses the default button.
    void GiveFileName(const std::string &Name);

    // --- the process

    // Returns when all input so far has been handled.
    void Settle() const;

    int   IsRunning() const;
    DWORD ExitCode() const;  // waits for the end; STILL_ACTIVE if it does not come

    // GDI objects and user objects; numbers that grow with what is not freed.
    std::pair<int, int> Objects() const;

    cScratchFolder &Folder() { return m_Folder; }

    // The window, or the whole screen, as a picture.
    cPicture Photograph() const;
    cPicture PhotographScreen() const;

    // Full path of a file in the program's folder, as a file dialog wants it.
    std::string Path(const std::string &File) const;

private:
    HWND Child(const char *szClass, int nId) const;
    int  Reads(int bSmall, int nLeft, int nTop, int nLength, const std::string &Text) const;

    cScratchFolder m_Folder;
    cOwnedProcess  m_Process;
    HWND           m_hWnd;
    cProbeLink     m_Probe;
    int            m_nFaceOffset;
};

#endif
