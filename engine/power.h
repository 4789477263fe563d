// power.h - integer powers, for the thresholds of the display formats.

#ifndef ENGINE_POWER_H
#define ENGINE_POWER_H

// dBase to the power n by repeated squaring; 1 divided by the power for a
// negative n. Power(10, -2) is 0.01.
double Power(double dBase, int n);

#endif
