// folder_names.h - the files that a name begun on a typed line may mean.

#ifndef CONSOLE_SESSION_FOLDER_NAMES_H
#define CONSOLE_SESSION_FOLDER_NAMES_H

#include <string>
#include <vector>

// Names that begin like Start, its folder included, in any order. A folder's name ends
// in '/', so that the next key completes what is in it.
std::vector<std::string> FilesLike(const std::string &Start);

#endif
