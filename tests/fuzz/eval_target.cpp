// eval_target.cpp - the input's lines go to eval, once for answers as text, once as
// JSON. Both say the same.

#include <algorithm>
#include <sstream>

#include "console/commands.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/strict_json.h"

namespace
{

struct cEvalResult
{
    int         m_nExitCode;
    std::string m_Out;
    std::string m_Err;
};

}  // namespace

static cEvalResult EvalLines(std::string_view Lines, const char *szOption)
{
    std::istringstream In{std::string(Lines)};
    std::ostringstream Out;
    std::ostringstream Err;
    const int          nExitCode = EvalCommand({szOption, "-"}, {&In, &Out, &Err});
    return {nExitCode, Out.str(), Err.str()};
}

static size_t CountLines(const std::string &Text)
{
    return static_cast<size_t>(std::count(Text.begin(), Text.end(), '\n'));
}

// JSON has a line for an error too, standard error a line for it and for each box.
void FuzzEval(std::string_view Input)
{
    const cEvalResult Text = EvalLines(Input, "--fix=4");
    const cEvalResult Json = EvalLines(Input, "--json");

    FUZZ_CHECK(Text.m_nExitCode == kExitDone || Text.m_nExitCode == kExitError);
    FUZZ_CHECK(Text.m_nExitCode == Json.m_nExitCode);
    FUZZ_CHECK((Text.m_nExitCode == kExitError) == (Text.m_Err.find("line ") == 0));
    FUZZ_CHECK(IsUtf8(Text.m_Out));
    FUZZ_CHECK_TEXT(Json.m_Err, Text.m_Err);
    const size_t nJson = CheckJsonLines(Json.m_Out);
    const size_t nText = CountLines(Text.m_Out);
    FUZZ_CHECK(nJson >= nText && nJson <= nText + CountLines(Text.m_Err));
}
