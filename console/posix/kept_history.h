// kept_history.h - the file that keeps the lines of sessions for later ones. Sessions
// that run at the same time share it: each adds its lines to what is there.

#ifndef CONSOLE_POSIX_KEPT_HISTORY_H
#define CONSOLE_POSIX_KEPT_HISTORY_H

#include <string>

typedef struct history History;  // the editing library's

class cKeptHistory
{
public:
    // "" keeps nothing; so does the name of what is no regular file. At most nMost lines
    // are kept.
    cKeptHistory(std::string FileName, int nMost);

    // Reads the lines that are there.
    void Load(History *pHistory) const;

    // Adds a line. The file is replaced by one with that line, for this user alone. A line that cannot be kept is not missed.
    void Add(const std::string &Line) const;

private:
    int  IsUsable() const;
    void Save(History *pHistory) const;

    const std::string m_FileName;
    const int         m_nMost;
};

#endif
