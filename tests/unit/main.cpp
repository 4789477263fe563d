// The test program's main(); what it accepts is listed by --help.

#include <doctest/doctest.h>

int main(int nArguments, char **pszArguments)
{
    return doctest::Context(nArguments, pszArguments).run();
}
