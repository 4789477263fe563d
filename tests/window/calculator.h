// calculator.h - the real program, started and worked from outside: with the
// mouse on its face, with keys, through its menus and dialogs.
//
//     cCalculator Calculator;
//     Calculator.HitKeys({24, 11, 25, 19});  // 1 ENTER 2 +
//     CHECK(Calculator.ReadsX("3.00"));

#ifndef TESTS_WINDOW_CALCULATOR_H
#define TESTS_WINDOW_CALCULATOR_H

#include "toolkit/win32/win32.h"

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

// A button of the toolbar.
struct cSeenButton
{
    int  m_nId;  // command, 0: separator, -1: there is none
    int  m_nImage;
    int  m_nState;  // TBSTATE_ flags
    RECT m_Rect;    // on the screen
};

// An item of a popup menu.
struct cSeenItem
{
    int         m_nId;     // command, 0: separator, -1: there is none
    UINT        m_nState;  // MF_ flags
    std::string m_Text;
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

    // The welcome box; null if it is not open.
    HWND Welcome() const;

    // Closes the welcome box with OK, without the two seconds during which the
    // box keeps OK disabled, and waits for the calculator.
    void PassWelcome();

    // The same where a dialog follows instead of the calculator; returns that
    // dialog.
    HWND PassWelcomeToDialog();

    // The calculator's window, as soon as there is one; null until then.
    HWND FindMainWindow() const;

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

    // Whether the keypad shows the painted face from its row nFirst on, looked
    // at where no key, switch or display is.
    int ShowsFaceFrom(int nFirst) const;

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

    // Items by their places, popups too; whether they are grey is up to date
    // only while the menu is open.
    std::string MenuTitle(unsigned nMenu) const;
    cSeenItem   MenuItem(unsigned nMenu, unsigned nPosition) const;

    // Opens a menu with the mouse, moves it to an item.
    void OpenMenu(unsigned nMenu);
    void PointAtItem(unsigned nId);

    // Drags a border or corner of the window, HTRIGHT or HTBOTTOMRIGHT.
    void Drag(LRESULT nPart, int dx, int dy);

    // --- toolbar
    cSeenButton Button(unsigned nPosition) const;
    void        ClickButton(unsigned nId);

    // The tooltip that the platform shows after a while; empty if none comes.
    std::string ToolTip() const;

    // --- boxes and dialogs

    // The dialog in front, message boxes included; waits for one. Null if none
    // comes.
    HWND Dialog() const;
    int  HasDialog() const;

    // The box in front, waited for; all empty if none comes.
    cSeenBox Box() const;

    // Number of the platform's icon (32513: error, 32514: question) in the box in
    // front, 0 for none.
    int BoxIcon() const;

    // Clicks the button with this text, waits until the dialog has gone.
    void Click(const std::string &Button);

    // Waits for the box, compares it, clicks the button. 0 if it is not so.
    int Answers(const std::string &Text, const std::string &Button,
                const std::string &Caption = "Vorstek");

    // Clicks a control of the dialog in front.
    void ClickControl(int nId);

    // Clicks at the left end of a field, as at the right one there may be a
    // spin control, until the keyboard is its.
    void FocusControl(int nId);

    // Hits a key as soon as the calculator's window has the keyboard, which it
    // gets back some time after a dialog has closed.
    void HitShortcut(int nKey, unsigned nModifiers = 0);

    // Hits a key, by which the dialog in front closes, when it has the keyboard.
    void CloseDialogWith(int nKey);

    // Number of the control that has the keyboard; 0 for none.
    int FocusedControl() const;

    // Opens the options dialog with its menu item, chooses which boxes to keep
    // open, clicks OK.
    void KeepOpen(int bListing, int bRegisters);

    // The file dialogs: types the name and presses the default button; waits
    // until the dialog has closed or asks something.
    void GiveFileName(const std::string &Name);

    // The name that the dialog begins with.
    std::string ProposedFileName() const;

    // The same for a name with which the dialog stays as it is.
    void EnterFileName(const std::string &Name);

    // --- the process

    // Whether the window's class has the program's icon nId.
    int HasClassIcon(unsigned nId) const;

    // Returns when all input so far has been handled.
    void Settle() const;

    // The same, and what that changed on the screen has been painted.
    void SettlePaint() const;

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
    void ClickWelcomeOk();
    HWND FocusedWindow() const;
    HWND FileNameField() const;
    HWND Child(const char *szClass, int nId) const;
    int  Reads(int bSmall, int nLeft, int nTop, int nLength, const std::string &Text) const;

    cScratchFolder m_Folder;
    cOwnedProcess  m_Process;
    HWND           m_hWnd;
    cProbeLink     m_Probe;
    int            m_nFaceOffset;
};

#endif
