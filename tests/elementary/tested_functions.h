// tested_functions.h - the elementary functions with arguments to test them on:
// ordinary ones, and those that are hard to reduce, to round or to keep in range.
// The same seed gives the same arguments on every platform.

#ifndef TESTS_ELEMENTARY_TESTED_FUNCTIONS_H
#define TESTS_ELEMENTARY_TESTED_FUNCTIONS_H

#include <random>
#include <string>
#include <vector>

using cChance = std::mt19937_64;

// Of functions with one argument, m_dY is not used.
struct cArguments
{
    double m_dX;
    double m_dY;
};

using cArgumentKind = cArguments (*)(cChance &Chance);

struct cTestedFunction
{
    const char *m_szName;
    double (*m_pCall)(const cArguments &Arguments);
    std::vector<cArgumentKind> m_Kinds;  // used in turn
};

const std::vector<cTestedFunction> &TestedFunctions();

// nCount arguments of a function, from its kinds in turn.
std::vector<cArguments> ArgumentsFor(const cTestedFunction &Function, size_t nCount,
                                     uint64_t nSeed);

#endif
