// kept_values.h - the values of tables that are small enough to be kept in memory
// between the two times that a figure reads them.

#ifndef TABLES_KEPT_VALUES_H
#define TABLES_KEPT_VALUES_H

#include <cstddef>
#include <memory>

// A million rows of three columns, 24 MB; the program takes less than 40 in all.
const size_t kMostKeptValues = 3000000;

class cKeptValues
{
public:
    // The store is not touched before it is used, so that a small table costs little.
    cKeptValues() : m_Values(new double[kMostKeptValues]), m_nUsed(0) {}

    // Room for nValues more, or null if there is none.
    double *Extend(size_t nValues)
    {
        if (nValues > kMostKeptValues - m_nUsed)
            return nullptr;
        m_nUsed += nValues;
        return m_Values.get() + (m_nUsed - nValues);
    }

    size_t        Used() const { return m_nUsed; }
    void          GoBack(size_t nUsed) { m_nUsed = nUsed; }
    const double *From(size_t nUsed) const { return m_Values.get() + nUsed; }

private:
    std::unique_ptr<double[]> m_Values;
    size_t                    m_nUsed;
};

#endif
