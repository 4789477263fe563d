// figure_log.h - a canvas for tests that keeps what is drawn of a figure. All
// characters of its font are equally wide, half as wide as the text's size unless a
// test wants another font.

#ifndef TESTS_UNIT_FIGURE_LOG_H
#define TESTS_UNIT_FIGURE_LOG_H

#include <string>
#include <vector>

#include "figure/clean_text.h"
#include "figure/figure_canvas.h"

class cFigureLog : public cFigureCanvas
{
public:
    struct cLogText
    {
        cFigureBox Box() const  // what the text covers, capitals and below
        {
            const double dLeft = -0.5 * static_cast<int>(m_nAnchor) * m_dWidth;
            if (m_bTurned)
                return {m_At.m_dX - 0.72 * m_dSize, m_At.m_dY - dLeft - m_dWidth,
                        m_At.m_dX + 0.22 * m_dSize, m_At.m_dY - dLeft};
            return {m_At.m_dX + dLeft, m_At.m_dY - 0.72 * m_dSize, m_At.m_dX + dLeft + m_dWidth,
                    m_At.m_dY + 0.22 * m_dSize};
        }

        std::string m_Text;
        cSpot       m_At;
        eTextAnchor m_nAnchor;
        int         m_bTurned;
        double      m_dSize;
        double      m_dWidth;
        std::string m_Group;
    };

    struct cLogLine
    {
        std::vector<std::vector<cSpot>> m_Parts;
        cStroke                         m_Stroke;
        std::string                     m_Group;
    };

    struct cLogMarkers
    {
        std::vector<cSpot> m_Spots;
        cMarkerLook        m_Look;
        std::string        m_Group;
    };

    void Begin(const cFigureAbout &About) override { m_About = About; }
    int  End() override { return m_bEnd; }

    double TextWidth(const cFigureText &Text, const cTextStyle &Style) const override
    {
        double dWidth = 0.0;
        for (const cTextRun &Run : Text)
            dWidth += static_cast<double>(LengthInCharacters(CleanText(Run.m_Text))) *
                      m_dCharacter * Style.m_dSize * (Run.m_bRaised ? kRaisedSize : 1.0);
        return dWidth;
    }

    void BeginGroup(const char *szClasses, const std::string &Title) override
    {
        m_Groups.emplace_back(szClasses);
        if (!Title.empty())
            m_Titles.push_back(Title);
    }
    void EndGroup() override { m_Groups.pop_back(); }
    void PushClip(const cFigureBox &Box) override { m_Clips.push_back(Box); }
    void PopClip() override {}
    void FillPolygon(std::span<const cSpot>, uint32_t) override { m_nPolygons++; }

    void BeginLine(const cStroke &Stroke) override { m_Lines.push_back({{}, Stroke, Group()}); }
    void MoveTo(const cSpot &Spot) override { m_Lines.back().m_Parts.push_back({Spot}); }
    void LineTo(const cSpot &Spot) override { m_Lines.back().m_Parts.back().push_back(Spot); }
    void EndLine() override {}

    void BeginMarkers(const cMarkerLook &Look) override
    {
        m_Markers.push_back({{}, Look, Group()});
    }
    void Marker(const cSpot &Spot) override { m_Markers.back().m_Spots.push_back(Spot); }
    void EndMarkers() override {}

    void Text(const cSpot &At, eTextAnchor nAnchor, int bTurned, const cFigureText &Text,
              const cTextStyle &Style) override
    {
        std::string Plain;
        for (const cTextRun &Run : Text)
            Plain += Run.m_Text;
        m_Texts.push_back(
            {Plain, At, nAnchor, bTurned, Style.m_dSize, TextWidth(Text, Style), Group()});
    }

    // The innermost group, "" outside of all.
    std::string Group() const { return m_Groups.empty() ? "" : m_Groups.back(); }

    // The line of a group; null if there is none.
    const cLogLine *LineOf(const std::string &Group) const
    {
        for (const cLogLine &Line : m_Lines)
            if (Line.m_Group == Group)
                return &Line;
        return nullptr;
    }

    const cLogText *TextOf(const std::string &Text) const
    {
        for (const cLogText &Logged : m_Texts)
            if (Logged.m_Text == Text)
                return &Logged;
        return nullptr;
    }

    cFigureAbout             m_About;
    int                      m_bEnd       = 1;  // what End returns
    int                      m_nPolygons  = 0;
    double                   m_dCharacter = 0.5;  // its width, in parts of a text's size
    std::vector<std::string> m_Groups;            // open ones
    std::vector<std::string> m_Titles;
    std::vector<cFigureBox>  m_Clips;
    std::vector<cLogText>    m_Texts;
    std::vector<cLogLine>    m_Lines;
    std::vector<cLogMarkers> m_Markers;
};

#endif
