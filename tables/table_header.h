// table_header.h - the lines before the first row: the keywords of a data file
// (graph/ascii_data_file.h) in their order, and a heading of names.

#ifndef TABLES_TABLE_HEADER_H
#define TABLES_TABLE_HEADER_H

#include <string>
#include <string_view>
#include <vector>

#include "tables/table_findings.h"

class cTableHeader
{
public:
    // Returns 1 if the line, without the blanks in front of it, is one of the header.
    // A keyword that has been passed is none any more.
    int Take(std::string_view Line, cTableFindings *pFindings);

    // 1 if the first column is the x of all data lines.
    int ExplicitX() const { return m_bExplicitX; }

    const std::string &Title() const { return m_Title; }
    const std::string &XLabel() const { return m_XLabel; }

    // Of the data lines in their order; there may be more or fewer than data lines.
    const std::vector<std::string> &Labels() const { return m_Labels; }

private:
    size_t                   m_nPassed    = 0;  // keywords
    int                      m_bExplicitX = 0;
    std::string              m_Title;
    std::string              m_XLabel;
    std::vector<std::string> m_Labels;
};

#endif
