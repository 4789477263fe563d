// run_options.h - the arguments of "vorstek-cli run".

#ifndef CONSOLE_RUN_OPTIONS_H
#define CONSOLE_RUN_OPTIONS_H

#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "console/figure_options.h"
#include "console/option_table.h"

struct cRunOptions
{
    std::string                              m_Program;
    std::vector<std::pair<unsigned, double>> m_Levels;       // 0 X to 3 T, as given
    std::vector<std::pair<unsigned, double>> m_Registers;    // 0 to 29, as given
    int                                      m_nLabel = -1;  // -1: start at line 1
    std::string                              m_TraceFile;    // "" for none, "-" for standard output
    unsigned                                 m_nTraceMegabytes = 1;
    std::string                              m_GraphFile;         // "" for none, "-" as the trace
    int                                      m_bGraphAsData = 0;  // else as a picture
    cFigureOptions                           m_Picture;
    cPictureFile                             m_PictureFile = {};  // of the graph
    uint64_t                                 m_nMaxLines   = 0;   // 0: no limit
    int                                      m_bRegisters  = 0;
    int                                      m_bJson       = 0;
    int                                      m_bProfile    = 0;
    int                                      m_bRealtime   = 0;
    int                                      m_bWait       = 0;
};

std::span<const cOptionRow> RunOptionRows();

// 1, or 0 with a one-line error.
int ParseRunOptions(const std::vector<std::string> &Arguments, cRunOptions *pOptions,
                    std::string *pError);

#endif
