// The keys and slide switches of the real window, driven with the mouse.

#include "tests/window/calculator.h"

#include <algorithm>

#include <doctest/doctest.h>

#include "shell/face_geometry.h"
#include "tests/window/common_steps.h"
#include "tests/window/input.h"
#include "tests/window/keys.h"
#include "tests/window/waiting.h"

// From the corner of the keypad to that of the face.
static POINT EdgeOfFace()
{
    return {GetSystemMetrics(SM_CXEDGE), GetSystemMetrics(SM_CYEDGE)};
}

static RECT PartOfFace(const cFaceRect &Part)
{
    const POINT Edge = EdgeOfFace();
    const RECT  Rect = {Edge.x + Part.m_nLeft, Edge.y + Part.m_nTop,
                        Edge.x + Part.m_nLeft + Part.m_nWidth,
                        Edge.y + Part.m_nTop + Part.m_nHeight};
    return Rect;
}

// The texts of the display, whose own rectangle reaches down to the switches, and the
// lamps below them.
static const cFaceRect kTexts = {44, 40, 260, 64};

// The smallest rectangle outside texts and lamps in which two pictures of the keypad
// differ; empty if they do not.
static RECT DifferenceOf(const cPicture &One, const cPicture &Other)
{
    const RECT Texts      = PartOfFace(kTexts);
    RECT       Difference = {};
    for (int y = 0; y < One.Height(); y++)
        for (int x = 0; x < One.Width(); x++)
        {
            const RECT Pixel = {x, y, x + 1, y + 1};
            if (!PtInRect(&Texts, {x, y}) && One.At(x, y) != Other.At(x, y))
                UnionRect(&Difference, &Difference, &Pixel);
        }
    return Difference;
}

static int IsInside(const RECT &Inner, const RECT &Outer)
{
    RECT Common = {};
    return IntersectRect(&Common, &Inner, &Outer) && EqualRect(&Common, &Inner);
}

// Waits until the program has handled the move; moves in quick succession would
// become one.
static void MoveOn(const cCalculator &Calculator, POINT Position)
{
    MoveMouse(Position);
    Calculator.Settle();
}

// Sets X and Y to 1 and the last operation to another one than that of nKey.
static void Prepare(cCalculator *pCalculator, unsigned nKey)
{
    pCalculator->HitKeys({kKeyClearX, kKey1, kKeyEnter});
    if (nKey == kKeyEnter)
        pCalculator->HitKey(kKeySwapXY);
}

// Presses the mouse on the thumb of a switch, which is at the left or right end.
static void Grab(const cCalculator &Calculator, eSwitch nSwitch, int bRight)
{
    const cFaceRect &Rect = kSwitchRects[nSwitch];
    MoveMouse(Calculator.OnFace(Rect.m_nLeft + (bRight ? Rect.m_nWidth : kThumbWidth) - 12,
                                Rect.m_nTop + 7));
    PressMouse();
}

// Moves the grabbed thumb to this position, 0 to 12.
static void DragTo(const cCalculator &Calculator, eSwitch nSwitch, int nPosition)
{
    const cFaceRect &Rect = kSwitchRects[nSwitch];
    MoveOn(Calculator,
           Calculator.OnFace(Rect.m_nLeft + kThumbWidth - 12 + nPosition, Rect.m_nTop + 7));
}

