#include "toolkit/win32/win32.h"

#include "shell/win32/button_array.h"

#include <functional>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include <doctest/doctest.h>

#include "tests/unit/failing_memory.h"
#include "tests/win32/test_frame.h"
#include "toolkit/retry_alloc.h"
#include "toolkit/win32/gdi.h"

namespace
{

// A picture in which the colour of each pixel identifies it: red is x, green is y,
// blue is the picture.
class cMarkedBitmap
{
public:
    cMarkedBitmap(BYTE nMark, int nWidth, int nHeight) : m_Bitmap(Create(nWidth, nHeight))
    {
        const cMemoryDc    Dc(nullptr);
        const cSelectGuard Selected(Dc.Get(), m_Bitmap.Get());
        for (int y = 0; y < nHeight; y++)
            for (int x = 0; x < nWidth; x++)
                SetPixelV(Dc.Get(), x, y, RGB(x, y, nMark));
    }

    HBITMAP Get() const { return m_Bitmap.Get(); }

private:
    static HBITMAP Create(int nWidth, int nHeight)
    {
        const cWindowDc Screen(nullptr);
        return CreateCompatibleBitmap(Screen.Get(), nWidth, nHeight);
    }

    cGdiBitmap m_Bitmap;
};

}  // namespace

static const BYTE kFaceMark   = 50;
static const BYTE kKeyMark    = 100;
static const BYTE kSwitchMark = 150;

namespace
{

struct cEvent
{
    unsigned m_nKey;
    unsigned m_bDown;

    bool operator==(const cEvent &) const = default;
};

using cEvents = std::vector<cEvent>;

}  // namespace

static std::string RectText(const RECT &Rect)
{
    return std::to_string(Rect.left) + "," + std::to_string(Rect.top) + " to " +
           std::to_string(Rect.right) + "," + std::to_string(Rect.bottom);
}

namespace
{

// A keypad that records its events.
struct cEmptyRig : cFrameRig
{
    ~cEmptyRig() { m_Frame.Close(); }

    // The client area is 200 by 120 by default.
    void Create(int nWidth = 200, int nHeight = 120, int nSourceX = 0, int nSourceY = 0,
                int nFaceWidth = 0, int nFaceHeight = 0)
    {
        const int nFrameX = 2 * GetSystemMetrics(SM_CXEDGE);
        const int nFrameY = 2 * GetSystemMetrics(SM_CYEDGE);
        REQUIRE(m_Keypad.Create(&m_Frame, 10, 20, nWidth + nFrameX, nHeight + nFrameY, m_Face.Get(),
                                nullptr, nSourceX, nSourceY, nFaceWidth, nFaceHeight, WS_VISIBLE,
                                1005) == 1);
        REQUIRE(m_Keypad.SetKeyBitmap(m_Keys.Get()) == 1);
        REQUIRE(m_Keypad.SetSwitchBitmap(m_Switches.Get(), 14) == 1);
        Listen(kSlotKey, [](cCallbackObj *, void *pArgument, uintptr_t dwRig) {
            const auto &Event = *static_cast<const cKeyEvent *>(pArgument);
            auto       &Rig   = *reinterpret_cast<cEmptyRig *>(dwRig);
            Rig.m_Events.push_back({Event.nKey, Event.bDown});
            if (Rig.m_OnEvent)
                Rig.m_OnEvent();
        });
        Listen(kSlotDisplay, [](cCallbackObj *, void *pArgument, uintptr_t dwRig) {
            reinterpret_cast<cEmptyRig *>(dwRig)->m_Uncovered.push_back(
                RectText(*static_cast<const cDisplayPart *>(pArgument)));
        });
    }

    void Listen(uint32_t nSlot, cCallbackRec::cStaticCall pfnCall)
    {
        auto *const pRecord = new cCallbackRec;
        pRecord->nSlot      = nSlot;
        pRecord->pfnStatic  = pfnCall;
        pRecord->dwUserData = reinterpret_cast<uintptr_t>(this);
        REQUIRE(m_Keypad.Register(pRecord) == 1);
    }

    // Repaints this part, everything by default.
    void Paint(const RECT &Part = {0, 0, 1000, 1000})
    {
        HandleWaitingMessages();
        m_Uncovered.clear();
        InvalidateRect(m_Keypad.Window(), &Part, FALSE);
        UpdateWindow(m_Keypad.Window());
    }

    LRESULT Send(UINT nMessage, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return SendMessageA(m_Keypad.Window(), nMessage, wParam, lParam);
    }

