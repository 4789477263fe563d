// What the parts of the window are called: for screen readers, which ask the platform,
// and in tooltips.

#include "tests/window/calculator.h"

#include <doctest/doctest.h>

#include "shell/key_names.h"
#include "tests/window/common_steps.h"
#include "tests/window/input.h"
#include "tests/window/keys.h"
#include "tests/window/waiting.h"
#include "toolkit/win32/accessible.h"

namespace
{

const LONG kDisplay = static_cast<LONG>(kFaceCodes) + 1;  // its number as a child

// What the platform says about a window, asked from another process.
class cAskedWindow
{
public:
    explicit cAskedWindow(HWND hWnd) : m_pObject(nullptr)
    {
        CoInitialize(nullptr);
        void *pObject = nullptr;
        if (AccessibleObjectFromWindow(hWnd, static_cast<DWORD>(OBJID_CLIENT),
                                       __uuidof(IAccessible), &pObject) == S_OK)
            m_pObject = static_cast<IAccessible *>(pObject);
        REQUIRE(m_pObject);
    }
    ~cAskedWindow()
    {
        m_pObject->Release();
        CoUninitialize();
    }
    cAskedWindow(const cAskedWindow &)            = delete;
    cAskedWindow &operator=(const cAskedWindow &) = delete;

    using cTextCall   = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, BSTR *);
    using cNumberCall = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, VARIANT *);

    std::string Text(cTextCall pfnCall, LONG nChild) const
    {
        BSTR pText = nullptr;
        (m_pObject->*pfnCall)(Child(nChild), &pText);
        std::string Narrow;
        for (const wchar_t *p = pText; p && *p; p++)
            Narrow += static_cast<char>(*p);
        SysFreeString(pText);
        return Narrow;
    }

    std::string Name(LONG nChild) const { return Text(&IAccessible::get_accName, nChild); }
    std::string Value(LONG nChild) const { return Text(&IAccessible::get_accValue, nChild); }

    LONG Number(cNumberCall pfnCall, LONG nChild) const
    {
        VARIANT Result = {};
        return (m_pObject->*pfnCall)(Child(nChild), &Result) == S_OK ? Result.lVal : -1;
    }

    LONG Role(LONG nChild) const { return Number(&IAccessible::get_accRole, nChild); }
    LONG State(LONG nChild) const { return Number(&IAccessible::get_accState, nChild); }

    LONG At(POINT Point) const
    {
        VARIANT Result = {};
        return m_pObject->accHitTest(Point.x, Point.y, &Result) == S_OK ? Result.lVal : -1;
    }

    LONG Focus() const
    {
        VARIANT Result = {};
        return m_pObject->get_accFocus(&Result) == S_OK ? Result.lVal : -1;
    }

    HRESULT Do(LONG nChild) const { return m_pObject->accDoDefaultAction(Child(nChild)); }
    HRESULT TakeFocus(LONG nChild) const
    {
        return m_pObject->accSelect(SELFLAG_TAKEFOCUS, Child(nChild));
    }

    long Count() const
    {
        long nCount = 0;
        m_pObject->get_accChildCount(&nCount);
        return nCount;
    }

private:
    static VARIANT Child(LONG nChild)
    {
        VARIANT Result = {};
        Result.vt      = VT_I4;
        Result.lVal    = nChild;
        return Result;
    }

    IAccessible *m_pObject;
};

struct cNamesRig : cCalculator
{
    int IsAsNew() const { return IsRunning() && !HasDialog(); }
};

}  // namespace

