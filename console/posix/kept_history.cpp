#include "console/posix/kept_history.h"

#include <fcntl.h>
#include <histedit.h>
#include <sys/file.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <thread>
#include <utility>

#include "toolkit/disk_file.h"

// Another session holds the lock for some milliseconds. Longer than a second: it has been
// stopped, and is not waited for.
static const int                       kMostTries = 100;
static const std::chrono::milliseconds kBetweenTries(10);

namespace
{

// Held from here on, as long as this exists, by one session.
class cHistoryLock
{
public:
    explicit cHistoryLock(const std::string &Name)
        : m_nFile(open(Name.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0600))
    {
    }
    ~cHistoryLock()
    {
        if (m_nFile >= 0)
            close(m_nFile);
    }
    cHistoryLock(const cHistoryLock &)            = delete;
    cHistoryLock &operator=(const cHistoryLock &) = delete;

    // 0 if it cannot be had.
    int Lock() const
    {
        for (int nTry = 0; m_nFile >= 0 && nTry < kMostTries; nTry++)
        {
            if (flock(m_nFile, LOCK_EX | LOCK_NB) == 0)
                return 1;
            std::this_thread::sleep_for(kBetweenTries);
        }
        return 0;
    }

private:
    const int m_nFile;
};

}  // namespace

cKeptHistory::cKeptHistory(std::string FileName, int nMost)
    : m_FileName(std::move(FileName)), m_nMost(nMost)
{
}

// Opening a pipe would wait for somebody who writes into it.
int cKeptHistory::IsUsable() const
{
    if (m_FileName.empty())
        return 0;
    const eFileKind nKind = KindOfFile(m_FileName.c_str());
    return nKind == fkRegular || nKind == fkNone;
}

void cKeptHistory::Load(History *pHistory) const
{
    HistEvent Event;
    if (IsUsable())
        history(pHistory, &Event, H_LOAD, m_FileName.c_str());
}

// Complete at any moment, but not forced onto the disk: the next line would have to wait,
// and the terminal would show what is typed meanwhile in the wrong place.
void cKeptHistory::Save(History *pHistory) const
{
    HistEvent         Event;
    const std::string Target = FollowLinks(m_FileName.c_str());
    const std::string New    = Target + ".new";
    const int         nFile =
        open(New.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0600);
    FILE *const pFile = nFile < 0 ? nullptr : fdopen(nFile, "wb");
    if (!pFile)
        return;
    history(pHistory, &Event, H_SAVE_FP, pFile);
    const int bWritten = fflush(pFile) == 0 && !ferror(pFile);
    fclose(pFile);
    if (!bWritten || rename(New.c_str(), Target.c_str()) != 0)
        unlink(New.c_str());
}

void cKeptHistory::Add(const std::string &Line) const
{
    if (!IsUsable())
        return;
    const cHistoryLock Lock(m_FileName + ".lock");
    if (!Lock.Lock())
        return;
    const std::unique_ptr<History, void (*)(History *)> Kept(history_init(), history_end);
    HistEvent                                           Event;
    history(Kept.get(), &Event, H_SETSIZE, m_nMost);
    history(Kept.get(), &Event, H_SETUNIQUE, 1);
    Load(Kept.get());
    history(Kept.get(), &Event, H_ENTER, Line.c_str());
    Save(Kept.get());
}
