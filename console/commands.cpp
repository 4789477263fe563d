#include "console/commands.h"

#include <algorithm>

#include "console/check_options.h"
#include "console/eval_options.h"
#include "console/plot_options.h"
#include "console/run_options.h"

// clang-format off
static const cCommandRow s_Commands[] =
{
    { "eval", "\"2 3 +\"", "calculate, print X",
      "Performs instructions and numbers, several in a row, as listings write them or\n"
      "as the keys show them: \"2 3 + sqrt STO 5\". Without them, or with -, it\n"
      "reads standard input and answers line by line. An error ends its line.\n",
      EvalOptionRows, EvalCommand },
    { "run", "PROGRAM.txt", "run a program, print the stack",
      "Loads a listing, starts it at line 1 and prints T, Z, Y and X when it halts.\n",
      RunOptionRows, RunCommand },
    { "debug", "PROGRAM.txt", "run a program step by step",
      "The calculator in the terminal with the program loaded: breakpoints, single\n"
      "steps forwards and backwards, watched registers. Its commands may come from a\n"
      "file or a pipe, a line each. - is a program on standard input, in a terminal.\n",
      nullptr, DebugCommand, DebugHelpRows },
    { "check", "PROGRAM.txt...", "check programs without running them",
      "Reports what the loader rejects, and warns of what is probably a mistake. - is\n"
      "standard input.\n",
      CheckOptionRows, CheckCommand },
    { "fmt", "PROGRAM.txt...", "bring programs into the canonical form",
      "Writes listings in one form, line for line the same program. - is standard\n"
      "input, written to standard output.\n",
      FmtOptionRows, FmtCommand },
    { "script", "[FILE]", "press keys, print events as JSON",
      "Reads commands from the file or from standard input, one in a line, and writes\n"
      "what happens as JSON objects, one in a line.\n",
      nullptr, ScriptCommand, ScriptHelpRows },
    { "plot", "DATA.txt... PICTURE", "draw data files",
      "Draws the data lines of data files and other tables as an SVG, PNG or PDF\n"
      "picture. - is standard input, or standard output.\n",
      PlotOptionRows, PlotCommand },
    { "gif", "IN.bmp OUT.gif", "convert a picture to GIF",
      "Pictures with more than 256 colours get the 256 that suit them best. - is\n"
      "standard input, or standard output.\n",
      GifOptionRows, GifCommand },
    { "help", "[COMMAND]", "say more about a command",
      "Prints the commands, or what one of them does and its options.\n",
      nullptr, HelpCommand },
};
// clang-format on

std::span<const cCommandRow> Commands()
{
    return s_Commands;
}

const cCommandRow *FindCommand(std::string_view Name)
{
    const auto *const pRow =
        std::find_if(std::begin(s_Commands), std::end(s_Commands),
                     [Name](const cCommandRow &Row) { return Name == Row.m_szName; });
    return pRow == std::end(s_Commands) ? nullptr : pRow;
}

int ReportUnknownCommand(const cStreams &Streams, const std::string &Name)
{
    std::vector<std::string_view> Names;
    for (const cCommandRow &Row : s_Commands)
        Names.emplace_back(Row.m_szName);
    const std::string Suggestion = DidYouMean(Name, Names);
    return ReportUsage(Streams,
                       "unknown command '" + Name + "'" +
                           (Suggestion.empty() ? " (see vorstek-cli --help)" : Suggestion));
}