    // Mouse events, in pixels of the client area.
    void Press(int x, int y) { Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y)); }
    void Move(int x, int y) { Send(WM_MOUSEMOVE, 0, MAKELPARAM(x, y)); }
    void Release(int x, int y) { Send(WM_LBUTTONUP, 0, MAKELPARAM(x, y)); }

    // The picture and the place from which the pixel at (x, y) was copied:
    // "key 30,12".
    std::string Shown(int x, int y) const
    {
        const cWindowDc Dc(m_Keypad.Window());
        const COLORREF  nColour = GetPixel(Dc.Get(), x, y);
        if (nColour == RGB(255, 255, 255))
            return "white";
        const BYTE  nMark   = GetBValue(nColour);
        const char *szWhere = nMark == kFaceMark     ? "face "
                              : nMark == kKeyMark    ? "key "
                              : nMark == kSwitchMark ? "switch "
                                                     : "other ";
        return szWhere + std::to_string(GetRValue(nColour)) + "," +
               std::to_string(GetGValue(nColour));
    }

    // The events since the last call.
    cEvents TakeEvents() { return std::exchange(m_Events, {}); }

    int HasMouse() const { return GetCapture() == m_Keypad.Window(); }

    cMarkedBitmap            m_Face{kFaceMark, 180, 110};
    cMarkedBitmap            m_Keys{kKeyMark, 90, 40};
    cMarkedBitmap            m_Switches{kSwitchMark, 80, 196};
    cButtonArray             m_Keypad{&m_Boxes};
    cEvents                  m_Events;
    std::function<void()>    m_OnEvent;  // called after each event
    std::vector<std::string> m_Uncovered;
};

// Three keys in a row and, above them, two switches with a travel of 12.
struct cKeypadRig : cEmptyRig
{
    cKeypadRig()
    {
        Create();
        REQUIRE(m_Keypad.AddKey(10, 60, 30, 12) == 1);
        REQUIRE(m_Keypad.AddKey(50, 60, 40, 20) == 1);
        REQUIRE(m_Keypad.AddKey(100, 60, 20, 12) == 1);
        REQUIRE(m_Keypad.AddSwitch(10, 30, 36, 14, 24, 0) == 1);
        REQUIRE(m_Keypad.AddSwitch(60, 30, 36, 14, 24, 12) == 1);
        Paint();
    }
};

}  // namespace

static const unsigned kFirstSwitch  = 4;  // the codes in a cKeypadRig
static const unsigned kSecondSwitch = 5;

// --- creation

TEST_CASE("a keypad is a child window with a client edge")
{
    cEmptyRig Rig;
    Rig.Create();
    const HWND hWnd = Rig.m_Keypad.Window();

    CHECK(std::string(Rig.m_Keypad.GetClassName()) == "cButtonArray");
    CHECK(GetParent(hWnd) == Rig.m_Frame.Window());
    CHECK(GetDlgCtrlID(hWnd) == 1005);
    const auto dwStyle = static_cast<DWORD>(GetWindowLongA(hWnd, GWL_STYLE));
    CHECK((dwStyle & (WS_CHILD | WS_TABSTOP | WS_VISIBLE)) == (WS_CHILD | WS_TABSTOP | WS_VISIBLE));
    const auto dwExStyle = static_cast<DWORD>(GetWindowLongA(hWnd, GWL_EXSTYLE));
    CHECK((dwExStyle & (WS_EX_CLIENTEDGE | WS_EX_NOPARENTNOTIFY)) ==
          (WS_EX_CLIENTEDGE | WS_EX_NOPARENTNOTIFY));
}

TEST_CASE("the class of keypads repaints on resizing and is unregistered with the last keypad")
{
    WNDCLASSA Class = {};
    {
        cEmptyRig Rig;
        Rig.Create();
        REQUIRE(GetClassInfoA(ProgramInstance(), "cButtonArray", &Class));
        CHECK(Class.style == (CS_HREDRAW | CS_VREDRAW));
        CHECK(Class.hCursor == LoadCursorA(nullptr, IDC_ARROW));
        CHECK(Class.hbrBackground == GetStockObject(WHITE_BRUSH));
        CHECK(!Class.lpszMenuName);
    }
    CHECK_FALSE(GetClassInfoA(ProgramInstance(), "cButtonArray", &Class));
}

TEST_CASE("a keypad without an owner window is reported")
{
    cNoFrameRig   Rig;
    cMarkedBitmap Face(kFaceMark, 10, 10);
    cButtonArray  Keypad(&Rig.m_Boxes);

    CHECK(Keypad.Create(&Rig.m_Frame, 0, 0, 10, 10, Face.Get(), nullptr, 0, 0, 0, 0, 0, 1005) == 0);

    CHECK(ShowedOnlyError(Rig.m_Boxes, "ERROR: CreateWindow() failed in cButtonArray::Create()"));
    CHECK(Keypad.IsCreated() == 0);
}

