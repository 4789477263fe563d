#include "console/session/terminal.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

int IsTerminal()
{
    return isatty(STDIN_FILENO) && isatty(STDOUT_FILENO);
}

static const char *const kTerminal = "/dev/tty";

static int OpenTerminal()
{
    return open(kTerminal, O_RDWR | O_CLOEXEC);
}

// The file is there even for a process that no terminal belongs to.
int CanReadTerminal()
{
    const int nTerminal = isatty(STDOUT_FILENO) ? OpenTerminal() : -1;
    return nTerminal >= 0 && close(nTerminal) == 0;
}

int UseTerminal()
{
    const int nTerminal = OpenTerminal();
    if (nTerminal < 0)
        return 0;
    const int bUsed = dup2(nTerminal, STDIN_FILENO) == STDIN_FILENO;
    close(nTerminal);
    clearerr(stdin);
    return bUsed;
}

static int KnowsSequences()
{
    const char *const szTerminal = getenv("TERM");
    return szTerminal && *szTerminal && strcmp(szTerminal, "dumb") != 0;
}

int CanRedraw()
{
    return IsTerminal() && KnowsSequences();
}

int CanRedrawErrors()
{
    return isatty(STDERR_FILENO) && KnowsSequences();
}

unsigned TerminalWidth()
{
    winsize Size = {};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &Size) != 0 || Size.ws_col == 0)
        return 80;
    return Size.ws_col;
}

unsigned TerminalHeight()
{
    winsize Size = {};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &Size) != 0 || Size.ws_row == 0)
        return 24;
    return Size.ws_row;
}

static volatile std::sig_atomic_t s_bStopped;

static void NoteContinuing(int)
{
    s_bStopped = 1;
}

int WasStopped()
{
    struct sigaction Action = {};
    Action.sa_handler       = NoteContinuing;
    Action.sa_flags         = SA_RESTART;
    sigaction(SIGCONT, &Action, nullptr);
    const int bStopped = s_bStopped;
    s_bStopped         = 0;
    return bStopped;
}

// Any key answers at once, unseen. What was typed before is none.
void WaitForKey()
{
    termios Former;
    if (!IsTerminal() || tcgetattr(STDIN_FILENO, &Former) != 0)
        return;
    termios Single = Former;
    Single.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
    Single.c_cc[VMIN]  = 1;
    Single.c_cc[VTIME] = 0;
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &Single);
    char       cKey;
    const auto nRead = read(STDIN_FILENO, &cKey, 1);
    static_cast<void>(nRead);  // the end of the terminal is an answer too
    tcsetattr(STDIN_FILENO, TCSANOW, &Former);
}

// $XDG_STATE_HOME, which has to be absolute, or what stands for it.
static std::filesystem::path StateFolder()
{
    const char *const szState = getenv("XDG_STATE_HOME");
    if (szState && *szState == '/')
        return szState;
    const char *const szHome = getenv("HOME");
    if (szHome && *szHome == '/')
        return std::filesystem::path(szHome) / ".local" / "state";
    return {};
}

std::string HistoryFile()
{
    std::filesystem::path Folder = StateFolder();
    if (Folder.empty())
        return "";
    Folder /= "vorstek";
    std::error_code Error;
    const mode_t    nFormer = umask(0077);  // for this user alone
    std::filesystem::create_directories(Folder, Error);
    umask(nFormer);
    return Error ? "" : (Folder / "history").string();
}

std::string ScratchFile()
{
    std::error_code Error;
    std::string     Name =
        (std::filesystem::temp_directory_path(Error) / "vorstek-XXXXXX.txt").string();
    const int nFile = Error ? -1 : mkstemps(Name.data(), 4);
    if (nFile < 0)
        return "";
    close(nFile);
    return Name;
}

// In single quotes for the shell, which also finds options in VISUAL and EDITOR.
static std::string Quoted(const std::string &Text)
{
    std::string Quoted = "'";
    for (const char c : Text)
        Quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return Quoted + "'";
}

int EditFile(const std::string &Name)
{
    for (const char *const szVariable : {"VISUAL", "EDITOR"})
    {
        const char *const szEditor = getenv(szVariable);
        if (szEditor && *szEditor)
            // NOLINTNEXTLINE(cert-env33-c): the variable is a command for the shell
            return system((std::string(szEditor) + " " + Quoted(Name)).c_str()) == 0;
    }
    // NOLINTNEXTLINE(cert-env33-c): as above
    return system(("vi " + Quoted(Name)).c_str()) == 0;
}
