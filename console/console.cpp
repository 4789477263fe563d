#include "console/console.h"

#include <algorithm>
#include <new>
#include <ostream>

#include "console/arguments.h"

static const char *const kUsage =
    "usage: vorstek-cli run PROGRAM.txt [options]        run a program, print the stack\n"
    "       vorstek-cli check PROGRAM.txt... [options]   check programs without running them\n"
    "       vorstek-cli fmt PROGRAM.txt... [options]     bring programs into the canonical form\n"
    "       vorstek-cli script [FILE]                    press keys, print events as JSON\n"
    "       vorstek-cli plot DATA.txt OUT.svg [options]  draw a data file\n"
    "       vorstek-cli gif IN.bmp OUT.gif [options]     convert a picture to GIF\n"
    "\n"
    "options of run:\n"
    "  --x V  --y V  --z V  --t V   set the stack before the start\n"
    "  --reg N=V                    set register N (0 to 29) before the start\n"
    "  --label N                    start at label N (0 to 9), as GSB N does\n"
    "  --trace FILE                 write a trace of the executed lines\n"
    "  --graph FILE.txt             write the points that the program drew\n"
    "  --graph FILE.svg             write them as a picture\n"
    "  --max-lines N                halt after N executed lines\n"
    "  --registers                  also print the registers that are not zero\n"
    "  --json                       print the complete state as one JSON object\n"
    "  --realtime                   let PAUSE wait for one second\n"
    "\n"
    "options of check (- is standard input):\n"
    "  --strict                     warnings make the exit code 1\n"
    "  --ignore NAME                no warnings of this name; repeatable\n"
    "  --json                       print each finding as a JSON object\n"
    "  --name FILE                  name of standard input in the findings\n"
    "\n"
    "options of fmt (- is standard input, written to standard output):\n"
    "  --check                      change nothing, name the files that would change\n"
    "  --diff                       change nothing, print the changes\n"
    "  --name FILE                  name of standard input in messages\n"
    "\n"
    "options of plot:\n"
    "  --title T  --label T         title and axis label, instead of the file's\n"
    "  --type TYPE                  plot, stairstep, scatter or stoop\n"
    "  --grid                       grid lines instead of ticks\n"
    "  --no-legend                  omit the legend\n"
    "  --size WxH                   size in pixels, default 640x480\n"
    "\n"
    "options of gif:\n"
    "  --options \"ilace xscreen=N yscreen=N xpos=N ypos=N background=N transcol=N|edge\"\n"
    "\n"
    "exit code: 0 done, 1 the calculator reported an error, 2 wrong usage or file,\n"
    "           3 halted by --max-lines\n";

int ReportUsage(const cStreams &Streams, const std::string &Text)
{
    *Streams.m_pErr << "vorstek-cli: " << Text << "\n";
    return kExitUsage;
}

// Anywhere in the command line, because you may think of it late; a file of this
// name needs "--" before it.
static int AsksForHelp(const std::vector<std::string> &Arguments)
{
    const auto End = std::find(Arguments.begin(), Arguments.end(), kEndOfOptions);
    return std::find(Arguments.begin(), End, "--help") != End ||
           std::find(Arguments.begin(), End, "-h") != End;
}

static int PrintUsage(const cStreams &Streams)
{
    *Streams.m_pOut << kUsage;
    return kExitDone;
}

static int FindAndRun(const std::vector<std::string> &Arguments, const cStreams &Streams)
{
    static const struct
    {
        const char *m_szName;
        int (*m_pCommand)(const std::vector<std::string> &, const cStreams &);
    } s_Commands[] = {
        {"run", RunCommand},   {"check", CheckCommand}, {"script", ScriptCommand},
        {"plot", PlotCommand}, {"gif", GifCommand},     {"fmt", FmtCommand},
    };

    if (Arguments.empty())
    {
        *Streams.m_pErr << kUsage;
        return kExitUsage;
    }
    const std::string             &Name = Arguments.front();
    const std::vector<std::string> Rest(Arguments.begin() + 1, Arguments.end());
    if (Name == "--help" || Name == "-h")
        return PrintUsage(Streams);
    for (const auto &Row : s_Commands)
        if (Name == Row.m_szName)
            return AsksForHelp(Rest) ? PrintUsage(Streams) : Row.m_pCommand(Rest, Streams);
    return ReportUsage(Streams, "unknown command '" + Name + "' (see vorstek-cli --help)");
}

// The message is a literal, because there may be no memory to compose one.
int RunConsole(const std::vector<std::string> &Arguments, const cStreams &Streams)
{
    try
    {
        return FindAndRun(Arguments, Streams);
    }
    catch (const std::bad_alloc &)
    {
        *Streams.m_pErr << "vorstek-cli: not enough memory\n";
        return kExitUsage;
    }
}
