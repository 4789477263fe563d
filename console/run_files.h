// run_files.h - the files that "vorstek-cli run" is given, looked at before
// anything runs.

#ifndef CONSOLE_RUN_FILES_H
#define CONSOLE_RUN_FILES_H

#include <string>

#include "console/run_options.h"

// 1 if the program, the trace, its backup and the graph are files of their own,
// so that none is lost under another; else 0 with what is wrong, in one line.
int AreFilesApart(const cRunOptions &Options, std::string *pError);

// 1 if the trace and the graph can be written, as far as this can be told now;
// else 0 with what is wrong, in one line. What exists keeps its content, and
// nothing new stays behind but the target of a link that led nowhere.
int AreFilesWritable(const cRunOptions &Options, std::string *pError);

#endif
