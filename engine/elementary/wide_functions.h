// wide_functions.h - the elementary functions with some 115 right bits, for
// arguments where 65 leave the rounding open. They take 20 to 40 times as long
// as the functions in doubles, which ask for them once in 200 calls or less.

#ifndef ENGINE_ELEMENTARY_WIDE_FUNCTIONS_H
#define ENGINE_ELEMENTARY_WIDE_FUNCTIONS_H

#include "engine/elementary/wide_number.h"

// e to the Power, which is below 2^12.
cWide WideExp(const cWide &Power);

// The natural logarithm of a positive, finite number.
cWide WideLn(double dValue);

struct cWideAngle
{
    int   m_nQuadrant;  // 0 to 3
    cWide m_Rest;       // -pi/4 to pi/4, added to so many right angles
};

// Any finite angle in radians. The rest is right to 128 bits.
cWideAngle WideReduce(double dRadians);

// Sine and cosine of a rest.
cWide WideSine(const cWide &Rest);
cWide WideCosine(const cWide &Rest);

// The angle of the point (X, Y), 0 to pi/2. Neither is negative, one is above 0.
cWide WideArc(const cWide &Y, const cWide &X);

// dMagnitude times 2/pi, modulo 4, as a binary fraction of 256 bits with two
// places before its point. For finite numbers from 2^-2 up; wrong by at most
// 2^-200.
void TurnsOf(double dMagnitude, cUint128 *pnHigh, cUint128 *pnLow);

#endif
