#include "engine/power.h"

double Power(double dBase, int n)
{
    double dPower = 1.0;
    for (unsigned nBits = n < 0 ? 0u - static_cast<unsigned>(n) : static_cast<unsigned>(n); nBits;
         nBits >>= 1)
    {
        if (nBits & 1)
            dPower *= dBase;
        dBase *= dBase;
    }
    return n < 0 ? 1.0 / dPower : dPower;
}