TEST_CASE("a keypad whose class cannot be registered is reported")
{
    WNDCLASSA Other     = {};
    Other.lpfnWndProc   = &DefWindowProcA;
    Other.hInstance     = ProgramInstance();
    Other.lpszClassName = "cButtonArray";
    REQUIRE(RegisterClassA(&Other));
    {
        cEmptyRig Rig;
        CHECK(Rig.m_Keypad.Create(&Rig.m_Frame, 0, 0, 10, 10, Rig.m_Face.Get(), nullptr, 0, 0, 0, 0,
                                  0, 1005) == 0);
        CHECK(ShowedOnlyError(Rig.m_Boxes,
                              "ERROR: RegisterClass() failed in cButtonArray::Create()"));
    }
    UnregisterClassA("cButtonArray", ProgramInstance());
}

TEST_CASE("a keypad does not delete bitmaps and palette")
{
    cMarkedBitmap     Face(kFaceMark, 10, 10);
    const cGdiPalette Palette(CreateHalftonePalette(nullptr));
    {
        cFrameRig    Rig;
        cButtonArray Keypad(&Rig.m_Boxes);
        REQUIRE(Keypad.Create(&Rig.m_Frame, 0, 0, 10, 10, Face.Get(), Palette.Get(), 0, 0, 0, 0,
                              WS_VISIBLE, 1005) == 1);
        REQUIRE(Keypad.SetKeyBitmap(Face.Get()) == 1);
        REQUIRE(Keypad.SetSwitchBitmap(Face.Get(), 1) == 1);
        HandleWaitingMessages();
        Rig.m_Frame.Close();
    }
    CHECK(GetObjectType(Face.Get()) == OBJ_BITMAP);
    CHECK(GetObjectType(Palette.Get()) == OBJ_PAL);
    CHECK(GetPaletteEntries(Palette.Get(), 0, 0, nullptr) == 256);
}

TEST_CASE("the strips of a keypad can be set only once")
{
    cEmptyRig Rig;
    CHECK(Rig.m_Keypad.SetSwitchBitmap(Rig.m_Switches.Get(), 0) == 0);
    Rig.Create();
    REQUIRE(Rig.m_Keypad.AddKey(10, 60, 30, 12) == 1);
    REQUIRE(Rig.m_Keypad.AddSwitch(60, 30, 36, 14, 24, 12) == 1);

    CHECK(Rig.m_Keypad.SetKeyBitmap(Rig.m_Face.Get()) == 0);
    CHECK(Rig.m_Keypad.SetSwitchBitmap(Rig.m_Face.Get(), 2) == 0);

    Rig.Paint();
    CHECK(Rig.Shown(10, 60) == "key 0,0");
    CHECK(Rig.Shown(60, 30) == "switch 0,168");
}

TEST_CASE("a key is refused when memory is short and the user gives up")
{
    for (int nSucceed = 0; nSucceed < 2; nSucceed++)  // the rectangle, its place in the list
    {
        cRecordingBoxes Boxes({anRetry, anCancel});
        cButtonArray    Keypad(&Boxes);
        {
            const cFailingMemory Memory(nSucceed, 2);
            CHECK(Keypad.AddKey(0, 0, 10, 10) == 0);
            CHECK(Memory.FailuresLeft() == 0);
        }
        REQUIRE(Boxes.m_Boxes.size() == 2);
        CHECK(Boxes.m_Boxes[1].m_Text == kMemoryFailureText);
        CHECK(Boxes.m_QuitCodes == std::vector<int>{0});
    }
}

// --- painting

TEST_CASE("the face is shown from its source point on, as far as face and window reach")
{
    static const struct
    {
        int         m_nClientWidth;
        int         m_nClientHeight;
        int         m_nSourceX;
        int         m_nSourceY;
        int         m_nFaceWidth;
        int         m_nFaceHeight;
        const char *m_szFirst;
        const char *m_szLast;    // of the client area
        const char *m_szInside;  // at (90, 60)
    } s_Rows[] = {
        {200, 120, 0, 0, 0, 0, "face 0,0", "white", "face 90,60"},
        {100, 70, 0, 0, 0, 0, "face 0,0", "face 99,69", "face 90,60"},
        {100, 70, 0, 35, 0, 0, "face 0,35", "face 99,104", "face 90,95"},
        {100, 70, 7, 0, 0, 0, "face 7,0", "face 106,69", "face 97,60"},
        {200, 120, 0, 0, 90, 110, "face 0,0", "white", "white"},
        {200, 120, 0, 0, 180, 60, "face 0,0", "white", "white"},
    };
    for (const auto &Row : s_Rows)
    {
        cEmptyRig Rig;
        Rig.Create(Row.m_nClientWidth, Row.m_nClientHeight, Row.m_nSourceX, Row.m_nSourceY,
                   Row.m_nFaceWidth, Row.m_nFaceHeight);
        Rig.Paint();
        CHECK(Rig.Shown(0, 0) == Row.m_szFirst);
        CHECK(Rig.Shown(Row.m_nClientWidth - 1, Row.m_nClientHeight - 1) == Row.m_szLast);
        CHECK(Rig.Shown(90, 60) == Row.m_szInside);
    }
}

