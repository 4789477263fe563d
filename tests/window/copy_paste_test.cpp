// The menu of the display: X to the clipboard and a number back.

#include "tests/window/calculator.h"

#include <doctest/doctest.h>

#include "tests/window/clipboard.h"
#include "tests/window/common_steps.h"
#include "tests/window/input.h"
#include "tests/window/keys.h"
#include "tests/window/menus.h"
#include "tests/window/waiting.h"

static const char *const kNoNumber = "Error: illegal number on line #1:\n";

namespace
{

struct cCopyRig : cCalculator
{
    int IsAsNew() const { return IsRunning() && !HasDialog(); }

    void OpenDisplayMenu()
    {
        ::Click(OnFace(150, 90), mbRight);
        WaitForMenu();
    }

    void PasteNumber(const std::string &Text)
    {
        SetClipboardText(Text);
        OpenDisplayMenu();
        ::HitKey('P');
        Settle();
    }
};

}  // namespace

TEST_CASE("the display's menu copies X with all of its digits")
{
    cCopyRig &Rig = Shared<cCopyRig>();
    Rig.HitKeys({kKeyClearX, kKey1, kKeyEnter, kKey3, kKeyDivide});
    SetClipboardText("something else");

    Rig.OpenDisplayMenu();
    Rig.PhotographScreen().Save("display-menu");
    HitKey('C');
    CHECK(Eventually<std::string>("0.3333333333333333", ClipboardText) == "0.3333333333333333");
    CHECK(Rig.ReadsX("0.33"));

    for (const auto &[nKey, nModifiers] :
         {std::pair<WORD, unsigned>{VK_F10, kShift}, {VK_APPS, 0U}})
    {
        CAPTURE(nKey);
        SetClipboardText("something else");
        HitKey(nKey, nModifiers);
        WaitForMenu();
        HitKey('C');
        CHECK(Eventually<std::string>("0.3333333333333333", ClipboardText) == "0.3333333333333333");
    }
}

TEST_CASE("the display's menu pastes a number, and refuses other texts")
{
    cCopyRig &Rig = Shared<cCopyRig>();
    Rig.HitKeys({kKeyClearX, kKey2});

    Rig.PasteNumber("-12.5\r\n");
    CHECK(Rig.ReadsX("-12.50"));
    Rig.PasteNumber("-12.5 or so");
    CHECK(Rig.Answers(kNoNumber + std::string("-12.5 or so"), "OK"));
    CHECK(Rig.ReadsX("-12.50"));
    Rig.PasteNumber(std::string(5000, '1'));
    CHECK(Rig.Answers(kNoNumber, "OK"));
    CHECK(Rig.ReadsX("-12.50"));
    Rig.HitKey(kKeyTimes);
    CHECK(Rig.ReadsX("-25.00"));
    CHECK(!Rig.HasDialog());
}

TEST_CASE("the display's menu pastes nothing during a run and without a text")
{
    cCopyRig  &Rig      = Shared<cCopyRig>();
    const auto CanPaste = [&] {
        Rig.OpenDisplayMenu();
        const HWND hMenu = FindWindowA("#32768", nullptr);
        const int  bGrey =
            cProbeLink::Current()->AskWindow(hMenu, pbMenuState, IDM_PASTE_NUMBER).m_nValue &
            MF_GRAYED;
        HitKey(VK_ESCAPE);  // a second one would halt a program
        WaitFor([] { return !FindWindowA("#32768", nullptr); });
        return !bGrey;
    };
    SetClipboardText("5");
    CHECK(CanPaste());

    RunListing(&Rig, kEndless);
    CHECK_FALSE(CanPaste());
    PostCommand(Rig, IDM_PASTE_NUMBER);
    Rig.Settle();
    CHECK(IsProgramRunning(Rig));
    CHECK(!Rig.HasDialog());
    HitKey(VK_ESCAPE);
    CHECK(HasHalted(Rig));
    CHECK(Rig.ReadsX("-25.00"));

    SetClipboardText("");
    CHECK_FALSE(CanPaste());
}

TEST_CASE("a right click elsewhere on the face opens no menu")
{
    cCopyRig &Rig = Shared<cCopyRig>();
    Click(Rig.OnKey(kKey5), mbRight);
    Rig.Settle();
    CHECK(!FindWindowA("#32768", nullptr));
}
