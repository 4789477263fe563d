// help_command.cpp - vorstek-cli help, and what --help prints.

#include <algorithm>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "console/commands.h"
#include "console/help.h"

static const char *const kExitCodes =
    "exit code: 0 done, 1 the calculator reported an error, 2 wrong usage or file,\n"
    "           3 halted by --max-lines, 130 by Ctrl-C, 143 by SIGTERM\n";

static std::string Synopsis(const char *szName, const char *szArguments)
{
    return *szArguments ? std::string(szName) + " " + szArguments : szName;
}

static std::string SynopsisOf(const cCommandRow &Row)
{
    return Synopsis(Row.m_szName, Row.m_szArguments);
}

static std::string OptionText(const cOptionRow &Row)
{
    return Row.m_szValue ? std::string(Row.m_szName) + " " + Row.m_szValue : Row.m_szName;
}

static std::string Padded(std::string Text, size_t nWidth)
{
    Text.resize(std::max(Text.size(), nWidth), ' ');
    return Text;
}

// Further lines of the text stand under the first.
static void PrintRow(const std::string &Name, std::string Text, size_t nWidth, std::ostream *pOut)
{
    const std::string Indent = "\n" + std::string(nWidth + 4, ' ');
    for (size_t nAt = 0; (nAt = Text.find('\n', nAt)) != std::string::npos; nAt += Indent.size())
        Text.replace(nAt, 1, Indent);
    *pOut << "  " << Padded(Name, nWidth) << "  " << Text << "\n";
}

void PrintUsage(std::ostream *pOut)
{
    *pOut << "usage: vorstek-cli COMMAND [arguments] [options]\n"
             "       vorstek-cli                      the calculator, line by line\n\n";
    size_t nWidth = 0;
    for (const cCommandRow &Row : Commands())
        nWidth = std::max(nWidth, SynopsisOf(Row).size());
    for (const cCommandRow &Row : Commands())
        PrintRow(SynopsisOf(Row), Row.m_szSummary, nWidth, pOut);
    *pOut
        << "\nvorstek-cli help COMMAND says more, vorstek-cli --version which version this is.\n\n"
        << kExitCodes;
}

static void PrintRows(const char                                             *szTitle,
                      const std::vector<std::pair<std::string, std::string>> &Rows,
                      std::ostream                                           *pOut)
{
    size_t nWidth = 0;
    for (const auto &[Name, Text] : Rows)
        nWidth = std::max(nWidth, Name.size());
    if (!Rows.empty())
        *pOut << "\n" << szTitle << ":\n";
    for (const auto &[Name, Text] : Rows)
        PrintRow(Name, Text, nWidth, pOut);
}

void PrintCommandHelp(const cCommandRow &Row, std::ostream *pOut)
{
    *pOut << "usage: vorstek-cli " << SynopsisOf(Row) << (Row.m_pOptions ? " [options]" : "")
          << "\n\n"
          << Row.m_szText;
    std::vector<std::pair<std::string, std::string>> Rows;
    if (Row.m_pHelpRows)
        for (const cHelpRow &Command : Row.m_pHelpRows())
            Rows.emplace_back(Synopsis(Command.m_szName, Command.m_szArguments),
                              Command.m_szSummary);
    PrintRows("commands", Rows, pOut);
    Rows.clear();
    if (Row.m_pOptions)
        for (const cOptionRow &Option : Row.m_pOptions())
            Rows.emplace_back(OptionText(Option), Option.m_szHelp);
    PrintRows("options", Rows, pOut);
}

int HelpCommand(const std::vector<std::string> &Arguments, const cStreams &Streams)
{
    std::vector<std::string> Names;
    std::string              Error;
    if (!ReadOptions({}, Arguments, nullptr, &Names, &Error))
        return ReportUsage(Streams, Error);
    if (Names.size() > 1)
        return ReportUsage(Streams, "help takes at most one command");
    if (Names.empty())
    {
        PrintUsage(Streams.m_pOut);
        return kExitDone;
    }
    const cCommandRow *const pRow = FindCommand(Names[0]);
    if (!pRow)
        return ReportUnknownCommand(Streams, Names[0]);
    PrintCommandHelp(*pRow, Streams.m_pOut);
    return kExitDone;
}
