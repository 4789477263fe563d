#include "console/check_options.h"

#include <algorithm>
#include <string_view>

#include "listing/findings.h"

static int TakeIgnored(cCheckOptions *pOptions, const std::string &Name, std::string *pError)
{
    std::vector<std::string_view> Names;
    for (const cWarningRow &Row : Warnings())
        Names.emplace_back(Row.m_szName);
    if (std::find(Names.begin(), Names.end(), Name) != Names.end())
    {
        pOptions->m_Ignored.insert(Name);
        return 1;
    }
    *pError = "--ignore: no warning is named '" + Name + "'" + DidYouMean(Name, Names);
    return 0;
}

// clang-format off
static const cOptionRow s_CheckRows[] =
{
    { "--strict", nullptr, nullptr, SetFlag<cCheckOptions, &cCheckOptions::m_bStrict>,
      "warnings make the exit code 1" },
    { "--ignore", "NAME", "the name of a warning", Take<cCheckOptions, TakeIgnored>,
      "no warnings of this name; repeatable" },
    { "--json", nullptr, nullptr, SetFlag<cCheckOptions, &cCheckOptions::m_bJson>,
      "print each finding as a JSON object" },
    { "--name", "FILE", "a file name", TakeText<cCheckOptions, &cCheckOptions::m_Name>,
      "name of standard input in the findings" },
    { "--wait", nullptr, nullptr, SetFlag<cCheckOptions, &cCheckOptions::m_bWait>,
      "in a terminal, wait for a key at the end" },
};
// clang-format on

std::span<const cOptionRow> CheckOptionRows()
{
    return s_CheckRows;
}

int ParseCheckOptions(const std::vector<std::string> &Arguments, cCheckOptions *pOptions,
                      std::string *pError)
{
    if (!ReadOptions(s_CheckRows, Arguments, pOptions, &pOptions->m_Files, pError))
        return 0;
    if (pOptions->m_Files.empty())
        *pError = "check needs the file name of at least one program";
    return pError->empty();
}
