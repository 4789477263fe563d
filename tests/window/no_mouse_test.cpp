// The calculator without a mouse: keys that have no character, the ring on the face,
// and the other parts of the window.

#include "tests/window/calculator.h"

#include <doctest/doctest.h>

#include "shell/face_geometry.h"
#include "tests/window/common_steps.h"
#include "tests/window/input.h"
#include "tests/window/keys.h"
#include "tests/window/waiting.h"

namespace
{

// Which buttons of the toolbar there are, with their separators.
enum eToolButton
{
    tbNew,
    tbOptions = 6
};

// A calculator in run mode without pending keys, the mouse used last.
struct cNoMouseRig : cCalculator
{
    int IsAsNew() const { return IsRunning() && !HasDialog(); }

    void Begin()
    {
        // Clears an error, if there is one, then the pending keys.
        HitKeys({kKeyClearX, kKeyClearX, kKeyGoTo, kKeyPoint, kKey0, kKey0});
        REQUIRE(ReadsBottom("LastOp:  GTO.0"));
        REQUIRE(ReadsX("0.00"));
    }
};

}  // namespace

static void HitPcKeys(std::initializer_list<WORD> Keys)
{
    for (const WORD nKey : Keys)
        HitKey(nKey);
}

static int FirstLineShown(HWND hBox)
{
    return static_cast<int>(SendMessageA(hBox, EM_GETFIRSTVISIBLELINE, 0, 0));
}

static int ScrollsTo(HWND hBox, WORD nKey, int nLine)
{
    HitKey(nKey);
    return Eventually(nLine, [hBox] { return FirstLineShown(hBox); }) == nLine;
}

// A colour in the middle of the upper edge of a key, where the ring passes.
static unsigned ColourAbove(const cCalculator &Calculator, unsigned nCode)
{
    const cFaceRect &Key  = kKeyRects[nCode - 1];
    const cPicture   Face = PhotographFace(Calculator);
    return Face.At(GetSystemMetrics(SM_CXEDGE) + Key.m_nLeft + Key.m_nWidth / 2,
                   GetSystemMetrics(SM_CYEDGE) + Key.m_nTop - 1);
}

static const unsigned kWhite = 0xFFFFFF;

TEST_CASE("function keys press the keys that have no character")
{
    static const struct
    {
        WORD        m_nKey;
        const char *m_szBottom;
    } s_Rows[] = {
        {VK_F2, "Keystrs: f"},   {VK_F3, "Keystrs: g"},   {VK_F4, "Keystrs: STO"},
        {VK_F7, "Keystrs: RCL"}, {VK_F8, "LastOp:  SST"}, {VK_F9, "LastOp:  BST"},
        {VK_F5, "LastOp:  R/S"},
    };
    cNoMouseRig &Rig = Shared<cNoMouseRig>();
    Rig.Begin();
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.m_szBottom);
        HitKey(Row.m_nKey);
        CHECK(Rig.ReadsBottom(Row.m_szBottom));
        Rig.HitKey(kKeyClearX);
    }
}

TEST_CASE("function keys move the switches")
{
    cNoMouseRig &Rig = Shared<cNoMouseRig>();
    Rig.Begin();
    const cPicture Before = PhotographFace(Rig);

    HitKey(VK_F11);
    CHECK(Eventually(std::string("X"), [&] { return Rig.Read(1, 50, 78, 1); }) == "X");
    HitKey(VK_F11);
    CHECK(LooksLike(Rig, Before));

    HitKey(VK_F12);
    CHECK(Rig.ReadsProgramLine("00"));
    HitKey(VK_F8);
    CHECK(Rig.ReadsProgramLine("01 R/S"));
    HitKey(VK_F9);
    CHECK(Rig.ReadsProgramLine("98 R/S"));
    HitKey(VK_F12);
    CHECK(Rig.ReadsX("0.00"));
}

TEST_CASE("a function key of two keys does nothing more than its first one may")
{
    cNoMouseRig &Rig = Shared<cNoMouseRig>();
    Rig.Begin();
    Rig.HitKeys({kKey0, kKeyG, kKeyRunStop});
    REQUIRE(Rig.ReadsX("Error: divide by 0"));

    HitKey(VK_F9);
    Rig.Settle();
    CHECK(Rig.ReadsX("0.00"));
    CHECK(Rig.ReadsBottom("LastOp:  1/x"));
}

TEST_CASE("arrows move the ring, Space and Enter press the key in it until the mouse is used")
{
    cNoMouseRig &Rig = Shared<cNoMouseRig>();
    Rig.Begin();
    CHECK(ColourAbove(Rig, kKeyEnter) != kWhite);

    HitKey(VK_DOWN);
    CHECK(Eventually(kWhite, [&] { return ColourAbove(Rig, kKeyEnter); }) == kWhite);
    HitPcKeys({VK_DOWN, VK_RIGHT});
    CHECK(Eventually(kWhite, [&] { return ColourAbove(Rig, kKey7); }) == kWhite);
    CHECK(ColourAbove(Rig, kKeyEnter) != kWhite);
    Rig.Photograph().Save("ring-on-7");

    HitPcKeys({VK_SPACE, VK_RETURN});
    CHECK(Rig.ReadsX("77."));
    Type("5");
    CHECK(Rig.ReadsX("775."));
    HitPcKeys({VK_DOWN, VK_DOWN, VK_DOWN, VK_RIGHT, VK_RIGHT, VK_UP, VK_SPACE});
    CHECK(Rig.ReadsX("7753."));

    // A switch is in the ring too.
    HitPcKeys({VK_UP, VK_UP, VK_UP, VK_UP, VK_UP, VK_UP, VK_SPACE});
    CHECK(Rig.ReadsProgramLine("00"));
    HitKey(VK_SPACE);
    CHECK(Rig.ReadsX("7753.00"));

    Rig.HitKey(kKey2);
    HitPcKeys({VK_RETURN, '4'});
    CHECK(Rig.ReadsX("4."));
    Type("+");
    CHECK(Rig.ReadsX("6.00"));
    HitKey(VK_SPACE);
    CHECK(Rig.ReadsX("6.00"));

    // Back to ENTER for the next test.
    HitPcKeys({VK_DOWN, VK_DOWN, VK_DOWN, VK_LEFT, VK_LEFT, VK_LEFT, VK_DOWN});
    CHECK(Eventually(kWhite, [&] { return ColourAbove(Rig, kKeyEnter); }) == kWhite);
}

