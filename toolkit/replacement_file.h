// replacement_file.h - saves a file so that nothing is lost when saving fails.
// The new content is written next to the old file and replaces it only when it
// is complete and on the disk. Owner, permissions and links stay.
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

#include "toolkit/temporary_file.h"

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
    // nothing written, if the old file may not be written or is a folder, or if there
    // is none and no file can be created there. Called once.
    //
    // errno says why this or Commit failed, where the system does; else it is 0.
    int Open(const char *szFileName, const char *szMode);

    // The stream for the new content, after Open has returned 1. The caller need
    // not check writes: Commit reports failures.
    FILE *Stream() { return m_pFile; }

    // Completes the new content and replaces the old file. Returns 0 if anything failed,
    // from the first write on; then the old file is unchanged and no other file
    // remains. Called once.
    //
    // A file with several names (hard links), with an owner that a new file cannot have,
    // or in a folder that may not be changed is overwritten, with a complete copy of the
    // new content on the disk. If the disk fails in that moment, the copy remains.
    int Commit();

private:
    int CommitDevice();
    int Overwrite();

    cTemporaryFile m_Temporary;
    FILE          *m_pDevice;  // written directly; null for a file
    FILE          *m_pFile;    // the stream of one of them
    std::string    m_Target;   // not a link
};

#endif
