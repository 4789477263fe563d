#include "tests/window/calculator.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>

#include "resources/resource.h"
#include "shell/window_layout.h"
#include "tests/window/face_reader.h"
#include "tests/window/input.h"
#include "tests/window/menus.h"
#include "tests/window/program_file.h"
#include "tests/window/waiting.h"
#include "tests/window/window_state.h"

static const char kDialogClass[] = "#32770";

static const int kDisplayCharacters = 20;  // of the main line
static const int kBottomCharacters  = 19;
static const int kAngleCharacters   = 3;

static std::vector<std::string> LinesOf(HWND hBox)
{
    std::vector<std::string> Lines;
    const std::string        Text = TextOf(hBox);
    for (size_t nStart = 0; nStart < Text.size();)
    {
        const size_t nEnd = std::min(Text.find("\r\n", nStart), Text.size());
        Lines.push_back(Text.substr(nStart, nEnd - nStart));
        nStart = nEnd + 2;
    }
    return Lines;
}

std::string FullPath(const std::string &Name)
{
    char szPath[MAX_PATH] = "";
    GetFullPathNameA(Name.c_str(), sizeof szPath, szPath, nullptr);
    return szPath;
}

static std::string Trimmed(const std::string &Text)
{
    const size_t nFirst = Text.find_first_not_of(' ');
    if (nFirst == std::string::npos)
        return "";
    return Text.substr(nFirst, Text.find_last_not_of(' ') - nFirst + 1);
}

// The topmost window of the process for which IsIt(hWnd); null if there is none.
template <class cIsIt> static HWND FindWindowOf(DWORD dwProcess, cIsIt IsIt)
{
    struct cSearch
    {
        DWORD m_dwProcess;
        cIsIt m_IsIt;
        HWND  m_hFound;
    } Search = {dwProcess, IsIt, nullptr};
    EnumWindows(
        [](HWND hWnd, LPARAM lParam) -> BOOL {
            auto &Current = *reinterpret_cast<cSearch *>(lParam);
            DWORD dwOwner = 0;
            GetWindowThreadProcessId(hWnd, &dwOwner);
            if (dwOwner != Current.m_dwProcess || !IsWindowVisible(hWnd) || !Current.m_IsIt(hWnd))
                return TRUE;
            Current.m_hFound = hWnd;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&Search));
    return Search.m_hFound;
}

template <class cVisit> static void ForEachChild(HWND hWnd, cVisit Visit)
{
    for (HWND hChild = GetWindow(hWnd, GW_CHILD); hChild; hChild = GetWindow(hChild, GW_HWNDNEXT))
        Visit(hChild);
}

cOwnedProcess::~cOwnedProcess()
{
    if (!hProcess)
        return;
    TerminateProcess(hProcess, 0);
    WaitForSingleObject(hProcess, kPatience);
    CloseHandle(hThread);
    CloseHandle(hProcess);
}

static std::function<void()> s_EndSharedRig;

void SetSharedRigEnd(std::function<void()> End)
{
    s_EndSharedRig = std::move(End);
}

void EndSharedRig()
{
    if (const auto End = std::exchange(s_EndSharedRig, nullptr))
        End();
}

// A link is faster than a copy, but both names must be on one disk.
static void LinkOrCopy(const std::string &From, const std::string &To)
{
    std::error_code Error;
    std::filesystem::create_hard_link(From, To, Error);
    if (Error)
        std::filesystem::copy_file(From, To);
}

cCalculator::cCalculator(int bStayAtWelcome) : m_hWnd(nullptr), m_nFaceOffset(0)
{
    const HDC hScreen = GetDC(nullptr);
    SetScale(cScale(GetDeviceCaps(hScreen, LOGPIXELSY)));
    ReleaseDC(nullptr, hScreen);
    LinkOrCopy(VORSTEK_PROGRAM, m_Folder.Name("Vorstek.exe"));
    std::string  Program = Path("Vorstek.exe");
    STARTUPINFOA Startup = {};
    Startup.cb           = sizeof Startup;
    REQUIRE(CreateProcessA(nullptr, Program.data(), nullptr, nullptr, FALSE, 0, nullptr,
                           Path("").c_str(), &Startup, &m_Process));
    const HWND hWelcome = WaitFor([this] { return Welcome(); });
    REQUIRE(hWelcome);
    m_Probe.Attach(hWelcome);
    if (!bStayAtWelcome)
        PassWelcome();
}

HWND cCalculator::Welcome() const
{
    return FindWindowOf(m_Process.dwProcessId,
                        [](HWND hWnd) { return TextOf(hWnd) == "Welcome to Vorstek.exe"; });
}

