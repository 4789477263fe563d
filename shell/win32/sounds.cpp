#include "toolkit/win32/win32.h"

#include "shell/win32/sounds.h"

void PlayProgramSound(unsigned nId)
{
    PlaySoundA(MAKEINTRESOURCEA(nId), ProgramInstance(), SND_RESOURCE | SND_ASYNC | SND_NODEFAULT);
}
