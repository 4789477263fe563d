// table.h - one text file as a table of numbers. It is read once to learn how many
// rows and columns it has and what is odd in it, and again whenever its points are
// wanted, unless it is small enough to be kept.

#ifndef TABLES_TABLE_H
#define TABLES_TABLE_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "figure/point_source.h"
#include "tables/kept_values.h"
#include "tables/row_reader.h"
#include "tables/table_findings.h"
#include "tables/table_format.h"
#include "tables/table_header.h"
#include "tables/table_lines.h"
#include "tables/table_watch.h"
#include "toolkit/disk_file.h"

// Rows, columns and x are those of graph/ascii_data_file.h: the same file gives the
// same data lines, rounded to doubles. But lines of any length are read, # begins a
// comment, semicolons separate, words such as nan are gaps, names before the first
// row are labels, and nothing is left out without a finding. With separate fields
// or chosen columns the first row says how many columns there are; what a row lacks
// is a gap.
class cTable
{
public:
    // File can be set back to its start. Format and pWatch (null: nobody) outlive
    // the table.
    cTable(const std::string &Name, cOpenFile File, const cTableFormat &Format,
           cTableWatch *pWatch);

    // Reads the file to its end, once. Returns 0 if it is no table, which a finding
    // then says, or if it cannot be read.
    int Scan(cKeptValues *pKept);

    // Hands out the points after Scan, as data lines from nFirstLine on. Returns 0
    // if the file cannot be read any more or has become shorter.
    int Read(cPointSink *pSink, size_t nFirstLine);

    // The rest is known after Scan.
    const std::string    &Name() const { return m_Name; }
    const cTableFindings &Findings() const { return m_Findings; }
    uint64_t              Rows() const { return m_nRows; }
    size_t                Lines() const { return m_Columns.size(); }
    std::string           LineLabel(size_t nLine) const;  // "": none
    const std::string    &Title() const { return m_Header.Title(); }
    std::string           XLabel() const;

    // 1 after a failure that no finding explains: of the file itself.
    int Failed() const { return m_bFailed; }

private:
    int    NextLine(cTableLines *pLines, std::string_view *pLine, cTableFindings *pFindings);
    int    Inspect(const cTableLines &Lines, std::string_view Line);
    void   TakeLine(std::string_view Line, unsigned nLine, cKeptValues *pKept);
    int    IsText(std::string_view Line);
    void   SkipHeading(const std::string &Why);
    int    BeginRows(std::string_view Row);
    int    TakeAllColumns(std::string_view Row, size_t nColumns);
    int    TakeChosenColumns(std::string_view Row, size_t nColumns);
    void   NameColumns(std::string_view FirstRow, size_t nColumns);
    void   ScanRow(std::string_view Row, cKeptValues *pKept);
    size_t ReadRow(std::string_view Row, double *pRow, cTableFindings *pFindings);
    void   JudgeCount(std::string_view Row, size_t nColumns);
    int    Finish(const cTableLines &Lines);
    void   HandOut(const double *pRow, uint64_t nRow, size_t nFirstLine, cPointSink *pSink) const;
    size_t FirstDrawnAfter(size_t nColumns) const;
    int    FewestCounts() const;
    std::string NameOf(size_t nColumn) const;

    const std::string   m_Name;
    cOpenFile           m_File;
    const cTableFormat &m_Format;
    cTableWatch        *m_pWatch;
    cRowReader          m_Reader;
    cTableFindings      m_Findings;
    cTableHeader        m_Header;

    std::string              m_Heading;       // the last text before the rows
    unsigned                 m_nHeadingLine;  // 0: none
    std::vector<std::string> m_Names;         // of the columns; empty: none

    size_t              m_nStride;   // columns that are read of a row
    size_t              m_nXColumn;  // from 1; 0: the number of the row
    std::vector<size_t> m_Columns;   // of the data lines, from 1
    size_t              m_nFewest;   // columns in a row
    std::vector<double> m_Row;       // m_nStride values
    uint64_t            m_nRows;
    unsigned            m_nFirstRowLine;
    const cKeptValues  *m_pKept;  // null: the rows are not kept
    size_t              m_nKeptFrom;
    uint64_t            m_nTold;  // bytes of this pass that the watch knows of
    int                 m_bFailed;
};

#endif