// The bottom line after each key, alone and after the gold and the blue prefix.
static const struct
{
    unsigned    m_nKey;
    const char *m_szPlain;
    const char *m_szAfterF;
    const char *m_szAfterG;
} kOperations[] = {
    {2, "Keystrs: GSB", "Keystrs: SCI", "LastOp:  RTN"},
    {3, "Keystrs: GTO", "Keystrs: ENG", "Keystrs: LBL"},
    {4, "Keystrs: f", "Keystrs: f", "Keystrs: f"},
    {5, "Keystrs: g", "Keystrs: g", "Keystrs: g"},
    {10, "LastOp:  Sum+", "LastOp:  Sum-", "LastOp:  ENTER"},  // DEL needs program mode
    {6, "LastOp:  x<>y", "LastOp:  Mean", "LastOp:  %"},
    {7, "LastOp:  Rolldown", "LastOp:  StdDev", "LastOp:  RCL i"},
    {8, "Keystrs: STO", "LastOp:  LR", "LastOp:  DSZ"},
    {9, "Keystrs: RCL", "LastOp:  ClearG", "LastOp:  ISZ"},
    {11, "LastOp:  ENTER", "LastOp:  x<>y", "LastOp:  x<>y"},  // nothing but ENTER
    {12, "LastOp:  CHS", "LastOp:  ENTER", "LastOp:  GRD"},    // CLEAR PRGM like DEL
    {13, "LastOp:  ENTER", "LastOp:  ClearREG", "LastOp:  RAD"},
    {14, "LastOp:  CLX", "LastOp:  ClearSum", "LastOp:  DEG"},
    {15, "LastOp:  -", "LastOp:  x<=y", "LastOp:  x<0"},
    {16, "LastOp:  ENTER", "LastOp:  ln", "LastOp:  e^x"},
    {17, "LastOp:  ENTER", "LastOp:  log", "LastOp:  10^x"},
    {18, "LastOp:  ENTER", "LastOp:  ->R", "LastOp:  ->P"},
    {19, "LastOp:  +", "LastOp:  x>y", "LastOp:  x>0"},
    {20, "LastOp:  ENTER", "LastOp:  sin", "LastOp:  sin^-1"},
    {21, "LastOp:  ENTER", "LastOp:  cos", "LastOp:  cos^-1"},
    {22, "LastOp:  ENTER", "LastOp:  tan", "LastOp:  tan^-1"},
    {23, "LastOp:  *", "LastOp:  x!=y", "LastOp:  x!=0"},
    {24, "LastOp:  ENTER", "LastOp:  INT", "LastOp:  FRAC"},
    {25, "LastOp:  ENTER", "LastOp:  sqrt", "LastOp:  x^2"},
    {26, "LastOp:  ENTER", "LastOp:  y^x", "LastOp:  ABS"},
    {27, "LastOp:  /", "LastOp:  x=y", "LastOp:  x=0"},
    {28, "LastOp:  ENTER", nullptr, "LastOp:  SetG"},  // SumG opens the graph window
    {29, "LastOp:  ENTER", "LastOp:  LASTx", "LastOp:  pi"},
    {30, "LastOp:  R/S", "LastOp:  PAUSE", "LastOp:  1/x"},
    {1, "LastOp:  SST", "Keystrs: FIX", "LastOp:  BST"},
};

TEST_CASE("every key does what its three legends say: plain, gold and blue")
{
    cCalculator Calculator;
    for (const auto &Row : kOperations)
    {
        CAPTURE(Row.m_nKey);
        Prepare(&Calculator, Row.m_nKey);
        Calculator.HitKey(Row.m_nKey);
        CHECK(Calculator.ReadsBottom(Row.m_szPlain));
        if (Row.m_szAfterF)
        {
            Prepare(&Calculator, Row.m_nKey);
            Calculator.HitKeys({kKeyF, Row.m_nKey});
            CHECK(Calculator.ReadsBottom(Row.m_szAfterF));
        }
        Prepare(&Calculator, Row.m_nKey);
        Calculator.HitKeys({kKeyG, Row.m_nKey});
        CHECK(Calculator.ReadsBottom(Row.m_szAfterG));
    }
    CHECK_FALSE(Calculator.HasDialog());
}

TEST_CASE("digits, point and exponent enter a number")
{
    cCalculator Calculator;
    static const struct
    {
        unsigned    m_nKey;
        const char *m_szShown;
    } s_Rows[] = {{16, "7."},        {17, "78."},        {18, "789."},       {20, "7894."},
                  {29, "7894."},     {21, "7894.5"},     {22, "7894.56"},    {24, "7894.561"},
                  {25, "7894.5612"}, {26, "7894.56123"}, {28, "7894.561230"}};
    for (const auto &Row : s_Rows)
    {
        Calculator.HitKey(Row.m_nKey);
        CHECK(Calculator.ReadsX(Row.m_szShown));
    }
    Calculator.HitKeys({kKeyClearX, kKey2, kKeyExponent, kKey1});
    CHECK(Calculator.ReadsX("2.e+01"));
}

TEST_CASE("a held key looks pressed, and nothing else changes on the face")
{
    cCalculator    Calculator;
    const cPicture Before = PhotographFace(Calculator);
    Repaint(Calculator);
    // The keys that are painted over the face look like those of the face.
    CHECK(LooksLike(Calculator, Before));

    // The first press of SST opens the boxes, which repaints the face.
    Calculator.HitKeys({kKeySst, kKeyEnter});
    for (unsigned nKey = 1; nKey <= kFaceKeys; nKey++)
    {
        CAPTURE(nKey);
        const cFaceRect &Key = kKeyRects[nKey - 1];
        Calculator.HitKey(kKeyEnter);

        // The corners belong to the key.
        MoveMouse(Calculator.OnFace(Key.m_nLeft, Key.m_nTop));
        PressMouse();
        MoveMouse(
            Calculator.OnFace(Key.m_nLeft + Key.m_nWidth - 1, Key.m_nTop + Key.m_nHeight - 1));
        CHECK(WaitFor([&] {
            return IsInside(DifferenceOf(Before, PhotographFace(Calculator)), PartOfFace(Key));
        }));
        if (nKey == kKey1)
            Calculator.Photograph().Save("key-1-held");

        MoveMouse(Calculator.OnFace(Key.m_nLeft + Key.m_nWidth, Key.m_nTop));
        CHECK(WaitFor([&] {
            const RECT After = DifferenceOf(Before, PhotographFace(Calculator));
            return IsRectEmpty(&After);
        }));
        ReleaseMouse();
    }
}

