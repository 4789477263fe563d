// replacement_file.h - saves a file so that nothing is lost when saving fails.
// The new content is collected beside the old file and takes its place only
// when it is complete and on the disk.
//
//     cReplacementFile File;
//     if (!File.Open(szFileName, "wb"))
//         return 0;
//     fputs("01 PI\r\n", File.Stream());
//     return File.Commit();

#ifndef TOOLKIT_REPLACEMENT_FILE_H
#define TOOLKIT_REPLACEMENT_FILE_H

#include <cstdio>
#include <filesystem>

class cReplacementFile
{
public:
    cReplacementFile();

    // Gives up what was not committed; the old file stays as it was.
    ~cReplacementFile();
    cReplacementFile(const cReplacementFile &)            = delete;
    cReplacementFile &operator=(const cReplacementFile &) = delete;

    // Starts the new content of szFileName; szMode is "wb", or "w" for the
    // line ends of the platform. A symbolic link stands for the file it points
    // to. A device such as /dev/stdout is written directly. Returns 0, and has
    // written nothing, if the old file may not be written, is a folder, or if
    // no file can be made beside it. Called once.
    int Open(const char *szFileName, const char *szMode);

    // Where the new content goes, after Open has returned 1. Failed writes
    // need not be looked for: Commit finds them.
    FILE *Stream() { return m_pFile; }

    // Completes the new content and puts it in the old file's place, with its
    // permissions. Returns 0 if anything failed, from the first write on, and
    // then the old file is as it was and nothing is left beside it. Called once.
    int Commit();

private:
    int  OpenTemporary(const char *szMode);
    int  Finish();
    int  TakePlace();
    void RemoveTemporary();

    FILE                 *m_pFile;
    std::filesystem::path m_Target;     // no link
    std::filesystem::path m_Temporary;  // empty: a device is written directly
};

#endif
