// key_codes.h - the keys that differ from their neighbours. Codes 1 to 30 are
// the keys of the face in row order.

#ifndef ENGINE_KEY_CODES_H
#define ENGINE_KEY_CODES_H

#include <string_view>

const unsigned kKeySst       = 1;
const unsigned kKeyF         = 4;
const unsigned kKeyG         = 5;
const unsigned kKeyRunStop   = 30;
const unsigned kKeyStackView = 31;  // slide switch, down while it is held right
const unsigned kKeyMode      = 32;  // slide switch, down in run mode, up in program mode

// The keys to press for what is printed on the face: {4, 20} for "sin", which is
// above the digit 4 and needs f. Names are those of listings, and "SST", "BST", "f",
// "g", "EEX", ".", "0" to "9", "i". None if nothing has this name.
struct cKeySequence
{
    unsigned m_nKeys[2];
    unsigned m_nCount;
};

cKeySequence FindKeys(std::string_view Name);

// The key that a character of the PC keyboard presses: 11, ENTER, for '\r'. 0 for
// none.
unsigned KeyOfCharacter(char cChar);

#endif
