// table_options.h - the options about the tables that a command reads.

#ifndef CONSOLE_TABLE_OPTIONS_H
#define CONSOLE_TABLE_OPTIONS_H

#include <string>
#include <vector>

#include "console/option_table.h"
#include "tables/table_format.h"

struct cTableOptions
{
    cTableFormat m_Format;
    int          m_bStrict     = 0;  // warnings are errors
    int          m_bNoProgress = 0;

    // "--columns", if that was the last one of those that say how tables are read or
    // judged; "" for none.
    std::string m_LastGiven;
};

// Takes an option's value for the tables of a command's options.
typedef int (*cTakeTableValue)(cTableOptions *pOptions, const std::string &Value);

struct cTableOptionRow
{
    const char     *m_szName;  // as in cOptionRow
    const char     *m_szValue;
    const char     *m_szWanted;
    cTakeTableValue m_pTake;
    const char     *m_szHelp;
};

const int                    kTableOptions = 6;
extern const cTableOptionRow kTableRows[kTableOptions];

template <class cOptions, int nRow>
int TakeTableValue(void *pOptions, const std::string &Value, std::string *)
{
    return kTableRows[nRow].m_pTake(&static_cast<cOptions *>(pOptions)->m_Tables, Value);
}

// Appends the options' rows for a command whose options have a cTableOptions m_Tables.
template <class cOptions, int nRow = 0> void AppendTableRows(std::vector<cOptionRow> *pRows)
{
    if constexpr (nRow < kTableOptions)
    {
        const cTableOptionRow &Row = kTableRows[nRow];
        pRows->push_back({Row.m_szName, Row.m_szValue, Row.m_szWanted,
                          TakeTableValue<cOptions, nRow>, Row.m_szHelp});
        AppendTableRows<cOptions, nRow + 1>(pRows);
    }
}

// "" or why these options do not go together.
std::string WhyNoTable(const cTableOptions &Options);

#endif
