// command_line_target.cpp - the input's lines up to an empty one are the arguments of
// the console program; the rest is standard input and the content of the files
// "a.txt" and "a.bmp"; "b.txt" is a program. Nothing leaves the scratch folder, no run is
// long: a timer interrupts those of "debug", as Ctrl-C does.
// With --json as the first argument of a command, what it prints is strict JSON.

#include <algorithm>
#include <optional>
#include <sstream>

#include "console/console.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/script_text.h"
#include "tests/fuzz/strict_json.h"
#include "tests/fuzz/typed_text.h"

static const size_t kMostArguments = 20;

// Division remains.
static std::string TameArgument(std::string_view Text)
{
    const size_t nEnd = std::min(Text.find('\0'), Text.size());
    return nEnd == 1 ? std::string(Text.substr(0, 1)) : WithoutSlashes(Text.substr(0, nEnd));
}

static std::vector<std::string> TakeArguments(std::string_view *pInput)
{
    std::vector<std::string> Arguments;
    while (!pInput->empty())
    {
        const size_t      nEnd = std::min(pInput->find('\n'), pInput->size());
        const std::string Word = TameArgument(pInput->substr(0, nEnd));
        pInput->remove_prefix(std::min(nEnd + 1, pInput->size()));
        if (Word.empty())
            break;
        if (Arguments.size() < kMostArguments && !Word.starts_with("--realtime"))
            Arguments.push_back(Word);
    }
    return Arguments;
}

static std::string TameInput(const std::string &Command, std::string_view Input)
{
    if (Command == "script")
        return TameScript(Input);
    return Command == "debug" ? TameLines(Input) : std::string(Input);
}

// The last option of a name counts.
static void LimitRun(std::vector<std::string> *pArguments)
{
    pArguments->insert(std::find(pArguments->begin(), pArguments->end(), "--"), "--max-lines=999");
}

// In any other place it may be the value of another option.
static int PrintsJson(const std::vector<std::string> &Arguments)
{
    const auto IsHelp = [](const std::string &Word) { return Word == "--help" || Word == "-h"; };
    return Arguments.size() > 1 && Arguments[1] == "--json" &&
           std::none_of(Arguments.begin(), Arguments.end(), IsHelp);
}

void FuzzCommandLine(std::string_view Input)
{
    std::vector<std::string> Arguments = TakeArguments(&Input);
    if (Arguments.empty())
        return;
    if (Arguments[0] == "run")
        LimitRun(&Arguments);
    const cScratchFolder Scratch;
    const std::string    Text = TameInput(Arguments[0], Input);
    WriteScratch("a.txt", Text);
    WriteScratch("a.bmp", Text);
    WriteScratch("b.txt", "LBL 1\n7\nSumG\nGTO 1\n");
    std::istringstream In(Text);
    std::ostringstream Out;
    std::ostringstream Err;

    std::optional<cRunTimer>  Timer;
    std::vector<const char *> Words;
    for (const std::string &Argument : Arguments)
        Words.push_back(Argument.c_str());
    if (Arguments[0] == "debug")
        Timer.emplace();
    const int nExitCode =
        RunConsole(static_cast<int>(Words.size()), Words.data(), {&In, &Out, &Err});
    Timer.reset();

    FUZZ_CHECK(nExitCode >= kExitDone && nExitCode <= kExitHalted);
    FUZZ_CHECK(nExitCode == kExitDone || !Out.str().empty() || !Err.str().empty());
    if (PrintsJson(Arguments) && nExitCode != kExitUsage)
        CheckJsonLines(Out.str());
}
