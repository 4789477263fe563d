#include "tests/fuzz/typed_text.h"

#include <algorithm>
#include <csignal>
#include <sys/time.h>

#include "console/arguments.h"
#include "tests/fuzz/fuzz_target.h"

static const int kRunMicroseconds = 3000;

std::string WithoutPauses(std::string_view Text)
{
    static const std::string_view s_Pause = "pause";
    std::string                   Awake(Text);
    const auto                    IsSame = [](char a, char b) { return (a | 0x20) == b; };
    for (auto At = Awake.begin(); At != Awake.end();)
    {
        At = std::search(At, Awake.end(), s_Pause.begin(), s_Pause.end(), IsSame);
        if (At != Awake.end())
            *At++ = '-';
    }
    return Awake;
}

int StartsEditor(const std::string &Line)
{
    const std::vector<std::string> Words = SplitWords(Line);
    return !Words.empty() && Words[0] == "edit";
}

std::string TameLines(std::string_view Text)
{
    const std::string Awake = WithoutPauses(WithoutSlashes(Text));
    std::string       Tame;
    size_t            nFrom = 0;
    for (size_t n = 0; n < kMostTypedLines && nFrom < Awake.size(); n++)
    {
        const size_t      nEnd = std::min(Awake.find('\n', nFrom), Awake.size());
        const std::string Line = Awake.substr(nFrom, nEnd - nFrom);
        if (!StartsEditor(Line))
            Tame += Line + "\n";
        nFrom = nEnd + 1;
    }
    return Tame;
}

// --- the timer

// While a session performs a line, it has a handler of its own for Ctrl-C; else the
// signal would end the process.
static void OnTimer(int)
{
    struct sigaction Present;
    if (sigaction(SIGINT, nullptr, &Present) == 0 && Present.sa_handler != SIG_DFL)
        raise(SIGINT);
}

static void SetTimer(int nMicroseconds)
{
    std::signal(SIGVTALRM, OnTimer);
    const itimerval Repeated = {{0, nMicroseconds}, {0, nMicroseconds}};
    setitimer(ITIMER_VIRTUAL, &Repeated, nullptr);
}

cRunTimer::cRunTimer()
{
    SetTimer(kRunMicroseconds);
}

cRunTimer::~cRunTimer()
{
    SetTimer(0);
}
