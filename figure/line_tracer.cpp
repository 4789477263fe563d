#include "figure/line_tracer.h"

#include <algorithm>
#include <cmath>

#include "figure/clipped_segment.h"

static int IsSame(const cSpot &a, const cSpot &b)
{
    return a.m_dX == b.m_dX && a.m_dY == b.m_dY;
}

void cColumnMerger::Take(const cSpot &Spot)
{
    const double dColumn = std::floor(Spot.m_dX * kColumnsPerPixel);
    if (m_nTaken > 0 && dColumn != m_dColumn)
        EndColumn();
    m_bPart            = 1;
    m_dColumn          = dColumn;
    const cPlace Place = {Spot, m_nTaken};
    if (m_nTaken++ == 0)
        m_First = m_Top = m_Bottom = Place;
    m_Last = Place;
    if (Spot.m_dY < m_Top.m_Spot.m_dY)
        m_Top = Place;
    if (Spot.m_dY > m_Bottom.m_Spot.m_dY)
        m_Bottom = Place;
}

void cColumnMerger::EndPart()
{
    if (!m_bPart)
        return;
    EndColumn();
    if (m_nEmitted == 1)
        m_pSink->Vertex(m_Emitted, 0);
    m_bPart    = 0;
    m_nEmitted = 0;
}

// What is on the former vertex adds nothing to it.
void cColumnMerger::Emit(const cSpot &Spot)
{
    if (m_nEmitted > 0 && IsSame(Spot, m_Emitted))
        return;
    m_pSink->Vertex(Spot, m_nEmitted == 0);
    m_nEmitted = std::min(m_nEmitted + 1, 2U);
    m_Emitted  = Spot;
}

void cColumnMerger::EndColumn()
{
    const cPlace &Earlier = m_Top.m_nTime < m_Bottom.m_nTime ? m_Top : m_Bottom;
    const cPlace &Later   = m_Top.m_nTime < m_Bottom.m_nTime ? m_Bottom : m_Top;
    Emit(m_First.m_Spot);
    Emit(Earlier.m_Spot);
    Emit(Later.m_Spot);
    Emit(m_Last.m_Spot);
    m_nTaken = 0;
}

int cLineClipper::IsInside(const cSpot &Spot) const
{
    return Spot.m_dX >= m_Box.m_dLeft && Spot.m_dX <= m_Box.m_dRight && Spot.m_dY >= m_Box.m_dTop &&
           Spot.m_dY <= m_Box.m_dBottom;
}

void cLineClipper::LineTo(const cSpot &Spot)
{
    const int bInside = IsInside(Spot);
    cSpot     From    = m_Former;
    cSpot     To      = Spot;
    if (m_bPart && !(m_bInside && bInside) && ClipSegment(m_Box, &From, &To))
    {
        if (!m_bInside)
            m_Merger.Take(From);
        m_Merger.Take(To);
    }
    else if (bInside)
        m_Merger.Take(Spot);
    if (!bInside)
        m_Merger.EndPart();
    m_bPart   = 1;
    m_bInside = bInside;
    m_Former  = Spot;
}

void cLineClipper::Gap()
{
    m_Merger.EndPart();
    m_bPart   = 0;
    m_bInside = 0;
}
