// keys.h - the keys of the calculator by their codes, which follow the face from
// the upper left to the lower right. Each is named after its unshifted legend.

#ifndef TESTS_WINDOW_KEYS_H
#define TESTS_WINDOW_KEYS_H

const unsigned kKeySst      = 1;
const unsigned kKeyGsb      = 2;
const unsigned kKeyGoTo     = 3;
const unsigned kKeyF        = 4;  // the gold prefix
const unsigned kKeyG        = 5;  // the blue prefix
const unsigned kKeySwapXY   = 6;
const unsigned kKeyRollDown = 7;  // "i" after STO, RCL, GTO and GSB
const unsigned kKeyStore    = 8;
const unsigned kKeyRecall   = 9;
const unsigned kKeySum      = 10;
const unsigned kKeyEnter    = 11;
const unsigned kKeyChs      = 12;
const unsigned kKeyExponent = 13;
const unsigned kKeyClearX   = 14;
const unsigned kKeyMinus    = 15;
const unsigned kKey7        = 16;
const unsigned kKey8        = 17;
const unsigned kKey9        = 18;
const unsigned kKeyPlus     = 19;
const unsigned kKey4        = 20;
const unsigned kKey5        = 21;
const unsigned kKey6        = 22;
const unsigned kKeyTimes    = 23;
const unsigned kKey1        = 24;
const unsigned kKey2        = 25;
const unsigned kKey3        = 26;
const unsigned kKeyDivide   = 27;
const unsigned kKey0        = 28;
const unsigned kKeyPoint    = 29;
const unsigned kKeyRunStop  = 30;

#endif
