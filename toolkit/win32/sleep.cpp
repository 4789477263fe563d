#include "toolkit/sleep.h"

#include "toolkit/win32/win32.h"

void SleepFor(unsigned nMilliseconds)
{
    Sleep(nMilliseconds);
}
