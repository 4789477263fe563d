#include "figure/cairo_canvas.h"

#include <cmath>
#include <vector>

#include <cairo/cairo-pdf.h>

#include "figure/clean_text.h"
#include "figure/marker_shape.h"

// Arial and Helvetica are as wide; where none of them is installed the system
// chooses.
static const char *const kFamily = "Liberation Sans";

static const double kPointsPerPixel = 72.0 / 96.0;

static const double kTurn = 6.283185307179586;

// A path is drawn in pieces: the time that a stroke takes grows with the square of
// its length.
static const size_t kMostPathPoints = 500;

// The same of a PDF file, where each path also takes memory until the end.
static const int kMostPathMarkers = 100;

static cairo_status_t WriteToFile(void *pFile, const unsigned char *pBytes, unsigned nBytes)
{
    const size_t nWritten = fwrite(pBytes, 1, nBytes, static_cast<FILE *>(pFile));
    return nWritten == nBytes ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

namespace
{

class cCairoCanvas : public cFigureCanvas
{
public:
    // Takes over the surface.
    cCairoCanvas(cairo_surface_t *pSurface, ePictureFormat nFormat, FILE *pFile, double dScale);
    ~cCairoCanvas() override;
    cCairoCanvas(const cCairoCanvas &)            = delete;
    cCairoCanvas &operator=(const cCairoCanvas &) = delete;

    void   Begin(const cFigureAbout &About) override;
    int    End() override;
    double TextWidth(const cFigureText &Text, const cTextStyle &Style) const override;
    void   BeginGroup(const char *, const std::string &) override {}
    void   EndGroup() override {}
    void   PushClip(const cFigureBox &Box) override;
    void   PopClip() override { cairo_restore(m_pCairo); }
    void   FillPolygon(std::span<const cSpot> Corners, uint32_t crColour) override;
    void   BeginLine(const cStroke &Stroke) override;
    void   MoveTo(const cSpot &Spot) override;
    void   LineTo(const cSpot &Spot) override;
    void   EndLine() override { DrawPath(); }
    void   BeginMarkers(const cMarkerLook &Look) override;
    void   Marker(const cSpot &Spot) override;
    void   EndMarkers() override;
    void   Text(const cSpot &At, eTextAnchor nAnchor, int bTurned, const cFigureText &Text,
                const cTextStyle &Style) override;

private:
    void   SetColour(uint32_t crColour);
    void   SetFont(const cTextStyle &Style, int bRaised) const;
    double RunWidth(const cTextRun &Run, const cTextStyle &Style) const;
    void   SetDashes();
    void   DrawPath();

    cairo_surface_t *m_pSurface;
    cairo_t         *m_pCairo;
    ePictureFormat   m_nFormat;
    FILE            *m_pFile;
    cStroke          m_Stroke       = {};
    cMarkerLook      m_Marker       = {};
    cSpot            m_At           = {};
    size_t           m_nPathPoints  = 0;
    int              m_nPathMarkers = 0;
    double           m_dDrawn       = 0.0;  // length of the line's part, before the path
    double           m_dPath        = 0.0;  // length of the path
};

}  // namespace

cCairoCanvas::cCairoCanvas(cairo_surface_t *pSurface, ePictureFormat nFormat, FILE *pFile,
                           double dScale)
    : m_pSurface(pSurface), m_pCairo(cairo_create(pSurface)), m_nFormat(nFormat), m_pFile(pFile)
{
    cairo_scale(m_pCairo, dScale, dScale);
    cairo_set_line_join(m_pCairo, CAIRO_LINE_JOIN_ROUND);

    // Else the widths of letters would change with the scale.
    cairo_font_options_t *const pOptions = cairo_font_options_create();
    cairo_font_options_set_hint_metrics(pOptions, CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_hint_style(pOptions, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_antialias(pOptions, CAIRO_ANTIALIAS_GRAY);
    cairo_set_font_options(m_pCairo, pOptions);
    cairo_font_options_destroy(pOptions);
}

cCairoCanvas::~cCairoCanvas()
{
    cairo_destroy(m_pCairo);
    cairo_surface_destroy(m_pSurface);
}

void cCairoCanvas::Begin(const cFigureAbout &About)
{
    if (m_nFormat != pfPdf)
        return;
    cairo_pdf_surface_set_metadata(m_pSurface, CAIRO_PDF_METADATA_TITLE,
                                   CleanText(About.m_Title).c_str());
    cairo_pdf_surface_set_metadata(m_pSurface, CAIRO_PDF_METADATA_SUBJECT,
                                   CleanText(About.m_Description).c_str());
    // Else the time is in it, and the same figure is never the same file.
    cairo_pdf_surface_set_metadata(m_pSurface, CAIRO_PDF_METADATA_CREATE_DATE, "");
}

int cCairoCanvas::End()
{
    if (m_nFormat == pfPng)
        return cairo_status(m_pCairo) == CAIRO_STATUS_SUCCESS &&
               cairo_surface_write_to_png_stream(m_pSurface, WriteToFile, m_pFile) !=
                   CAIRO_STATUS_NO_MEMORY;
    cairo_surface_finish(m_pSurface);
    return cairo_status(m_pCairo) != CAIRO_STATUS_NO_MEMORY;
}

void cCairoCanvas::SetColour(uint32_t crColour)
{
    cairo_set_source_rgb(m_pCairo, (crColour & 0xFF) / 255.0, (crColour >> 8 & 0xFF) / 255.0,
                         (crColour >> 16 & 0xFF) / 255.0);
}

void cCairoCanvas::SetFont(const cTextStyle &Style, int bRaised) const
{
    cairo_select_font_face(m_pCairo, kFamily, CAIRO_FONT_SLANT_NORMAL,
                           Style.m_bBold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(m_pCairo, Style.m_dSize * (bRaised ? kRaisedSize : 1.0));
}

double cCairoCanvas::RunWidth(const cTextRun &Run, const cTextStyle &Style) const
{
    cairo_text_extents_t Extents;
    SetFont(Style, Run.m_bRaised);
    cairo_text_extents(m_pCairo, CleanText(Run.m_Text).c_str(), &Extents);
    return Extents.x_advance;
}

double cCairoCanvas::TextWidth(const cFigureText &Text, const cTextStyle &Style) const
{
    double dWidth = 0.0;
    for (const cTextRun &Run : Text)
        dWidth += RunWidth(Run, Style);
    return dWidth;
}

void cCairoCanvas::PushClip(const cFigureBox &Box)
{
    cairo_save(m_pCairo);
    cairo_rectangle(m_pCairo, Box.m_dLeft, Box.m_dTop, Box.Width(), Box.Height());
    cairo_clip(m_pCairo);
}

void cCairoCanvas::FillPolygon(std::span<const cSpot> Corners, uint32_t crColour)
{
    SetColour(crColour);
    for (const cSpot &Corner : Corners)
        cairo_line_to(m_pCairo, Corner.m_dX, Corner.m_dY);
    cairo_fill(m_pCairo);
}

void cCairoCanvas::BeginLine(const cStroke &Stroke)
{
    m_Stroke      = Stroke;
    m_nPathPoints = 0;
    m_dDrawn = m_dPath = 0.0;
    SetColour(Stroke.m_crColour);
    cairo_set_line_width(m_pCairo, Stroke.m_dWidth);
    const int bRound = Stroke.m_Dashes.empty() && Stroke.m_bRoundEnds;
    cairo_set_line_cap(m_pCairo, bRound ? CAIRO_LINE_CAP_ROUND : CAIRO_LINE_CAP_BUTT);
    SetDashes();
}

// The pattern goes on where the path before it ended.
void cCairoCanvas::SetDashes()
{
    std::vector<double> Lengths;
    for (const double dLength : m_Stroke.m_Dashes)
        Lengths.push_back(dLength * m_Stroke.m_dWidth);
    cairo_set_dash(m_pCairo, Lengths.data(), static_cast<int>(Lengths.size()), m_dDrawn);
}

void cCairoCanvas::DrawPath()
{
    if (m_nPathPoints > 1)
        cairo_stroke(m_pCairo);
    else
        cairo_new_path(m_pCairo);
    m_dDrawn += m_dPath;
    m_dPath       = 0.0;
    m_nPathPoints = 0;
}

void cCairoCanvas::MoveTo(const cSpot &Spot)
{
    DrawPath();
    m_dDrawn = 0.0;
    SetDashes();
    cairo_move_to(m_pCairo, Spot.m_dX, Spot.m_dY);
    m_At          = Spot;
    m_nPathPoints = 1;
}

void cCairoCanvas::LineTo(const cSpot &Spot)
{
    if (m_nPathPoints == kMostPathPoints)
    {
        DrawPath();
        SetDashes();
        cairo_move_to(m_pCairo, m_At.m_dX, m_At.m_dY);
        m_nPathPoints = 1;
    }
    m_nPathPoints++;
    m_dPath += std::hypot(Spot.m_dX - m_At.m_dX, Spot.m_dY - m_At.m_dY);
    cairo_line_to(m_pCairo, Spot.m_dX, Spot.m_dY);
    m_At = Spot;
}

void cCairoCanvas::BeginMarkers(const cMarkerLook &Look)
{
    m_Marker = Look;
    SetColour(Look.m_crColour);
}

void cCairoCanvas::Marker(const cSpot &Spot)
{
    cairo_new_sub_path(m_pCairo);
    const double                 dSize   = m_Marker.m_dSize;
    const std::span<const cSpot> Corners = CornersOfMarker(m_Marker.m_nShape);
    for (const cSpot &Corner : Corners)
        cairo_line_to(m_pCairo, Spot.m_dX + Corner.m_dX * dSize, Spot.m_dY + Corner.m_dY * dSize);
    if (Corners.empty())
        cairo_arc(m_pCairo, Spot.m_dX, Spot.m_dY, dSize / 2, 0.0, kTurn);
    cairo_close_path(m_pCairo);
    if (++m_nPathMarkers == (m_nFormat == pfPdf ? kMostPathMarkers : 1))
        EndMarkers();
}

void cCairoCanvas::EndMarkers()
{
    cairo_fill(m_pCairo);
    m_nPathMarkers = 0;
}

void cCairoCanvas::Text(const cSpot &At, eTextAnchor nAnchor, int bTurned, const cFigureText &Text,
                        const cTextStyle &Style)
{
    static const double s_Before[] = {0.0, 0.5, 1.0};

    cairo_save(m_pCairo);
    cairo_translate(m_pCairo, At.m_dX, At.m_dY);
    if (bTurned)
        cairo_rotate(m_pCairo, -kTurn / 4);
    SetColour(Style.m_crColour);
    double dX = -s_Before[nAnchor] * TextWidth(Text, Style);
    for (const cTextRun &Run : Text)
    {
        const double dWidth = RunWidth(Run, Style);
        cairo_move_to(m_pCairo, dX, Run.m_bRaised ? -kRaisedLift * Style.m_dSize : 0.0);
        cairo_show_text(m_pCairo, CleanText(Run.m_Text).c_str());
        dX += dWidth;
    }
    cairo_new_path(m_pCairo);
    cairo_restore(m_pCairo);
}

int HasCairo()
{
    return 1;
}

std::unique_ptr<cFigureCanvas> MakeCairoCanvas(ePictureFormat nFormat, FILE *pFile, int nWidth,
                                               int nHeight, double dScale)
{
    if (nFormat == pfPdf)
    {
        const double           dPoints  = dScale * kPointsPerPixel;
        cairo_surface_t *const pSurface = cairo_pdf_surface_create_for_stream(
            WriteToFile, pFile, nWidth * dPoints, nHeight * dPoints);
        return std::make_unique<cCairoCanvas>(pSurface, nFormat, pFile, dPoints);
    }
    cairo_surface_t *const pSurface = cairo_image_surface_create(
        CAIRO_FORMAT_RGB24, static_cast<int>(std::lround(nWidth * dScale)),
        static_cast<int>(std::lround(nHeight * dScale)));
    return std::make_unique<cCairoCanvas>(pSurface, nFormat, pFile, dScale);
}