TEST_CASE("the images of the keys are side by side in the strip")
{
    cKeypadRig Rig;

    CHECK(Rig.Shown(9, 60) == "face 9,60");
    CHECK(Rig.Shown(10, 60) == "key 0,0");
    CHECK(Rig.Shown(39, 71) == "key 29,11");
    CHECK(Rig.Shown(40, 71) == "face 40,71");
    CHECK(Rig.Shown(50, 60) == "key 30,0");
    CHECK(Rig.Shown(89, 79) == "key 69,19");
    CHECK(Rig.Shown(100, 60) == "key 70,0");
    CHECK(Rig.Shown(119, 71) == "key 89,11");
    CHECK(Rig.Shown(119, 72) == "face 119,72");
}

TEST_CASE("the image of a pressed key is below that of the released one")
{
    cKeypadRig Rig;

    Rig.Press(50, 60);

    CHECK(Rig.Shown(50, 60) == "key 30,20");
    CHECK(Rig.Shown(89, 79) == "key 69,39");
    CHECK(Rig.Shown(89, 80) == "face 89,80");
    CHECK(Rig.Shown(10, 60) == "key 0,0");
    Rig.Release(50, 60);
    CHECK(Rig.Shown(50, 60) == "key 30,0");
    Rig.Press(10, 60);
    CHECK(Rig.Shown(10, 60) == "key 0,12");
}

TEST_CASE("the switches show the frames for their positions")
{
    cKeypadRig Rig;

    CHECK(Rig.Shown(10, 30) == "switch 0,0");
    CHECK(Rig.Shown(45, 43) == "switch 35,13");
    CHECK(Rig.Shown(46, 43) == "face 46,43");
    CHECK(Rig.Shown(60, 30) == "switch 36,168");
    CHECK(Rig.Shown(95, 43) == "switch 71,181");
}

TEST_CASE("only keys and switches in the invalid part are painted")
{
    cKeypadRig Rig;
    Rig.Press(10, 60);

    Rig.Paint({40, 0, 200, 120});
    CHECK(Rig.Shown(10, 60) == "key 0,12");
    Rig.Paint({39, 71, 40, 72});
    CHECK(Rig.Shown(10, 60) == "key 0,12");
    CHECK(Rig.Shown(39, 71) == "key 29,11");
    Rig.Paint({10, 60, 40, 72});
    CHECK(Rig.Shown(10, 60) == "key 0,0");

    Rig.Release(10, 60);
    CHECK(Rig.TakeEvents() == cEvents{{1, 1}, {1, 0}});
}

TEST_CASE("the uncovered part of the first display rectangle is reported, and no other")
{
    cKeypadRig Rig;
    REQUIRE(Rig.m_Keypad.AddDisplayRect(20, 5, 100, 20) == 1);
    REQUIRE(Rig.m_Keypad.AddDisplayRect(100, 5, 50, 20) == 1);

    Rig.Paint();
    CHECK(Rig.m_Uncovered == std::vector<std::string>{"20,5 to 120,25"});
    Rig.Paint({0, 0, 50, 10});
    CHECK(Rig.m_Uncovered == std::vector<std::string>{"20,5 to 50,10"});
    Rig.Paint({110, 20, 190, 90});
    CHECK(Rig.m_Uncovered == std::vector<std::string>{"110,20 to 120,25"});
    Rig.Paint({120, 0, 190, 90});
    CHECK(Rig.m_Uncovered == std::vector<std::string>{"120,5 to 150,25"});
    Rig.Paint({0, 25, 190, 120});
    CHECK(Rig.m_Uncovered.empty());
    CHECK(Rig.TakeEvents().empty());
}

