// calculator.h - the real program, started and driven from outside: with the
// mouse on its face, the keyboard, its menus and its dialogs.
//
//     cCalculator Calculator;
//     Calculator.HitKeys({kKey1, kKeyEnter, kKey2, kKeyPlus});
//     CHECK(Calculator.ReadsX("3.00"));

#ifndef TESTS_WINDOW_CALCULATOR_H
#define TESTS_WINDOW_CALCULATOR_H

#include "toolkit/win32/win32.h"

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "resources/resource.h"
#include "tests/unit/scratch_folder.h"
#include "tests/window/face_reader.h"
#include "tests/window/picture.h"
#include "tests/window/probe_link.h"
#include "tests/window/shared_rig.h"
#include "toolkit/scale.h"

// A message box as it appears on the screen.
struct cSeenBox
{
    std::string              m_Caption;
    std::string              m_Text;
    std::vector<std::string> m_Buttons;  // without their mnemonic marks

    bool operator==(const cSeenBox &) const = default;
};

// A process that is terminated when its owner goes out of scope.
struct cOwnedProcess : PROCESS_INFORMATION
{
    cOwnedProcess() : PROCESS_INFORMATION() {}
    ~cOwnedProcess();
    cOwnedProcess(const cOwnedProcess &)            = delete;
    cOwnedProcess &operator=(const cOwnedProcess &) = delete;
};

// A toolbar button.
struct cSeenButton
{
    int  m_nId;  // command, 0: separator, -1: no such button
    int  m_nImage;
    int  m_nState;  // TBSTATE_ flags
    RECT m_Rect;    // on the screen
};

// An item of a drop-down menu.
struct cSeenItem
{
    int         m_nId;     // command, 0: separator, -1: no such item
    UINT        m_nState;  // MF_ flags
    std::string m_Text;
};

// Menus of the menu bar.
enum eMenu
{
    mnFile,
    mnEdit,
    mnView,
    mnHelp
};

enum eSwitch
{
    swStackView,
    swMode
};

// Icons of message boxes, numbered by the platform.
const int kErrorIcon    = 32513;
const int kQuestionIcon = 32514;

// There is one program at a time: a shared one ends before another one starts.
struct cOnlyProgram
{
    cOnlyProgram() { EndSharedRig(); }
};

// "Z:\\calculator\\loop.txt" for "loop.txt".
std::string FullPath(const std::string &Name);

class cCalculator
{
public:
    // Starts the program in a folder of its own and passes the welcome box,
    // unless the test wants to see the box.
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

    // The calculator's window; null while there is none.
    HWND FindMainWindow() const;

    HWND Window() const { return m_hWnd; }
    HWND Keypad() const { return Child("cButtonArray", IDC_KEYPAD); }
    HWND Listing() const { return Child("Edit", IDC_LISTING); }
    HWND Registers() const { return Child("Edit", IDC_REGISTERS); }
    HWND ToolBar() const { return Child(TOOLBARCLASSNAMEA, IDC_TOOLBAR); }
    HWND StatusBar() const { return Child(STATUSCLASSNAMEA, IDC_STATUSBAR); }

    // --- the face

    // The scale of the screen, in which positions on the face are turned into pixels.
    const cScale &Scale() const { return m_Scale; }

    // On a screen that is too low for its scale, takes that of the keypad's width.
    void SetFittedScale();

    // Tells the program that its window came to a screen with nDpi dots per inch.
    void ChangeResolution(int nDpi);

    // Screen position of a point of the unshifted face.
    POINT OnFace(int x, int y) const;
    POINT OnKey(unsigned nCode) const;

    // Whether the top row of the keypad is row nFirst of the painted face.
    // Compares the margin at the left, where there are no keys.
    int ShowsFaceFrom(int nFirst) const;

    // Clicks keys, each after the previous click has been handled.
    void HitKeys(std::initializer_list<unsigned> Codes);
    void HitKey(unsigned nCode) { HitKeys({nCode}); }
    void Slide(eSwitch nSwitch, int bRight);

    // --- what the display shows, read from the screen and trimmed. Each waits
    // for the expected text and returns 0 if it does not appear.
    int ReadsX(const std::string &Text) const;            // main line
    int ReadsProgramLine(const std::string &Text) const;  // main line in program mode
    int ReadsBottom(const std::string &Text) const;       // "LastOp:  +"
    int ReadsAngle(const std::string &Text) const;        // "rad"

