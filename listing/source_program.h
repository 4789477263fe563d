// source_program.h - a listing as a program: its lines, how a run goes through them,
// and what the comments say of labels. A line that the loader rejects counts as one
// of the program, which it will be as soon as it has been corrected.

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
    cSourceProgram() : m_Lines{}, m_nLines(0), m_bComplete(1), m_bErrors(0), m_bIndirect(0) {}

    // All lines of the listing in their order.
    void Add(const cSourceLine &Line);

    // Once, after the last line.
    void Finish() { m_Flow.Connect(); }

    unsigned            CountLines() const { return m_nLines; }
    const cSourceLine  &Line(unsigned nLine) const { return m_Lines[nLine]; }
    const cProgramFlow &Flow() const { return m_Flow; }

    // The first word of a program line, the place of findings.
    std::string_view Word(unsigned nLine) const;

    // 1 if it has room for all lines of the listing. Else nothing is known of it.
    int IsComplete() const { return m_bComplete; }

    // 1 if the loader rejects some line.
    int HasErrors() const { return m_bErrors; }

    // The labels that such lines might be, and those that they might jump to; 1 if one
    // might be a jump through i.
    const std::bitset<kLabels> &PossibleLabels() const { return m_PossibleLabels; }
    const std::bitset<kLabels> &PossibleJumps() const { return m_PossibleJumps; }
    int                         MayBeIndirect() const { return m_bIndirect; }

    // Labels that a comment names as a place to start.
    const std::bitset<kLabels> &NamedLabels() const { return m_NamedLabels; }

private:
    void AddRejected(const cSourceLine &Line);

    std::array<cSourceLine, kProgramLines> m_Lines;  // from 1
    unsigned                               m_nLines;
    int                                    m_bComplete;
    int                                    m_bErrors;
    int                                    m_bIndirect;
    std::bitset<kLabels>                   m_PossibleLabels;
    std::bitset<kLabels>                   m_PossibleJumps;
    cProgramFlow                           m_Flow;
    std::bitset<kLabels>                   m_NamedLabels;
};

#endif
