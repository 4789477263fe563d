// key_actions.h - what the keys of the face do when they are pressed, in the
// normal state: they extend or complete a prefix, perform an instruction, or
// go to number entry.

#ifndef ENGINE_KEY_ACTIONS_H
#define ENGINE_KEY_ACTIONS_H

class cCalculator;

// nKeyCode is 1 to 30. 0 after an error.
int PressFaceKey(cCalculator &c, unsigned nKeyCode);

// A digit completes the pending prefix or goes to number entry. 0 after an
// error.
int OnDigitKey(cCalculator &c, unsigned nDigit);

#endif
