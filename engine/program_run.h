// program_run.h - the run loop, one line of it, and the single step.

#ifndef ENGINE_PROGRAM_RUN_H
#define ENGINE_PROGRAM_RUN_H

class cCalculator;

// Runs from the current line; returns the last line's result. 0 inside a run.
int RunProgram(cCalculator &c);

// The same in the run that was halted last, with the calls that are open in it.
int ContinueRun(cCalculator &c);

// Executes the current line and stays there, unless it jumps. Returns its result.
int ExecuteCurrentLine(cCalculator &c);

// Executes the current line as a run does. Returns its result, 0 inside a run.
int SingleStep(cCalculator &c);

#endif
