// terminal_files.cpp - makes what a terminal needs beside vorstek-cli from the table
// of its commands:
//
//     terminal-files bash|zsh|fish          completions, to standard output
//     terminal-files manual                 the manual page: copies standard input, but
//                                           writes options for "@OPTIONS run@"

#include <algorithm>
#include <cstring>
#include <iostream>
#include <string>

#include "console/commands.h"

// Of the options that are no command's.
static const char *const kHelpText    = "list the commands, or the options of one";
static const char *const kVersionText = "print the version";

static std::span<const cOptionRow> OptionsOf(const cCommandRow &Command)
{
    return Command.m_pOptions ? Command.m_pOptions() : std::span<const cOptionRow>();
}

static std::string Replaced(std::string Text, const std::string &From, const std::string &To)
{
    for (size_t nAt = 0; (nAt = Text.find(From, nAt)) != std::string::npos; nAt += To.size())
        Text.replace(nAt, From.size(), To);
    return Text;
}

// One line.
static std::string HelpOf(const cOptionRow &Option)
{
    return Replaced(Option.m_szHelp, "\n", " ");
}

// A text in quotes of the shells; none of the table's texts has an apostrophe that
// needs more.
static std::string Quoted(const std::string &Text)
{
    return "'" + Replaced(Text, "'", "'\\''") + "'";
}

// --- bash

static void PrintBash()
{
    std::cout << "# Completions of vorstek-cli for bash.\n"
                 "\n"
                 "_vorstek_cli()\n"
                 "{\n"
                 "    local word=${COMP_WORDS[COMP_CWORD]} words=\n"
                 "    COMPREPLY=()\n"
                 "    case $COMP_CWORD,${COMP_WORDS[1]} in\n"
                 "    1,*) words='";
    for (const cCommandRow &Command : Commands())
        std::cout << Command.m_szName << " ";
    std::cout << "--help --version' ;;\n    2,help) words='";
    for (const cCommandRow &Command : Commands())
        std::cout << Command.m_szName << " ";
    std::cout << "--help' ;;\n";
    for (const cCommandRow &Command : Commands())
    {
        std::cout << "    *," << Command.m_szName << ") [[ $word != -* ]] || words='";
        for (const cOptionRow &Option : OptionsOf(Command))
            std::cout << Option.m_szName << " ";
        std::cout << "--help' ;;\n";
    }
    std::cout
        << "    esac\n"
           "    [ -z \"$words\" ] || mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$word\")\n"
           "}\n"
           "\n"
           "complete -o default -F _vorstek_cli vorstek-cli\n";
}

// --- zsh

static std::string ZshOption(const cOptionRow &Option)
{
    std::string Text = std::string(Option.m_szName) + (Option.m_szValue ? "=" : "") + "[" +
                       Replaced(HelpOf(Option), ":", "\\:") + "]";
    if (Option.m_szValue)
        Text += std::string(":") + Replaced(Option.m_szValue, "\"", "") + ":" +
                (strcmp(Option.m_szValue, "FILE") == 0 ? "_files" : "");
    return Text;
}

static void PrintZsh()
{
    std::cout << "#compdef vorstek-cli\n"
                 "# Completions of vorstek-cli for zsh.\n"
                 "\n"
                 "local -a commands=(\n";
    for (const cCommandRow &Command : Commands())
        std::cout << "    " << Quoted(std::string(Command.m_szName) + ":" + Command.m_szSummary)
                  << "\n";
    std::cout << ")\n"
                 "local -a options=('--help:"
              << kHelpText << "' '--version:" << kVersionText
              << "')\n"
                 "\n"
                 "if (( CURRENT == 2 )); then\n"
                 "    _describe command commands -- options\n"
                 "    return\n"
                 "fi\n"
                 "local command=$words[2]\n"
                 "(( CURRENT-- ))\n"
                 "shift words\n"
                 "case $command in\n"
                 "help) _describe command commands; return ;;\n"
                 "esac\n"
                 "case $command in\n";
    for (const cCommandRow &Command : Commands())
    {
        std::cout << Command.m_szName << ")\n    _arguments '*:file:_files' \\\n        '--help["
                  << kHelpText << "]'";
        for (const cOptionRow &Option : OptionsOf(Command))
            std::cout << " \\\n        " << Quoted(ZshOption(Option));
        std::cout << "\n    ;;\n";
    }
    std::cout << "esac\n";
}

// --- fish

static void PrintFish()
{
    std::cout << "# Completions of vorstek-cli for fish.\n\n"
                 "complete -c vorstek-cli -l help -d "
              << Quoted(kHelpText)
              << "\n"
                 "complete -c vorstek-cli -n __fish_use_subcommand -l version -d "
              << Quoted(kVersionText) << "\n";
    for (const cCommandRow &Command : Commands())
        std::cout << "complete -c vorstek-cli -n __fish_use_subcommand -f -a " << Command.m_szName
                  << " -d " << Quoted(Command.m_szSummary) << "\n";
    for (const cCommandRow &Command : Commands())
    {
        std::cout << "\n";
        for (const cOptionRow &Option : OptionsOf(Command))
            std::cout << "complete -c vorstek-cli -n '__fish_seen_subcommand_from "
                      << Command.m_szName << "' -l " << Option.m_szName + 2
                      << (Option.m_szValue ? " -r" : "") << " -d " << Quoted(HelpOf(Option))
                      << "\n";
    }
}

// --- the manual page

// In roff, a hyphen that is to be copied is "\-".
static std::string Roff(const std::string &Text)
{
    return Replaced(Replaced(Text, "\\", "\\e"), "-", "\\-");
}

static int PrintManualOptions(const std::string &Name)
{
    const cCommandRow *const pCommand = FindCommand(Name);
    if (!pCommand)
        return 0;
    for (const cOptionRow &Option : OptionsOf(*pCommand))
    {
        std::cout << ".TP\n.B" << (Option.m_szValue ? "I " : " ") << Roff(Option.m_szName);
        if (Option.m_szValue)
            std::cout << " \" " << Replaced(Roff(Option.m_szValue), "\"", "\\(dq") << "\"";
        std::cout << "\n" << Roff(Option.m_szHelp) << ".\n";
    }
    return 1;
}

static int CopyManual()
{
    const std::string Mark = "@OPTIONS ";
    std::string       Line;
    while (std::getline(std::cin, Line))
        if (!Line.starts_with(Mark))
            std::cout << Line << "\n";
        else if (!PrintManualOptions(Line.substr(Mark.size(), Line.size() - Mark.size() - 1)))
            return 0;
    return 1;
}

int main(int nArguments, char **ppArguments)
{
    const std::string Kind = nArguments == 2 ? ppArguments[1] : "";
    if (Kind == "bash")
        PrintBash();
    else if (Kind == "zsh")
        PrintZsh();
    else if (Kind == "fish")
        PrintFish();
    else if (Kind != "manual" || !CopyManual())
        return kExitUsage;
    return std::cout.flush() ? kExitDone : kExitUsage;
}
