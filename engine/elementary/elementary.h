// elementary.h - the elementary functions of the calculator: the same bits from
// every compiler, at every level of optimisation, on every processor that rounds
// doubles as IEEE 754 says. None of them uses a mathematical library or needs a
// fused multiply-add.
//
// Results are correctly rounded: a first step computes a pair of doubles that is
// wrong by less than 2^-59 to 2^-65 of the result, and only if that leaves the
// rounding open does a second one compute 115 bits with integers. For powers there
// is a third one. docs/numbers.md gives the methods, their sources, and what was
// measured.
//
// Zeros, infinities, NaN and arguments outside a function's domain give what
// Annex F of the C standard says; errno and exception flags are not set.

#ifndef ENGINE_ELEMENTARY_ELEMENTARY_H
#define ENGINE_ELEMENTARY_ELEMENTARY_H

// Angles are radians of any size; Sin(1e22) is -0.8522008497671888.
double Sin(double dRadians);
double Cos(double dRadians);
double Tan(double dRadians);

// -pi/2 to pi/2, ArcCos 0 to pi; NaN beyond -1 to 1.
double ArcSin(double dSine);
double ArcCos(double dCosine);
double ArcTan(double dTangent);

// The angle of the point (dX, dY), -pi to pi: ArcTan2(1, -1) is 3 pi/4.
double ArcTan2(double dY, double dX);

double Exp(double dPower);

// Exp10(-2) is 0.01, as are all whole powers of ten what is written for them.
double Exp10(double dPower);

// Minus infinity for 0, NaN below it.
double Ln(double dValue);
double Log10(double dValue);

// Negative bases have whole powers only: Pow(-8, 3) is -512, Pow(-8, 0.5) NaN.
double Pow(double dBase, double dPower);

// The processor's instruction, which libraries do not always use.
double Sqrt(double dValue);

#endif
