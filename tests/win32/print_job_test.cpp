#include "toolkit/win32.h"

#include "toolkit/print_job.h"

#include <doctest/doctest.h>

#include "tests/win32/test_frame.h"
#include "toolkit/gdi.h"

TEST_CASE("the owner of a print job is disabled while the job lives")
{
    const cFrameRig Rig;
    const cMemoryDc Dc(nullptr);
    {
        const cPrintJob Job(Dc.Get(), Rig.m_Frame.Window());
        CHECK_FALSE(IsWindowEnabled(Rig.m_Frame.Window()));
    }

    CHECK(IsWindowEnabled(Rig.m_Frame.Window()));
}

TEST_CASE("a print job stands behind its dialog and leaves nothing of it")
{
    const cFrameRig Rig;
    const cMemoryDc Dc(nullptr);
    {
        cPrintJob Job(Dc.Get(), Rig.m_Frame.Window());
        Job.Begin("a.txt");
        CHECK(GetLastActivePopup(Rig.m_Frame.Window()) != Rig.m_Frame.Window());
    }

    CHECK(GetLastActivePopup(Rig.m_Frame.Window()) == Rig.m_Frame.Window());
    CHECK(GetForegroundWindow() == Rig.m_Frame.Window());
}

TEST_CASE("a document cannot be printed on something that is no printer")
{
    const cFrameRig Rig;
    const cMemoryDc Dc(nullptr);
    cPrintJob       Job(Dc.Get(), Rig.m_Frame.Window());

    CHECK(Job.Begin("a.txt") == 0);
}

TEST_CASE("the paper of a device is its sheet, upright")
{
    const cWindowDc Screen(nullptr);

    const cPaper Paper = PaperOf(Screen.Get());

    CHECK(Paper.m_bTurned == 0);
    CHECK(Paper.m_nDpiAcross == GetDeviceCaps(Screen.Get(), LOGPIXELSX));
    CHECK(Paper.m_nDpiDown == GetDeviceCaps(Screen.Get(), LOGPIXELSY));
}
