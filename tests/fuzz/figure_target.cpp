// figure_target.cpp - the input is a table that "vorstek-cli plot" draws as SVG. After a
// byte 0xFF each line is an option: its first byte chooses which one, "a" the first of
// the command's options, the rest is its value. An empty line stands for a second table.

#include <algorithm>
#include <sstream>

#include "console/console.h"
#include "console/plot_options.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/strict_xml.h"

static const size_t kMostOptions = 20;

// A value ends at a zero byte, as an argument does.
static std::string OptionOf(std::string_view Line)
{
    const std::span<const cOptionRow> Rows = PlotOptionRows();
    const cOptionRow &Row = Rows[(ByteAt(Line, 0) + Rows.size() - 'a' % Rows.size()) % Rows.size()];
    const std::string Value(Line.substr(1, Line.find('\0', 1) - 1));
    return std::string(Row.m_szName) + (Row.m_szValue ? "=" + Value : "");
}

static std::vector<std::string> ArgumentsOf(std::string_view Lines)
{
    std::vector<std::string> Arguments = {"plot", "a.txt"};
    for (size_t n = 0; n < kMostOptions && !Lines.empty(); n++)
    {
        const size_t           nEnd = std::min(Lines.find('\n'), Lines.size());
        const std::string_view Line = Lines.substr(0, nEnd);
        Arguments.push_back(Line.empty() ? "b.txt" : OptionOf(Line));
        Lines.remove_prefix(std::min(nEnd + 1, Lines.size()));
    }
    // The last option of a name counts.
    Arguments.push_back("--format=svg");
    Arguments.push_back("plot.svg");
    return Arguments;
}

static int Draw(const std::vector<std::string> &Arguments, std::string *pErrors)
{
    std::vector<const char *> Words;
    for (const std::string &Argument : Arguments)
        Words.push_back(Argument.c_str());
    std::istringstream In;
    std::ostringstream Out;
    std::ostringstream Err;
    const int          nExitCode =
        RunConsole(static_cast<int>(Words.size()), Words.data(), {&In, &Out, &Err});
    FUZZ_CHECK_TEXT(Out.str(), "");
    *pErrors = Err.str();
    return nExitCode;
}

void FuzzFigure(std::string_view Input)
{
    const cTwoParts      Parts = DivideInput(Input);
    const cScratchFolder Scratch;
    std::string          Errors;
    WriteScratch("a.txt", Parts.m_Text);
    WriteScratch("b.txt", "1 2\n3 -4\n5 6e3\n");

    const int         nExitCode = Draw(ArgumentsOf(Parts.m_Rest), &Errors);
    const std::string Svg       = ReadScratch("plot.svg");

    FUZZ_CHECK(nExitCode >= kExitDone && nExitCode <= kExitUsage);
    FUZZ_CHECK((nExitCode == kExitDone) == !Svg.empty());
    FUZZ_CHECK(nExitCode == kExitDone || !Errors.empty());
    if (nExitCode == kExitDone)
        CheckXml(Svg);
}
