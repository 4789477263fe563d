// Loaded into a program before all others: one of the program's calls that open, read,
// write, close, link or rename a file fails.
//
//     LD_PRELOAD=libfailing-files.so FAILING_CALL=7 FAILING_WITH=error PROGRAM
//
// FAILING_WITH is "error" (of the device), "full" (the disk), "interrupted" (by a signal)
// or "short": half of the bytes are read or written. The names of the calls, one a line,
// are written to the file FAILING_CALLS. Calls that the C library makes for its streams
// cannot be replaced; therefore, the kernel hands over these system calls by a signal.

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <ucontext.h>
#include <unistd.h>

namespace
{

struct cFailingCall
{
    long        m_nNumber;
    const char *m_szName;
};

// The arguments of a call and the place of its result.
struct cTrappedCall
{
    explicit cTrappedCall(void *pContext)
        : m_pRegisters(static_cast<ucontext_t *>(pContext)->uc_mcontext.gregs)
    {
    }

    long Argument(int nIndex) const;
    void SetResult(long nResult) { m_pRegisters[REG_RAX] = nResult; }

    greg_t *m_pRegisters;
};

}  // namespace

static const cFailingCall kCalls[] = {
    {SYS_openat, "openat"},     {SYS_read, "read"},           {SYS_write, "write"},
    {SYS_writev, "writev"},     {SYS_lseek, "lseek"},         {SYS_fsync, "fsync"},
    {SYS_close, "close"},       {SYS_linkat, "linkat"},       {SYS_rename, "rename"},
    {SYS_truncate, "truncate"}, {SYS_ftruncate, "ftruncate"}, {SYS_fchmod, "fchmod"},
};
static const size_t kCallCount = sizeof kCalls / sizeof kCalls[0];

// The sixth argument of the calls that are made here; none of these has so many.
static const long kOwnCall = 0x766f7273;

static const long kMostCalls = 100000;

static char        s_Seen[kMostCalls];  // indices into kCalls
static long        s_nSeen;
static long        s_nFailing;
static const char *s_szKind = "";

long cTrappedCall::Argument(int nIndex) const
{
    static const int s_Registers[] = {REG_RDI, REG_RSI, REG_RDX, REG_R10, REG_R8};
    return static_cast<long>(m_pRegisters[s_Registers[nIndex]]);
}

// The result as the kernel gives it: below 0, the negative number of an error.
static long Perform(long nNumber, long n0, long n1, long n2, long n3, long n4)
{
    const int  nFormer = errno;
    const long nResult = syscall(nNumber, n0, n1, n2, n3, n4, kOwnCall);
    const long nRaw    = nResult == -1 ? -errno : nResult;
    errno              = nFormer;
    return nRaw;
}

static long PerformAsAsked(long nNumber, const cTrappedCall &Call)
{
    return Perform(nNumber, Call.Argument(0), Call.Argument(1), Call.Argument(2), Call.Argument(3),
                   Call.Argument(4));
}

static long PerformHalf(long nNumber, const cTrappedCall &Call)
{
    if (nNumber == SYS_read || nNumber == SYS_write)
        return Perform(nNumber, Call.Argument(0), Call.Argument(1), (Call.Argument(2) + 1) / 2, 0,
                       0);
    if (nNumber != SYS_writev)
        return PerformAsAsked(nNumber, Call);
    const auto *pPart = reinterpret_cast<const iovec *>(Call.Argument(1));
    for (long n = Call.Argument(2); n > 1 && pPart->iov_len == 0; n--)
        pPart++;
    return Perform(SYS_write, Call.Argument(0), reinterpret_cast<long>(pPart->iov_base),
                   static_cast<long>((pPart->iov_len + 1) / 2), 0, 0);
}

static long Fail(long nNumber, const cTrappedCall &Call)
{
    if (strcmp(s_szKind, "short") == 0)
        return PerformHalf(nNumber, Call);
    if (nNumber == SYS_close)
        PerformAsAsked(nNumber, Call);  // a number that cannot be closed is free nevertheless
    if (strcmp(s_szKind, "full") == 0)
        return -ENOSPC;
    return strcmp(s_szKind, "interrupted") == 0 ? -EINTR : -EIO;
}

static void Note(long nNumber)
{
    char nIndex = 0;
    while (kCalls[static_cast<size_t>(nIndex)].m_nNumber != nNumber)
        nIndex++;
    if (s_nSeen < kMostCalls)
        s_Seen[s_nSeen] = nIndex;
    s_nSeen++;
}

static void OnCall(int, siginfo_t *pInfo, void *pContext)
{
    cTrappedCall Call(pContext);
    const long   nNumber = pInfo->si_syscall;
    Note(nNumber);
    Call.SetResult(s_nSeen == s_nFailing ? Fail(nNumber, Call) : PerformAsAsked(nNumber, Call));
}

// Traps kCalls, but not those with the mark of this library.
static int TrapCalls()
{
    sock_filter Filter[kCallCount + 6];
    size_t      nNext = 0;
    Filter[nNext++]   = BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr));
    for (size_t n = 0; n < kCallCount; n++)
        Filter[nNext++] =
            BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<unsigned>(kCalls[n].m_nNumber),
                     static_cast<unsigned char>(kCallCount - n), 0);
    Filter[nNext++]          = BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW);
    Filter[nNext++]          = BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, args[5]));
    Filter[nNext++]          = BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, kOwnCall, 0, 1);
    Filter[nNext++]          = BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW);
    Filter[nNext++]          = BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_TRAP);
    const sock_fprog Program = {static_cast<unsigned short>(nNext), Filter};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &Program) == 0;
}

__attribute__((constructor)) static void Begin()
{
    const char *const szFailing = getenv("FAILING_CALL");
    const char *const szKind    = getenv("FAILING_WITH");
    s_nFailing                  = szFailing ? atol(szFailing) : 0;
    s_szKind                    = szKind ? szKind : "";

    struct sigaction Action = {};
    Action.sa_sigaction     = OnCall;
    Action.sa_flags         = SA_SIGINFO;
    if (sigaction(SIGSYS, &Action, nullptr) != 0 || !TrapCalls())
        abort();
}

__attribute__((destructor)) static void End()
{
    const char *const szName = getenv("FAILING_CALLS");
    if (!szName)
        return;
    const long nFile = Perform(SYS_openat, AT_FDCWD, reinterpret_cast<long>(szName),
                               O_WRONLY | O_CREAT | O_TRUNC, 0600, 0);
    for (long n = 0; n < s_nSeen && n < kMostCalls; n++)
    {
        const char *const szCall = kCalls[static_cast<size_t>(s_Seen[n])].m_szName;
        Perform(SYS_write, nFile, reinterpret_cast<long>(szCall), static_cast<long>(strlen(szCall)),
                0, 0);
        Perform(SYS_write, nFile, reinterpret_cast<long>("\n"), 1, 0, 0);
    }
}
