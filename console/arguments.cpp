#include "console/arguments.h"

#include <charconv>
#include <limits>

#include "engine/decimal.h"

static const char *const kBlanks = " \t";

int ParseWholeNumber(std::string_view Text, uint64_t *pnValue)
{
    if (Text.empty() || Text.find_first_not_of("0123456789") != std::string_view::npos)
        return 0;
    const char *const pEnd = Text.data() + Text.size();
    if (std::from_chars(Text.data(), pEnd, *pnValue).ec != std::errc())
        *pnValue = std::numeric_limits<uint64_t>::max();
    return 1;
}

int ParseNumber(const std::string &Text, double *pdValue)
{
    return Text.find('\0') == std::string::npos && ParseDecimal(Text.c_str(), pdValue);
}

std::vector<std::string> SplitWords(std::string_view Text)
{
    std::vector<std::string> Words;
    for (size_t nAt = Text.find_first_not_of(kBlanks); nAt != std::string_view::npos;)
    {
        const size_t nEnd = Text.find_first_of(kBlanks, nAt);
        Words.emplace_back(Text.substr(nAt, nEnd - nAt));
        nAt = Text.find_first_not_of(kBlanks, nEnd);
    }
    return Words;
}

std::string_view TrimBlanks(std::string_view Text)
{
    const size_t nFirst = Text.find_first_not_of(kBlanks);
    if (nFirst == std::string_view::npos)
        return {};
    return Text.substr(nFirst, Text.find_last_not_of(kBlanks) - nFirst + 1);
}
