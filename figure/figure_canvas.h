// figure_canvas.h - where a figure is drawn: an SVG, PNG or PDF file, or a log in a
// test. It is all that the drawing of figures knows of a device.

#ifndef FIGURE_FIGURE_CANVAS_H
#define FIGURE_FIGURE_CANVAS_H

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

// In pixels of 1/96 inch, y down. Not rounded: the middle of the first pixel is
// at 0.5, 0.5.
struct cSpot
{
    double m_dX;
    double m_dY;
};

struct cFigureBox
{
    double Width() const { return m_dRight - m_dLeft; }
    double Height() const { return m_dBottom - m_dTop; }

    double m_dLeft;
    double m_dTop;
    double m_dRight;
    double m_dBottom;
};

struct cStroke
{
    uint32_t                m_crColour;
    double                  m_dWidth;      // pixels, above 0
    std::span<const double> m_Dashes;      // as DashesOfStyle(); empty for a solid line
    int                     m_bRoundEnds;  // of a solid line; it is longer by its width
};

// The marker shapes of the plot (kMarkerStyles) by their numbers, and one more.
const uint32_t kCircle        = 5;
const uint32_t kFigureMarkers = 6;

struct cMarkerLook
{
    uint32_t m_crColour;
    double   m_dSize;  // pixels, the diameter of a circle
    uint32_t m_nShape;
};

// A part of a text; raised is smaller and higher, as an exponent.
struct cTextRun
{
    std::string m_Text;
    int         m_bRaised = 0;
};

// One line, of any bytes. What is not valid UTF-8 and control characters are
// replaced when they are drawn.
typedef std::vector<cTextRun> cFigureText;

// Of a raised text, in parts of the size of the text before it.
const double kRaisedSize = 0.7;
const double kRaisedLift = 0.42;

struct cTextStyle
{
    double   m_dSize;  // pixels to the em
    int      m_bBold;
    uint32_t m_crColour;
};

// Which point of a text is at the given place: the left end of its base line, the
// middle or the right end.
enum eTextAnchor
{
    taStart,
    taMiddle,
    taEnd
};

// What a file says about the figure, besides drawing it.
struct cFigureAbout
{
    std::string m_Title;
    std::string m_Description;
    std::string m_DarkStyle;  // rules of CSS for a dark page; "": none
};

// Begin is called first and End last. Each call has its own look and does not
// affect later ones.
class cFigureCanvas
{
public:
    virtual ~cFigureCanvas() {}

    virtual void Begin(const cFigureAbout &About) = 0;
    virtual int  End() = 0;  // 0: the picture needs more memory than there is

    // In pixels. May be called before Begin.
    virtual double TextWidth(const cFigureText &Text, const cTextStyle &Style) const = 0;

    // What is drawn until EndGroup is one thing, of the classes named, with a title
    // unless it is empty. Groups nest.
    virtual void BeginGroup(const char *szClasses, const std::string &Title) = 0;
    virtual void EndGroup()                                                  = 0;

    // Until PopClip, drawing is limited to the box.
    virtual void PushClip(const cFigureBox &Box) = 0;
    virtual void PopClip()                       = 0;

    virtual void FillPolygon(std::span<const cSpot> Corners, uint32_t crColour) = 0;
    void         FillBox(const cFigureBox &Box, uint32_t crColour);

    // A line of any length, point by point: MoveTo begins each of its parts. A part
    // of two equal points is a dot if the line has round ends. Coordinates are within
    // +-32000.
    virtual void BeginLine(const cStroke &Stroke) = 0;
    virtual void MoveTo(const cSpot &Spot)        = 0;
    virtual void LineTo(const cSpot &Spot)        = 0;
    virtual void EndLine()                        = 0;

    virtual void BeginMarkers(const cMarkerLook &Look) = 0;
    virtual void Marker(const cSpot &Spot)             = 0;
    virtual void EndMarkers()                          = 0;

    // A turned text runs upwards; its left end is its lower one.
    virtual void Text(const cSpot &At, eTextAnchor nAnchor, int bTurned, const cFigureText &Text,
                      const cTextStyle &Style) = 0;
};

inline void cFigureCanvas::FillBox(const cFigureBox &Box, uint32_t crColour)
{
    const std::array<cSpot, 4> Corners = {{{Box.m_dLeft, Box.m_dTop},
                                           {Box.m_dRight, Box.m_dTop},
                                           {Box.m_dRight, Box.m_dBottom},
                                           {Box.m_dLeft, Box.m_dBottom}}};
    FillPolygon(Corners, crColour);
}

#endif
