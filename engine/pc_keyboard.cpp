// pc_keyboard.cpp - characters typed on the PC keyboard.

#include "engine/calculator.h"
#include "engine/key_codes.h"
#include "engine/keystrokes.h"
#include "resources/calculator_ids.h"

static const char kEscape = 27;

// clang-format off
static const struct
{
    char     m_cChar;
    unsigned m_nKeyCode;
} s_Characters[] =
{
    { '\r', 11 }, { 'e', 13 },
    { '-',  15 }, { '7', 16 }, { '8', 17 }, { '9', 18 },
    { '+',  19 }, { '4', 20 }, { '5', 21 }, { '6', 22 },
    { '*',  23 }, { '1', 24 }, { '2', 25 }, { '3', 26 },
    { '/',  27 }, { '0', 28 }, { '.', 29 },
};
// clang-format on

unsigned KeyOfCharacter(char cChar)
{
    for (const auto &Row : s_Characters)
        if (Row.m_cChar == cChar)
            return Row.m_nKeyCode;
    return 0;
}

void OnChar(cCalculator &c, char cChar)
{
    const unsigned nKeyCode = KeyOfCharacter(cChar);
    if (nKeyCode)
    {
        OnCalcKey(c, nKeyCode, 1);
        OnCalcKey(c, nKeyCode, 0);
        return;
    }
    if (cChar != kEscape || !c.m_bProgramRunning)
    {
        c.PlayRejectSound();
        return;
    }
    c.StartSound(IDW_HALTED);
    c.Halt();
}