TEST_CASE("dragging off a key releases it without its operation")
{
    cCalculator Calculator;

    MoveMouse(Calculator.OnKey(kKeyRunStop));
    PressMouse();
    CHECK(Calculator.ReadsX("01 R/S"));
    MoveMouse(Calculator.OnFace(280, 440));
    CHECK(Calculator.ReadsX("0.00"));
    MoveOn(Calculator, Calculator.OnKey(kKeyRunStop));
    CHECK(Calculator.ReadsX("0.00"));
    ReleaseMouse();

    MoveMouse(Calculator.OnKey(kKey1));
    PressMouse();
    MoveOn(Calculator, Calculator.OnKey(kKey2));
    MoveOn(Calculator, Calculator.OnKey(kKey1));
    ReleaseMouse();
    Calculator.Settle();
    CHECK(Calculator.ReadsX("1."));
}

TEST_CASE("clicks between the keys, on the display and of the right button do nothing")
{
    cCalculator Calculator;
    Calculator.HitKey(kKey1);
    const cPicture Before = PhotographFace(Calculator);
    for (const POINT Between : {POINT{80, 160}, POINT{150, 245}, POINT{300, 560}, POINT{97, 435}})
        Click(Calculator.OnFace(Between.x, Between.y));
    Click(Calculator.OnFace(kDisplayRect.m_nLeft + 5, kDisplayRect.m_nTop + 5));
    Click(Calculator.OnKey(kKey1), mbRight);
    CHECK(LooksLike(Calculator, Before));
    CHECK(Calculator.ReadsX("1."));
}

TEST_CASE("the stack view switch acts when its thumb is dragged across the middle")
{
    cCalculator Calculator;
    Calculator.HitKeys({kKey1, kKeyEnter});
    const cPicture Resting = PhotographFace(Calculator);

    // As far as the middle, then one pixel further.
    Grab(Calculator, swStackView, 0);
    for (const int nPosition : {3, 1, 6, 0, 6})
    {
        DragTo(Calculator, swStackView, nPosition);
        CHECK(Calculator.ReadsBottom("LastOp:  ENTER"));
    }
    DragTo(Calculator, swStackView, 7);
    CHECK(Eventually(std::string("Y   1.00"), [&] { return Calculator.Read(1, 50, 66, 8); }) ==
          "Y   1.00");
    for (const int nPosition : {12, 8, 11, 7, 12})
        DragTo(Calculator, swStackView, nPosition);
    CHECK(Calculator.Read(1, 50, 66, 8) == "Y   1.00");
    ReleaseMouse();
    Calculator.Settle();
    Calculator.Photograph().Save("stack-view");

    Calculator.Slide(swStackView, 0);
    CHECK(Calculator.ReadsBottom("LastOp:  ENTER"));
    CHECK(Calculator.ReadsX("1.00"));
    CHECK(LooksLike(Calculator, Resting));
}

TEST_CASE("the mode switch acts when its thumb is dragged across the middle")
{
    cCalculator Calculator;
    Calculator.HitKeys({kKey1, kKeyEnter});
    const cPicture Resting = PhotographFace(Calculator);
    Grab(Calculator, swMode, 1);
    DragTo(Calculator, swMode, 7);
    CHECK(Calculator.ReadsX("1.00"));
    CHECK_FALSE(Calculator.IsListingShown());
    DragTo(Calculator, swMode, 6);
    CHECK(Calculator.ReadsProgramLine("00"));
    CHECK(Calculator.IsListingShown());
    DragTo(Calculator, swMode, 0);
    ReleaseMouse();

    Calculator.Slide(swMode, 1);
    CHECK(Calculator.ReadsX("1.00"));
    CHECK_FALSE(Calculator.IsListingShown());
    CHECK(LooksLike(Calculator, Resting));
}

TEST_CASE("a thumb that is released on its way stays there until the next paint")
{
    cCalculator    Calculator;
    const cPicture Resting = PhotographFace(Calculator);
    Grab(Calculator, swStackView, 0);
    DragTo(Calculator, swStackView, 4);
    const cPicture Dragged = PhotographFace(Calculator);
    CHECK_FALSE(Dragged == Resting);
    ReleaseMouse();
    CHECK(LooksLike(Calculator, Dragged));
    CHECK(IsInside(DifferenceOf(Resting, Dragged), PartOfFace(kSwitchRects[swStackView])));

    Repaint(Calculator);
    CHECK(LooksLike(Calculator, Resting));
}

TEST_CASE("the pointer ends the drag of a thumb when it leaves the switch")
{
    cCalculator Calculator;
    Calculator.HitKeys({kKey1, kKeyEnter});
    Grab(Calculator, swStackView, 0);
    MoveOn(Calculator, Calculator.OnFace(94, 125));
    MoveOn(Calculator, Calculator.OnFace(110, 112));
    ReleaseMouse();
    Calculator.Settle();
    CHECK(Calculator.ReadsX("1.00"));
}
