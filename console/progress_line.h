// progress_line.h - one line on a terminal that says how far a long command has come.

#ifndef CONSOLE_PROGRESS_LINE_H
#define CONSOLE_PROGRESS_LINE_H

#include <cstdint>
#include <iosfwd>
#include <string>

#include "tables/table_watch.h"

// Appears when the command has taken a second, changes at most five times a second and
// is erased at the end of each pass through the data: "reading: 45 %", or
// "reading: 120 MB" as long as nobody knows how much there is.
class cProgressLine : public cTableWatch
{
public:
    // The stream is a terminal's and outlives the line. With bShown 0 nothing is
    // ever written.
    cProgressLine(std::ostream *pTerminal, int bShown);

    // A pass has so many bytes more.
    void Expect(uint64_t nBytes) { m_nExpected += nBytes; }

    void Begin() override;
    void Advance(uint64_t nBytes) override;
    void End() override;

protected:
    // Since any moment.
    virtual double Seconds() const;

private:
    std::string Text() const;

    std::ostream *m_pTerminal;
    int           m_bShown;
    int           m_bOnScreen;
    int           m_bStarted;  // the second runs
    double        m_dNext;     // seconds: when it is written
    uint64_t      m_nExpected;
    uint64_t      m_nDone;
};

#endif
