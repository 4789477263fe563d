// key_names.h - what is printed on the keys and slide switches, what it means, and
// how a PC keyboard and a screen reader name it. Tooltips, accessible names, the
// function keys and the manual's key card are made from this table. Texts are UTF-8.
// Portable.

#ifndef SHELL_KEY_NAMES_H
#define SHELL_KEY_NAMES_H

#include <cstddef>

#include "shell/face_geometry.h"

struct cKeySequence;

// One function of a key. All texts are "" for a key that has none in this colour.
struct cKeyFunction
{
    const char *m_szLegend;   // "sin^-1": a "^" raises what follows
    const char *m_szMeaning;  // "store in register r"; d is a digit, r a register
    const char *m_szPcKey;    // "F8", "Enter", "7"; "" for none
};

struct cKeyName
{
    const char  *m_szSpoken;  // "exchange x and y"
    cKeyFunction m_Plain;
    cKeyFunction m_Gold;  // after f
    cKeyFunction m_Blue;  // after g
};

struct cSwitchName
{
    const char *m_szSpoken;  // what is on while the switch is at its right end
    const char *m_szLeft;    // legends of the two ends
    const char *m_szRight;
    const char *m_szLeftMeaning;
    const char *m_szRightMeaning;
    const char *m_szPcKey;
};

extern const cKeyName    kKeyNames[kFaceKeys];  // in the order of their codes, 1 to 30
extern const cSwitchName kSwitchNames[kFaceSwitches];

// Codes of keys and switches, 1 to 32.
const unsigned kFaceCodes = kFaceKeys + kFaceSwitches;

// How a screen reader names it: "exchange x and y", "stack view".
const char *SpokenName(unsigned nCode);

// The PC key that presses a key or moves a switch; "" for none.
const char *PcKeyOf(unsigned nCode);

// Gold and blue function on one line, "gold sin: sine; blue sin^-1: arc sine"; the
// two ends of a switch. "" for a key that has neither.
const size_t kKeyDescription = 128;
void         DescribeKey(unsigned nCode, char (&szText)[kKeyDescription]);

// A tooltip: each function and the PC key on a line of its own, "\r\n" between.
const size_t kKeyTip = 256;
void         FormatKeyTip(unsigned nCode, char (&szText)[kKeyTip]);

// The keys that function key nNumber, 8 for F8, presses: {1} for SST, {5, 1} for
// BST. None for one that presses no key.
cKeySequence KeysOfFunctionKey(unsigned nNumber);

#endif
