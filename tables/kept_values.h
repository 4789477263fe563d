// kept_values.h - the values of tables that are small enough to be kept in memory
// between the two times that a figure reads them.

#ifndef TABLES_KEPT_VALUES_H
#define TABLES_KEPT_VALUES_H

#include <cstddef>
#include <memory>

// A million rows of three columns, 24 MB; the program takes less than 40 in all. Markers
// need 16 of these for themselves, or more on large paper.
const size_t kMostKeptValues      = 3000000;
const size_t kMostKeptWithMarkers = 1500000;

class cKeptValues
{
public:
    // The store is not touched before it is used, so that a small table costs little.
    explicit cKeptValues(size_t nMost) : m_nMost(nMost), m_nUsed(0) {}

    // Room for nValues more, or null if there is none.
    double *Extend(size_t nValues)
    {
        if (nValues > m_nMost - m_nUsed)
            return nullptr;
        if (!m_Values)
            m_Values.reset(new double[m_nMost]);
        m_nUsed += nValues;
        return m_Values.get() + (m_nUsed - nValues);
    }

    size_t        Used() const { return m_nUsed; }
    const double *From(size_t nUsed) const { return m_Values.get() + nUsed; }

    // Empty again, the store gives its memory back: a table was too large for it.
    void GoBack(size_t nUsed)
    {
        m_nUsed = nUsed;
        if (nUsed == 0)
            m_Values.reset();
    }

private:
    std::unique_ptr<double[]> m_Values;
    size_t                    m_nMost;
    size_t                    m_nUsed;
};

#endif
