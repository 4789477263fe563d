// number_transfer.h - a number comes or goes as a complete text, not key by key, as with
// a clipboard.

#ifndef ENGINE_NUMBER_TRANSFER_H
#define ENGINE_NUMBER_TRANSFER_H

#include <cstddef>

class cCalculator;

// The shortest text that is read as the same number: "0.1", "-2.5e-07".
const size_t kTransferText = 32;
void         PrintForTransfer(double dValue, char (&szText)[kTransferText]);

// Puts a number into X as a number line of a program does; in program mode it becomes
// such a line, of up to 17 characters. Blanks, comments and blank lines around it are
// skipped, an error is cleared. 0, and nothing changed: with the sound of refusal while
// keys are pending or held down, and during a run; with the loader's box about an
// illegal number for any other text.
int EnterTransferred(cCalculator &c, const char *szText);

#endif
