#include "figure/figure.h"

#include "figure/dashes.h"

static const double kLineWidth  = 1.5;
static const double kMarkerSize = 5.0;

// Shapes in the order in which lines get them.
static const uint32_t kShapes[] = {kCircle, 1, 0, 2};

template <class cValue>
static cValue Chosen(const std::optional<cValue> &OfLine, const std::optional<cValue> &OfAll,
                     cValue Otherwise)
{
    return OfLine.value_or(OfAll.value_or(Otherwise));
}

cLineLook LookOfLine(const cFigure &Figure, size_t nLine)
{
    static const cChosenLook s_Nothing;
    const auto               Found  = Figure.m_LineLooks.find(nLine);
    const cChosenLook       &OfLine = Found == Figure.m_LineLooks.end() ? s_Nothing : Found->second;
    const cChosenLook       &OfAll  = Figure.m_Look;
    const auto               Inks   = Figure.m_pPalette->m_Inks;
    const size_t             nRound = nLine / Inks.size();
    const uint32_t           nInk   = Inks[nLine % Inks.size()].m_crLight;
    const auto               nDash  = static_cast<uint32_t>(nRound % kStyles);

    const uint32_t nType  = Chosen<uint32_t>(OfLine.m_nType, OfAll.m_nType, gtPlot);
    const uint32_t nStyle = Chosen(OfLine.m_nStyle, OfAll.m_nStyle, nDash);
    const uint32_t nShape =
        Chosen(OfLine.m_nShape, OfAll.m_nShape, kShapes[nRound % std::size(kShapes)]);
    const double dWidth = Chosen(OfLine.m_dWidth, OfAll.m_dWidth, kLineWidth);
    const double dSize  = Chosen(OfLine.m_dMarkerSize, OfAll.m_dMarkerSize, kMarkerSize);
    return {nType, {nInk, dWidth, DashesOfStyle(nStyle), 1}, {nInk, dSize, nShape}};
}

int HasScatter(const cFigure &Figure)
{
    int bScatter = Figure.m_Look.m_nType == gtScatter;
    for (const auto &Chosen : Figure.m_LineLooks)
        bScatter |= Chosen.second.m_nType == gtScatter;
    return bScatter;
}
