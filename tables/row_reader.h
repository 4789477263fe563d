// row_reader.h - the numbers of a line of a table.

#ifndef TABLES_ROW_READER_H
#define TABLES_ROW_READER_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tables/table_findings.h"
#include "tables/table_format.h"

// The text without the spaces, tabs, vertical tabs and form feeds in front of it.
std::string_view WithoutBlanks(std::string_view Text);

class cRowReader
{
public:
    struct cCount
    {
        size_t m_nColumns;
        size_t m_nNumbers;  // in columns that are drawn; words for gaps count
    };

    // Format outlives the reader.
    explicit cRowReader(const cTableFormat &Format);

    // Stores the values of the first nRoom columns; NaN is a gap. Columns after the
    // last one that is drawn may remain unread. pFindings may be null. With separate
    // fields, an empty one at the end of the line is no column.
    //
    //     1, 2 3 label        3 columns, text after column 3 ignored
    //     1;;x;               with the separator ';' 3 columns: 1, a gap, a gap
    cCount Read(std::string_view Line, double *pValues, size_t nRoom, cTableFindings *pFindings);

    // 1 if the line is skipped: an empty one, or one that begins with #, // or ;.
    int IsComment(std::string_view Line) const;

    // The names of a heading, one for each column. Without a separator in the format,
    // a semicolon in the line separates names, else a comma, else a tab, else blanks.
    std::vector<std::string> Names(std::string_view Line) const;

private:
    void        ReadNumbers(std::string_view Line);
    void        ReadFields(std::string_view Line);
    const char *ReadNumber(const char *pText, const char *pEnd, int bAll);
    void        ReadField(std::string_view Field);
    void        Store(double dValue);
    const char *SkipBetween(const char *pText, const char *pEnd);
    int         IsWanted() const;
    int         IsListening(eTableWarning nWarning) const;
    void        WarnOfRest(std::string_view Rest, int bAfterBlank);

    const cTableFormat &m_Format;
    const char          m_cPoint;
    const size_t        m_nLastColumn;  // the last one that is drawn; 0: all are
    std::vector<char>   m_Wanted;       // by columns from 0; empty: all

    // While a row is read.
    double         *m_pValues;
    size_t          m_nRoom;
    cTableFindings *m_pFindings;
    cCount          m_Count;
    unsigned        m_nBetween;  // what has separated its numbers
};

#endif
