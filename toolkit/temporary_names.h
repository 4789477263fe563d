// temporary_names.h - names of files that are being saved.

#ifndef TOOLKIT_TEMPORARY_NAMES_H
#define TOOLKIT_TEMPORARY_NAMES_H

#include <string>

const unsigned kTemporaryNames = 1000;

// "~vorstek.000" to "~vorstek.999", in the folder of a file: short, so that it fits
// wherever that file's name fits.
std::string TemporaryName(const std::string &Neighbour, unsigned n);

// The folder for temporary files, with a separator at its end.
std::string TemporaryFolder();

// Removes the files with such names in the folder of Neighbour which no program writes
// any more. Of several that a folder has, those count that are near the first name.
void RemoveAbandonedFiles(const std::string &Neighbour);

// Removes a file with such a name if nobody writes it. Of the platform.
void RemoveIfAbandoned(const std::string &Name);

#endif
