#include "toolkit/win32/win32.h"

#include "toolkit/win32/window_class.h"

#include <doctest/doctest.h>

static const char kName[] = "cSharedClass";

static WNDCLASSA SharedClass()
{
    WNDCLASSA Class     = {};
    Class.lpfnWndProc   = &DefWindowProcA;
    Class.hInstance     = ProgramInstance();
    Class.lpszClassName = kName;
    return Class;
}

static int IsRegistered()
{
    WNDCLASSA Class;
    return GetClassInfoA(ProgramInstance(), kName, &Class) != FALSE;
}

TEST_CASE("a window class is registered while it has objects")
{
    cWindowClass Class;
    {
        cWindowClassShare First(&Class);
        CHECK_FALSE(IsRegistered());
        REQUIRE(First.Acquire(SharedClass()) == 1);
        CHECK(IsRegistered());
        {
            cWindowClassShare Second(&Class);
            REQUIRE(Second.Acquire(SharedClass()) == 1);
        }
        CHECK(IsRegistered());
    }
    CHECK_FALSE(IsRegistered());
}

TEST_CASE("a window class can be registered again after its last object was destroyed")
{
    cWindowClass Class;
    for (int i = 0; i < 2; i++)
    {
        cWindowClassShare Share(&Class);
        REQUIRE(Share.Acquire(SharedClass()) == 1);
        CHECK(IsRegistered());
    }
    CHECK_FALSE(IsRegistered());
}

TEST_CASE("an object that never acquired its window class does not unregister it")
{
    cWindowClass      Class;
    cWindowClassShare First(&Class);
    REQUIRE(First.Acquire(SharedClass()) == 1);

    {
        const cWindowClassShare Idle(&Class);
    }

    CHECK(IsRegistered());
}

TEST_CASE("a window class that cannot be registered is not counted")
{
    const WNDCLASSA Other = SharedClass();
    REQUIRE(RegisterClassA(&Other));
    cWindowClass Class;

    {
        cWindowClassShare Refused(&Class);
        CHECK(Refused.Acquire(SharedClass()) == 0);
    }
    CHECK(IsRegistered());  // the other class

    UnregisterClassA(kName, ProgramInstance());
    cWindowClassShare Share(&Class);
    CHECK(Share.Acquire(SharedClass()) == 1);
}

TEST_CASE("a window class stays registered for a window that outlives its object")
{
    cWindowClass Class;
    HWND         hWnd = nullptr;
    {
        cWindowClassShare Share(&Class);
        REQUIRE(Share.Acquire(SharedClass()) == 1);
        hWnd = CreateWindowExA(0, kName, "", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                               ProgramInstance(), nullptr);
        REQUIRE(hWnd);
    }
    CHECK(IsRegistered());

    {
        cWindowClassShare Next(&Class);
        CHECK(Next.Acquire(SharedClass()) == 1);
        DestroyWindow(hWnd);
    }
    CHECK_FALSE(IsRegistered());
}
