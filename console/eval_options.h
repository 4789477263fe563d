// eval_options.h - the arguments of "vorstek-cli eval".

#ifndef CONSOLE_EVAL_OPTIONS_H
#define CONSOLE_EVAL_OPTIONS_H

#include <span>
#include <string>
#include <vector>

#include "console/option_table.h"

struct cEvalOptions
{
    std::string              m_Line;        // what to calculate
    int                      m_bInput = 0;  // standard input instead of m_Line
    int                      m_bStack = 0;  // print all levels
    int                      m_bJson  = 0;
    std::vector<std::string> m_Setup;  // instructions before the first line: "FIX 4"
};

std::span<const cOptionRow> EvalOptionRows();

// 1, or 0 with a one-line error.
int ParseEvalOptions(const std::vector<std::string> &Arguments, cEvalOptions *pOptions,
                     std::string *pError);

#endif
