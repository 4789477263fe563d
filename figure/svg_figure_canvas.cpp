#include "figure/svg_figure_canvas.h"

#include <cmath>

#include "figure/clean_text.h"
#include "figure/marker_shape.h"
#include "graph/svg_font.h"

static const char *const kTextAnchors[] = {"", " text-anchor=\"middle\"", " text-anchor=\"end\""};

static int64_t Hundredths(double dPixels)
{
    return std::llround(dPixels * 100.0);
}

cSvgFigureCanvas::cSvgFigureCanvas(FILE *pFile, int nWidth, int nHeight, double dScale)
    : m_pFile(pFile), m_nWidth(nWidth), m_nHeight(nHeight), m_dScale(dScale), m_nClips(0), m_nX(0),
      m_nY(0), m_cCommand(0), m_Marker{}
{
}

void cSvgFigureCanvas::Begin(const cFigureAbout &About)
{
    fputs("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
          "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"",
          m_pFile);
    WriteNumber(Hundredths(m_nWidth * m_dScale));
    fputs("\" height=\"", m_pFile);
    WriteNumber(Hundredths(m_nHeight * m_dScale));
    fprintf(m_pFile, "\" viewBox=\"0 0 %d %d\" role=\"img\" font-family=\"%s\">\n", m_nWidth,
            m_nHeight, kSvgFontFamily);
    WriteElement("title", About.m_Title);
    WriteElement("desc", About.m_Description);
    if (About.m_DarkStyle.empty())
        return;
    fputs("<style>@media (prefers-color-scheme: dark) {\n", m_pFile);
    fputs(About.m_DarkStyle.c_str(), m_pFile);
    fputs("}</style>\n", m_pFile);
}

int cSvgFigureCanvas::End()
{
    fputs("</svg>\n", m_pFile);
    return 1;
}

double cSvgFigureCanvas::TextWidth(const cFigureText &Text, const cTextStyle &Style) const
{
    // Bold letters are at most a tenth wider.
    const double dBold = Style.m_bBold ? 1.1 : 1.0;
    double       dEms  = 0.0;
    for (const cTextRun &Run : Text)
        dEms += SvgTextEms(CleanText(Run.m_Text)) * (Run.m_bRaised ? kRaisedSize : 1.0);
    return dEms * Style.m_dSize * dBold;
}

void cSvgFigureCanvas::BeginGroup(const char *szClasses, const std::string &Title)
{
    fprintf(m_pFile, "<g class=\"%s\">\n", szClasses);
    WriteElement("title", Title);
}

void cSvgFigureCanvas::EndGroup()
{
    fputs("</g>\n", m_pFile);
}

void cSvgFigureCanvas::PushClip(const cFigureBox &Box)
{
    m_nClips++;
    fprintf(m_pFile, "<clipPath id=\"clip%d\"><path d=\"", m_nClips);
    MoveTo({Box.m_dLeft, Box.m_dTop});
    LineTo({Box.m_dRight, Box.m_dTop});
    LineTo({Box.m_dRight, Box.m_dBottom});
    LineTo({Box.m_dLeft, Box.m_dBottom});
    fprintf(m_pFile, "z\"/></clipPath>\n<g clip-path=\"url(#clip%d)\">\n", m_nClips);
}

void cSvgFigureCanvas::PopClip()
{
    fputs("</g>\n", m_pFile);
}

void cSvgFigureCanvas::FillPolygon(std::span<const cSpot> Corners, uint32_t crColour)
{
    fputs("<path class=\"filled\"", m_pFile);
    WriteColour("fill", crColour);
    fputs(" d=\"", m_pFile);
    WritePolygon(Corners, {0.0, 0.0}, 1.0);
    fputs("\"/>\n", m_pFile);
}

