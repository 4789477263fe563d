#include <iostream>

#include "console/console.h"

int main(int nArguments, char **ppArguments)
{
    std::ios::sync_with_stdio(false);
    const cStreams                 Streams = {&std::cin, &std::cout, &std::cerr};
    const std::vector<std::string> Arguments(ppArguments + (nArguments > 0),
                                             ppArguments + nArguments);
    const int                      nExitCode = RunConsole(Arguments, Streams);
    if (!std::cout.flush())
        return ReportUsage(Streams, "cannot write to standard output");
    return nExitCode;
}
