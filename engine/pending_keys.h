// pending_keys.h - what m_szKeystrokes holds: the keys of an instruction that is
// not complete, each followed by a blank ("STO + ", "GTO . 4"), or one of three
// wait markers while a key event is swallowed and not interpreted, or nothing.

#ifndef ENGINE_PENDING_KEYS_H
#define ENGINE_PENDING_KEYS_H

class cCalculator;
struct cVorstekState;

// Wait markers.
extern const char *const kAwaitPress;    // an error is shown, a press clears it
extern const char *const kAwaitRelease;  // of the key that cleared the error
extern const char *const kAwaitHalt;     // release of the key that halted a run

int IsAwaiting(const cVorstekState &State, const char *szMarker);

// Whether it is any of the three.
int IsWaitingForKey(const cVorstekState &State);

// Whether keys are pending, which the display shows; it never shows a marker.
int HasPendingKeys(const cVorstekState &State);

int EndsWith(const cVorstekState &State, const char *szEnding);

// Longer texts are cut.
void SetKeystrokes(cVorstekState &State, const char *szKeystrokes);
void AppendKeystroke(cVorstekState &State, const char *szKeystroke);

// Shows "Program Error Code #" and the number, with the keys.
void ShowKeystrokesError(cCalculator &c, unsigned nCode);

#endif