// Round ends would lengthen dashes; without them a dot would be invisible.
void cSvgFigureCanvas::BeginLine(const cStroke &Stroke)
{
    fputs("<path class=\"drawn\" fill=\"none\"", m_pFile);
    WriteColour("stroke", Stroke.m_crColour);
    fputs(" stroke-width=\"", m_pFile);
    WriteNumber(Hundredths(Stroke.m_dWidth));
    fputs("\" stroke-linejoin=\"round\"", m_pFile);
    const std::span<const double> Dashes = Stroke.m_Dashes;
    if (!Dashes.empty())
        fputs(" stroke-dasharray=\"", m_pFile);
    else if (Stroke.m_bRoundEnds)
        fputs(" stroke-linecap=\"round\"", m_pFile);
    for (size_t nDash = 0; nDash < Dashes.size(); nDash++)
    {
        WriteNumber(Hundredths(Dashes[nDash] * Stroke.m_dWidth));
        fputc(nDash + 1 < Dashes.size() ? ' ' : '"', m_pFile);
    }
    fputs(" d=\"", m_pFile);
}

void cSvgFigureCanvas::MoveTo(const cSpot &Spot)
{
    m_nX = Hundredths(Spot.m_dX);
    m_nY = Hundredths(Spot.m_dY);
    fputc('M', m_pFile);
    WriteNumber(m_nX);
    WriteNext(m_nY);
    m_cCommand = 'M';
}

// Steps from point to point are shorter than places. They are between rounded
// places, so that errors do not add up.
void cSvgFigureCanvas::LineTo(const cSpot &Spot)
{
    const int64_t nX     = Hundredths(Spot.m_dX);
    const int64_t nY     = Hundredths(Spot.m_dY);
    const int64_t nStepX = nX - m_nX;
    const int64_t nStepY = nY - m_nY;
    WriteStep(nStepY == 0 ? 'h' : nStepX == 0 ? 'v' : 'l', nStepX, nStepY);
    m_nX = nX;
    m_nY = nY;
}

void cSvgFigureCanvas::EndLine()
{
    fputs("\"/>\n", m_pFile);
}

// Circles are dots of a thick line.
void cSvgFigureCanvas::BeginMarkers(const cMarkerLook &Look)
{
    m_Marker = Look;
    if (!CornersOfMarker(Look.m_nShape).empty())
    {
        fputs("<path class=\"filled\"", m_pFile);
        WriteColour("fill", Look.m_crColour);
        fputs(" d=\"", m_pFile);
        return;
    }
    fputs("<path class=\"drawn\" fill=\"none\"", m_pFile);
    WriteColour("stroke", Look.m_crColour);
    fputs(" stroke-width=\"", m_pFile);
    WriteNumber(Hundredths(Look.m_dSize));
    fputs("\" stroke-linecap=\"round\" d=\"", m_pFile);
}

void cSvgFigureCanvas::Marker(const cSpot &Spot)
{
    const std::span<const cSpot> Corners = CornersOfMarker(m_Marker.m_nShape);
    if (Corners.empty())
    {
        MoveTo(Spot);
        fputs("h0", m_pFile);
        return;
    }
    WritePolygon(Corners, Spot, m_Marker.m_dSize);
}

void cSvgFigureCanvas::EndMarkers()
{
    fputs("\"/>\n", m_pFile);
}

void cSvgFigureCanvas::Text(const cSpot &At, eTextAnchor nAnchor, int bTurned,
                            const cFigureText &Text, const cTextStyle &Style)
{
    if (bTurned)
    {
        fputs("<text transform=\"translate(", m_pFile);
        WriteSpot(At);
        fputs(")rotate(-90)\"", m_pFile);
    }
    else
    {
        fputs("<text x=\"", m_pFile);
        WriteNumber(Hundredths(At.m_dX));
        fputs("\" y=\"", m_pFile);
        WriteNumber(Hundredths(At.m_dY));
        fputc('"', m_pFile);
    }
    fputs(kTextAnchors[nAnchor], m_pFile);
    fputs(" font-size=\"", m_pFile);
    WriteNumber(Hundredths(Style.m_dSize));
    fputs(Style.m_bBold ? "\" font-weight=\"bold\"" : "\"", m_pFile);
    WriteColour("fill", Style.m_crColour);
    fputc('>', m_pFile);
    int bLifted = 0;
    for (const cTextRun &Run : Text)
        WriteRun(Run, Style, &bLifted);
    fputs("</text>\n", m_pFile);
}