TEST_CASE("the face and the display on top of it appear together")
{
    cKeypadRig Rig;
    REQUIRE(Rig.m_Keypad.AddDisplayRect(20, 5, 100, 20) == 1);
    auto *const pRecord = new cCallbackRec;
    pRecord->nSlot      = kSlotDisplay;
    pRecord->pfnStatic  = [](cCallbackObj *pKeypad, void *pArgument, uintptr_t) {
        const HWND      hWnd = static_cast<cButtonArray *>(pKeypad)->Window();
        const HDC       hDc  = static_cast<const cDisplayPart *>(pArgument)->m_hDc;
        const cWindowDc Dc(hWnd);
        CHECK(GetPixel(hDc, 30, 10) == RGB(30, 10, kFaceMark));
        CHECK(GetPixel(Dc.Get(), 30, 10) == RGB(0, 0, 0));
        CHECK_FALSE(GetUpdateRect(hWnd, nullptr, FALSE));
        SetPixelV(hDc, 31, 10, RGB(255, 0, 0));
    };
    REQUIRE(Rig.m_Keypad.Register(pRecord) == 1);
    {
        const cWindowDc Dc(Rig.m_Keypad.Window());
        PatBlt(Dc.Get(), 0, 0, 200, 120, BLACKNESS);
    }

    Rig.Paint({15, 3, 60, 70});

    CHECK(Rig.m_Uncovered.size() == 1);
    CHECK(Rig.Shown(30, 10) == "face 30,10");
    const cWindowDc Dc(Rig.m_Keypad.Window());
    CHECK(GetPixel(Dc.Get(), 31, 10) == RGB(255, 0, 0));
    CHECK(GetPixel(Dc.Get(), 14, 10) == RGB(0, 0, 0));
}

TEST_CASE("the ground is never erased before the face is painted")
{
    cKeypadRig Rig;
    {
        const cWindowDc Dc(Rig.m_Keypad.Window());
        PatBlt(Dc.Get(), 0, 0, 200, 120, BLACKNESS);
        CHECK(Rig.Send(WM_ERASEBKGND, reinterpret_cast<WPARAM>(Dc.Get())) == 1);
        CHECK(GetPixel(Dc.Get(), 195, 115) == RGB(0, 0, 0));
    }

    Rig.Paint();

    const cWindowDc Dc(Rig.m_Keypad.Window());
    CHECK(GetPixel(Dc.Get(), 195, 115) == RGB(255, 255, 255));
}

TEST_CASE("minimising does not make a keypad forget its size")
{
    cKeypadRig Rig;

    CHECK(Rig.Send(WM_SIZE, SIZE_MINIMIZED, MAKELPARAM(0, 0)) == 0);

    {
        const cWindowDc Dc(Rig.m_Keypad.Window());
        PatBlt(Dc.Get(), 0, 0, 200, 120, BLACKNESS);
    }
    Rig.Paint();
    CHECK(Rig.Shown(179, 109) == "face 179,109");
}

// --- keys

TEST_CASE("pressing and releasing a key are reported after the key is drawn")
{
    cKeypadRig               Rig;
    std::vector<std::string> Seen;
    Rig.m_OnEvent = [&] { Seen.push_back(Rig.Shown(100, 60)); };

    Rig.Press(110, 65);
    CHECK(Rig.HasMouse());
    Rig.Move(112, 66);
    Rig.Release(112, 66);

    CHECK(Rig.TakeEvents() == cEvents{{3, 1}, {3, 0}});
    CHECK(Seen == std::vector<std::string>{"key 70,12", "key 70,0"});
    CHECK_FALSE(Rig.HasMouse());
}

TEST_CASE("a key includes its left and top edges, but not its right and bottom ones")
{
    cKeypadRig Rig;
    static const struct
    {
        int     x;
        int     y;
        cEvents m_Told;
    } s_Rows[] = {
        {50, 60, {{2, 1}, {2, 0}}},
        {89, 79, {{2, 1}, {2, 0}}},
        {49, 60, {}},
        {50, 59, {}},
        {90, 79, {}},
        {89, 80, {}},
    };
    for (const auto &Row : s_Rows)
    {
        Rig.Press(Row.x, Row.y);
        Rig.Release(Row.x, Row.y);
        CHECK(Rig.TakeEvents() == Row.m_Told);
    }
}

TEST_CASE("leaving a key releases it, and returning does not press it again")
{
    cKeypadRig Rig;

    Rig.Press(10, 60);
    Rig.Move(40, 60);
    CHECK(Rig.TakeEvents() == cEvents{{1, 1}, {1, 0}});
    CHECK(Rig.Shown(10, 60) == "key 0,0");
    CHECK_FALSE(Rig.HasMouse());

    Rig.Move(20, 65);
    Rig.Release(20, 65);
    CHECK(Rig.TakeEvents().empty());
    CHECK(Rig.Shown(10, 60) == "key 0,0");
}

