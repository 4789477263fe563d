// stack_text.h - the stack as text.

#ifndef CONSOLE_STACK_TEXT_H
#define CONSOLE_STACK_TEXT_H

#include <iosfwd>
#include <string>

class cLineBox;
struct cVorstekState;

// A level's text in a column of texts: a blank stands for the sign '+'.
std::string LevelText(const char *szText);

// The part of the text that is shown alone, without sign '+' and blanks: "5.00".
const char *AnswerText(const char *szText);

// Four lines from T to X: "X   5.00".
void PrintStack(const cVorstekState &State, std::ostream *pOut);

// The registers that are not 0, as their box shows them: "Reg[ 5] = +1.00".
void PrintRegisters(const cVorstekState &State, const cLineBox &Box, std::ostream *pOut);

#endif