TEST_CASE("a screen reader finds 30 named buttons, two switches and the display")
{
    cNamesRig         &Rig = Shared<cNamesRig>();
    const cAskedWindow Keypad(Rig.Keypad());

    CHECK(Keypad.Count() == 33);
    CHECK(Keypad.Name(CHILDID_SELF) == "calculator");
    CHECK(Keypad.Role(CHILDID_SELF) == ROLE_SYSTEM_GROUPING);
    for (unsigned nCode = 1; nCode <= kFaceCodes; nCode++)
    {
        CAPTURE(nCode);
        const auto nChild  = static_cast<LONG>(nCode);
        const int  bSwitch = nCode > static_cast<unsigned>(kFaceKeys);
        CHECK(Keypad.Name(nChild) == SpokenName(nCode));
        CHECK(Keypad.Role(nChild) == (bSwitch ? ROLE_SYSTEM_CHECKBUTTON : ROLE_SYSTEM_PUSHBUTTON));
        CHECK(Keypad.Text(&IAccessible::get_accDefaultAction, nChild) ==
              (bSwitch ? "switch" : "press"));
        CHECK(Keypad.Text(&IAccessible::get_accKeyboardShortcut, nChild) == PcKeyOf(nCode));
        if (!bSwitch)
            CHECK(Keypad.At(Rig.OnKey(nCode)) == nChild);
    }
    CHECK(Keypad.Text(&IAccessible::get_accDescription, 20) ==
          "gold sin: sine; blue sin^-1: arc sine");
    CHECK(Keypad.Name(kDisplay) == "display");
    CHECK(Keypad.State(kDisplay) == STATE_SYSTEM_READONLY);
    CHECK(Keypad.At(Rig.OnFace(100, 60)) == kDisplay);
    CHECK(Keypad.At(Rig.OnFace(20, 540)) == CHILDID_SELF);
    CHECK(Keypad.Name(kDisplay + 1).empty());
}

TEST_CASE("a screen reader presses keys, moves switches and reads the display")
{
    cNamesRig         &Rig = Shared<cNamesRig>();
    const cAskedWindow Keypad(Rig.Keypad());
    const auto         Shown = [&Keypad] { return Keypad.Value(kDisplay); };
    Rig.HitKey(kKeyClearX);

    CHECK(Keypad.Do(kKey7) == S_OK);
    CHECK(Rig.ReadsX("7."));
    CHECK(Eventually(std::string("7.\ndeg\nLastOp:  CLX"), Shown) == "7.\ndeg\nLastOp:  CLX");

    CHECK(Keypad.Value(31) == "X");
    CHECK(Keypad.State(31) == STATE_SYSTEM_FOCUSABLE);
    CHECK(Keypad.Do(31) == S_OK);
    CHECK(Eventually(std::string("STACK"), [&] { return Keypad.Value(31); }) == "STACK");
    CHECK(Keypad.State(31) == (STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_CHECKED));
    CHECK(Shown().find("Y  ") != std::string::npos);
    CHECK(Keypad.Do(31) == S_OK);
    CHECK(Eventually(std::string("X"), [&] { return Keypad.Value(31); }) == "X");

    CHECK(Keypad.Value(32) == "RUN");
    CHECK(Keypad.Do(kDisplay) == DISP_E_MEMBERNOTFOUND);
    CHECK(Keypad.Do(kDisplay + 1) == E_INVALIDARG);
}

TEST_CASE("the ring is the focus of a screen reader")
{
    cNamesRig         &Rig = Shared<cNamesRig>();
    const cAskedWindow Keypad(Rig.Keypad());
    Rig.HitKey(kKeyClearX);
    CHECK(Keypad.Focus() == -1);

    CHECK(Keypad.TakeFocus(12) == S_OK);
    CHECK(Keypad.Focus() == 12);
    CHECK(Keypad.State(12) == (STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_FOCUSED));
    HitKey(VK_RIGHT);
    CHECK(Eventually<LONG>(13, [&] { return Keypad.Focus(); }) == 13);
    Rig.HitKey(kKeyClearX);
    CHECK(Keypad.Focus() == -1);
}

// What the last event was about, as child numbers by event.
static LONG s_nValueChild, s_nStateChild, s_nFocusChild;

