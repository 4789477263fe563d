#include "figure/picture_format.h"

#include "figure/cairo_canvas.h"
#include "figure/svg_figure_canvas.h"

static int IsSameWord(std::string_view Text, std::string_view Word)
{
    if (Text.size() != Word.size())
        return 0;
    for (size_t i = 0; i < Word.size(); i++)
        if ((Text[i] | 0x20) != Word[i])
            return 0;
    return 1;
}

std::optional<ePictureFormat> FormatOfWord(std::string_view Word)
{
    static const std::string_view s_Words[] = {"svg", "png", "pdf"};

    for (const ePictureFormat nFormat : {pfSvg, pfPng, pfPdf})
        if (IsSameWord(Word, s_Words[nFormat]))
            return nFormat;
    return std::nullopt;
}

std::optional<ePictureFormat> FormatOfName(std::string_view FileName)
{
    const size_t nDot = FileName.rfind('.');
    if (nDot == std::string_view::npos)
        return std::nullopt;
    return FormatOfWord(FileName.substr(nDot + 1));
}

int CanDraw(ePictureFormat nFormat)
{
    return nFormat == pfSvg || HasCairo();
}

std::unique_ptr<cFigureCanvas> MakeCanvas(ePictureFormat nFormat, FILE *pFile, int nWidth,
                                          int nHeight, double dScale)
{
    if (nFormat == pfSvg)
        return std::make_unique<cSvgFigureCanvas>(pFile, nWidth, nHeight, dScale);
    return MakeCairoCanvas(nFormat, pFile, nWidth, nHeight, dScale);
}
