// program_warnings.h - what is odd in a program, whatever its rejected lines were meant
// to be.

#ifndef LISTING_PROGRAM_WARNINGS_H
#define LISTING_PROGRAM_WARNINGS_H

class cSourceProgram;
class cFindings;

// Jumps to labels that are missing; labels that are given twice or never used.
//
// A label without a jump to it may be there for the keys GSB and its digit, which a
// comment should say. Without one, it counts as used only in line 1, and where the
// program runs into it and what begins there ends with RTN.
void FindLabelWarnings(const cSourceProgram &Program, cFindings *pFindings);

// Lines that nothing reaches, and a run that continues in line 1 after the last
// line, which is not known of a program with rejected lines. With a jump through i, any
// line may be reached.
void FindFlowWarnings(const cSourceProgram &Program, cFindings *pFindings);

// Subroutines that call one another deeper than the calculator can return, and
// those that can only call themselves again. Calls through i are not followed;
// nor are those that return to a subroutine that is already being run: how often
// depends on numbers.
void FindCallWarnings(const cSourceProgram &Program, cFindings *pFindings);

#endif
