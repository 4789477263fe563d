#include "figure/figure_texts.h"

#include "figure/clean_text.h"

cFigureTexts TextsOfFigure(const cFigure &Figure, const cPointSource &Source)
{
    cFigureTexts Texts;
    Texts.m_Title  = CleanText(Figure.m_Title.value_or(Source.Title()));
    Texts.m_XLabel = CleanText(Figure.m_X.m_Label.value_or(Source.XLabel()));
    for (size_t nLine = 0; nLine < Source.Lines(); nLine++)
    {
        char        szDefault[kDefaultLabel];
        std::string Label = Source.LineLabel(nLine);
        FormatDefaultLabel(static_cast<uint32_t>(nLine + 1), szDefault);
        Texts.m_LineLabels.push_back(CleanText(Label.empty() ? szDefault : Label));
    }
    const int         bOnlyLine = Source.Lines() == 1 && Figure.m_nLegend == lwAuto;
    const std::string OfLine    = bOnlyLine ? Source.LineLabel(0) : "";
    Texts.m_YLabel              = CleanText(Figure.m_Y.m_Label.value_or(OfLine));
    return Texts;
}
