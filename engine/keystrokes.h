// keystrokes.h - interprets presses and releases of the keys.

#ifndef ENGINE_KEYSTROKES_H
#define ENGINE_KEYSTROKES_H

class cCalculator;

// bIsDown is 1 for a press, 0 for a release.
void OnCalcKey(cCalculator &c, unsigned nKeyCode, int bIsDown);

// A character of the PC keyboard.
void OnChar(cCalculator &c, char cChar);

#endif
