#include "figure/figure_about.h"

#include <cmath>
#include <cstdio>

#include "figure/clean_text.h"

static const size_t kMostNamedLines = 3;
static const size_t kMostNameLength = 100;  // characters
static const int    kRangeDigits    = 3;    // of the length of a range
static const int    kMostDecimals   = 9;
static const double kMostFixed      = 1e15;
static const int    kMostPrecision  = 17;
static const int    kRangeText      = 40;

// Of a logarithmic axis, whose parts are as long as their values.
static std::string SignificantNumber(double dValue, int nDigits)
{
    char szText[kRangeText];
    snprintf(szText, sizeof szText, "%.*g", nDigits, dValue);
    return szText;
}

static std::string FixedNumber(double dValue, int nDecimals)
{
    char szText[kRangeText];
    snprintf(szText, sizeof szText, "%.*f", nDecimals, dValue);
    std::string Text = szText;
    if (nDecimals > 0)
        Text.erase(Text.find_last_not_of('0') + 1);
    if (Text.back() == '.')
        Text.pop_back();
    return Text == "-0" ? "0" : Text;
}

static int DecimalExponent(double dValue)
{
    return static_cast<int>(std::floor(std::log10(dValue)));
}

// To a thousandth of the range that it is from, which may be as long as all doubles.
static std::string NumberOf(double dValue, const cValueExtent &Range)
{
    const double dHalf = Range.m_dMax / 2 - Range.m_dMin / 2;
    if (!(dHalf > 0.0))
        return SignificantNumber(dValue, 2 * kRangeDigits);
    const int nLast = DecimalExponent(dHalf) - kRangeDigits + 1;  // digit
    if (std::fabs(dValue) < dHalf * std::pow(10.0, -kRangeDigits))
        return "0";
    if (std::fabs(dValue) < kMostFixed && nLast >= -kMostDecimals)
        return FixedNumber(dValue, nLast < 0 ? -nLast : 0);
    const int nDigits = DecimalExponent(std::fabs(dValue)) - nLast + 1;
    return SignificantNumber(dValue, nDigits < 1                ? 1
                                     : nDigits > kMostPrecision ? kMostPrecision
                                                                : nDigits);
}

static std::string RangeText(const std::string &Label, const char *szOtherwise,
                             const cValueExtent &Range, int bLog)
{
    const std::string From =
        bLog ? SignificantNumber(Range.m_dMin, kRangeDigits) : NumberOf(Range.m_dMin, Range);
    const std::string To =
        bLog ? SignificantNumber(Range.m_dMax, kRangeDigits) : NumberOf(Range.m_dMax, Range);
    return (Label.empty() ? szOtherwise : Label) + " from " + From + " to " + To;
}

static std::string Counted(uint64_t nCount, const char *szOf)
{
    return std::to_string(nCount) + " " + szOf + (nCount == 1 ? "" : "s");
}

static std::string Describe(const cFigure &Figure, const cFigureTexts &Texts,
                            const cFigureExtents &Extents)
{
    std::string Text = Counted(Texts.m_LineLabels.size(), "data line") + ", " +
                       Counted(Extents.m_nPoints, "point") + ".";
    if (!Extents.m_X.IsEmpty())
        Text += " " + RangeText(Texts.m_XLabel, "x", Extents.m_X, Figure.m_X.m_Range.m_bLog) +
                ", " + RangeText(Texts.m_YLabel, "y", Extents.m_Y, Figure.m_Y.m_Range.m_bLog) + ".";
    return Text;
}

// "height, speed and 3 more"; "" if no line has a label of its own.
static std::string NamesOfLines(const cPointSource &Source)
{
    std::string Names;
    size_t      nNamed = 0;
    for (size_t nLine = 0; nLine < Source.Lines() && nNamed < kMostNamedLines; nLine++)
    {
        const std::string Label = CleanText(Source.LineLabel(nLine));
        if (Label.empty())
            continue;
        Names += (Names.empty() ? "" : ", ") + Label;
        nNamed++;
    }
    const size_t nOthers = Source.Lines() - nNamed;
    return Names.empty() || nOthers == 0 ? Names
                                         : Names + " and " + std::to_string(nOthers) + " more";
}

static std::string NameOfFigure(const cFigure &Figure, const cPointSource &Source,
                                const cFigureTexts &Texts)
{
    std::string Name = Texts.m_YLabel.empty() ? NamesOfLines(Source) : Texts.m_YLabel;
    if (!Name.empty() && !Texts.m_XLabel.empty())
        Name += " over " + Texts.m_XLabel;
    if (Name.empty())
        Name = CleanText(Figure.m_Name);
    if (Name.empty())
        return "Plot";
    return LengthInCharacters(Name) > kMostNameLength ? Elided(Name, kMostNameLength) : Name;
}

cFigureAbout AboutFigure(const cFigure &Figure, const cPointSource &Source,
                         const cFigureTexts &Texts, const cFigureExtents &Extents)
{
    return {Texts.m_Title.empty() ? NameOfFigure(Figure, Source, Texts) : Texts.m_Title,
            Describe(Figure, Texts, Extents), ""};
}
