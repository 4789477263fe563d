#include "graph/svg_canvas.h"

#include <cstring>
#include <iterator>
#include <string_view>

#include "graph/svg_font.h"
#include "graph/vantor_data_set.h"
#include "toolkit/utf8.h"

// Pixels drawn and left out, in turn, by the style of a pen of width 1. A style
// without a row here must not compile: it would read past the end.
static const char *const kDashes[] = {"", "18 6", "3 3", "9 6 3 6", "9 3 3 3 3 3"};
static_assert(std::size(kDashes) == kStyles);

static const char *const kAnchors[] = {"", " text-anchor=\"middle\"", " text-anchor=\"end\""};

// Characters that an SVG file may not contain unescaped, or not everywhere.
static const char *Escaped(std::string_view Character)
{
    if (Character == "<")
        return "&lt;";
    if (Character == ">")
        return "&gt;";
    if (Character == "&")
        return "&amp;";
    if (Character == "\t")
        return " ";
    const int bControl   = Character.size() == 1 && static_cast<unsigned char>(Character[0]) < ' ';
    const int bForbidden = Character == "\xEF\xBF\xBE" || Character == "\xEF\xBF\xBF";
    return bControl || bForbidden ? kReplacementCharacter : nullptr;
}

cSvgCanvas::cSvgCanvas(FILE *pFile, int nWidth, int nHeight, std::string_view Title,
                       std::string_view Description)
    : m_pFile(pFile), m_nClips(0)
{
    fprintf(m_pFile,
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%d\" height=\"%d\" "
            "viewBox=\"0 0 %d %d\"%s font-family=\"%s\" font-size=\"%d\" "
            "xml:space=\"preserve\">\n",
            nWidth, nHeight, nWidth, nHeight, Title.empty() ? "" : " role=\"img\"", kSvgFontFamily,
            kSvgFontSize);
    if (Title.empty())
        return;
    WriteElement("title", Title);
    WriteElement("desc", Description);
}

void cSvgCanvas::End()
{
    fputs("</svg>\n", m_pFile);
}

int cSvgCanvas::TextHeight() const
{
    return kSvgTextHeight;
}

int cSvgCanvas::TextWidth(const char *szText) const
{
    return SvgTextWidth(szText);
}

void cSvgCanvas::FillBox(const cRect &Rect, uint32_t crColour)
{
    if (Rect.IsEmpty())
        return;
    fprintf(m_pFile, "<rect x=\"%d\" y=\"%d\" width=\"%d\" height=\"%d\"", Rect.m_nLeft,
            Rect.m_nTop, Rect.Width(), Rect.Height());
    WriteColour("fill", crColour);
    fputs("/>\n", m_pFile);
}

void cSvgCanvas::Polylines(const cPoint *pPoints, const uint32_t *pCounts, size_t nLines,
                           const cPlotPen &Pen)
{
    fputs("<path d=\"", m_pFile);
    for (size_t nLine = 0; nLine < nLines; nLine++)
    {
        WriteLine(pPoints, pCounts[nLine]);
        pPoints += pCounts[nLine];
    }
    WritePen(Pen);
}

void cSvgCanvas::Polyline(const cPoint *pPoints, size_t nPoints, const cPlotPen &Pen)
{
    fputs("<path d=\"", m_pFile);
    WriteLine(pPoints, nPoints);
    WritePen(Pen);
}

void cSvgCanvas::Polygons(const cPoint *pPoints, const int32_t *pCounts, size_t nPolygons,
                          uint32_t crColour)
{
    fputs("<path d=\"", m_pFile);
    for (size_t nPolygon = 0; nPolygon < nPolygons; nPolygon++)
    {
        for (int nCorner = 0; nCorner < pCounts[nPolygon]; nCorner++)
            WriteCenter(nCorner == 0 ? 'M' : 'L', *pPoints++);
        fputc('Z', m_pFile);
    }
    fputc('"', m_pFile);
    WriteColour("fill", crColour);
    WriteColour("stroke", crColour);
    fputs(" stroke-linejoin=\"round\"/>\n", m_pFile);
}

