// script_target.cpp - the input is a script. What it prints are lines of JSON, and on
// standard error reasons with the number of a line. The file "a.txt" has the same
// content: as a listing, a data file or something to replace.

#include <sstream>
#include <string>

#include "console/commands.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/script_text.h"
#include "tests/fuzz/strict_json.h"

static void CheckReasons(const std::string &Text)
{
    FUZZ_CHECK(IsUtf8(Text));
    std::istringstream Lines(Text);
    std::string        Line;
    while (std::getline(Lines, Line))
        FUZZ_CHECK(Line.starts_with("line ") && Line.find(": ") != std::string::npos);
}

void FuzzScript(std::string_view Input)
{
    const cScratchFolder Scratch;
    WriteScratch("a.txt", Input);
    std::istringstream In(TameScript(Input));
    std::ostringstream Out;
    std::ostringstream Err;

    const int nExitCode = ScriptCommand({}, {&In, &Out, &Err});

    FUZZ_CHECK(nExitCode == kExitDone || nExitCode == kExitUsage);
    CheckReasons(Err.str());
    CheckJsonLines(Out.str());
    const int bBad = Out.str().find("{\"event\":\"bad\"") != std::string::npos;
    FUZZ_CHECK(bBad == (nExitCode == kExitUsage));
}
