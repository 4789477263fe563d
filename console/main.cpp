#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>

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

// Memory may be so short that not even an exception can be thrown.
static void EndWithoutMemory()
{
    try
    {
        if (const auto pException = std::current_exception())
            std::rethrow_exception(pException);
    }
    catch (const std::bad_alloc &)
    {
    }
    catch (...)
    {
        abort();
    }
    fputs("vorstek-cli: not enough memory\n", stderr);
    std::_Exit(kExitUsage);
}

int main(int nArguments, char **ppArguments)
{
    OccupyClosedStreams();
    std::set_terminate(EndWithoutMemory);
    OutliveLongFiles();
    UseUtf8Terminal();
    std::ios::sync_with_stdio(false);
    const cStreams Streams   = {&std::cin, &std::cout, &std::cerr};
    const int      nFirst    = nArguments > 0;  // after the program's name, if it is there
    const int      nExitCode = RunConsole(nArguments - nFirst, ppArguments + nFirst, Streams);
    if (!std::cout.flush())
        return ReportUsage(Streams, "cannot write to standard output");
    return nExitCode;
}
