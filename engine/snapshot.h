// snapshot.h - everything that a calculator remembers, at one moment, so that it can
// be put back there: undo, and stepping backwards through a run.

#ifndef ENGINE_SNAPSHOT_H
#define ENGINE_SNAPSHOT_H

#include "engine/vorstek_state.h"

class cCalculator;

// Flat, some 10 kB: two of them are compared byte by byte. The listing's text and the
// graph are not in it.
struct cSnapshot
{
    cVorstekState m_State;
    char          m_szRegisters[(kRegisters + 1) * 40];  // the box; lines keep their format
    int           m_bDisplayShowsX;
};

// Brings the views up to date first. In the middle of a run it is the moment after the
// run has been halted there.
void TakeSnapshot(cCalculator &c, cSnapshot *pSnapshot);

// szListing is what the listing box had then; null if the program is still the same.
// Between two runs only: returns 0 otherwise, and nothing has changed.
int RestoreSnapshot(cCalculator &c, const cSnapshot &Snapshot, const char *szListing);

#endif
