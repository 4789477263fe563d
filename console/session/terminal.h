// terminal.h - what the process knows of the terminal that it was started in.

#ifndef CONSOLE_SESSION_TERMINAL_H
#define CONSOLE_SESSION_TERMINAL_H

#include <string>

// 1 if a person types standard input and reads standard output.
int IsTerminal();

// 1 if standard output is a terminal from which a person's lines can be read, even where
// standard input is a file or a pipe; 0 on Windows where it is not the terminal.
int CanReadTerminal();

// Makes that terminal standard input; 0 if it cannot.
int UseTerminal();

// 1 if the cursor can be moved back over earlier lines: not with TERM=dumb, as screen
// readers and editors set it, nor in a console of Windows.
int CanRedraw();

// The same of the terminal that standard error is, if it is one.
int CanRedrawErrors();

// Characters in a line, 80 where nobody knows. It changes while the program runs.
unsigned TerminalWidth();

// Lines of the terminal, 24 where nobody knows. It changes as well.
unsigned TerminalHeight();

// 1 if the program has been stopped since the last call, as by Ctrl-Z: others may have
// written to the terminal. The first call begins to look; always 0 on Windows.
int WasStopped();

// Waits until a key is pressed, so that a window which closes with the program can be
// read. Returns at once where nobody types.
void WaitForKey();

// Where this user's programs keep such files, made if it is not there:
// "/home/kim/.local/state/vorstek/history". "" where there is none.
std::string HistoryFile();

// A new, empty file that only this user may read, for an editor: its name ends in
// ".txt". "" if there is none.
std::string ScratchFile();

// Opens the user's editor with a file and waits for its end; 0 if it failed.
int EditFile(const std::string &Name);

#endif
