// edited_lines.cpp - lines that are edited with libedit.

#include <histedit.h>
#include <poll.h>
#include <unistd.h>

#include <clocale>
#include <csignal>
#include <cstdlib>
#include <cwchar>

#include "console/posix/kept_history.h"
#include "console/session/completion.h"
#include "console/session/line_source.h"
#include "console/session/terminal.h"
#include "console/stop_signal.h"

static const int kMostHistory = 1000;

static volatile std::sig_atomic_t s_bSuspended;
static volatile std::sig_atomic_t s_bResized;

static void NoteSuspension(int)
{
    s_bSuspended = 1;
}

static void NoteSize(int)
{
    s_bResized = 1;
}

namespace
{

// While a line is edited, signals arrive only where a key is waited for: not between a
// look at what has come and the waiting.
class cEditingSignals
{
public:
    cEditingSignals();
    ~cEditingSignals();
    cEditingSignals(const cEditingSignals &)            = delete;
    cEditingSignals &operator=(const cEditingSignals &) = delete;

    // 1 if there is something to read; 0 after a signal.
    static int WaitForInput();

private:
    static sigset_t s_Former;  // what was blocked before
};

class cEditedLines : public cLineSource
{
public:
    cEditedLines(const std::string &HistoryFile, const std::vector<std::string> &Words,
                 const std::function<void()> &Resumed);
    ~cEditedLines() override;
    cEditedLines(const cEditedLines &)            = delete;
    cEditedLines &operator=(const cEditedLines &) = delete;

    eTyped Read(const std::string &Prompt, std::string *pLine) override;

private:
    static cEditedLines &Of(EditLine *pEdit);
    static char         *PromptOf(EditLine *pEdit);
    static int           GetKey(EditLine *pEdit, wchar_t *pKey);
    static unsigned char Complete(EditLine *pEdit, int nKey);

    void Suspend();
    void Resize();
    void Remember(const std::string &Line);

    const cStopSignals             m_Signals{ssNoted};  // between two lines as well
    const cKeptHistory             m_Kept;
    const std::vector<std::string> m_Words;
    const std::function<void()>    m_Resumed;
    std::string                    m_Prompt;
    EditLine                      *m_pEdit;
    History                       *m_pHistory;
};

}  // namespace

sigset_t cEditingSignals::s_Former;

static void HandleSignal(int nSignal, void (*pHandler)(int))
{
    struct sigaction Action = {};
    Action.sa_handler       = pHandler;
    sigaction(nSignal, &Action, nullptr);
}

cEditingSignals::cEditingSignals()
{
    sigset_t Blocked;
    sigemptyset(&Blocked);
    for (const int nSignal : {SIGINT, SIGTERM, SIGTSTP, SIGWINCH})
        sigaddset(&Blocked, nSignal);
    sigprocmask(SIG_BLOCK, &Blocked, &s_Former);
    HandleSignal(SIGTSTP, NoteSuspension);
    HandleSignal(SIGWINCH, NoteSize);
}

cEditingSignals::~cEditingSignals()
{
    HandleSignal(SIGTSTP, SIG_DFL);
    HandleSignal(SIGWINCH, SIG_DFL);
    sigprocmask(SIG_SETMASK, &s_Former, nullptr);
}

int cEditingSignals::WaitForInput()
{
    pollfd Terminal = {STDIN_FILENO, POLLIN, 0};
    return ppoll(&Terminal, 1, nullptr, &s_Former) > 0;
}

// Letters beyond ASCII need the user's encoding; numbers are not affected. What the
// calculator prints is UTF-8: an encoding of single bytes could not show it either.
cEditedLines::cEditedLines(const std::string &HistoryFile, const std::vector<std::string> &Words,
                           const std::function<void()> &Resumed)
    : m_Kept(HistoryFile, kMostHistory), m_Words(Words), m_Resumed(Resumed)
{
    if (!setlocale(LC_CTYPE, "") || MB_CUR_MAX == 1)
        setlocale(LC_CTYPE, "C.UTF-8");
    m_pEdit    = el_init("vorstek-cli", stdin, stdout, stderr);
    m_pHistory = history_init();
    HistEvent Event;
    history(m_pHistory, &Event, H_SETSIZE, kMostHistory);
    history(m_pHistory, &Event, H_SETUNIQUE, 1);
    m_Kept.Load(m_pHistory);

    el_set(m_pEdit, EL_CLIENTDATA, this);
    el_set(m_pEdit, EL_PROMPT, PromptOf);
    el_set(m_pEdit, EL_EDITOR, "emacs");
    el_set(m_pEdit, EL_HIST, history, m_pHistory);
    el_wset(m_pEdit, EL_GETCFN, GetKey);
    // The narrow el_set() would copy both texts and never free them.
    el_wset(m_pEdit, EL_ADDFN, L"vorstek-complete", L"complete a word", Complete);
    el_set(m_pEdit, EL_BIND, "^I", "vorstek-complete", nullptr);
    el_set(m_pEdit, EL_BIND, "^R", "em-inc-search-prev", nullptr);
    el_source(m_pEdit, nullptr);  // the user's ~/.editrc
}