TEST_CASE("leaving the window releases a key")
{
    cKeypadRig Rig;
    REQUIRE(Rig.m_Keypad.AddKey(0, 0, 9, 9) == 1);

    Rig.Press(3, 3);
    Rig.Move(-1, 3);

    CHECK(Rig.TakeEvents() == cEvents{{4, 1}, {4, 0}});
}

TEST_CASE("of overlapping keys the first one is pressed, and a key rather than a switch")
{
    cKeypadRig Rig;
    REQUIRE(Rig.m_Keypad.AddKey(10, 30, 60, 42) == 1);

    Rig.Press(15, 62);
    Rig.Release(15, 62);
    Rig.Press(15, 35);
    Rig.Release(15, 35);

    CHECK(Rig.TakeEvents() == cEvents{{1, 1}, {1, 0}, {4, 1}, {4, 0}});
}

TEST_CASE("moving the mouse over the face without pressing a key has no effect")
{
    cKeypadRig Rig;

    Rig.Move(15, 65);
    Rig.Release(15, 65);
    Rig.Press(1, 1);
    Rig.Move(15, 65);
    Rig.Move(15, 35);
    Rig.Release(15, 35);

    CHECK(Rig.TakeEvents().empty());
    CHECK_FALSE(Rig.HasMouse());
    CHECK(Rig.Shown(10, 60) == "key 0,0");
}

// --- switches

TEST_CASE("a dragged thumb shows the frame for its position")
{
    static const struct
    {
        int         m_nFrames;
        int         m_nPosition;
        const char *m_szShown;
    } s_Rows[] = {
        {14, 0, "switch 0,0"},    {14, 1, "switch 0,14"},   {14, 6, "switch 0,84"},
        {14, 7, "switch 0,98"},   {14, 11, "switch 0,154"}, {14, 12, "switch 0,168"},
        {13, 12, "switch 0,168"}, {2, 6, "switch 0,0"},     {2, 7, "switch 0,14"},
        {5, 12, "switch 0,56"},   {5, 8, "switch 0,42"},    {5, 7, "switch 0,28"},
    };
    for (const auto &Row : s_Rows)
    {
        cFrameRig     Rig;
        cMarkedBitmap Face(kFaceMark, 100, 50);
        cMarkedBitmap Switches(kSwitchMark, 36, 196);
        cButtonArray  Keypad(&Rig.m_Boxes);
        REQUIRE(Keypad.Create(&Rig.m_Frame, 0, 0, 104, 54, Face.Get(), nullptr, 0, 0, 0, 0,
                              WS_VISIBLE, 1005) == 1);
        REQUIRE(Keypad.SetSwitchBitmap(Switches.Get(), Row.m_nFrames) == 1);
        REQUIRE(Keypad.AddSwitch(10, 30, 36, 14, 24, 0) == 1);
        SendMessageA(Keypad.Window(), WM_LBUTTONDOWN, 0, MAKELPARAM(20, 35));
        SendMessageA(Keypad.Window(), WM_MOUSEMOVE, 0, MAKELPARAM(20 + Row.m_nPosition, 35));
        {
            const cWindowDc Dc(Keypad.Window());
            const COLORREF  nColour = GetPixel(Dc.Get(), 10, 30);
            CHECK("switch " + std::to_string(GetRValue(nColour)) + "," +
                      std::to_string(GetGValue(nColour)) ==
                  Row.m_szShown);
        }
        Rig.m_Frame.Close();
    }
}

TEST_CASE("a switch changes when its thumb crosses the middle, exactly half counts as left")
{
    cKeypadRig Rig;

    Rig.Press(15, 35);
    CHECK(Rig.HasMouse());
    Rig.Move(20, 35);
    Rig.Move(21, 35);  // 6 of 12 pixels
    CHECK(Rig.TakeEvents().empty());
    Rig.Move(22, 35);
    CHECK(Rig.TakeEvents() == cEvents{{kFirstSwitch, 1}});
    Rig.Move(27, 35);
    Rig.Move(23, 35);
    Rig.Move(45, 35);
    CHECK(Rig.TakeEvents().empty());
    Rig.Move(21, 35);
    CHECK(Rig.TakeEvents() == cEvents{{kFirstSwitch, 0}});
    Rig.Move(10, 35);
    Rig.Release(10, 35);
    CHECK(Rig.TakeEvents().empty());
    CHECK_FALSE(Rig.HasMouse());
}

