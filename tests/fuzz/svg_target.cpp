// svg_target.cpp - the input is a data file that is drawn as SVG. After a byte 0xFF:
// grid and legend, type of the lines, width, height, then a title in place of the
// file's.

#include "figure/figure_file.h"
#include "graph/graph_file_commands.h"
#include "tests/fuzz/fuzz_calculator.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/strict_xml.h"

static void SetLook(std::string_view Look, cVantorPlot *pPlot)
{
    pPlot->SetGrid(ByteAt(Look, 0) & 1, ByteAt(Look, 0) >> 1 & 1);
    pPlot->SetLegend(ByteAt(Look, 0) >> 2 & 1);
    if (Look.size() > 4)
        pPlot->SetTitle(std::string(Look.substr(4)).c_str());
    for (uint32_t nLine = 1; nLine <= pPlot->Count(); nLine++)
    {
        const cVantorDataSet &Set = *pPlot->DataSet(nLine);
        cVantorLineFormat     Line;
        Line.m_nGraphType = ByteAt(Look, 1) % 8;
        Line.m_crColor    = Set.m_crColor;
        Line.m_nWidth     = ByteAt(Look, 1) / 8 % 6;
        Line.m_nStyle     = ByteAt(Look, 1) / 48;
        pPlot->FormatDataSet(nLine, Line, Set.m_fMultiplier, Set.m_fOffset);
    }
}

void FuzzSvg(std::string_view Input)
{
    const cTwoParts      Parts = DivideInput(Input);
    const cScratchFolder Scratch;
    cFuzzHost            Host;
    WriteScratch("input.txt", Parts.m_Text);
    if (!OpenGraphFile(&Host.m_Plot, &Host, "input.txt"))
        return;
    SetLook(Parts.m_Rest, &Host.m_Plot);
    const int nWidth  = 1 + static_cast<int>(ByteAt(Parts.m_Rest, 2)) * 3;
    const int nHeight = 1 + static_cast<int>(ByteAt(Parts.m_Rest, 3)) * 3;

    FUZZ_CHECK(SaveWindowFigure(Host.m_Plot, nWidth, nHeight, {"plot.svg", pfSvg, 1.0}) == svDone);

    CheckXml(ReadScratch("plot.svg"));
}