    // Any text on the display, from the position of a composed line.
    std::string Read(int bSmall, int nLeft, int nTop, int nLength) const;

    // --- the other windows
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

    // Items by position. Whether an item is greyed is updated only when the menu
    // opens.
    std::string MenuTitle(unsigned nMenu) const;
    cSeenItem   MenuItem(unsigned nMenu, unsigned nPosition) const;

    // Opens a menu with the mouse, or moves the mouse to one of its items.
    void OpenMenu(unsigned nMenu);
    void PointAtItem(unsigned nId);

    // Drags a border or corner of the frame, HTRIGHT or HTBOTTOMRIGHT.
    void Drag(LRESULT nPart, int dx, int dy);

    // --- toolbar
    cSeenButton Button(unsigned nPosition) const;
    void        ClickButton(unsigned nId);

    // Waits for a tooltip; empty if none appears.
    std::string ToolTip() const;

    // Whether one is shown at this moment.
    int HasToolTip() const;

    // --- boxes and dialogs

    // Waits for a dialog or message box and returns the topmost one; null if none
    // appears.
    HWND Dialog() const;

    // Whether one is open at this moment.
    int HasDialog() const;

    // Waits until none is open; 0 if one stays.
    int HasNoDialog() const;

    // Waits for a message box; all empty if none appears.
    cSeenBox Box() const;

    // The platform's icon in the topmost box: 0, kErrorIcon or kQuestionIcon.
    int BoxIcon() const;

    // Clicks the button with this text and waits until the dialog has closed.
    void Click(const std::string &Button);

    // Waits for a message box, compares it and clicks the button. 0 if text or
    // caption differ.
    int Answers(const std::string &Text, const std::string &Button,
                const std::string &Caption = "Vorstek");

    // Clicks a control of the topmost dialog.
    void ClickControl(int nId);

    // Clicks a field until it has the focus; at its left end, because there may
    // be a spin control at the right end.
    void FocusControl(int nId);

    // Waits until the calculator's window has the focus, which it gets back some
    // time after a dialog has closed, then presses the key.
    void HitShortcut(int nKey, unsigned nModifiers = 0);

    // Waits until the topmost dialog has the focus, presses the key and waits
    // until the dialog has closed.
    void CloseDialogWith(int nKey);

    // Id of the control that has the focus; 0 for none.
    int FocusedControl() const;

    // Chooses in the options dialog which boxes are kept open.
    void KeepOpen(int bListing, int bRegisters);

    // Types a name into a file dialog, presses Enter and waits until the dialog
    // has closed or asks something.
    void GiveFileName(const std::string &Name);

    // Types a name into the file dialog; Enter would accept it.
    void TypeFileName(const std::string &Name);

    // Types a name and accepts it; the dialog may stay open.
    void EnterFileName(const std::string &Name);

    // The file name in the dialog's field.
    std::string ProposedFileName() const;

    // --- the process

    // Whether the window's class has the program's icon nId.
    int HasClassIcon(unsigned nId) const;

    // Returns when all pending input has been handled.
    void Settle() const;

    // Returns when, in addition, all changes have been painted.
    void SettlePaint() const;

    int   IsRunning() const;
    DWORD ExitCode() const;  // waits for the end; STILL_ACTIVE if it does not end

    // Counts of GDI objects and user objects; they grow with every leak.
    std::pair<int, int> Objects() const;

    cScratchFolder &Folder() { return m_Folder; }

    // A picture of the window, or of the whole screen.
    cPicture Photograph() const;
    cPicture PhotographScreen() const;

    // Full path of a file in the program's folder.
    std::string Path(const std::string &File) const;

private:
    void SetScale(const cScale &Scale);
    void ClickWelcomeOk();
    HWND FocusedWindow() const;
    HWND FileNameField() const;
    HWND Child(const char *szClass, int nId) const;
    int  Reads(int bSmall, int nLeft, int nTop, int nLength, const std::string &Text) const;

    cOnlyProgram   m_OnlyProgram;
    cScratchFolder m_Folder;
    cOwnedProcess  m_Process;
    HWND           m_hWnd;
    cProbeLink     m_Probe;
    cScale         m_Scale;
    int            m_nFaceOffset;

    std::unique_ptr<cFaceReader> m_pLarge;
    std::unique_ptr<cFaceReader> m_pSmall;
};

#endif