cEditedLines::~cEditedLines()
{
    history_end(m_pHistory);
    el_end(m_pEdit);
}

cEditedLines &cEditedLines::Of(EditLine *pEdit)
{
    void *pThis = nullptr;
    el_get(pEdit, EL_CLIENTDATA, &pThis);
    return *static_cast<cEditedLines *>(pThis);
}

char *cEditedLines::PromptOf(EditLine *pEdit)
{
    return Of(pEdit).m_Prompt.data();
}

// Ctrl-Z: the terminal is as the shell gave it, as long as the shell has it.
void cEditedLines::Suspend()
{
    s_bSuspended = 0;
    el_set(m_pEdit, EL_PREP_TERM, 0);
    printf("\n");  // the shell writes below the line
    static_cast<void>(fflush(stdout));
    raise(SIGSTOP);
    el_set(m_pEdit, EL_PREP_TERM, 1);
    m_Resumed();
    el_set(m_pEdit, EL_REFRESH);
}

// The library would keep its row of the line, which may be below the last row of the
// new window, and write there. The line is drawn again from its first row instead,
// where a terminal that breaks long rows again has it now.
void cEditedLines::Resize()
{
    s_bResized                   = 0;
    const LineInfoW *const pInfo = el_wline(m_pEdit);
    const size_t   nLeft = m_Prompt.size() + static_cast<size_t>(pInfo->cursor - pInfo->buffer);
    const unsigned nRows = static_cast<unsigned>(nLeft / TerminalWidth());
    el_resize(m_pEdit);
    if (nRows > 0)
        printf("\x1b[%uA", nRows);
    printf("\r\x1b[J");
    el_set(m_pEdit, EL_REFRESH);
}

// The next key: 1, or 0 at the end of the input, -1 after Ctrl-C.
int cEditedLines::GetKey(EditLine *pEdit, wchar_t *pKey)
{
    mbstate_t State = {};
    for (;;)
    {
        const int bReady = cEditingSignals::WaitForInput();
        if (cStopSignals::Caught())
            return -1;
        if (s_bSuspended)
            Of(pEdit).Suspend();
        if (s_bResized)
            Of(pEdit).Resize();
        if (!bReady)
            continue;
        char c = 0;
        if (read(STDIN_FILENO, &c, 1) != 1)
            return 0;
        const size_t nBytes = mbrtowc(pKey, &c, 1, &State);
        if (nBytes == static_cast<size_t>(-1))
            State = {};  // not in the user's encoding: ignored
        else if (nBytes != static_cast<size_t>(-2))
            return 1;
    }
}

unsigned char cEditedLines::Complete(EditLine *pEdit, int)
{
    const LineInfo *const pInfo = el_line(pEdit);
    const cCompletion     Found =
        FindCompletion(std::string(pInfo->buffer, pInfo->cursor), Of(pEdit).m_Words);
    if (!Found.m_Insert.empty())
        return el_insertstr(pEdit, Found.m_Insert.c_str()) == 0 ? CC_REFRESH : CC_ERROR;
    if (Found.m_Choices.empty())
        return CC_ERROR;
    std::string Rows = "\n";
    for (const std::string &Choice : Found.m_Choices)
        Rows += Choice + "  ";
    printf("%s\n", Rows.c_str());
    return CC_REDISPLAY;
}

void cEditedLines::Remember(const std::string &Line)
{
    HistEvent Event;
    if (Line.find_first_not_of(" \t") == std::string::npos)
        return;
    history(m_pHistory, &Event, H_ENTER, Line.c_str());
    m_Kept.Add(Line);
}

eTyped cEditedLines::Read(const std::string &Prompt, std::string *pLine)
{
    const cEditingSignals Signals;
    cStopSignals::ForgetInterrupt();
    if (cStopSignals::Caught())
        return tyEnd;
    m_Prompt = Prompt;
    // The library would show the prompt first, and a Ctrl-D that comes before the
    // terminal gives single keys is lost.
    el_set(m_pEdit, EL_PREP_TERM, 1);
    int               nLength = 0;
    const char *const szLine  = el_gets(m_pEdit, &nLength);
    if (cStopSignals::Caught())
    {
        el_reset(m_pEdit);
        return cStopSignals::Caught() == SIGINT ? tyInterrupted : tyEnd;
    }
    if (!szLine || nLength <= 0)
        return tyEnd;
    pLine->assign(szLine, static_cast<size_t>(nLength));
    if (pLine->ends_with('\n'))
        pLine->pop_back();
    Remember(*pLine);
    return tyLine;
}

std::unique_ptr<cLineSource> EditedLines(const std::string              &HistoryFile,
                                         const std::vector<std::string> &Words,
                                         const std::function<void()>    &Resumed)
{
    return std::make_unique<cEditedLines>(HistoryFile, Words, Resumed);
}
