#include "figure/figure_legend.h"

#include <algorithm>

#include "figure/fitted_text.h"
#include "figure/palette.h"

// Pixels.
static const double kLegendSize     = 12.0;
static const double kBetweenEntries = 20.0;
static const double kBeforeText     = kSampleLength + 6.0;
static const double kLeastLabel     = 30.0;  // a narrower one would be little but its ellipsis

// The height of capitals in parts of a text's size.
static const double kLegendCapitals = 0.72;

static cTextStyle LegendStyle()
{
    return {kLegendSize, 0, kInk.m_crLight};
}

cFigureLegend::cFigureLegend(const cFigureCanvas &Canvas, const std::vector<std::string> &Labels)
    : m_Canvas(Canvas), m_Labels(Labels)
{
}

double cFigureLegend::WidthOf(const std::string &Text) const
{
    return m_Canvas.TextWidth({{Text}}, LegendStyle());
}

int cFigureLegend::Arrange(double dWidth, size_t nMostRows, int bColumn)
{
    if (dWidth < kBeforeText + kLeastLabel || nMostRows == 0)
        return 0;
    Flow(dWidth, nMostRows, bColumn);
    if (m_nRows > nMostRows && !CountTheRest(dWidth, nMostRows))
        return 0;
    m_dWidth = m_More.empty() ? 0.0 : kBeforeText + WidthOf(m_More);
    for (const cEntry &Entry : m_Entries)
        m_dWidth = std::max(m_dWidth, Entry.m_dX + kBeforeText + WidthOf(Entry.m_Text));
    return 1;
}

// Up to the first entry that would be in a row too many.
void cFigureLegend::Flow(double dWidth, size_t nMostRows, int bColumn)
{
    double dUsed = 0.0;
    m_Entries.clear();
    m_More.clear();
    m_nRows = 0;
    for (size_t nLine = 0; nLine < m_Labels.size() && m_nRows <= nMostRows; nLine++)
    {
        const std::string Text =
            FitText(m_Canvas, m_Labels[nLine], LegendStyle(), dWidth - kBeforeText);
        const double dEntry = kBeforeText + WidthOf(Text);
        if (m_nRows == 0 || bColumn || dUsed + dEntry > dWidth)
        {
            m_nRows++;
            dUsed = 0.0;
        }
        m_Entries.push_back({nLine, m_nRows - 1, dUsed, Text});
        dUsed += dEntry + kBetweenEntries;
    }
}

// Gives the last row to the number of what is missing.
int cFigureLegend::CountTheRest(double dWidth, size_t nMostRows)
{
    m_nRows = nMostRows;
    while (!m_Entries.empty() && m_Entries.back().m_nRow + 1 >= m_nRows)
        m_Entries.pop_back();
    m_More = "and " + std::to_string(m_Labels.size() - m_Entries.size()) + " more";
    return !m_Entries.empty() && kBeforeText + WidthOf(m_More) <= dWidth;
}

cPlacedText cFigureLegend::PlacedText(const cSpot &UpperLeft, double dX, size_t nRow,
                                      const std::string &Text) const
{
    const double dMiddle = UpperLeft.m_dY + (static_cast<double>(nRow) + 0.5) * kLegendRowHeight;
    return {{UpperLeft.m_dX + dX + kBeforeText, dMiddle + kLegendSize * kLegendCapitals / 2},
            taStart,
            0,
            {{Text}},
            LegendStyle()};
}

void cFigureLegend::Place(const cSpot &UpperLeft, cFigureLayout *pLayout) const
{
    for (const cEntry &Entry : m_Entries)
    {
        const double dMiddle =
            UpperLeft.m_dY + (static_cast<double>(Entry.m_nRow) + 0.5) * kLegendRowHeight;
        pLayout->m_Legend.push_back(
            {Entry.m_nLine,
             {UpperLeft.m_dX + Entry.m_dX, dMiddle},
             PlacedText(UpperLeft, Entry.m_dX, Entry.m_nRow, Entry.m_Text)});
    }
    if (!m_More.empty())
        pLayout->m_AxisTexts.push_back(PlacedText(UpperLeft, 0.0, m_nRows - 1, m_More));
}