// Blanks at the ends count for the place of a text and are not written: they
// are not treated the same by all who show the file.
void cSvgCanvas::Label(cPoint At, eAlign nAlign, const char *szText, uint32_t crColour)
{
    const int nBlank    = SvgTextWidth(" ");
    const int nBefore   = static_cast<int>(strspn(szText, " "));
    size_t    nLength   = strlen(szText + nBefore);
    int       nTrailing = 0;
    for (; nLength > 0 && szText[nBefore + nLength - 1] == ' '; nLength--)
        nTrailing++;
    if (nLength == 0)
        return;
    const int nFromLeft[] = {2 * nBefore, nBefore - nTrailing, -2 * nTrailing};
    const int nX          = At.m_nX + nFromLeft[nAlign] * nBlank / 2;

    fprintf(m_pFile, "<text x=\"%d\" y=\"%d\"%s", nX, At.m_nY + kSvgAscent, kAnchors[nAlign]);
    WriteColour("fill", crColour);
    fputc('>', m_pFile);
    WriteText({szText + nBefore, nLength});
    fputs("</text>\n", m_pFile);
}

void cSvgCanvas::PushClip(const cRect &Rect)
{
    m_nClips++;
    fprintf(m_pFile,
            "<clipPath id=\"clip%d\"><rect x=\"%d\" y=\"%d\" width=\"%d\" height=\"%d\"/>"
            "</clipPath>\n"
            "<g clip-path=\"url(#clip%d)\">\n",
            m_nClips, Rect.m_nLeft, Rect.m_nTop, Rect.Width(), Rect.Height(), m_nClips);
}

void cSvgCanvas::PopClip()
{
    fputs("</g>\n", m_pFile);
}

// A command of a path that ends in the middle of a pixel.
void cSvgCanvas::WriteCenter(char cCommand, cPoint At)
{
    fputc(cCommand, m_pFile);
    WriteHalf(At.m_nX);
    fputc(' ', m_pFile);
    WriteHalf(At.m_nY);
}

// n + 0.5, which is what a pixel's middle is from its edge.
void cSvgCanvas::WriteHalf(int n)
{
    if (n >= 0)
        fprintf(m_pFile, "%d.5", n);
    else
        fprintf(m_pFile, "-%d.5", -(n + 1));
}

// A line along an axis covers whole pixels, from its first one to the one
// before its last; any other goes from middle to middle.
void cSvgCanvas::WriteLine(const cPoint *pPoints, size_t nPoints)
{
    const cPoint &From = pPoints[0];
    const cPoint &To   = pPoints[1];
    if (nPoints == 2 && From.m_nY == To.m_nY && From.m_nX < To.m_nX)
    {
        fprintf(m_pFile, "M%d ", From.m_nX);
        WriteHalf(From.m_nY);
        fprintf(m_pFile, "H%d", To.m_nX);
        return;
    }
    if (nPoints == 2 && From.m_nX == To.m_nX && From.m_nY < To.m_nY)
    {
        fputc('M', m_pFile);
        WriteHalf(From.m_nX);
        fprintf(m_pFile, " %dV%d", From.m_nY, To.m_nY);
        return;
    }
    for (size_t nPoint = 0; nPoint < nPoints; nPoint++)
        WriteCenter(nPoint == 0 ? 'M' : 'L', pPoints[nPoint]);
}

// Ends the element whose path has been written.
void cSvgCanvas::WritePen(const cPlotPen &Pen)
{
    fputs("\" fill=\"none\"", m_pFile);
    WriteColour("stroke", Pen.m_crColor);
    if (Pen.m_nWidth > 1)
        fprintf(m_pFile, " stroke-width=\"%u\"", static_cast<unsigned>(Pen.m_nWidth));
    else if (Pen.m_nStyle > 0 && Pen.m_nStyle < kStyles)
        fprintf(m_pFile, " stroke-dasharray=\"%s\"", kDashes[Pen.m_nStyle]);
    fputs(" stroke-linejoin=\"round\"/>\n", m_pFile);
}

void cSvgCanvas::WriteColour(const char *szName, uint32_t crColour)
{
    fprintf(m_pFile, " %s=\"#%02x%02x%02x\"", szName, crColour & 0xFF, crColour >> 8 & 0xFF,
            crColour >> 16 & 0xFF);
}

void cSvgCanvas::WriteElement(const char *szName, std::string_view Text)
{
    fprintf(m_pFile, "<%s>", szName);
    WriteText(Text);
    fprintf(m_pFile, "</%s>\n", szName);
}

void cSvgCanvas::WriteText(std::string_view Text)
{
    while (!Text.empty())
    {
        const size_t           nValid    = Utf8Length(Text);
        const size_t           nUsed     = nValid > 0 ? nValid : 1;
        const std::string_view Character = Text.substr(0, nUsed);
        const char *const      szInstead = nValid > 0 ? Escaped(Character) : kReplacementCharacter;
        if (szInstead)
            fputs(szInstead, m_pFile);
        else
            fwrite(Character.data(), 1, nUsed, m_pFile);
        Text.remove_prefix(nUsed);
    }
}
