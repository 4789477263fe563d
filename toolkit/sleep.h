// sleep.h - waiting, also where the standard library has no threads.

#ifndef TOOLKIT_SLEEP_H
#define TOOLKIT_SLEEP_H

// At least so long; a signal may end it earlier.
void SleepFor(unsigned nMilliseconds);

#endif