// A shift moves all that follows, until it is taken back.
void cSvgFigureCanvas::WriteRun(const cTextRun &Run, const cTextStyle &Style, int *pbLifted)
{
    if (!Run.m_bRaised && !*pbLifted)
    {
        WriteEscaped(Run.m_Text);
        return;
    }
    const double dLift = (*pbLifted - Run.m_bRaised) * kRaisedLift * Style.m_dSize;
    fputs("<tspan dy=\"", m_pFile);
    WriteNumber(Hundredths(dLift));
    if (Run.m_bRaised)
    {
        fputs("\" font-size=\"", m_pFile);
        WriteNumber(Hundredths(Style.m_dSize * kRaisedSize));
    }
    fputs("\">", m_pFile);
    WriteEscaped(Run.m_Text);
    fputs("</tspan>", m_pFile);
    *pbLifted = Run.m_bRaised;
}

// 1250 as "12.5", -5 as "-.05".
void cSvgFigureCanvas::WriteNumber(int64_t nHundredths)
{
    if (nHundredths < 0)
        fputc('-', m_pFile);
    const auto nWhole = static_cast<unsigned long long>(std::llabs(nHundredths) / 100);
    const auto nPart  = static_cast<int>(std::llabs(nHundredths) % 100);
    if (nWhole > 0 || nPart == 0)
        fprintf(m_pFile, "%llu", nWhole);
    if (nPart > 0)
        fprintf(m_pFile, nPart % 10 == 0 ? ".%d" : ".%02d", nPart % 10 == 0 ? nPart / 10 : nPart);
}

// A number after another one: a minus separates, too.
void cSvgFigureCanvas::WriteNext(int64_t nHundredths)
{
    if (nHundredths >= 0)
        fputc(' ', m_pFile);
    WriteNumber(nHundredths);
}

// A command that goes on need not be repeated.
void cSvgFigureCanvas::WriteStep(char cCommand, int64_t nX, int64_t nY)
{
    const int64_t nFirst = cCommand == 'v' ? nY : nX;
    if (cCommand == m_cCommand)
        WriteNext(nFirst);
    else
    {
        fputc(cCommand, m_pFile);
        WriteNumber(nFirst);
    }
    if (cCommand == 'l')
        WriteNext(nY);
    m_cCommand = cCommand;
}

// Corners are relative to the spot, in parts of the size.
void cSvgFigureCanvas::WritePolygon(std::span<const cSpot> Corners, const cSpot &Spot, double dSize)
{
    for (size_t nCorner = 0; nCorner < Corners.size(); nCorner++)
    {
        const cSpot At = {Spot.m_dX + Corners[nCorner].m_dX * dSize,
                          Spot.m_dY + Corners[nCorner].m_dY * dSize};
        if (nCorner == 0)
            MoveTo(At);
        else
            LineTo(At);
    }
    fputc('z', m_pFile);
}

void cSvgFigureCanvas::WriteSpot(const cSpot &Spot)
{
    WriteNumber(Hundredths(Spot.m_dX));
    fputc(' ', m_pFile);
    WriteNumber(Hundredths(Spot.m_dY));
}

void cSvgFigureCanvas::WriteColour(const char *szName, uint32_t crColour)
{
    fprintf(m_pFile, " %s=\"#%02x%02x%02x\"", szName, crColour & 0xFF, crColour >> 8 & 0xFF,
            crColour >> 16 & 0xFF);
}

void cSvgFigureCanvas::WriteEscaped(const std::string &Text)
{
    for (const char c : CleanText(Text))
        if (c == '<')
            fputs("&lt;", m_pFile);
        else if (c == '>')
            fputs("&gt;", m_pFile);
        else if (c == '&')
            fputs("&amp;", m_pFile);
        else
            fputc(c, m_pFile);
}

void cSvgFigureCanvas::WriteElement(const char *szName, const std::string &Text)
{
    if (Text.empty())
        return;
    fprintf(m_pFile, "<%s>", szName);
    WriteEscaped(Text);
    fprintf(m_pFile, "</%s>\n", szName);
}