static void CALLBACK OnEvent(HWINEVENTHOOK, DWORD nEvent, HWND, LONG nObject, LONG nChild, DWORD,
                             DWORD)
{
    if (nObject != OBJID_CLIENT)
        return;
    if (nEvent == EVENT_OBJECT_VALUECHANGE)
        s_nValueChild = nChild;
    if (nEvent == EVENT_OBJECT_STATECHANGE)
        s_nStateChild = nChild;
    if (nEvent == EVENT_OBJECT_FOCUS)
        s_nFocusChild = nChild;
}

static int Hears(const LONG *pChild, LONG nExpected)
{
    return WaitFor([=] {
        MSG Message;
        while (PeekMessageA(&Message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageA(&Message);
        return *pChild == nExpected;
    });
}

TEST_CASE("who listens hears of a new text on the display, a moved switch and the ring")
{
    cNamesRig &Rig       = Shared<cNamesRig>();
    DWORD      dwProcess = 0;
    GetWindowThreadProcessId(Rig.Window(), &dwProcess);
    Rig.HitKey(kKeyClearX);
    s_nValueChild = s_nStateChild = s_nFocusChild = 0;
    const HWINEVENTHOOK hHook =
        SetWinEventHook(EVENT_OBJECT_FOCUS, EVENT_OBJECT_VALUECHANGE, nullptr, OnEvent, dwProcess,
                        0, WINEVENT_OUTOFCONTEXT);
    REQUIRE(hHook);

    Type("4");
    CHECK(Hears(&s_nValueChild, kDisplay));
    HitKey(VK_F11);
    CHECK(Hears(&s_nStateChild, 31));
    HitKey(VK_F11);
    HitKey(VK_TAB);
    Rig.Settle();
    const LONG nFocus = cAskedWindow(Rig.Keypad()).Focus();
    CHECK(nFocus >= 1);
    CHECK(Hears(&s_nFocusChild, nFocus));
    UnhookWinEvent(hHook);
}

TEST_CASE("the boxes beside the face have names")
{
    cNamesRig &Rig = Shared<cNamesRig>();
    Rig.KeepOpen(1, 1);

    CHECK(cAskedWindow(Rig.Listing()).Name(CHILDID_SELF) == "program listing");
    CHECK(cAskedWindow(Rig.Registers()).Name(CHILDID_SELF) == "registers");
    Rig.KeepOpen(0, 0);
}

TEST_CASE("the tip of a key shows its functions, but not while a program runs")
{
    cNamesRig &Rig = Shared<cNamesRig>();
    MoveMouse(Rig.OnKey(kKey4));
    CHECK(Rig.ToolTip() == "4: digit (4)\r\nf sin: sine\r\ng sin^-1: arc sine");
    Rig.Photograph().Save("tip-of-4");

    RunListing(&Rig, kEndless);
    MoveMouse(Rig.OnKey(kKey5));
    Sleep(1500);
    CHECK_FALSE(Rig.HasToolTip());
    HitKey(VK_ESCAPE);
    CHECK(HasHalted(Rig));
}

TEST_CASE("the tip of the status bar is the name of a file that does not fit")
{
    cNamesRig &Rig = Shared<cNamesRig>();
    Rig.Folder().Write("a-program-with-a-name-that-is-longer-than-the-bar-can-show.txt", "R/S\r\n");
    RECT Bar = {};
    GetWindowRect(Rig.StatusBar(), &Bar);
    const POINT OnBar = {Bar.left + 40, (Bar.top + Bar.bottom) / 2};

    Rig.HitShortcut('N', kCtrl);
    MoveMouse(OnBar);
    Sleep(1500);
    CHECK_FALSE(Rig.HasToolTip());

    OpenFile(&Rig, "a-program-with-a-name-that-is-longer-than-the-bar-can-show.txt");
    MoveMouse(Rig.OnFace(20, 540));
    MoveMouse(OnBar);
    CHECK(Rig.ToolTip() == Rig.StatusText());
    CHECK(Rig.ToolTip().find("longer-than-the-bar") != std::string::npos);
}
