// temporary_file.h - new content that is written beside an old file, on its way to
// take its place.

#ifndef TOOLKIT_TEMPORARY_FILE_H
#define TOOLKIT_TEMPORARY_FILE_H

#include <cstdio>
#include <string>

class cTemporaryFile
{
public:
    cTemporaryFile();

    ~cTemporaryFile() { Discard(); }
    cTemporaryFile(const cTemporaryFile &)            = delete;
    cTemporaryFile &operator=(const cTemporaryFile &) = delete;

    // Creates an empty file that is to take the place of szTarget: in the same folder,
    // or, if there is such a file in a folder that may not be changed, in the system's
    // folder for temporary files. From the start it has the owner and the permissions
    // of the old file. It has no name where the system can do without. Files that
    // programs have left here which were killed while saving are removed. szMode is
    // that of fopen(): "wb" or "w". 0, with nothing left, if that is not possible.
    // Called once.
    int Create(const char *szTarget, const char *szMode);

    FILE *Stream() { return m_pFile; }

    // Waits until all that has been written is on the disk. 0 if anything could not be
    // written, from the first byte on.
    int Sync();

    // 1 if nothing but the content of the target would change: its owner is also that of
    // the new file, and it has no other names (hard links).
    int CanTakePlace() const { return m_bSameFolder && m_bSameOwner && !m_bOtherNames; }

    // Becomes the target. 0, with the target as it was, if that is not possible.
    int TakePlace();

    // Gives the file a name that outlives this program; "" if that is not possible.
    std::string Name();

    // A second stream that reads the named file from its beginning, as it is on the disk;
    // null if that is not possible.
    FILE *OpenCopy();

    // Nothing remains of a file that has not taken its place, unless Keep() was called
    // after Name().
    void Discard();
    void Keep() { m_Name.clear(); }

private:
    int  CreateIn(const std::string &Neighbour, const char *szMode);
    int  InheritFromTarget();
    void Close();

    FILE       *m_pFile;
    std::string m_Target;
    std::string m_Folder;  // name of a file in the folder that it is in
    std::string m_Name;    // "": it has none
    int         m_bSameFolder;
    int         m_bSameOwner;
    int         m_bOtherNames;
};

#endif
