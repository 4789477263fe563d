#include "tables/table.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "graph/vantor_data_set.h"

static const char kByteOrderMark[] = "\xEF\xBB\xBF";

static const char kNoY[] = "Error: 1 number where x and y are needed";

static int BeginsWith(std::string_view Text, std::string_view Start)
{
    return Text.substr(0, Start.size()) == Start;
}

// With a byte order mark or without: one of the first two bytes is 0.
static int IsUtf16(std::string_view FirstLine)
{
    return BeginsWith(FirstLine, "\xFF\xFE") || BeginsWith(FirstLine, "\xFE\xFF") ||
           FirstLine.substr(0, 2).find('\0') != std::string_view::npos;
}

cTable::cTable(const std::string &Name, cOpenFile File, const cTableFormat &Format,
               cTableWatch *pWatch)
    : m_Name(Name), m_File(std::move(File)), m_Format(Format), m_pWatch(pWatch), m_Reader(Format),
      m_nHeadingLine(0), m_nStride(0), m_nXColumn(0), m_nFewest(0), m_nRows(0), m_nFirstRowLine(0),
      m_pKept(nullptr), m_nKeptFrom(0), m_nTold(0), m_bFailed(0)
{
}

int cTable::Scan(cKeptValues *pKept)
{
    cTableLines Lines(m_File.get());
    m_pKept     = pKept;
    m_nKeptFrom = pKept->Used();
    m_nTold     = 0;
    std::string_view Line;
    while (!m_Findings.IsRefused() && NextLine(&Lines, &Line, &m_Findings))
        TakeLine(Line, Lines.LineNumber(), pKept);
    return Finish(Lines);
}

int cTable::Read(cPointSink *pSink, size_t nFirstLine)
{
    if (m_pKept)
    {
        const double *pRow = m_pKept->From(m_nKeptFrom);
        for (uint64_t nRow = 0; nRow < m_nRows; nRow++, pRow += m_nStride)
            HandOut(pRow, nRow, nFirstLine, pSink);
        return 1;
    }
    cTableLines      Lines(m_File.get());
    std::string_view Line;
    m_bFailed = !Lines.Rewind();
    m_nTold   = 0;
    for (uint64_t nRow = 0; nRow < m_nRows && !m_bFailed; nRow++)
    {
        do
            m_bFailed = !NextLine(&Lines, &Line, nullptr);
        while (!m_bFailed && Lines.LineNumber() < m_nFirstRowLine);
        if (m_bFailed)
            break;
        ReadRow(Line, m_Row.data(), nullptr);
        HandOut(m_Row.data(), nRow, nFirstLine, pSink);
    }
    return !m_bFailed;
}

// The next line that is not skipped, without a byte order mark.
int cTable::NextLine(cTableLines *pLines, std::string_view *pLine, cTableFindings *pFindings)
{
    while (pLines->Next(pLine))
    {
        if (m_pWatch && pLines->BytesRead() > m_nTold)
        {
            m_pWatch->Advance(pLines->BytesRead() - m_nTold);
            m_nTold = pLines->BytesRead();
        }
        if (pFindings && !Inspect(*pLines, *pLine))
            return 0;
        if (pLines->LineNumber() == 1 && BeginsWith(*pLine, kByteOrderMark))
            pLine->remove_prefix(sizeof kByteOrderMark - 1);
        if (pLines->LineNumber() > m_Format.m_nSkip && !m_Reader.IsComment(*pLine))
            return 1;
    }
    return 0;
}

// What is odd in a line whether it is read or skipped. Returns 0 if the table is
// refused.
int cTable::Inspect(const cTableLines &Lines, std::string_view Line)
{
    m_Findings.SetLine(Lines.LineNumber(), Line);
    if (Lines.EndedWithCr())
        m_Findings.Warn(twLoneCr, Line.substr(Line.size()));
    if (Lines.LineNumber() > 1)
        return 1;
    if (IsUtf16(Line))
        m_Findings.Refuse("utf-16", Line, "Error: this is UTF-16; save the file as UTF-8");
    if (BeginsWith(Line, kByteOrderMark))
        m_Findings.Warn(twByteOrderMark, Line);
    return !m_Findings.IsRefused();
}

