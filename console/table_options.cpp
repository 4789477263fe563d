#include "console/table_options.h"

#include <algorithm>
#include <cctype>
#include <cstdint>

#include "console/arguments.h"

static const char kOptionColumns[]      = "--columns";
static const char kOptionSkip[]         = "--skip";
static const char kOptionSeparator[]    = "--separator";
static const char kOptionDecimalComma[] = "--decimal-comma";
static const char kOptionStrict[]       = "--strict";

static int TakeColumn(std::vector<unsigned> *pColumns, const std::string &Number)
{
    uint64_t nColumn;
    if (!ParseWholeNumber(Number, &nColumn) || nColumn > kMostColumns)
        return 0;
    pColumns->push_back(static_cast<unsigned>(nColumn));
    return nColumn > 0 || pColumns->size() == 1;
}

static int TakeColumns(cTableOptions *pOptions, const std::string &Value)
{
    std::vector<unsigned> *const pColumns = &pOptions->m_Format.m_Columns;
    pOptions->m_LastGiven                 = kOptionColumns;
    pColumns->clear();
    for (size_t nFrom = 0; nFrom <= Value.size();)
    {
        const size_t nEnd = std::min(Value.find(',', nFrom), Value.size());
        if (!TakeColumn(pColumns, Value.substr(nFrom, nEnd - nFrom)))
            return 0;
        nFrom = nEnd + 1;
    }
    return pColumns->size() > 1;
}

static int TakeSkip(cTableOptions *pOptions, const std::string &Value)
{
    pOptions->m_LastGiven = kOptionSkip;
    return ParseWholeNumber(Value, &pOptions->m_Format.m_nSkip);
}

// A character that may be part of a number, of a quoted text or of a comment
// separates nothing.
static int IsSeparator(char c)
{
    return c == '\t' || (c >= ' ' && c <= '~' && !isalnum(static_cast<unsigned char>(c)) &&
                         std::string("+-.\"#").find(c) == std::string::npos);
}

static int TakeSeparator(cTableOptions *pOptions, const std::string &Value)
{
    const std::string Separator     = Value == "tab" || Value == "\\t" ? "\t" : Value;
    pOptions->m_LastGiven           = kOptionSeparator;
    pOptions->m_Format.m_cSeparator = Separator.size() == 1 ? Separator[0] : '\0';
    return IsSeparator(pOptions->m_Format.m_cSeparator);
}

static int TakeDecimalComma(cTableOptions *pOptions, const std::string &)
{
    pOptions->m_LastGiven              = kOptionDecimalComma;
    pOptions->m_Format.m_bDecimalComma = 1;
    return 1;
}

static int TakeStrict(cTableOptions *pOptions, const std::string &)
{
    pOptions->m_LastGiven = kOptionStrict;
    pOptions->m_bStrict   = 1;
    return 1;
}

static int TakeNoProgress(cTableOptions *pOptions, const std::string &)
{
    pOptions->m_bNoProgress = 1;
    return 1;
}

// clang-format off
const cTableOptionRow kTableRows[kTableOptions] =
{
    { kOptionColumns, "X,Y,...", "the number of the column of x, or 0, then those of the data lines, "
      "with commas between", TakeColumns,
      "draw these columns, counted from 1, over column X;\n"
      "X is 0 for the number of the row" },
    { kOptionSkip, "N", "a number of lines", TakeSkip,
      "do not read the first N lines" },
    { kOptionSeparator, "C", "a character that is part of no number, or tab", TakeSeparator,
      "what separates columns, which may then be empty,\n"
      "texts or in quotes; tab for a tab" },
    { kOptionDecimalComma, nullptr, nullptr, TakeDecimalComma,
      "1,5 is one number" },
    { kOptionStrict, nullptr, nullptr, TakeStrict,
      "draw nothing if there is a warning about the data;\n"
      "the exit code is then 1" },
    { "--no-progress", nullptr, nullptr, TakeNoProgress,
      "no line on the terminal about how much has been\n"
      "read" },
};
// clang-format on

std::string WhyNoTable(const cTableOptions &Options)
{
    if (Options.m_Format.m_bDecimalComma && Options.m_Format.m_cSeparator == ',')
        return "--decimal-comma needs a --separator that is no comma";
    return "";
}