TEST_CASE("a switch that starts at its right end is grabbed there")
{
    cKeypadRig Rig;

    Rig.Press(71, 35);  // left of the thumb
    Rig.Move(61, 35);
    Rig.Release(61, 35);
    CHECK(Rig.TakeEvents().empty());

    Rig.Press(72, 35);
    Rig.Move(60, 35);
    CHECK(Rig.TakeEvents() == cEvents{{kSecondSwitch, 0}});
    CHECK(Rig.Shown(60, 30) == "switch 36,0");
    Rig.Release(60, 35);
    Rig.Press(83, 35);
    Rig.Move(95, 35);
    Rig.Release(95, 35);
    CHECK(Rig.TakeEvents() == cEvents{{kSecondSwitch, 1}});
}

TEST_CASE("a thumb is narrower than its switch, and starts at the left if it would not fit")
{
    static const struct
    {
        int m_nThumbWidth;
        int m_nStart;
        int m_nFirst;  // where the thumb can be grabbed
        int m_nLast;
    } s_Rows[] = {
        {24, 0, 0, 23}, {24, 12, 12, 35}, {24, 13, 0, 23}, {40, 0, 0, 34},
        {40, 1, 1, 35}, {36, 2, 0, 34},   {1, 35, 35, 35}, {1, 36, 0, 0},
    };
    for (const auto &Row : s_Rows)
    {
        cEmptyRig Rig;
        Rig.Create();
        REQUIRE(Rig.m_Keypad.AddSwitch(10, 30, 36, 14, Row.m_nThumbWidth, Row.m_nStart) == 1);
        for (int x = -1; x <= 36; x++)
        {
            Rig.Press(10 + x, 35);
            CHECK(Rig.HasMouse() == (x >= Row.m_nFirst && x <= Row.m_nLast));
            Rig.Release(10 + x, 35);
        }
        CHECK(Rig.TakeEvents().empty());
    }
}

TEST_CASE("leaving a switch ends the drag at the current position of the thumb")
{
    cKeypadRig Rig;

    Rig.Press(15, 35);
    Rig.Move(46, 35);  // past the right end, in one move
    CHECK(Rig.TakeEvents() == cEvents{{kFirstSwitch, 1}});
    CHECK_FALSE(Rig.HasMouse());
    CHECK(Rig.Shown(10, 30) == "switch 0,168");
    Rig.Move(15, 35);
    CHECK(Rig.TakeEvents().empty());

    Rig.Press(25, 35);
    Rig.Move(22, 44);  // below it, on the same side
    CHECK_FALSE(Rig.HasMouse());
    Rig.Move(12, 35);
    Rig.Release(12, 35);
    CHECK(Rig.TakeEvents().empty());

    Rig.Press(25, 35);
    Rig.Move(-5, -5);  // out of the window
    CHECK(Rig.TakeEvents() == cEvents{{kFirstSwitch, 0}});
    CHECK(Rig.Shown(10, 30) == "switch 0,0");
}

TEST_CASE("a dropped thumb stays where it is until the next paint")
{
    cKeypadRig Rig;

    Rig.Press(15, 35);
    Rig.Move(19, 35);
    Rig.Release(19, 35);
    CHECK(Rig.Shown(10, 30) == "switch 0,56");
    Rig.Press(33, 35);  // where the thumb really is, not where it is drawn
    CHECK(Rig.HasMouse());
    Rig.Release(33, 35);
    Rig.Press(34, 35);
    CHECK_FALSE(Rig.HasMouse());

    Rig.Paint({10, 30, 11, 31});
    CHECK(Rig.Shown(10, 30) == "switch 0,0");
    CHECK(Rig.TakeEvents().empty());
}

TEST_CASE("a keypad has at most 10 switches")
{
    cEmptyRig Rig;
    Rig.Create();
    REQUIRE(Rig.m_Keypad.AddKey(150, 60, 10, 10) == 1);
    for (int i = 0; i < 10; i++)
        CHECK(Rig.m_Keypad.AddSwitch(10, 10 * i, 20, 8, 10, 0) == 1);

    CHECK(Rig.m_Keypad.AddSwitch(60, 0, 20, 8, 10, 0) == 0);

    Rig.Press(65, 5);
    CHECK_FALSE(Rig.HasMouse());
    Rig.Press(15, 95);
    Rig.Move(25, 95);
    CHECK(Rig.TakeEvents() == cEvents{{11, 1}});
}

// --- other messages

TEST_CASE("a keypad ignores requests to close and commands")
{
    cKeypadRig Rig;

    CHECK(Rig.Send(WM_CLOSE) == 0);
    CHECK(Rig.Send(WM_COMMAND, 101) == 0);

    CHECK(IsWindow(Rig.m_Keypad.Window()));
    CHECK(Rig.m_Frame.m_Commands.empty());
    CHECK(Rig.TakeEvents().empty());
}

