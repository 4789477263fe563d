#include "tests/fuzz/script_text.h"

#include <algorithm>

#include "tests/fuzz/fuzz_target.h"

static const char *const kShortRuns = "limit 200\n";

static const size_t kLongestLimit = std::string_view("limit 999").size();

static std::string TameLine(std::string_view Line)
{
    if (Line.starts_with("limit") && Line.size() > kLongestLimit)
        return "";
    if (Line.starts_with("reset"))
        return std::string(Line) + "\n" + kShortRuns;
    if (Line.starts_with("open") || Line.starts_with("save") || Line.starts_with("graph"))
        return WithoutSlashes(Line) + "\n";
    return std::string(Line) + "\n";
}

std::string TameScript(std::string_view Script)
{
    std::string Tame = kShortRuns;
    while (!Script.empty())
    {
        const size_t nEnd = std::min(Script.find('\n'), Script.size());
        Tame += TameLine(Script.substr(0, nEnd));
        Script.remove_prefix(std::min(nEnd + 1, Script.size()));
    }
    return Tame;
}