HWND cCalculator::FindMainWindow() const
{
    return FindWindowOf(m_Process.dwProcessId,
                        [](HWND hWnd) { return ClassOf(hWnd) == "cVorstek"; });
}

// Only the test of the welcome box waits for the two seconds of the box.
void cCalculator::ClickWelcomeOk()
{
    const HWND hWelcome = Welcome();
    const HWND hOk      = GetDlgItem(hWelcome, IDOK);
    m_Probe.AskWindow(hWelcome, pbEndWelcome);
    REQUIRE(IsWindowEnabled(hOk));
    ClickMiddleOf(hOk);
}

void cCalculator::PassWelcome()
{
    ClickWelcomeOk();
    m_hWnd = WaitFor([this] { return FindMainWindow(); });
    REQUIRE(m_hWnd);
    m_Probe.SetWindow(m_hWnd);
    Settle();
}

HWND cCalculator::PassWelcomeToDialog()
{
    ClickWelcomeOk();
    REQUIRE(WaitFor([this] { return !Welcome(); }));
    const HWND hDialog = Dialog();
    REQUIRE(hDialog);
    m_Probe.SetWindow(hDialog);
    return hDialog;
}

HWND cCalculator::Child(const char *szClass, int nId) const
{
    HWND hFound = nullptr;
    ForEachChild(m_hWnd, [&](HWND hChild) {
        if (GetDlgCtrlID(hChild) == nId && lstrcmpiA(ClassOf(hChild).c_str(), szClass) == 0)
            hFound = hChild;
    });
    return hFound;
}

void cCalculator::Settle() const
{
    m_Probe.Settle();
}

void cCalculator::SettlePaint() const
{
    Settle();
    REQUIRE(WaitFor([this] { return !m_Probe.Ask(pbPaint).m_nValue; }));
}

// --- the face

POINT cCalculator::OnFace(int x, int y) const
{
    POINT Point = {m_Scale.Length(x), m_Scale.Length(y) - m_nFaceOffset};
    ClientToScreen(Keypad(), &Point);
    return Point;
}

POINT cCalculator::OnKey(unsigned nCode) const
{
    const cFaceRect &Rect = kKeyRects[nCode - 1];
    return OnFace(Rect.m_nLeft + Rect.m_nWidth / 2, Rect.m_nTop + Rect.m_nHeight / 2);
}

int cCalculator::ShowsFaceFrom(int nFirst) const
{
    const int          kMargin = 30;   // left of the keys
    const int          kRows   = 450;  // that every window shows
    const cProgramFile Program;
    POINT              At = {0, 0};
    SettlePaint();
    ClientToScreen(Keypad(), &At);
    return Program.Bitmap(IDB_FACE).Holds(
        0, nFirst, cPicture::OfScreen({At.x, At.y, At.x + kMargin, At.y + kRows}));
}

void cCalculator::HitKeys(std::initializer_list<unsigned> Codes)
{
    for (const unsigned nCode : Codes)
    {
        ::Click(OnKey(nCode));
        Settle();
    }
}

void cCalculator::Slide(eSwitch nSwitch, int bRight)
{
    const cFaceRect &Rect    = kSwitchRects[nSwitch];
    const int        nTravel = Rect.m_nWidth - kThumbWidth;
    const int        x       = Rect.m_nLeft + kThumbWidth / 2;
    const int        y       = Rect.m_nTop + Rect.m_nHeight / 2;
    MoveMouse(OnFace(bRight ? x : x + nTravel, y));
    PressMouse();
    MoveMouse(OnFace(bRight ? x + nTravel : x, y));
    ReleaseMouse();
    Settle();
}

void cCalculator::SetScale(const cScale &Scale)
{
    m_Scale       = Scale;
    m_nFaceOffset = FaceOffset(GetSystemMetrics(SM_CYSCREEN), Scale);
    m_pLarge      = std::make_unique<cFaceReader>(ffLarge, Scale.Dpi());
    m_pSmall      = std::make_unique<cFaceReader>(ffSmall, Scale.Dpi());
}

void cCalculator::SetFittedScale()
{
    int nDpi = kUsualDpi;
    while (cScale(nDpi).Length(kFaceWidth) < ClientOf(Keypad()).right)
        nDpi++;
    SetScale(cScale(nDpi));
}

void cCalculator::ChangeResolution(int nDpi)
{
    m_Probe.AskWindow(m_hWnd, pbResolution, static_cast<UINT>(m_Scale.Dpi() << 16 | nDpi));
    SetScale(cScale(nDpi));
    SettlePaint();
}

