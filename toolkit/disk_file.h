// disk_file.h - what the C library cannot do with files, or does differently from
// platform to platform.
//
// A file name is one as passed to fopen(); on Windows it is in the user's code
// page. std::filesystem is not used: on Windows it reads such a name as Latin-1,
// and it makes a program half a megabyte larger.

#ifndef TOOLKIT_DISK_FILE_H
#define TOOLKIT_DISK_FILE_H

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

// A file that is closed at the end of its scope: cOpenFile File(pFile, fclose).
typedef std::unique_ptr<FILE, int (*)(FILE *)> cOpenFile;

// What a name leads to, links followed.
enum eFileKind
{
    fkNone,  // there is nothing of this name, or the link leads nowhere
    fkRegular,
    fkDevice,
    fkPipe,
    fkOther  // a folder, for example, or what cannot be known
};

eFileKind KindOfFile(const char *szName);

// 1 if the name leads through a folder of the system's own, such as /dev or /proc, where
// even a regular file is somebody's open one; /dev/shm holds ordinary files.
int IsBelowDevices(const char *szName);

// 1 for a folder, or a link to one.
int IsFolder(const char *szName);

// 0, or the errno of a name that the platform gives to no file. On Windows: EINVAL for
// "a?b.txt", ENODEV for "NUL.txt", which is a device in every folder.
int ErrorOfName(const char *szName);

// 1 if there is an entry of this name, a link that leads nowhere included.
int IsNameTaken(const char *szName);

// 1 if nobody has the permission to write the file. Root can write it nevertheless.
int IsMarkedReadOnly(const char *szName);

// 1 if the file has other names, hard links.
int HasOtherNames(const char *szName);

// 1 if both names lead to one file, or would as soon as they are created.
int IsSameFile(const char *szName, const char *szOther);

// 1 if the stream reads or writes the file of this name.
int IsFileOf(FILE *pStream, const char *szName);

// Length of a regular file in bytes; returns 0 if it cannot be known.
int LengthOfFile(const char *szName, uint64_t *pnLength);

// The name of the file that szName leads to; it need not exist. "" for links that
// lead to each other. Links are not followed on Windows, where they are rare.
std::string FollowLinks(const char *szName);

// The name of another file in the folder of szName; szOther has no folder.
std::string BesideFile(const char *szName, const char *szOther);

// These return 1, or 0 on failure.
int CutFile(const char *szName, uint64_t nLength);
int RemoveDiskFile(const char *szName);

// Opens as fopen() does; null on failure.
FILE *OpenDiskFile(const char *szName, const char *szMode);

// Creates a new file and opens it for writing; null if the name is taken, or on any
// other failure.
FILE *CreateDiskFile(const char *szName, const char *szMode);

// Standard output as a stream that writes bytes as they are.
FILE *BinaryStandardOutput();

// Standard input as a stream that reads bytes as they are.
FILE *BinaryStandardInput();

// A new file without a name, for reading and writing bytes, that is gone when it is
// closed; null if there is no place for one.
FILE *OpenNamelessFile();

// Where a log goes that can be opened nowhere else: the name of a file in a folder
// that the platform has always had. Null where there is no such folder.
const char *DefaultLogName();

// Flushes pFile and waits until its content is on the disk. Returns 1, or 0
// if anything could not be written.
int SyncToDisk(FILE *pFile);

#endif
