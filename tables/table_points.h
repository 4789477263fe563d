// table_points.h - the data lines of several tables, one table after another, as the
// points of a figure.

#ifndef TABLES_TABLE_POINTS_H
#define TABLES_TABLE_POINTS_H

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "figure/point_source.h"
#include "tables/kept_values.h"
#include "tables/table.h"
#include "tables/table_format.h"
#include "tables/table_watch.h"

class cTablePoints : public cPointSource
{
public:
    // pWatch (null: nobody) outlives the points. Tables of up to nMostKept values are
    // kept in memory.
    cTablePoints(const cTableFormat &Format, cTableWatch *pWatch,
                 size_t nMostKept = kMostKeptValues);

    // Name is what labels and messages call the table.
    void Add(const std::string &Name, cOpenFile File);

    // Reads every table once. Returns 0 if one of them is refused or fails; the
    // findings are then those so far.
    int Scan();

    // Comes after Scan.
    int Read(cPointSink *pSink) override;

    // With several tables, a data line without a label has that of its table:
    // "d.txt" for the only one in it, else "d.txt: 2".
    size_t      Lines() const override;
    std::string LineLabel(size_t nLine) const override;

    // Those of the first table that has one.
    std::string Title() const override;
    std::string XLabel() const override;

    const std::vector<std::unique_ptr<cTable>> &Tables() const { return m_Tables; }

private:
    template <class cReadTable> int Pass(cReadTable ReadTable);

    const cTableFormat                   m_Format;
    cTableWatch                         *m_pWatch;
    cKeptValues                          m_Kept;
    std::vector<std::unique_ptr<cTable>> m_Tables;
};

#endif