std::string cCalculator::Read(int bSmall, int nLeft, int nTop, int nLength) const
{
    // Positions of texts count from inside the keypad's edge.
    const RECT Face = RectOf(Keypad());
    const int  x    = GetSystemMetrics(SM_CXEDGE) + m_Scale.Length(nLeft);
    const int  y    = GetSystemMetrics(SM_CYEDGE) - m_nFaceOffset + m_Scale.Length(nTop);
    return (bSmall ? m_pSmall : m_pLarge)->Read(cPicture::OfScreen(Face), x, y, nLength);
}

int cCalculator::Reads(int bSmall, int nLeft, int nTop, int nLength, const std::string &Text) const
{
    std::string Seen;
    if (WaitFor([&] {
            Seen = Trimmed(Read(bSmall, nLeft, nTop, nLength));
            return Seen == Text;
        }))
        return 1;
    MESSAGE("the display shows ", Seen, " where ", Text, " is expected");
    PhotographScreen().Save("failed-reading");
    return 0;
}

int cCalculator::ReadsX(const std::string &Text) const
{
    return Reads(0, 59, 66, kDisplayCharacters, Text);
}

int cCalculator::ReadsProgramLine(const std::string &Text) const
{
    return Reads(0, 50, 66, kDisplayCharacters, Text);
}

int cCalculator::ReadsBottom(const std::string &Text) const
{
    return Reads(1, 50, 42, kBottomCharacters, Text);
}

int cCalculator::ReadsAngle(const std::string &Text) const
{
    return Reads(1, 234, 40, kAngleCharacters, Text);
}

// --- the other windows

std::vector<std::string> cCalculator::ListingLines() const
{
    return LinesOf(Listing());
}

std::vector<std::string> cCalculator::RegistersLines() const
{
    return LinesOf(Registers());
}

std::string cCalculator::HighlightedLine() const
{
    const auto        nSelection = static_cast<DWORD>(SendMessageA(Listing(), EM_GETSEL, 0, 0));
    const std::string Text       = TextOf(Listing());
    const std::string Selected =
        Text.substr(LOWORD(nSelection), HIWORD(nSelection) - LOWORD(nSelection));
    return Selected.substr(0, Selected.find("\r\n"));
}

std::string cCalculator::StatusText() const
{
    return m_Probe.Ask(pbStatusText).m_szText;
}

int cCalculator::IsListingShown() const
{
    return IsWindowVisible(Listing());
}

int cCalculator::IsRegistersShown() const
{
    return IsWindowVisible(Registers());
}

// --- menu

UINT cCalculator::MenuState(unsigned nId) const
{
    return static_cast<UINT>(m_Probe.Ask(pbMenuState, nId).m_nValue);
}

std::string cCalculator::MenuText(unsigned nId) const
{
    return m_Probe.Ask(pbMenuText, nId).m_szText;
}

std::string cCalculator::MenuTitle(unsigned nMenu) const
{
    return m_Probe.Ask(pbMenuTitle, nMenu).m_szText;
}

cSeenItem cCalculator::MenuItem(unsigned nMenu, unsigned nPosition) const
{
    const cProbeAnswer Item = m_Probe.Ask(pbMenuItem, ItemAt(nMenu, nPosition));
    return {Item.m_nValue, static_cast<UINT>(Item.m_nMore), Item.m_szText};
}

void cCalculator::OpenMenu(unsigned nMenu)
{
    ::OpenMenu(m_hWnd, nMenu);
}

void cCalculator::PointAtItem(unsigned nId)
{
    ::PointAtItem(m_hWnd, nId);
}

void cCalculator::Choose(unsigned nMenu, unsigned nId)
{
    ChooseItem(m_hWnd, nMenu, nId);
}

void cCalculator::Drag(LRESULT nPart, int dx, int dy)
{
    const POINT At = FramePoint(m_hWnd, nPart);
    MoveMouse(At);
    Settle();
    PressMouse();
    Settle();
    // Wine may lose a move that arrives while it handles another one, so the move
    // is repeated until the window no longer follows.
    RECT Before = {};
    RECT Now    = {};
    do
    {
        Before = Now;
        MoveMouse({At.x + dx - 1, At.y + dy - 1});
        Settle();
        MoveMouse({At.x + dx, At.y + dy});
        Settle();
        Now = RectOf(m_hWnd);
    }
    while (!EqualRect(&Before, &Now));
    ReleaseMouse();
    Settle();
}

// --- toolbar

