#include "console/check_options.h"

#include <algorithm>
#include <string_view>

#include "console/arguments.h"
#include "console/input_text.h"
#include "listing/findings.h"
#include "toolkit/spelling.h"

static int TakeIgnored(const std::string &Name, cCheckOptions *pOptions, std::string *pError)
{
    std::vector<std::string_view> Names;
    for (const cWarningRow &Row : Warnings())
        Names.emplace_back(Row.m_szName);
    if (std::find(Names.begin(), Names.end(), Name) != Names.end())
    {
        pOptions->m_Ignored.insert(Name);
        return 1;
    }
    const int nNearest = NearestWord(Name, Names);
    *pError            = "--ignore: no warning is named '" + Name + "'";
    if (nNearest >= 0)
        *pError += ", did you mean " + std::string(Names[static_cast<size_t>(nNearest)]) + "?";
    return 0;
}

static int TakeName(const std::string &Name, cCheckOptions *pOptions, std::string *)
{
    pOptions->m_Name = Name;
    return 1;
}

// Takes an option with a value and advances *pnAt to the value.
static int TakeCheckOption(const std::vector<std::string> &Arguments, size_t *pnAt,
                           cCheckOptions *pOptions, std::string *pError)
{
    static const struct
    {
        const char *m_szName;
        int (*m_pTake)(const std::string &, cCheckOptions *, std::string *);
        const char *m_szWanted;
    } s_Options[] = {
        {"--ignore", TakeIgnored, "the name of a warning"},
        {"--name", TakeName, "a file name"},
    };
    const std::string &Name = Arguments[*pnAt];
    for (const auto &Row : s_Options)
    {
        if (Name != Row.m_szName)
            continue;
        if (++*pnAt < Arguments.size())
            return Row.m_pTake(Arguments[*pnAt], pOptions, pError);
        *pError = Name + " needs " + Row.m_szWanted;
        return 0;
    }
    *pError = UnknownOption(Name);
    return 0;
}

static int TakeCheckFlag(const std::string &Name, cCheckOptions *pOptions)
{
    if (Name == "--strict")
        pOptions->m_bStrict = 1;
    else if (Name == "--json")
        pOptions->m_bJson = 1;
    else
        return 0;
    return 1;
}

int ParseCheckOptions(const std::vector<std::string> &Arguments, cCheckOptions *pOptions,
                      std::string *pError)
{
    int bOptions = 1;
    for (size_t nAt = 0; nAt < Arguments.size(); nAt++)
    {
        const std::string &Word = Arguments[nAt];
        if (bOptions && Word == kEndOfOptions)
            bOptions = 0;
        else if (!bOptions || !Word.starts_with("--"))
            pOptions->m_Files.push_back(Word);
        else if (!TakeCheckFlag(Word, pOptions) &&
                 !TakeCheckOption(Arguments, &nAt, pOptions, pError))
            return 0;
    }
    if (!pOptions->m_Files.empty())
        return 1;
    *pError = "check needs the file name of at least one program";
    return 0;
}
