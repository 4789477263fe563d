// disk_file.h - the few file operations that differ between platforms in both the
// C library and std::filesystem.

#ifndef TOOLKIT_DISK_FILE_H
#define TOOLKIT_DISK_FILE_H

#include <cstdio>
#include <filesystem>

// The path of a file name as passed to fopen(). On Windows that is a name in the
// user's code page, which std::filesystem by itself reads as Latin-1: the
// Euro sign of "5 \x80.txt" would become another character and the file
// another file. Empty for a name that cannot be converted.
std::filesystem::path PathOfName(const char *szFileName);

// Opens as fopen() does; null on failure.
FILE *OpenDiskFile(const std::filesystem::path &Path, const char *szMode);

// Creates a new file and opens it for writing; null if the name already exists,
// or on any other failure.
FILE *CreateDiskFile(const std::filesystem::path &Path, const char *szMode);

// Where a log goes that can be opened nowhere else: the name of a file in a folder
// that the platform has always had. Null where there is no such folder.
const char *DefaultLogName();

// Flushes pFile and waits until its content is on the disk. Returns 1, or 0
// if anything could not be written.
int SyncToDisk(FILE *pFile);

#endif
