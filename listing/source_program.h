// source_program.h - a listing without errors as a program: its lines, how a run
// goes through them, and what the comments say of labels.

#ifndef LISTING_SOURCE_PROGRAM_H
#define LISTING_SOURCE_PROGRAM_H

#include <array>
#include <bitset>
#include <string_view>

#include "engine/run_lines.h"
#include "listing/program_flow.h"
#include "listing/source_lines.h"

class cSourceProgram
{
public:
    cSourceProgram() : m_Lines{}, m_nLines(0) {}

    // All lines of the listing in their order.
    void Add(const cSourceLine &Line);

    // Once, after the last line.
    void Finish() { m_Flow.Connect(); }

    unsigned            CountLines() const { return m_nLines; }
    const cSourceLine  &Line(unsigned nLine) const { return m_Lines[nLine]; }
    const cProgramFlow &Flow() const { return m_Flow; }

    // The first word of a program line, the place of findings.
    std::string_view Word(unsigned nLine) const;

    // Labels that a comment names as a place to start.
    const std::bitset<kLabels> &NamedLabels() const { return m_NamedLabels; }

private:
    std::array<cSourceLine, kProgramLines> m_Lines;  // from 1
    unsigned                               m_nLines;
    cProgramFlow                           m_Flow;
    std::bitset<kLabels>                   m_NamedLabels;
};

#endif
