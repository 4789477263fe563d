// nameless_file.cpp - a part of disk_file.h.

#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

#include "toolkit/disk_file.h"

FILE *OpenNamelessFile()
{
    const char *const szFolder = getenv("TMPDIR");
    std::string       Name     = szFolder && *szFolder ? szFolder : "/tmp";
    Name += "/vorstek-XXXXXX";
    const int nFile = mkostemp(Name.data(), O_CLOEXEC);
    if (nFile < 0)
        return nullptr;
    unlink(Name.c_str());
    FILE *const pFile = fdopen(nFile, "w+b");
    if (!pFile)
        close(nFile);
    return pFile;
}
