#include "toolkit/win32/win32.h"

#include "toolkit/win32/combo_box.h"

#include <memory>
#include <string>

#include <doctest/doctest.h>

#include "tests/win32/test_frame.h"

namespace
{

struct cComboRig : cFrameRig
{
    explicit cComboRig(DWORD dwStyle = CBS_DROPDOWN)
    {
        REQUIRE(m_Combo->Create(&m_Frame, dwStyle | WS_VISIBLE, 10, 10, 150, 200, 1300) == 1);
        HandleWaitingMessages();
        m_Frame.m_Commands.clear();
    }
    ~cComboRig()
    {
        m_Frame.Close();
        HoldShift(0);
    }

    // For this thread, as if the key had been pressed before the last message.
    static void HoldShift(int bDown)
    {
        BYTE Keys[256] = {};
        Keys[VK_SHIFT] = bDown ? 0x80 : 0;
        SetKeyboardState(Keys);
    }

    void Type(char cKey) const
    {
        SendMessageA(m_Combo->EditField(), WM_CHAR, static_cast<WPARAM>(cKey), 0);
    }

    std::unique_ptr<cComboBox> m_Combo{new cComboBox(&m_Boxes)};
};

}  // namespace

TEST_CASE("a combo box has the font of the platform's controls")
{
    const cComboRig Rig;

    CHECK(std::string(Rig.m_Combo->GetClassName()) == "COMBOBOX");
    CHECK(SendMessageA(Rig.m_Combo->Window(), WM_GETFONT, 0, 0) ==
          reinterpret_cast<LRESULT>(GetStockObject(DEFAULT_GUI_FONT)));
}

TEST_CASE("Enter in a combo box's edit field sends notification 30")
{
    const cComboRig Rig;

    Rig.Type('\r');

    const cCommand Expected = {1300, 30, Rig.m_Combo->Window()};
    REQUIRE(Rig.m_Frame.m_Commands.size() == 1);
    CHECK((Rig.m_Frame.m_Commands[0] == Expected));
}

TEST_CASE("Enter with Shift in a combo box's edit field sends notification 31")
{
    const cComboRig Rig;
    cComboRig::HoldShift(1);

    Rig.Type('\r');

    const cCommand Expected = {1300, 31, Rig.m_Combo->Window()};
    REQUIRE(Rig.m_Frame.m_Commands.size() == 1);
    CHECK((Rig.m_Frame.m_Commands[0] == Expected));
}

TEST_CASE("other keys go into the edit field of a combo box")
{
    const cComboRig Rig;

    Rig.Type('l');
    Rig.Type('n');

    char szText[10] = "";
    GetWindowTextA(Rig.m_Combo->EditField(), szText, sizeof szText);
    CHECK(std::string(szText) == "ln");
    for (const cCommand &Command : Rig.m_Frame.m_Commands)
        CHECK((Command.m_nCode == CBN_EDITUPDATE || Command.m_nCode == CBN_EDITCHANGE));
}

TEST_CASE("a combo box without an edit field is created too")
{
    const cComboRig Rig(CBS_DROPDOWNLIST);

    CHECK(!Rig.m_Combo->EditField());
    CHECK(Rig.m_Combo->IsCreated() == 1);
}

TEST_CASE("a combo box forgets its edit field when that is destroyed")
{
    cComboRig Rig;
    REQUIRE(Rig.m_Combo->EditField());

    Rig.m_Frame.Close();

    CHECK(!Rig.m_Combo->EditField());
}

TEST_CASE("an edit field that outlives its combo box object behaves as the platform's")
{
    cComboRig  Rig;
    const HWND hEdit = Rig.m_Combo->EditField();
    Rig.m_Combo.reset();

    SendMessageA(hEdit, WM_CHAR, '\r', 0);

    CHECK(Rig.m_Frame.m_Commands.empty());
}

TEST_CASE("an invalidated combo box is repainted with its edit field")
{
    cComboRig  Rig;
    const HWND hCombo = Rig.m_Combo->Window();
    const HWND hEdit  = Rig.m_Combo->EditField();
    UpdateWindow(hCombo);
    UpdateWindow(hEdit);
    REQUIRE_FALSE(GetUpdateRect(hCombo, nullptr, FALSE));
    REQUIRE_FALSE(GetUpdateRect(hEdit, nullptr, FALSE));

    Rig.m_Combo->Invalidate();

    CHECK(GetUpdateRect(hCombo, nullptr, FALSE));
    CHECK(GetUpdateRect(hEdit, nullptr, FALSE));
}

TEST_CASE("a part of a combo box can be invalidated alone")
{
    cComboRig  Rig;
    const HWND hCombo = Rig.m_Combo->Window();
    UpdateWindow(hCombo);

    Rig.m_Combo->Invalidate(RECT{0, 0, 4, 3});

    RECT Update = {};
    CHECK(GetUpdateRect(hCombo, &Update, FALSE));
    CHECK(Update.right == 4);
    CHECK(Update.bottom == 3);
}

TEST_CASE("a combo box that cannot be created shows an error")
{
    cNoFrameRig Rig;
    cComboBox   Combo(&Rig.m_Boxes);

    CHECK(Combo.Create(&Rig.m_Frame, CBS_DROPDOWN, 0, 0, 10, 10, 1) == 0);

    CHECK(ShowedOnlyError(Rig.m_Boxes, "ERROR: CreateWindow() failed in cComboBox::Create()"));
}
