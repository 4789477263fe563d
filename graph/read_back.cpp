#include "graph/read_back.h"

#include <cmath>
#include <cstring>

#include "graph/ascii_data_file.h"
#include "graph/short_line_reader.h"

static const size_t kMostText      = kShortLine - 1;  // of a line, its end apart
static const size_t kSeparatorText = 3;               // " , "
static const size_t kQuotesText    = 2;
static const size_t kTitleText     = 6;   // "Title "
static const size_t kAxisLabelText = 14;  // "HorzAxisLabel "
static const size_t kSetLabelsText = 10;  // "SetLabels "
static const size_t kDecimalsText  = 7;   // ".000000"
static const int    kBase          = 10;

// Bytes of a number as it is written: "-12.500000" has 10. Rounding to six decimals
// adds no digit: a float just below a power of ten is further away than that.
static size_t NumberText(float fValue)
{
    size_t       nDigits = 1;
    const double dAbs    = std::fabs(static_cast<double>(fValue));
    double       dPower  = kBase;
    while (dAbs >= dPower)
    {
        dPower *= kBase;
        nDigits++;
    }
    return (std::signbit(fValue) ? 1U : 0U) + nDigits + kDecimalsText;
}

static int FitsQuotes(const char *szText)
{
    return strpbrk(szText, "\"\r\n") == nullptr;
}

// The labels fill one line, whether they are there or not.
static const char *LabelProblem(const cAsciiDataFile &File)
{
    size_t nLine   = kSetLabelsText + (File.SetCount() - 1) * kSeparatorText;
    int    bLabels = 0;
    for (uint32_t nSet = 1; nSet <= File.SetCount(); nSet++)
    {
        const char *const szLabel = File.Label(nSet);
        nLine += kQuotesText;
        if (!szLabel)
            continue;
        bLabels = 1;
        nLine += strlen(szLabel);
        if (!FitsQuotes(szLabel))
            return "the label of a data line contains a quotation mark";
    }
    return bLabels && nLine > kMostText ? "the labels of the data lines are too long together"
                                        : nullptr;
}

static const char *RowProblem(const cAsciiDataFile &File, uint32_t nRow)
{
    size_t nLine = (File.SetCount() - 1) * kSeparatorText;
    if (File.XValues())
    {
        const float fX = File.XValues()[nRow];
        if (!std::isfinite(fX))
            return "a value is no finite number";
        nLine += NumberText(fX) + kSeparatorText;
    }
    for (uint32_t nSet = 1; nSet <= File.SetCount(); nSet++)
    {
        const float fY = File.YValues(nSet)[nRow];
        if (!std::isfinite(fY))
            return "a value is no finite number";
        nLine += NumberText(fY);
    }
    return nLine > kMostText ? "a row of numbers is too long" : nullptr;
}

const char *ReadBackProblem(const cAsciiDataFile &File)
{
    if (!FitsQuotes(File.Title()) || !FitsQuotes(File.HorzLabel()))
        return "the title or the axis label contains a quotation mark";
    if (kTitleText + strlen(File.Title()) + kQuotesText > kMostText)
        return "the title is too long";
    if (kAxisLabelText + strlen(File.HorzLabel()) + kQuotesText > kMostText)
        return "the label of the x axis is too long";
    const char *szProblem = LabelProblem(File);
    for (uint32_t nRow = 0; !szProblem && nRow < File.RowCount(); nRow++)
        szProblem = RowProblem(File, nRow);
    return szProblem;
}
