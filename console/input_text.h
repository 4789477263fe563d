// input_text.h - reads a file that a command line names, or standard input.

#ifndef CONSOLE_INPUT_TEXT_H
#define CONSOLE_INPUT_TEXT_H

#include <string>

#include "console/console.h"
#include "console/input_file.h"

// Reads all of the input, line ends as they are; of a pipe or a device at most 64
// MB. 0 with a line on standard error that names the file and says why it cannot be
// read: "vorstek-cli: cannot read 'draw.txt': no such file".
int ReadInput(const std::string &Name, const cStreams &Streams, std::string *pText);

#endif
