#include <csignal>
#include <cstdio>
#include <iostream>

#include "console/console.h"
#include "console/utf8_terminal.h"

// If the caller closed a standard stream, the next file that is opened gets its
// number, and printed text would end up in that file. Three streams that accept
// nothing occupy such numbers.
static void OccupyClosedStreams()
{
    static FILE *s_pStreams[3];
    for (FILE *&pStream : s_pStreams)
        pStream = fopen("/dev/null", "r");
}

// A file that becomes longer than the user lets it is a write that fails, not the end.
static void OutliveLongFiles()
{
#ifdef SIGXFSZ
    signal(SIGXFSZ, SIG_IGN);
#endif
}

int main(int nArguments, char **ppArguments)
{
    OccupyClosedStreams();
    OutliveLongFiles();
    UseUtf8Terminal();
    std::ios::sync_with_stdio(false);
    const cStreams                 Streams = {&std::cin, &std::cout, &std::cerr};
    const std::vector<std::string> Arguments(ppArguments + (nArguments > 0),
                                             ppArguments + nArguments);
    const int                      nExitCode = RunConsole(Arguments, Streams);
    if (!std::cout.flush())
        return ReportUsage(Streams, "cannot write to standard output");
    return nExitCode;
}
