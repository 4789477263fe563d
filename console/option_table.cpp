#include "console/option_table.h"

#include <algorithm>

#include "toolkit/disk_file.h"
#include "toolkit/spelling.h"

namespace
{

// The option as the command line has it.
struct cGivenOption
{
    std::string m_Name;
    std::string m_Value;
    int         m_bValue;  // "--x=5"; else the value, if any, is the next argument
};

}  // namespace

static cGivenOption SplitOption(const std::string &Word)
{
    const size_t nEqual = Word.find('=');
    if (nEqual == std::string::npos)
        return {Word, "", 0};
    return {Word.substr(0, nEqual), Word.substr(nEqual + 1), 1};
}

std::string DidYouMean(std::string_view Word, const std::vector<std::string_view> &Words)
{
    const int nNearest = NearestWord(Word, Words);
    if (nNearest < 0)
        return "";
    return ", did you mean " + std::string(Words[static_cast<size_t>(nNearest)]) + "?";
}

static std::string UnknownOption(std::span<const cOptionRow> Rows, const std::string &Name)
{
    std::vector<std::string_view> Names;
    for (const cOptionRow &Row : Rows)
        Names.emplace_back(Row.m_szName);
    const std::string Suggestion = DidYouMean(Name, Names);
    return "unknown option '" + Name + "'" +
           (Suggestion.empty() ? " (see vorstek-cli --help)" : Suggestion);
}

// Advances *pnAt to the value if that is an argument of its own.
static int TakeOption(const cOptionRow &Row, cGivenOption Given,
                      const std::vector<std::string> &Arguments, size_t *pnAt, void *pOptions,
                      std::string *pError)
{
    if (!Row.m_szValue && Given.m_bValue)
    {
        *pError = Given.m_Name + " takes no value";
        return 0;
    }
    if (Row.m_szValue && !Given.m_bValue && ++*pnAt < Arguments.size())
    {
        Given.m_Value  = Arguments[*pnAt];
        Given.m_bValue = 1;
    }
    if (Given.m_bValue == (Row.m_szValue != nullptr) &&
        Row.m_pTake(pOptions, Given.m_Value, pError))
        return 1;
    if (pError->empty())
        *pError = Given.m_Name + " needs " + Row.m_szWanted;
    return 0;
}

static int ReadOption(std::span<const cOptionRow> Rows, const std::vector<std::string> &Arguments,
                      size_t *pnAt, void *pOptions, std::string *pError, std::string *pUnknown)
{
    const cGivenOption Given = SplitOption(Arguments[*pnAt]);
    const auto         Row   = std::find_if(Rows.begin(), Rows.end(), [&](const cOptionRow &Known) {
        return Given.m_Name == Known.m_szName;
    });
    if (Row != Rows.end())
        return TakeOption(*Row, Given, Arguments, pnAt, pOptions, pError);
    *pError = UnknownOption(Rows, Given.m_Name);
    if (pUnknown)
        *pUnknown = Given.m_Name;
    return 0;
}

// "-json" for "--json"; a file may have such a name.
static int LacksDash(std::span<const cOptionRow> Rows, const std::string &Word)
{
    const std::string Name = "-" + SplitOption(Word).m_Name;
    return std::any_of(Rows.begin(), Rows.end(),
                       [&Name](const cOptionRow &Row) { return Name == Row.m_szName; }) &&
           !IsNameTaken(Word.c_str());
}

int ReadOptions(std::span<const cOptionRow> Rows, const std::vector<std::string> &Arguments,
                void *pOptions, std::vector<std::string> *pWords, std::string *pError,
                std::string *pUnknown)
{
    int bOptions = 1;
    for (size_t nAt = 0; nAt < Arguments.size(); nAt++)
    {
        const std::string &Word = Arguments[nAt];
        if (bOptions && Word == kEndOfOptions)
            bOptions = 0;
        else if (bOptions && LacksDash(Rows, Word))
        {
            *pError = UnknownOption(Rows, SplitOption(Word).m_Name);
            return 0;
        }
        else if (!bOptions || !Word.starts_with("--"))
            pWords->push_back(Word);
        else if (!ReadOption(Rows, Arguments, &nAt, pOptions, pError, pUnknown))
            return 0;
    }
    return 1;
}
