#include "toolkit/win32/win32.h"

#include "toolkit/win32/center_window.h"

#include <doctest/doctest.h>

namespace
{

// A window without a frame, destroyed at the end of the scope.
class cPopup
{
public:
    cPopup(HWND hOwner, int nX, int nY, int nWidth, int nHeight)
        : m_hWnd(CreateWindowExA(0, "STATIC", "", WS_POPUP, nX, nY, nWidth, nHeight, hOwner,
                                 nullptr, ProgramInstance(), nullptr))
    {
        REQUIRE(m_hWnd);
    }
    ~cPopup() { DestroyWindow(m_hWnd); }
    cPopup(const cPopup &)            = delete;
    cPopup &operator=(const cPopup &) = delete;

    HWND Get() const { return m_hWnd; }

    RECT Place() const
    {
        RECT Rect = {};
        GetWindowRect(m_hWnd, &Rect);
        return Rect;
    }

private:
    HWND m_hWnd;
};

}  // namespace

TEST_CASE("a dialog is centred over its owner and keeps its size")
{
    const cPopup Owner(nullptr, 100, 200, 400, 300);
    const cPopup Dialog(Owner.Get(), 0, 0, 101, 50);

    CenterWindow(Dialog.Get());

    const RECT Place = Dialog.Place();
    CHECK(Place.left == 249);  // 249.5
    CHECK(Place.top == 325);
    CHECK(Place.right - Place.left == 101);
    CHECK(Place.bottom - Place.top == 50);
}

TEST_CASE("a dialog is not moved off the left or top edge of the screen")
{
    const cPopup Owner(nullptr, 10, 20, 60, 30);
    const cPopup Dialog(Owner.Get(), 500, 500, 200, 100);

    CenterWindow(Dialog.Get());

    CHECK(Dialog.Place().left == 0);
    CHECK(Dialog.Place().top == 0);
}

TEST_CASE("a dialog without an owner is centred on the screen")
{
    const cPopup Dialog(nullptr, 0, 0, 200, 100);

    CenterWindow(Dialog.Get());

    CHECK(Dialog.Place().left == (GetSystemMetrics(SM_CXFULLSCREEN) - 200) / 2);
    CHECK(Dialog.Place().top == (GetSystemMetrics(SM_CYFULLSCREEN) - 100) / 2);
}
