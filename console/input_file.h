// input_file.h - opens the files that a command line names, and standard input.

#ifndef CONSOLE_INPUT_FILE_H
#define CONSOLE_INPUT_FILE_H

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "console/console.h"
#include "toolkit/disk_file.h"

class cProgressLine;

// In place of a file's name: standard input.
const char *const kStandardInput = "-";

// In place of the name of an output.
const char *const kStandardOutput = "-";

// How much is read of what is no regular file; reading a device might never end.
const uint64_t kMostMegabytes = 64;
const uint64_t kMostInput     = kMostMegabytes * 1024 * 1024;
const uint64_t kAnyLength     = std::numeric_limits<uint64_t>::max();

// For messages: "standard input" or "'draw.txt'", and the same of an output.
std::string ShownInput(const std::string &Name);
std::string ShownOutput(const std::string &Name);

// "fall.txt" for "data/fall.txt".
std::string NameWithoutFolder(const std::string &Name);

// Prints why an input cannot be read, "" if nobody knows, on standard error:
//     vorstek-cli: cannot read 'draw.txt': no such file
// Returns 0.
int RefuseInput(const cStreams &Streams, const std::string &Name, const std::string &Why);

// "longer than 64 MB".
std::string TooLongInput();

// Opens the file of this name, a pipe or a device. Null after RefuseInput.
cOpenFile OpenNamedInput(const std::string &Name, const cStreams &Streams);

// 1 if this is a regular file that can be opened; 0 after RefuseInput.
int IsRegularInput(const std::string &Name, const cStreams &Streams);

struct cSeekableInput
{
    cOpenFile m_File = {nullptr, fclose};  // at its start
    uint64_t  m_nLength;                   // in bytes
};

// Opens an input that is read more than once, in binary mode. What is no regular
// file, of any length unless it is a device, is copied to a nameless file first;
// pProgress (null: nobody) hears of it. 0 after RefuseInput.
int OpenSeekableInput(const std::string &Name, const cStreams &Streams, cProgressLine *pProgress,
                      cSeekableInput *pInput);

// Returns 0, with a line on standard error, if the output is one of the inputs, under
// whatever names and through whatever links: writing it would destroy what is read.
int IsNoInput(const std::string &Output, const std::vector<std::string> &Inputs,
              const cStreams &Streams);

#endif
