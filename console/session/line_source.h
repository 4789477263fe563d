// line_source.h - where the lines that a person types come from.

#ifndef CONSOLE_SESSION_LINE_SOURCE_H
#define CONSOLE_SESSION_LINE_SOURCE_H

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "console/console.h"

enum eTyped
{
    tyLine,
    tyInterrupted,  // Ctrl-C: what was typed is to be forgotten
    tyEnd           // Ctrl-D, the end of the input, or SIGTERM
};

class cLineSource
{
public:
    virtual ~cLineSource() {}

    // Shows the prompt and waits for a line, which comes without its line end.
    virtual eTyped Read(const std::string &Prompt, std::string *pLine) = 0;
};

// Lines as the terminal or a pipe gives them.
std::unique_ptr<cLineSource> PlainLines(const cStreams &Streams);

// Lines that can be edited, with the history of earlier ones, kept in szHistory from
// one session to the next ("" for none), and completion of Words by the tab key. Null
// where the program was built without an editing library; then, and where there is
// no terminal, PlainLines() serves. After Ctrl-Z, when the program goes on in the middle
// of a line, Resumed is called before the line is shown again.
std::unique_ptr<cLineSource> EditedLines(const std::string              &HistoryFile,
                                         const std::vector<std::string> &Words,
                                         const std::function<void()>    &Resumed);

#endif
