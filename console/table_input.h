// table_input.h - the tables that a command line names, as the points of a figure.

#ifndef CONSOLE_TABLE_INPUT_H
#define CONSOLE_TABLE_INPUT_H

#include <memory>
#include <string>
#include <vector>

#include "console/console.h"
#include "console/progress_line.h"
#include "console/table_options.h"
#include "figure/point_source.h"
#include "tables/table_points.h"

// Says that nothing was drawn, because a warning is an error; returns kExitError.
int RefuseStrictly(const cStreams &Streams);

class cTableInput : public cPointSource
{
public:
    // Options and streams outlive the input. Tables of up to nMostKept values are kept
    // in memory.
    cTableInput(const cTableOptions &Options, const cStreams &Streams,
                size_t nMostKept = kMostKeptValues);

    // Opens the tables, "-" for standard input, and reads each to its end. Findings
    // go to standard error, as those of listings look:
    //     fall.csv:7:5: warning: "n/a" is a gap [gap-word]
    // Returns kExitDone if the points can be read, else the exit code of the
    // command: kExitUsage for what is no table, kExitError for a warning when
    // warnings are errors.
    int Load(const std::vector<std::string> &Names);

    // Comes after Load. Returns 0 with a line on standard error.
    int Read(cPointSink *pSink) override;

    size_t      Lines() const override { return m_Points.Lines(); }
    std::string LineLabel(size_t nLine) const override { return m_Points.LineLabel(nLine); }
    std::string Title() const override { return m_Points.Title(); }
    std::string XLabel() const override { return m_Points.XLabel(); }

private:
    int  Open(const std::vector<std::string> &Names);
    int  ReportFindings();
    void ReportFailure();

    const cTableOptions     &m_Options;
    const cStreams          &m_Streams;
    cProgressLine            m_Progress;
    cTablePoints             m_Points;
    std::vector<std::string> m_Names;
};

#endif
