// table_rig.h - files that are read as tables, for tests.

#ifndef TESTS_UNIT_TABLE_RIG_H
#define TESTS_UNIT_TABLE_RIG_H

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "tables/table_points.h"
#include "tests/unit/scratch_folder.h"
#include "toolkit/disk_file.h"

inline std::string ShownNumber(double dValue)
{
    char szText[32];
    snprintf(szText, sizeof szText, "%.15g", dValue);
    return std::isnan(dValue) ? "-" : szText;
}

// "1:0,5 2:0,6": line, x and y of each point, a gap as "-".
class cPointText : public cPointSink
{
public:
    void Take(size_t nLine, double dX, double dY) override
    {
        m_Text += (m_Text.empty() ? "" : " ") + std::to_string(nLine) + ":" + ShownNumber(dX) +
                  "," + ShownNumber(dY);
    }

    std::string m_Text;
};

// Files of these contents, d.txt, e.txt and so on, read as tables.
class cTableRig
{
public:
    explicit cTableRig(const std::vector<std::string> &Contents, const cTableFormat &Format = {})
        : m_Points(Format, nullptr)
    {
        std::string Name = "d.txt";
        for (const std::string &Content : Contents)
        {
            m_Folder.Write(Name.c_str(), Content);
            m_Points.Add(Name, {OpenDiskFile(m_Folder.Name(Name.c_str()).c_str(), "rb"), fclose});
            Name[0]++;
        }
        m_bScanned = m_Points.Scan();
    }

    std::string Points()
    {
        cPointText Sink;
        CHECK(m_bScanned == 1);
        CHECK(m_Points.Read(&Sink) == 1);
        return Sink.m_Text;
    }

    // "3:1 text-ignored", separated by "; ".
    std::string Findings() const
    {
        std::string Names;
        for (const auto &Table : m_Points.Tables())
            for (const cFinding &Finding : Table->Findings().m_List)
                Names += (Names.empty() ? "" : "; ") + std::to_string(Finding.m_nLine) + ":" +
                         std::to_string(Finding.m_nColumn) + " " + Finding.m_szName;
        return Names;
    }

    std::string OnlyText() const
    {
        const std::vector<cFinding> &List = m_Points.Tables()[0]->Findings().m_List;
        return List.size() == 1 ? List[0].m_Text : std::to_string(List.size()) + " findings";
    }

    cScratchFolder m_Folder;
    cTablePoints   m_Points;
    int            m_bScanned;
};

#endif