TEST_CASE("Escape takes the ring away")
{
    cNoMouseRig &Rig = Shared<cNoMouseRig>();
    Rig.Begin();

    HitKey(VK_TAB);
    Type("8");
    HitKey(VK_ESCAPE);
    HitPcKeys({VK_RETURN, '9'});
    CHECK(Rig.ReadsX("9."));
    Type("*");
    CHECK(Rig.ReadsX("72.00"));
}

TEST_CASE("Tab and F6 go through the parts of the window that are shown, Shift goes back")
{
    cNoMouseRig &Rig = Shared<cNoMouseRig>();
    Rig.Begin();
    Rig.KeepOpen(1, 1);
    const HWND hListing   = Rig.Listing();
    const HWND hRegisters = Rig.Registers();
    SetWindowPos(Rig.Window(), nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);

    // Without a frame, and on the keypad, the listing is scrolled.
    HitKey(VK_END);
    CHECK(WaitFor([hListing] { return FirstLineShown(hListing) > 50; }));
    CHECK(ScrollsTo(hListing, VK_HOME, 0));
    HitKey(VK_NEXT);
    CHECK(WaitFor([hListing] { return FirstLineShown(hListing) > 10; }));
    CHECK(ScrollsTo(hListing, VK_PRIOR, 0));
    CHECK(FirstLineShown(hRegisters) == 0);

    HitPcKeys({VK_TAB, VK_F6});
    CHECK(ScrollsTo(hListing, VK_DOWN, 1));
    CHECK(ScrollsTo(hListing, VK_UP, 0));
    Rig.SettlePaint();
    Rig.Photograph().Save("listing-framed");

    // The keyboard is still the calculator's.
    Type("3\r");
    CHECK(Rig.ReadsX("3.00"));

    // Registers, toolbar: Options is its fourth button.
    HitPcKeys({VK_TAB, VK_TAB, VK_RIGHT, VK_RIGHT, VK_RIGHT, VK_RIGHT});
    Rig.SettlePaint();
    Rig.Photograph().Save("toolbar-framed");
    HitKey(VK_RETURN);
    REQUIRE(Rig.Dialog());
    CHECK(TextOfControl(Rig, IDC_KEEP_LISTING) == "Keep it open");
    Rig.CloseDialogWith(VK_ESCAPE);

    // Back to the listing, over the registers.
    Rig.HitShortcut(VK_TAB, kShift);
    HitKey(VK_F6, kShift);
    CHECK(ScrollsTo(hListing, VK_DOWN, 1));
    CHECK(ScrollsTo(hListing, VK_HOME, 0));
    Rig.KeepOpen(0, 0);
}

TEST_CASE("a run is halted by function keys and by the key in the ring, not by arrows")
{
    cNoMouseRig &Rig = Shared<cNoMouseRig>();
    Rig.Begin();
    OpenListing(&Rig, kEndless);

    HitKey(VK_F5);
    CHECK(IsProgramRunning(Rig));
    HitPcKeys({VK_TAB, VK_RIGHT, VK_LEFT, VK_NEXT, VK_HOME});
    Rig.Settle();
    CHECK(IsProgramRunning(Rig));
    HitKey(VK_SPACE);
    CHECK(HasHalted(Rig));
    CHECK(Rig.ReadsBottom("LastOp:  R/S"));

    for (const int nKey : {VK_F2, VK_F5, VK_F9})
    {
        CAPTURE(nKey);
        HitKey(VK_F5);
        CHECK(IsProgramRunning(Rig));
        HitKey(static_cast<WORD>(nKey));
        CHECK(HasHalted(Rig));
        CHECK(Rig.ReadsBottom("LastOp:  R/S"));
    }
}

TEST_CASE("the decimal key of the numeric pad is the point where it types a comma")
{
    cNoMouseRig &Rig = Shared<cNoMouseRig>();
    Rig.Begin();

    // Sent, the key is not translated for the keyboard that the test has.
    Type("12");
    CHECK(Rig.ReadsX("12."));
    SendMessageA(Rig.Window(), WM_KEYDOWN, VK_DECIMAL, 0);
    SendMessageA(Rig.Window(), WM_CHAR, ',', 0);
    Type("5,5");
    CHECK(Rig.ReadsX("12.55"));
}

TEST_CASE("a typed character moves its key on the face")
{
    cNoMouseRig &Rig = Shared<cNoMouseRig>();
    Rig.Begin();
    Rig.SettlePaint();

    // The key is down for a tenth of a second, which is short for a busy computer.
    const cFaceRect &Key    = kKeyRects[kKey5 - 1];
    const POINT      At     = Rig.OnFace(Key.m_nLeft + Key.m_nWidth / 2, Key.m_nTop + 2);
    const auto       Colour = [At] {
        return cPicture::OfScreen({At.x, At.y, At.x + 1, At.y + 1}).At(0, 0);
    };
    const unsigned nUp = Colour();
    CHECK(WaitFor([&] {
        Type("5");
        return Colour() != nUp;
    }));
    CHECK(Eventually(nUp, Colour) == nUp);
}
