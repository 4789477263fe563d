#include "figure/fitted_text.h"

#include "figure/clean_text.h"

static int Fits(const cFigureCanvas &Canvas, const std::string &Text, const cTextStyle &Style,
                double dWidth)
{
    return Canvas.TextWidth({{Text}}, Style) <= dWidth;
}

std::string FitText(const cFigureCanvas &Canvas, const std::string &CleanedText,
                    const cTextStyle &Style, double dWidth)
{
    if (Fits(Canvas, CleanedText, Style, dWidth))
        return CleanedText;
    size_t nFits = 0;
    size_t nMore = LengthInCharacters(CleanedText);
    while (nMore - nFits > 1)
    {
        const size_t nTried = nFits + (nMore - nFits) / 2;
        (Fits(Canvas, Elided(CleanedText, nTried), Style, dWidth) ? nFits : nMore) = nTried;
    }
    return Elided(CleanedText, nFits);
}

// The end of the longest beginning up to a blank that fits; npos if not even the
// first word does.
static size_t FindBreak(const cFigureCanvas &Canvas, const std::string &Text,
                        const cTextStyle &Style, double dWidth)
{
    size_t nBreak = std::string::npos;
    for (size_t nBlank = Text.find(' ', 1); nBlank != std::string::npos;
         nBlank        = Text.find(' ', nBlank + 1))
    {
        if (!Fits(Canvas, Text.substr(0, nBlank), Style, dWidth))
            break;  // nor does a longer one
        nBreak = nBlank;
    }
    return nBreak;
}

std::vector<std::string> WrapText(const cFigureCanvas &Canvas, const std::string &CleanedText,
                                  const cTextStyle &Style, double dWidth, size_t nMost)
{
    std::vector<std::string> Lines;
    std::string              Rest = CleanedText;
    while (!Rest.empty())
    {
        const size_t nBreak = Lines.size() + 1 < nMost && !Fits(Canvas, Rest, Style, dWidth)
                                  ? FindBreak(Canvas, Rest, Style, dWidth)
                                  : std::string::npos;
        if (nBreak == std::string::npos)
        {
            Lines.push_back(FitText(Canvas, Rest, Style, dWidth));
            break;
        }
        Lines.push_back(Rest.substr(0, nBreak));
        Rest.erase(0, nBreak + 1);
    }
    return Lines;
}
