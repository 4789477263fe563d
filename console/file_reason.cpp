#include "console/file_reason.h"

#include <cerrno>

#include "console/input_file.h"

static std::string ReasonText(int nError, const char *szMissing)
{
    switch (nError)
    {
    case ENOENT:
        return szMissing;
    case EACCES:
    case EPERM:
        return "permission denied";
    case EISDIR:
        return "is a directory";
    case ENOTDIR:
        return "a part of its path is not a directory";
    case ENAMETOOLONG:
        return "its name is too long";
    case EINVAL:
        return "not a valid file name";
    case ENODEV:
        return "the name of a device";
    case ELOOP:
        return "too many links";
    case EROFS:
        return "the file system is read-only";
    case ENOSPC:
#ifdef EDQUOT
    case EDQUOT:
#endif
        return "no space left on the device";
    case EFBIG:
        return "it becomes too long";
    case EMFILE:
    case ENFILE:
        return "too many open files";
    case EIO:
        return "the device reports an error";
    default:
        return "";
    }
}

// Windows opens no folder either, and says that permission is denied.
std::string WhyNotRead(const std::string &Name, int nError)
{
    return IsFolder(Name.c_str()) ? "is a directory" : ReasonText(nError, "no such file");
}

std::string WhyNotWritten(const std::string &Name, int nError)
{
    if (IsFolder(Name.c_str()))
        return "is a directory";
    if (KindOfFile(Name.c_str()) == fkPipe)
        return "not a regular file";
    return ReasonText(nError, "no such directory");
}

std::string UnwritableText(const std::string &Name, int nError)
{
    const std::string Why =
        Name == kStandardOutput ? ReasonText(nError, "") : WhyNotWritten(Name, nError);
    return "cannot write " + ShownOutput(Name) + (Why.empty() ? "" : ": ") + Why;
}

int ReportUnwritable(const cStreams &Streams, const std::string &Name, int nError)
{
    return ReportUsage(Streams, UnwritableText(Name, nError));
}
