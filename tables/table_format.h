// table_format.h - how a table is written, as far as its reader has to be told.

#ifndef TABLES_TABLE_FORMAT_H
#define TABLES_TABLE_FORMAT_H

#include <cstdint>
#include <vector>

// Columns of a table.
const unsigned kMostColumns = 100000;

struct cTableFormat
{
    // The columns that are drawn, from 1: that of x, 0 for the number of the row, then
    // one of each data line. Empty: all; the first is x if the table says ExplicitX.
    std::vector<unsigned> m_Columns;

    uint64_t m_nSkip = 0;  // lines at the start that are not read

    // 0: numbers are separated by blanks, tabs, and at most one comma or semicolon;
    // text ends a row. Otherwise this character separates fields, which may be empty,
    // be in quotes or hold text.
    char m_cSeparator    = 0;
    int  m_bDecimalComma = 0;  // "1,5" is one number
};

#endif
