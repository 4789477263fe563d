// dispatch.h - one instruction serves three callers: a listing line is checked,
// program mode records, run mode executes.

#ifndef ENGINE_DISPATCH_H
#define ENGINE_DISPATCH_H

class cCalculator;
struct cInstruction;
struct cStep;

// 0 also if there is no instruction of this name.
int Perform(cCalculator &c, const char *szMnemonic, unsigned nOperand);

int PerformInstruction(cCalculator &c, const cInstruction &Instruction, unsigned nOperand);

// An instruction, or a number as a number line.
int PerformStep(cCalculator &c, const cStep &Step);

#endif
