#include "toolkit/win32/win32.h"

#include "toolkit/win32/progress_bar.h"

#include <string>

#include <doctest/doctest.h>

#include "tests/win32/test_frame.h"

namespace
{

struct cProgressRig : cFrameRig
{
    cProgressRig() { REQUIRE(m_Bar.Create(&m_Frame, 0, 10, 10, 200, 20, 7, 100000, 30000) == 1); }
    ~cProgressRig() { m_Frame.Close(); }

    LRESULT Position() const { return SendMessageA(m_Bar.Window(), PBM_GETPOS, 0, 0); }

    cProgressBar m_Bar{&m_Boxes};
};

}  // namespace

TEST_CASE("a progress bar goes from 0 to its maximum, beyond 16 bits")
{
    const cProgressRig Rig;

    CHECK(std::string(Rig.m_Bar.GetClassName()) == "msctls_progress32");
    PBRANGE Range = {};
    SendMessageA(Rig.m_Bar.Window(), PBM_GETRANGE, TRUE, reinterpret_cast<LPARAM>(&Range));
    CHECK(Range.iLow == 0);
    CHECK(Range.iHigh == 100000);
    CHECK(Rig.Position() == 0);
    CHECK(Rig.m_Bar.IsVisible() == 0);
}

TEST_CASE("the position of a progress bar stays within its range")
{
    cProgressRig Rig;

    Rig.m_Bar.SetPosition(70000);
    CHECK(Rig.Position() == 70000);
    Rig.m_Bar.SetPosition(100001);
    CHECK(Rig.Position() == 100000);
    Rig.m_Bar.SetPosition(-1);
    CHECK(Rig.Position() == 0);
}

TEST_CASE("a progress bar advances by its step")
{
    cProgressRig Rig;

    Rig.m_Bar.Step();
    CHECK(Rig.Position() == 30000);
    Rig.m_Bar.Step();
    CHECK(Rig.Position() == 60000);
}

TEST_CASE("a progress bar that cannot be created shows an error")
{
    cNoFrameRig  Rig;
    cProgressBar Bar(&Rig.m_Boxes);

    CHECK(Bar.Create(&Rig.m_Frame, 0, 0, 0, 10, 10, 1, 100, 1) == 0);

    CHECK(ShowedOnlyError(Rig.m_Boxes, "ERROR: CreateWindow() failed in cProgressBar::Create()"));
}
