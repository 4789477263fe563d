// program_memory.h - the program lines, their editing, the current line, and
// the listing that is kept line for line beside them. Memory is always full: an
// unused line contains R/S, and inserting pushes the last line out.
//
// The listing also holds comments and rejected lines of a loaded file, so the
// place of a program line there is its m_nListingLine, never its number.

#ifndef ENGINE_PROGRAM_MEMORY_H
#define ENGINE_PROGRAM_MEMORY_H

class cCalculator;
struct cInstruction;
struct cStep;
struct ProgramLine;

// Empties program memory and the file's name, without a view of it.
void ResetProgram(cCalculator &c);

// Shows the listing of an empty program.
void ListClearedProgram(cCalculator &c);

// Editing and moving. All return 1, also when they refuse: the steps wrap around,
// deleting line 0 is refused with a sound.
int ClearProgram(cCalculator &c);
int DeleteCurrentLine(cCalculator &c);
int GoToLine(cCalculator &c, unsigned nLine);
int StepForward(cCalculator &c);
int StepBack(cCalculator &c);

// The current line in the display, until the next change of it; run mode only.
int ShowCurrentLine(cCalculator &c);

// Records a line after the current one; the last line is pushed out. At the
// last line an instruction is refused with a sound and a number replaces the
// line. Always returns 1.
int InsertInstruction(cCalculator &c, const cInstruction &Instruction, unsigned nOperand);
int InsertNumberLine(cCalculator &c, const char *szText);
int ReplaceCurrentLine(cCalculator &c, const char *szText);

// What an unused line contains.
const char *const kRunStop = "R/S";

// Fill a line. SetStep and SetNumber keep its place in the listing.
void SetStep(const cStep &Step, ProgramLine *pLine);
void SetRunStop(const cCalculator &c, ProgramLine *pLine, unsigned nListingLine);
void SetNumber(ProgramLine *pLine, const char *szText);

#endif