TEST_CASE("labels in a keypad are grey on white")
{
    cKeypadRig      Rig;
    const cMemoryDc Dc(nullptr);
    const auto      wDc    = reinterpret_cast<WPARAM>(Dc.Get());
    const LRESULT   hBrush = Rig.Send(WM_CTLCOLORSTATIC, wDc);

    CHECK(hBrush == reinterpret_cast<LRESULT>(GetStockObject(WHITE_BRUSH)));
    CHECK(GetTextColor(Dc.Get()) == RGB(128, 128, 128));
    CHECK(GetBkColor(Dc.Get()) == RGB(255, 255, 255));
}

// --- the PC keyboard

TEST_CASE("the ring is round one key or switch, within and outside its edge")
{
    cKeypadRig Rig;

    Rig.m_Keypad.SetRing(2);
    UpdateWindow(Rig.m_Keypad.Window());
    CHECK(Rig.m_Keypad.Ring() == 2);
    CHECK(Rig.Shown(70, 58) == "face 70,58");
    CHECK(Rig.Shown(70, 59) == "white");
    CHECK(Rig.Shown(70, 60) == "white");
    CHECK(Rig.Shown(70, 61) == "key 50,1");
    CHECK(Rig.Shown(90, 70) == "white");

    Rig.m_Keypad.SetRing(kFirstSwitch);
    UpdateWindow(Rig.m_Keypad.Window());
    CHECK(Rig.Shown(70, 59) == "face 70,59");
    CHECK(Rig.Shown(70, 60) == "key 50,0");
    CHECK(Rig.Shown(30, 29) == "white");

    Rig.m_Keypad.SetRing(0);
    UpdateWindow(Rig.m_Keypad.Window());
    CHECK(Rig.Shown(30, 29) == "face 30,29");
    CHECK(Rig.TakeEvents().empty());
}

TEST_CASE("the ring stays on a key that is pressed, and goes when the mouse is used")
{
    cKeypadRig Rig;
    Rig.m_Keypad.SetRing(2);
    UpdateWindow(Rig.m_Keypad.Window());

    Rig.m_Keypad.Press(2);
    CHECK(Rig.Shown(70, 60) == "white");
    CHECK(Rig.Shown(70, 70) == "key 50,30");

    Rig.Press(150, 20);
    UpdateWindow(Rig.m_Keypad.Window());
    CHECK(Rig.m_Keypad.Ring() == 0);
    CHECK(Rig.Shown(70, 59) == "face 70,59");
}

TEST_CASE("a key pressed by the keyboard is pressed and released, and shows it for a moment")
{
    cKeypadRig Rig;

    Rig.m_Keypad.Press(2);
    CHECK(Rig.TakeEvents() == cEvents{{2, 1}, {2, 0}});
    CHECK(Rig.Shown(50, 60) == "key 30,20");
    CHECK_FALSE(Rig.HasMouse());

    Rig.m_Keypad.Press(1);
    CHECK(Rig.TakeEvents() == cEvents{{1, 1}, {1, 0}});
    CHECK(Rig.Shown(50, 60) == "key 30,0");
    CHECK(Rig.Shown(10, 60) == "key 0,12");

    Sleep(150);
    HandleWaitingMessages();
    CHECK(Rig.Shown(10, 60) == "key 0,0");
    CHECK(Rig.TakeEvents().empty());
}

TEST_CASE("a key that the mouse holds stays pressed when its moment is over")
{
    cKeypadRig Rig;
    Rig.m_Keypad.Flash(2);

    Rig.Press(50, 60);
    Rig.m_Keypad.Flash(0);

    CHECK(Rig.Shown(50, 60) == "key 30,20");
    Rig.Release(50, 60);
    CHECK(Rig.Shown(50, 60) == "key 30,0");
}

TEST_CASE("a switch pressed by the keyboard moves to its other end")
{
    cKeypadRig Rig;
    CHECK(Rig.m_Keypad.IsRight(kFirstSwitch) == 0);
    CHECK(Rig.m_Keypad.IsRight(kSecondSwitch) == 1);

    Rig.m_Keypad.Press(kFirstSwitch);
    Rig.m_Keypad.Press(kSecondSwitch);
    UpdateWindow(Rig.m_Keypad.Window());

    CHECK(Rig.TakeEvents() == cEvents{{kFirstSwitch, 1}, {kSecondSwitch, 0}});
    CHECK(Rig.m_Keypad.IsRight(kFirstSwitch) == 1);
    CHECK(Rig.Shown(10, 30) == "switch 0,168");
    CHECK(Rig.Shown(60, 30) == "switch 36,0");
}
