// stack_text.h - the stack as text.

#ifndef CONSOLE_STACK_TEXT_H
#define CONSOLE_STACK_TEXT_H

#include <iosfwd>
#include <string>

struct cVorstekState;

// A level's text in a column of texts: a blank stands for the sign '+'.
std::string LevelText(const char *szText);

// Four lines from T to X: "X   5.00".
void PrintStack(const cVorstekState &State, std::ostream *pOut);

#endif
