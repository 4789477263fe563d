#include "toolkit/sleep.h"

#include <ctime>

void SleepFor(unsigned nMilliseconds)
{
    timespec Time;
    Time.tv_sec  = static_cast<time_t>(nMilliseconds / 1000);
    Time.tv_nsec = static_cast<long>(nMilliseconds % 1000) * 1000000;
    nanosleep(&Time, nullptr);
}