void cTable::TakeLine(std::string_view Line, unsigned nLine, cKeptValues *pKept)
{
    m_Findings.SetLine(nLine, Line);
    if (m_nRows == 0)
    {
        if (m_Header.Take(WithoutBlanks(Line), &m_Findings))
            return;
        if (IsText(Line))
        {
            SkipHeading("");
            m_Heading      = Line;
            m_nHeadingLine = nLine;
            return;
        }
        m_nFirstRowLine = nLine;
        if (!BeginRows(Line))
            return;
    }
    ScanRow(Line, pKept);
}

int cTable::IsText(std::string_view Line)
{
    return m_Reader.Read(Line, nullptr, 0, nullptr).m_nNumbers == 0;
}

// Reports the text before the rows, if there is one that is not names. The text
// itself says Why unless there is something else to say.
void cTable::SkipHeading(const std::string &Why)
{
    if (m_nHeadingLine == 0)
        return;
    const std::string_view Text = WithoutBlanks(m_Heading);
    m_Findings.SetLine(m_nHeadingLine, m_Heading);
    m_Findings.Warn(twHeadingSkipped, Text, {Why.empty() ? QuotedWord(Text) : Why});
    m_nHeadingLine = 0;
}

// Row is the first one. Returns 0 if it is refused.
int cTable::BeginRows(std::string_view Row)
{
    const size_t nColumns = m_Reader.Read(Row, nullptr, 0, nullptr).m_nColumns;
    const int    bTaken   = m_Format.m_Columns.empty() ? TakeAllColumns(Row, nColumns)
                                                       : TakeChosenColumns(Row, nColumns);
    m_Row.resize(m_nStride);
    m_nFewest = m_nStride;
    return bTaken;
}

int cTable::TakeAllColumns(std::string_view Row, size_t nColumns)
{
    NameColumns(Row, nColumns);
    m_nStride  = m_Format.m_cSeparator ? std::max(nColumns, m_Names.size()) : nColumns;
    m_nXColumn = m_Header.ExplicitX() ? 1 : 0;
    if (m_nStride > kMostColumns)
    {
        m_Findings.Refuse("columns", Row, "Error: more than 100000 columns");
        return 0;
    }
    for (size_t nColumn = m_nXColumn + 1; nColumn <= m_nStride; nColumn++)
        m_Columns.push_back(nColumn);
    if (m_Columns.empty())
        m_Findings.Refuse("no-number", WithoutBlanks(Row), kNoY);
    return !m_Columns.empty();
}

int cTable::TakeChosenColumns(std::string_view Row, size_t nColumns)
{
    const std::vector<unsigned> &Chosen = m_Format.m_Columns;
    m_nXColumn                          = Chosen[0];
    m_Columns.assign(Chosen.begin() + 1, Chosen.end());
    m_nStride = *std::max_element(Chosen.begin(), Chosen.end());
    NameColumns(Row, m_nStride);
    if (nColumns >= m_nStride || m_Names.size() >= m_nStride)
        return 1;
    m_Findings.Refuse("no-column", Row,
                      "Error: there is no column " + std::to_string(m_nStride) +
                          ": the first row has " + std::to_string(nColumns));
    return 0;
}

// Takes the text before the rows as names, if there are as many as columns; with
// separate fields or chosen columns there may be more.
void cTable::NameColumns(std::string_view FirstRow, size_t nColumns)
{
    if (m_nHeadingLine == 0)
        return;
    m_Names                = m_Reader.Names(m_Heading);
    const int bMayBeLonger = m_Format.m_cSeparator || !m_Format.m_Columns.empty();
    if (m_Names.size() == nColumns || (bMayBeLonger && m_Names.size() > nColumns))
    {
        m_nHeadingLine = 0;
        return;
    }
    SkipHeading(CountText(m_Names.size(), "name") + " for " + CountText(nColumns, "column"));
    m_Findings.SetLine(m_nFirstRowLine, FirstRow);
    m_Names.clear();
}

void cTable::ScanRow(std::string_view Row, cKeptValues *pKept)
{
    double *pRow = m_pKept ? pKept->Extend(m_nStride) : nullptr;
    if (m_pKept && !pRow)
    {
        pKept->GoBack(m_nKeptFrom);
        m_pKept = nullptr;
    }
    const size_t nColumns = ReadRow(Row, pRow ? pRow : m_Row.data(), &m_Findings);
    if (nColumns != m_nStride)
        JudgeCount(Row, nColumns);
    m_nRows++;
}