cSeenButton cCalculator::Button(unsigned nPosition) const
{
    const cProbeAnswer Button = m_Probe.Ask(pbToolButton, nPosition);
    return {Button.m_nValue, Button.m_nMore, Button.m_nState, Button.m_Rect};
}

void cCalculator::ClickButton(unsigned nId)
{
    unsigned nPosition = 0;
    while (Button(nPosition).m_nId > -1 && Button(nPosition).m_nId != static_cast<int>(nId))
        nPosition++;
    const cSeenButton Found = Button(nPosition);
    REQUIRE(Found.m_nId == static_cast<int>(nId));
    ::Click(MiddleOf(Found.m_Rect));
    Settle();
}

static HWND FindToolTip(DWORD dwProcess)
{
    return FindWindowOf(dwProcess, [](HWND hWnd) { return ClassOf(hWnd) == TOOLTIPS_CLASSA; });
}

std::string cCalculator::ToolTip() const
{
    const HWND hTip = WaitFor([this] { return FindToolTip(m_Process.dwProcessId); });
    return hTip ? TextOf(hTip) : "";
}

int cCalculator::HasToolTip() const
{
    return FindToolTip(m_Process.dwProcessId) != nullptr;
}

// --- boxes and dialogs

int cCalculator::HasDialog() const
{
    return FindWindowOf(m_Process.dwProcessId,
                        [](HWND hWnd) { return ClassOf(hWnd) == kDialogClass; }) != nullptr;
}

int cCalculator::HasNoDialog() const
{
    return WaitFor([this] { return !HasDialog(); });
}

HWND cCalculator::Dialog() const
{
    const HWND hDialog = WaitFor([this] {
        return FindWindowOf(m_Process.dwProcessId, [](HWND hWnd) {
            return ClassOf(hWnd) == kDialogClass && IsWindowEnabled(hWnd);
        });
    });
    if (!hDialog)
        PhotographScreen().Save("no-dialog");
    return hDialog;
}

static std::string WithoutMark(std::string Text)
{
    Text.erase(std::remove(Text.begin(), Text.end(), '&'), Text.end());
    return Text;
}

static int IsButton(HWND hWnd)
{
    return ClassOf(hWnd) == "Button" && IsWindowVisible(hWnd);
}

cSeenBox cCalculator::Box() const
{
    cSeenBox   Box;
    const HWND hDialog = Dialog();
    if (!hDialog)
        return Box;
    Box.m_Caption = TextOf(hDialog);
    ForEachChild(hDialog, [&](HWND hChild) {
        if (IsButton(hChild))
            Box.m_Buttons.push_back(WithoutMark(TextOf(hChild)));
        else if (ClassOf(hChild) == "Static" && !TextOf(hChild).empty())
            Box.m_Text = TextOf(hChild);
    });
    return Box;
}

int cCalculator::BoxIcon() const
{
    const auto nBox = reinterpret_cast<UINT_PTR>(Dialog());
    return m_Probe.Ask(pbBoxIcon, static_cast<UINT>(nBox)).m_nValue;
}

void cCalculator::Click(const std::string &Button)
{
    const HWND hDialog = Dialog();
    REQUIRE(hDialog);
    HWND hButton = nullptr;
    ForEachChild(hDialog, [&](HWND hChild) {
        if (IsButton(hChild) && WithoutMark(TextOf(hChild)) == Button)
            hButton = hChild;
    });
    REQUIRE_MESSAGE(hButton, "no button " << Button);
    ClickMiddleOf(hButton);
    REQUIRE(WaitFor([hDialog] { return !IsWindow(hDialog) || !IsWindowVisible(hDialog); }));
}

void cCalculator::ClickControl(int nId)
{
    const HWND hDialog = Dialog();
    REQUIRE(hDialog);
    const HWND hControl = GetDlgItem(hDialog, nId);
    REQUIRE_MESSAGE(hControl, "no control " << nId);
    ClickMiddleOf(hControl);
    Settle();
}

HWND cCalculator::FocusedWindow() const
{
    GUITHREADINFO Thread = {};
    Thread.cbSize        = sizeof Thread;
    GetGUIThreadInfo(m_Process.dwThreadId, &Thread);
    return Thread.hwndFocus;
}

int cCalculator::FocusedControl() const
{
    return GetDlgCtrlID(FocusedWindow());
}

// After a box has closed, a late event of the screen may take the focus away
// again.
void cCalculator::FocusControl(int nId)
{
    const HWND hControl = GetDlgItem(Dialog(), nId);
    const RECT Rect     = RectOf(hControl);
    REQUIRE(WaitFor([&] {
        ::Click({Rect.left + 8, (Rect.top + Rect.bottom) / 2});
        Settle();
        return FocusedControl() == nId;
    }));
}

