// program_warnings.h - what is odd in a program whose lines are all accepted.

#ifndef LISTING_PROGRAM_WARNINGS_H
#define LISTING_PROGRAM_WARNINGS_H

class cSourceProgram;
class cFindings;

// Jumps to labels that are missing; labels that are given twice or never used.
//
// A label without a jump to it may be there for the keys GSB and its digit. So
// it counts as unused only if nothing speaks for that: the line before it runs
// into it, what begins there does not end with RTN, and no comment names it.
void FindLabelWarnings(const cSourceProgram &Program, cFindings *pFindings);

// Lines that nothing reaches, and a run that continues in line 1 after the last
// line. With a jump through i, any line may be reached.
void FindFlowWarnings(const cSourceProgram &Program, cFindings *pFindings);

// Subroutines that call one another deeper than the calculator can return, and
// those that can only call themselves again. Calls through i are not followed;
// nor are those that return to a subroutine that is already being run: how often
// depends on numbers.
void FindCallWarnings(const cSourceProgram &Program, cFindings *pFindings);

#endif
