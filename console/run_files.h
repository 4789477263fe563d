// run_files.h - validates the files of "vorstek-cli run" before anything runs.

#ifndef CONSOLE_RUN_FILES_H
#define CONSOLE_RUN_FILES_H

#include <string>

#include "console/run_options.h"

// 1 if the program, the trace, its backup and the graph are different files, so
// that none overwrites another; else 0 with a one-line error.
int AreFilesApart(const cRunOptions &Options, std::string *pError);

// 1 if the trace and the graph can be written, as far as this can be known in
// advance; else 0 with a one-line error. Existing files keep their content. The
// only new file that may remain is the target of a dangling link.
int AreFilesWritable(const cRunOptions &Options, std::string *pError);

#endif
