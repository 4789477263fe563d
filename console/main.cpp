#include <cstdio>
#include <iostream>

#include "console/console.h"

// A standard stream that was closed by the caller leaves its number to the next
// file that is opened, and what is printed would end in that file. Three
// streams that accept nothing take such numbers away.
static void OccupyClosedStreams()
{
    static FILE *s_pStreams[3];
    for (FILE *&pStream : s_pStreams)
        pStream = fopen("/dev/null", "r");
}

int main(int nArguments, char **ppArguments)
{
    OccupyClosedStreams();
    std::ios::sync_with_stdio(false);
    const cStreams                 Streams = {&std::cin, &std::cout, &std::cerr};
    const std::vector<std::string> Arguments(ppArguments + (nArguments > 0),
                                             ppArguments + nArguments);
    const int                      nExitCode = RunConsole(Arguments, Streams);
    if (!std::cout.flush())
        return ReportUsage(Streams, "cannot write to standard output");
    return nExitCode;
}
