// mode_switch.h - from run mode to program mode and back.

#ifndef ENGINE_MODE_SWITCH_H
#define ENGINE_MODE_SWITCH_H

class cCalculator;

// Each keeps or restores the last operation of run mode.
void SwitchToProgramMode(cCalculator &c);
void SwitchToRunMode(cCalculator &c);

// Carries out a switch to program mode that was requested during a run.
void SwitchIfPending(cCalculator &c);

// Forgets pending keys and with them the wait for a key. A switch to program
// mode that waited for that key is carried out.
void AbandonKeys(cCalculator &c);

#endif
