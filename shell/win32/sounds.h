// sounds.h - plays the program's sounds, which are WAVE resources.

#ifndef SHELL_WIN32_SOUNDS_H
#define SHELL_WIN32_SOUNDS_H

// Starts a sound, for example IDW_KEY_CLICK, and returns at once. Stops the previous
// sound. Does nothing if the sound cannot be played.
void PlayProgramSound(unsigned nId);

#endif
