#include "tables/table_points.h"

#include <utility>

cTablePoints::cTablePoints(const cTableFormat &Format, cTableWatch *pWatch, size_t nMostKept)
    : m_Format(Format), m_pWatch(pWatch), m_Kept(nMostKept)
{
}

void cTablePoints::Add(const std::string &Name, cOpenFile File)
{
    m_Tables.push_back(std::make_unique<cTable>(Name, std::move(File), m_Format, m_pWatch));
}

int cTablePoints::Scan()
{
    return Pass([this](cTable *pTable) { return pTable->Scan(&m_Kept); });
}

int cTablePoints::Read(cPointSink *pSink)
{
    size_t nFirstLine = 0;
    return Pass([pSink, &nFirstLine](cTable *pTable) {
        const size_t nFirst = nFirstLine;
        nFirstLine += pTable->Lines();
        return pTable->Read(pSink, nFirst);
    });
}

// Through all tables, or up to the first that ReadTable returns 0 for.
template <class cReadTable> int cTablePoints::Pass(cReadTable ReadTable)
{
    if (m_pWatch)
        m_pWatch->Begin();
    int bRead = 1;
    for (auto Table = m_Tables.begin(); bRead && Table != m_Tables.end(); ++Table)
        bRead = ReadTable(Table->get());
    if (m_pWatch)
        m_pWatch->End();
    return bRead;
}

size_t cTablePoints::Lines() const
{
    size_t nLines = 0;
    for (const auto &Table : m_Tables)
        nLines += Table->Lines();
    return nLines;
}

std::string cTablePoints::LineLabel(size_t nLine) const
{
    auto Table = m_Tables.begin();
    for (; nLine >= (*Table)->Lines(); ++Table)
        nLine -= (*Table)->Lines();
    const std::string Label = (*Table)->LineLabel(nLine);
    if (!Label.empty() || m_Tables.size() == 1)
        return Label;
    return (*Table)->Name() + ((*Table)->Lines() == 1 ? "" : ": " + std::to_string(nLine + 1));
}

std::string cTablePoints::Title() const
{
    for (const auto &Table : m_Tables)
        if (!Table->Title().empty())
            return Table->Title();
    return "";
}

std::string cTablePoints::XLabel() const
{
    for (const auto &Table : m_Tables)
        if (!Table->XLabel().empty())
            return Table->XLabel();
    return "";
}
