// replacement_file.h - saves a file so that nothing is lost when saving fails.
// The new content is written next to the old file and replaces it only when it
// is complete and on the disk.
//
//     cReplacementFile File;
//     if (!File.Open(szFileName, "wb"))
//         return 0;
//     fputs("01 PI\r\n", File.Stream());
//     return File.Commit();

#ifndef TOOLKIT_REPLACEMENT_FILE_H
#define TOOLKIT_REPLACEMENT_FILE_H

#include <cstdio>
#include <string>

class cReplacementFile
{
public:
    cReplacementFile();

    // Discards what was not committed; the old file is unchanged.
    ~cReplacementFile();
    cReplacementFile(const cReplacementFile &)            = delete;
    cReplacementFile &operator=(const cReplacementFile &) = delete;

    // Starts the new content of szFileName; szMode is "wb", or "w" for the
    // line ends of the platform. A symbolic link is followed to its
    // target. A device such as /dev/stdout is written directly. Returns 0, with
    // nothing written, if the old file may not be written, is a folder, or if no
    // file can be created next to it. Called once.
    int Open(const char *szFileName, const char *szMode);

    // The stream for the new content, after Open has returned 1. The caller need
    // not check writes: Commit reports failures.
    FILE *Stream() { return m_pFile; }

    // Completes the new content and replaces the old file, keeping its permissions.
    // Returns 0 if anything failed, from the first write on; then the old file is
    // unchanged and no other file remains. Called once.
    int Commit();

private:
    int  OpenTemporary(const char *szMode);
    int  Finish();
    int  TakePlace();
    void RemoveTemporary();

    FILE       *m_pFile;
    std::string m_Target;     // not a link
    std::string m_Temporary;  // empty: a device is written directly
};

#endif
