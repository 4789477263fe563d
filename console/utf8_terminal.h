// utf8_terminal.h - lets the terminal read and show UTF-8.

#ifndef CONSOLE_UTF8_TERMINAL_H
#define CONSOLE_UTF8_TERMINAL_H

// The terminal's encoding is UTF-8 from now on; it has its former one again when the
// process ends. Nothing changes where the user has chosen the encoding.
void UseUtf8Terminal();

#endif
