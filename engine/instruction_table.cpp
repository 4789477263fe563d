#include "engine/vorstek_engine.h"

// All that is known of an instruction, in registration order.
// L: saves X into LASTx.  J: sets the current line itself.
// Clamp and ending are explained in instruction.h.
// clang-format off
const cInstruction cVorstekEngine::s_Instructions[kInstructions] =
{
//    mnemonic    operand      handler                                L  clamp   ending  J
    { "FIX",      opDigits,    &cVorstekEngine::OnFix,                0, clNone, enLift, 0 },  // fixed notation
    { "SCI",      opDigits,    &cVorstekEngine::OnSci,                0, clNone, enLift, 0 },  // scientific notation
    { "ENG",      opDigits,    &cVorstekEngine::OnEng,                0, clNone, enLift, 0 },  // engineering notation
    { "GSB",      opLabel,     &cVorstekEngine::OnGsb,                0, clNone, enOwn,  1 },  // call subroutine; from the keyboard, run
    { "GSB i",    opNone,      &cVorstekEngine::OnGsbI,               0, clNone, enOwn,  1 },  // the same through i
    { "GTO",      opLabel,     &cVorstekEngine::OnGto,                0, clNone, enLift, 1 },  // go to label
    { "GTO i",    opNone,      &cVorstekEngine::OnGtoI,               0, clNone, enLift, 1 },  // go to label i, or back by |i| lines
    { "RTN",      opNone,      &cVorstekEngine::OnRtn,                0, clNone, enLift, 1 },  // return, or end of the run
    { "LBL",      opLabel,     &cVorstekEngine::OnLbl,                0, clNone, enLift, 0 },  // a target, does nothing
    { "Mean",     opNone,      &cVorstekEngine::OnMean,               1, clXY,   enLift, 0 },  // X <- mean x, Y <- mean y
    { "StdDev",   opNone,      &cVorstekEngine::OnStdDev,             1, clXY,   enLift, 0 },  // X, Y <- sample standard deviations
    { "LR",       opNone,      &cVorstekEngine::OnLinearRegression,   1, clXY,   enLift, 0 },  // X <- slope, Y <- intercept
    { "Sum-",     opNone,      &cVorstekEngine::OnSumMinus,           2, clNone, enOver, 0 },  // point (X, Y) out of the sums, X <- n
    { "x<>y",     opNone,      &cVorstekEngine::OnSwapXY,             0, clNone, enLift, 0 },  // X <-> Y
    { "Rolldown", opNone,      &cVorstekEngine::OnRollDown,           0, clNone, enLift, 0 },  // X <- Y <- Z <- T <- X
    { "STO",      opRegister,  &cVorstekEngine::OnSto,                0, clNone, enLift, 0 },  // Reg[r] <- X
    { "STO i",    opNone,      &cVorstekEngine::OnStoI,               0, clNone, enLift, 0 },  // Reg[i] <- X
    { "STO+",     opRegister,  &cVorstekEngine::OnStoPlus,            0, clNone, enLift, 0 },  // Reg[r] <- Reg[r] + X, clamped
    { "STO+ i",   opNone,      &cVorstekEngine::OnStoPlusI,           0, clNone, enLift, 0 },
    { "STO-",     opRegister,  &cVorstekEngine::OnStoMinus,           0, clNone, enLift, 0 },  // Reg[r] <- Reg[r] - X, clamped
    { "STO- i",   opNone,      &cVorstekEngine::OnStoMinusI,          0, clNone, enLift, 0 },
    { "STO*",     opRegister,  &cVorstekEngine::OnStoTimes,           0, clNone, enLift, 0 },  // Reg[r] <- Reg[r] * X, clamped
    { "STO* i",   opNone,      &cVorstekEngine::OnStoTimesI,          0, clNone, enLift, 0 },
    { "STO/",     opRegister,  &cVorstekEngine::OnStoDivide,          0, clNone, enLift, 0 },  // Reg[r] <- Reg[r] / X, clamped
    { "STO/ i",   opNone,      &cVorstekEngine::OnStoDivideI,         0, clNone, enLift, 0 },  // fails silently for X = 0
    { "RCL",      opRegister,  &cVorstekEngine::OnRcl,                0, clNone, enLift, 0 },  // push if stack lift, X <- Reg[r]
    { "RCL i",    opNone,      &cVorstekEngine::OnRclI,               0, clNone, enLift, 0 },  // X <- Reg[i], never pushes
    { "RCLSum+",  opNone,      &cVorstekEngine::OnRecallSums,         1, clNone, enLift, 0 },  // X <- sum of x, Y <- sum of y
    { "Sum+",     opNone,      &cVorstekEngine::OnSumPlus,            2, clNone, enOver, 0 },  // point (X, Y) into the sums, X <- n
    { "%",        opNone,      &cVorstekEngine::OnPercent,            1, clX,    enLift, 0 },  // X <- X percent of Y, Y kept
    { "DSZ",      opNone,      &cVorstekEngine::OnDsz,                0, clNone, enLift, 0 },  // decrement i, skip if zero
    { "ISZ",      opNone,      &cVorstekEngine::OnIsz,                0, clNone, enLift, 0 },  // increment i, skip if zero
    { "ClearREG", opNone,      &cVorstekEngine::OnClearRegisters,     0, clNone, enLift, 0 },  // Reg[0] to Reg[29] <- 0
    { "ClearSum", opNone,      &cVorstekEngine::OnClearSums,          0, clNone, enLift, 0 },  // Reg[10] to Reg[15] <- 0
    { "ENTER",    opNone,      &cVorstekEngine::OnEnter,              0, clNone, enOver, 0 },  // push, Y <- X
    { "CHS",      opNone,      &cVorstekEngine::OnChangeSign,         0, clNone, enKeep, 0 },  // X <- -X; or the sign of the entry
    { "CLX",      opNone,      &cVorstekEngine::OnClearX,             0, clNone, enOver, 0 },  // X <- 0
    { "GRD",      opNone,      &cVorstekEngine::OnGrd,                0, clNone, enLift, 0 },  // angles in grads
    { "RAD",      opNone,      &cVorstekEngine::OnRad,                0, clNone, enLift, 0 },  // angles in radians
    { "DEG",      opNone,      &cVorstekEngine::OnDeg,                0, clNone, enLift, 0 },  // angles in degrees
    { "ln",       opNone,      &cVorstekEngine::OnLn,                 1, clX,    enLift, 0 },  // X <- ln X
    { "log",      opNone,      &cVorstekEngine::OnLog,                1, clX,    enLift, 0 },  // X <- log10 X
    { "->R",      opNone,      &cVorstekEngine::OnToRectangular,      1, clXY,   enLift, 0 },  // radius X, angle Y to x, y
    { "-",        opNone,      &cVorstekEngine::OnSubtract,           1, clX,    enLift, 0 },  // X <- Y - X, drop
    { "e^x",      opNone,      &cVorstekEngine::OnExp,                1, clX,    enLift, 0 },  // X <- e to the X
    { "10^x",     opNone,      &cVorstekEngine::OnTenToX,             1, clX,    enLift, 0 },  // X <- 10 to the X
    { "->P",      opNone,      &cVorstekEngine::OnToPolar,            1, clNone, enOwn,  0 },  // x, y to radius X, angle Y, clamped
    { "sin",      opNone,      &cVorstekEngine::OnSin,                1, clNone, enLift, 0 },  // X <- sin X
    { "cos",      opNone,      &cVorstekEngine::OnCos,                1, clNone, enLift, 0 },  // X <- cos X
    { "tan",      opNone,      &cVorstekEngine::OnTan,                1, clX,    enLift, 0 },  // X <- tan X
    { "+",        opNone,      &cVorstekEngine::OnAdd,                1, clX,    enLift, 0 },  // X <- Y + X, drop
    { "sin^-1",   opNone,      &cVorstekEngine::OnArcSin,             1, clNone, enLift, 0 },  // X <- arc sin X
    { "cos^-1",   opNone,      &cVorstekEngine::OnArcCos,             1, clNone, enLift, 0 },  // X <- arc cos X
    { "tan^-1",   opNone,      &cVorstekEngine::OnArcTan,             1, clNone, enLift, 0 },  // X <- arc tan X
    { "INT",      opNone,      &cVorstekEngine::OnInt,                1, clNone, enLift, 0 },  // X <- integer part, toward zero
    { "sqrt",     opNone,      &cVorstekEngine::OnSqrt,               1, clNone, enLift, 0 },  // X <- square root of X
    { "y^x",      opNone,      &cVorstekEngine::OnPower,              1, clX,    enLift, 0 },  // X <- Y to the X, drop
    { "*",        opNone,      &cVorstekEngine::OnMultiply,           1, clX,    enLift, 0 },  // X <- Y * X, drop
    { "FRAC",     opNone,      &cVorstekEngine::OnFrac,               1, clNone, enLift, 0 },  // X <- fractional part, sign kept
    { "x^2",      opNone,      &cVorstekEngine::OnSquare,             1, clX,    enLift, 0 },  // X <- X * X
    { "ABS",      opNone,      &cVorstekEngine::OnAbs,                1, clNone, enLift, 0 },  // X <- |X|
    { "->H.MS",   opNone,      &cVorstekEngine::OnToHms,              1, clX,    enLift, 0 },  // hours to hours.minutes-seconds
    { "LASTx",    opNone,      &cVorstekEngine::OnLastX,              0, clNone, enLift, 0 },  // push if stack lift, X <- LASTx
    { "PAUSE",    opNone,      &cVorstekEngine::OnPause,              0, clNone, enOwn,  0 },  // shows X for a second
    { "/",        opNone,      &cVorstekEngine::OnDivide,             1, clX,    enLift, 0 },  // X <- Y / X, drop
    { "R/S",      opNone,      &cVorstekEngine::OnRunStop,            0, clNone, enOwn,  0 },  // run or stop
    { "->H",      opNone,      &cVorstekEngine::OnToHours,            1, clX,    enLift, 0 },  // hours.minutes-seconds to hours
    { "pi",       opNone,      &cVorstekEngine::OnPi,                 0, clNone, enLift, 0 },  // push if stack lift, X <- pi
    { "1/x",      opNone,      &cVorstekEngine::OnReciprocal,         1, clX,    enLift, 0 },  // X <- 1 / X
    { "x<=y",     opNone,      &cVorstekEngine::OnXLessOrEqualY,      0, clNone, enLift, 0 },  // tests: skip the next line if false
    { "x>y",      opNone,      &cVorstekEngine::OnXGreaterY,          0, clNone, enLift, 0 },
    { "x!=y",     opNone,      &cVorstekEngine::OnXNotEqualY,         0, clNone, enLift, 0 },
    { "x=y",      opNone,      &cVorstekEngine::OnXEqualY,            0, clNone, enLift, 0 },
    { "x<0",      opNone,      &cVorstekEngine::OnXNegative,          0, clNone, enLift, 0 },
    { "x>0",      opNone,      &cVorstekEngine::OnXPositive,          0, clNone, enLift, 0 },
    { "x!=0",     opNone,      &cVorstekEngine::OnXNotZero,           0, clNone, enLift, 0 },
    { "x=0",      opNone,      &cVorstekEngine::OnXZero,              0, clNone, enLift, 0 },
    { "ClearG",   opNone,      &cVorstekEngine::OnClearG,             0, clNone, enLift, 0 },  // empties the graph, data line 1
    { "SumG",     opNone,      &cVorstekEngine::OnSumG,               0, clNone, enLift, 0 },  // adds the point (X, Y)
    { "SetG",     opNone,      &cVorstekEngine::OnSetG,               0, clNone, enLift, 0 },  // selects data line X
};
// clang-format on