// A window that the screen activates late would take its modifiers from the real
// keyboard.
void cCalculator::HitShortcut(int nKey, unsigned nModifiers)
{
    REQUIRE(
        WaitFor([this] { return FocusedWindow() == m_hWnd && GetForegroundWindow() == m_hWnd; }));
    SettlePaint();
    m_Probe.HearScreen();
    ::HitKey(static_cast<WORD>(nKey), nModifiers);
}

void cCalculator::CloseDialogWith(int nKey)
{
    const HWND hDialog = Dialog();
    REQUIRE(hDialog);
    REQUIRE(WaitFor([&] {
        const HWND hFocus = FocusedWindow();
        return GetForegroundWindow() == hDialog && (hFocus == hDialog || IsChild(hDialog, hFocus));
    }));
    Settle();
    ::HitKey(static_cast<WORD>(nKey));
    REQUIRE(WaitFor([hDialog] { return !IsWindow(hDialog) || !IsWindowVisible(hDialog); }));
    Settle();
}

void cCalculator::KeepOpen(int bListing, int bRegisters)
{
    Choose(mnView, IDM_OPTIONS);
    ClickControl(bListing ? IDC_KEEP_LISTING : IDC_OPEN_LISTING);
    ClickControl(bRegisters ? IDC_KEEP_REGISTERS : IDC_OPEN_REGISTERS);
    Click("OK");
    Settle();
}

int cCalculator::Answers(const std::string &Text, const std::string &Button,
                         const std::string &Caption)
{
    const cSeenBox Seen = Box();
    const int      bSo  = Seen.m_Text == Text && Seen.m_Caption == Caption;
    if (!bSo)
    {
        MESSAGE("the box ", Seen.m_Caption, " says: ", Seen.m_Text);
        PhotographScreen().Save("failed-box");
    }
    Click(Button);
    return bSo;
}

static HWND NameField(HWND hDialog)
{
    const int  kNameEdit  = 0x480;
    const int  kNameCombo = 0x47C;
    const HWND hEdit      = GetDlgItem(hDialog, kNameEdit);
    return hEdit ? hEdit : GetDlgItem(hDialog, kNameCombo);
}

// The name field of the topmost file dialog.
HWND cCalculator::FileNameField() const
{
    const HWND hDialog = Dialog();
    REQUIRE(hDialog);
    const HWND hField = WaitFor([hDialog] { return NameField(hDialog); });
    REQUIRE(hField);
    return hField;
}

std::string cCalculator::ProposedFileName() const
{
    return TextOf(FileNameField());
}

void cCalculator::TypeFileName(const std::string &Name)
{
    const HWND hField = FileNameField();
    ClickMiddleOf(hField);
    ::HitKey(VK_HOME);
    ::HitKey(VK_END, kShift);
    Type(Name);
    REQUIRE(Eventually(Name, [hField] { return TextOf(hField); }) == Name);
}

void cCalculator::EnterFileName(const std::string &Name)
{
    TypeFileName(Name);
    ::HitKey(VK_RETURN);
    Settle();
}

void cCalculator::GiveFileName(const std::string &Name)
{
    const HWND hDialog = Dialog();
    if (!hDialog)
        PhotographScreen().Save("failed-file-dialog");
    EnterFileName(Name);
    WaitFor([hDialog] { return !IsWindowVisible(hDialog) || !IsWindowEnabled(hDialog); });
    Settle();
}

// --- the process

int cCalculator::HasClassIcon(unsigned nId) const
{
    return m_Probe.Ask(pbClassIcon, nId).m_nValue;
}

int cCalculator::IsRunning() const
{
    return WaitForSingleObject(m_Process.hProcess, 0) == WAIT_TIMEOUT;
}

DWORD cCalculator::ExitCode() const
{
    DWORD nExitCode = STILL_ACTIVE;
    WaitForSingleObject(m_Process.hProcess, kPatience);
    GetExitCodeProcess(m_Process.hProcess, &nExitCode);
    return nExitCode;
}

std::pair<int, int> cCalculator::Objects() const
{
    const cProbeAnswer Answer = m_Probe.Ask(pbObjects);
    return {Answer.m_nValue, Answer.m_nMore};
}

cPicture cCalculator::Photograph() const
{
    const RECT Rect = RectOf(m_hWnd);
    return cPicture::OfScreen(Rect);
}

cPicture cCalculator::PhotographScreen() const
{
    return cPicture::OfScreen({0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)});
}

std::string cCalculator::Path(const std::string &File) const
{
    return FullPath(m_Folder.Name(File));
}
