// power_middle.h - powers that are too near to the middle between two doubles for
// 128 bits to tell their side.

#ifndef ENGINE_ELEMENTARY_POWER_MIDDLE_H
#define ENGINE_ELEMENTARY_POWER_MIDDLE_H

// dBase to the dPower, rounded: dBelow or the next double above it, between which
// the power lies and which may be 0 or the largest double. dBase is positive and
// finite, and not 1; the power's logarithm is 2^-60 to 2^10 in magnitude. Takes
// about as long as 1,000 powers do otherwise.
double RoundPowerAbove(double dBelow, double dBase, double dPower);

#endif