// Returns how many columns the row has; what it lacks becomes a gap.
size_t cTable::ReadRow(std::string_view Row, double *pRow, cTableFindings *pFindings)
{
    const size_t nColumns = m_Reader.Read(Row, pRow, m_nStride, pFindings).m_nColumns;
    for (size_t nColumn = nColumns; nColumn < m_nStride; nColumn++)
        pRow[nColumn] = std::numeric_limits<double>::quiet_NaN();
    return nColumns;
}

// A row that has not as many columns as the first one.
void cTable::JudgeCount(std::string_view Row, size_t nColumns)
{
    const std::string_view Text    = WithoutBlanks(Row);
    const std::string      Numbers = CountText(nColumns, "number");
    if (nColumns == 0)
        return m_Findings.Refuse("no-number", Text, "Error: no number in " + QuotedWord(Text));
    if (FewestCounts() && nColumns <= m_nXColumn)
        return m_Findings.Refuse("no-number", Text, kNoY);
    if (nColumns > m_nStride)
        return m_Findings.Warn(twMoreNumbers, Text, {Numbers, std::to_string(m_nStride)});
    if (!FewestCounts())
        return m_Findings.Warn(twMissingColumn, Text.substr(Text.size()),
                               {Numbers, std::to_string(FirstDrawnAfter(nColumns))});
    m_nFewest = std::min(m_nFewest, nColumns);
    m_Findings.Warn(
        twFewerNumbers, Text,
        {Numbers, std::to_string(m_nStride), CountText(nColumns - m_nXColumn, "data line")});
}

// The first column that is drawn and that a row of nColumns lacks.
size_t cTable::FirstDrawnAfter(size_t nColumns) const
{
    size_t nFirst = m_nXColumn > nColumns ? m_nXColumn : m_nStride;
    for (const size_t nColumn : m_Columns)
        if (nColumn > nColumns)
            nFirst = std::min(nFirst, nColumn);
    return nFirst;
}

// 1 if the row with the fewest numbers says how many columns there are.
int cTable::FewestCounts() const
{
    return !m_Format.m_cSeparator && m_Format.m_Columns.empty();
}

int cTable::Finish(const cTableLines &Lines)
{
    m_bFailed = Lines.Failed();
    m_Findings.SetLine(Lines.LineNumber() + Lines.TooLong(), "");
    if (Lines.TooLong())
        m_Findings.Refuse("long-line", "", "Error: a line of more than 1 MB");
    else if (m_nRows == 0 && !m_bFailed && !m_Findings.IsRefused())
        m_Findings.RefuseOnly("no-data", "", "Error: the file ends without a row of numbers");
    m_Findings.Sort();
    while (!m_Columns.empty() && m_Columns.back() > m_nFewest && FewestCounts())
        m_Columns.pop_back();
    return !m_bFailed && !m_Findings.IsRefused();
}

void cTable::HandOut(const double *pRow, uint64_t nRow, size_t nFirstLine, cPointSink *pSink) const
{
    const double dX = m_nXColumn > 0 ? pRow[m_nXColumn - 1] : static_cast<double>(nRow);
    for (size_t nLine = 0; nLine < m_Columns.size(); nLine++)
        pSink->Take(nFirstLine + nLine, dX, pRow[m_Columns[nLine] - 1]);
}

// A plot that is saved as a data file has labels for the lines without one, too.
static int IsDefaultLabel(const std::string &Label, size_t nSet)
{
    char szDefault[kDefaultLabel];
    FormatDefaultLabel(static_cast<uint32_t>(nSet), szDefault);
    return Label.empty() || Label == szDefault;
}

// The label that the keywords or the heading give to a column; "" for none.
std::string cTable::NameOf(size_t nColumn) const
{
    const std::vector<std::string> &Labels = m_Header.Labels();
    const size_t                    nSet   = nColumn - (m_Header.ExplicitX() ? 1 : 0);
    if (nSet > 0 && nSet <= Labels.size() && !IsDefaultLabel(Labels[nSet - 1], nSet))
        return Labels[nSet - 1];
    return nColumn <= m_Names.size() ? m_Names[nColumn - 1] : "";
}

std::string cTable::LineLabel(size_t nLine) const
{
    return NameOf(m_Columns[nLine]);
}

std::string cTable::XLabel() const
{
    if (!m_Header.XLabel().empty() || m_nXColumn == 0)
        return m_Header.XLabel();
    return NameOf(m_nXColumn);
}
