// sounds.h - the program's sounds, WAVE resources of its own.

#ifndef SHELL_SOUNDS_H
#define SHELL_SOUNDS_H

// Begins to play a sound, kSoundClick, and does not wait for its end; a former
// one breaks off. One that cannot be played is passed over.
void PlayProgramSound(unsigned nId);

#endif
