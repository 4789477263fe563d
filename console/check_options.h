// check_options.h - the arguments of "vorstek-cli check".

#ifndef CONSOLE_CHECK_OPTIONS_H
#define CONSOLE_CHECK_OPTIONS_H

#include <set>
#include <span>
#include <string>
#include <vector>

#include "console/option_table.h"

struct cCheckOptions
{
    std::vector<std::string> m_Files;             // "-" is standard input
    std::string              m_Name = "<stdin>";  // of standard input in messages
    std::set<std::string>    m_Ignored;           // names of warnings
    int                      m_bStrict = 0;
    int                      m_bJson   = 0;
    int                      m_bWait   = 0;
};

std::span<const cOptionRow> CheckOptionRows();

// 1, or 0 with a one-line error.
int ParseCheckOptions(const std::vector<std::string> &Arguments, cCheckOptions *pOptions,
                      std::string *pError);

#endif
