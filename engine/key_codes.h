// key_codes.h - the keys that differ from their neighbours. Codes 1 to 30 are
// the keys of the face in row order.

#ifndef ENGINE_KEY_CODES_H
#define ENGINE_KEY_CODES_H

const unsigned kKeySst       = 1;
const unsigned kKeyRunStop   = 30;
const unsigned kKeyStackView = 31;  // slide switch, down while it is held right
const unsigned kKeyMode      = 32;  // slide switch, down in run mode, up in program mode

#endif
