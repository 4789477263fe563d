// session.h - the calculator that a person works with in a terminal, line by line:
// instructions and numbers as "vorstek-cli eval" takes them, and commands.

#ifndef CONSOLE_SESSION_SESSION_H
#define CONSOLE_SESSION_SESSION_H

#include <span>
#include <string>
#include <vector>

#include "console/console.h"
#include "console/session/session_host.h"
#include "console/session/undo_history.h"
#include "console/typed_line.h"
#include "figure/figure_file.h"

struct cSessionCommand;

class cSession
{
public:
    explicit cSession(const cStreams &Streams);
    virtual ~cSession() {}

    // Performs a line. What a command prints goes to the streams.
    void Perform(const std::string &Typed);

    // 1 once the user has asked for the end.
    int HasEnded() const { return m_bEnded; }

    // 1 if the last line printed something that stays above what is drawn again.
    int HasPrinted() const { return m_bPrinted || m_bPaused; }

    // 1 if the last line may have changed X, and no command printed anything instead.
    int HasAnswer() const { return m_bAnswers && !m_bPrinted; }

    // What went wrong with the last line, "" for nothing.
    const std::string &Error() const { return m_Error; }

    // The calculator with its texts up to date.
    const cVorstekState &State();

    std::string XText();      // "5.00"
    std::string LastXText();  // "3.00"
    std::string ModesText();  // "DEG  FIX 2"

    // What stands before the line that is typed in a terminal.
    virtual const char *Prompt() const { return "> "; }

    // The rows that are drawn above the stack, at most nMost if it can do with less, and
    // what a plain terminal gets in their place before X.
    virtual std::vector<std::string> Rows(size_t /*nMost*/) { return {}; }
    virtual std::vector<std::string> PlainRows() { return {}; }

    // What the last line has brought about beside the stack.
    const std::vector<std::string> &News() const { return m_News; }

    // What tab completes: commands, instructions, and what is printed on keys for them.
    std::vector<std::string> Words() const;

    // Its commands. Of two with the same name the first one counts.
    virtual std::vector<std::span<const cSessionCommand>> Commands() const;

    // --- the commands; Argument is what follows their name
    void OnUndo(const std::string &Argument);
    void OnRedo(const std::string &Argument);
    void OnHelp(const std::string &Argument);
    void OnLoad(const std::string &Argument);
    void OnSave(const std::string &Argument);
    void OnReplace(const std::string &Argument);
    void OnList(const std::string &Argument);
    void OnEdit(const std::string &Argument);
    void OnRegisters(const std::string &Argument);
    void OnStack(const std::string &Argument);
    void OnRun(const std::string &Argument);
    void OnPlot(const std::string &Argument);
    void OnQuit(const std::string &Argument);

protected:
    // The present state is the one that undo ends at.
    void BeginHistory() { m_History.Forget(); }

    // What a line that was typed stands for.
    virtual std::string Meant(const std::string &Typed) { return Typed; }

    // There is another program now.
    virtual void OnProgramChanged() {}

    // A line has been performed, and is about to become a step of undo, with a note
    // that comes back when undo or redo lead to this state.
    virtual unsigned OnPerformed() { return 0; }
    virtual void     OnTravelled(unsigned /*nNote*/) {}

    // Loads the program that was read from a file of this name, or from standard input.
    // 0 with an error.
    int LoadAs(const std::string &Name, const std::string &Listing);

    // What precedes a program line in a list of the program.
    virtual std::string MarkOf(unsigned nLine, const cVorstekState &State) const;

    const cStreams           m_Streams;
    cSessionHost             m_Host;
    cHeadlessCalculator      m_Calculator;
    std::string              m_Error;
    std::vector<std::string> m_News;
    int                      m_bPrinted;
    int                      m_bPaused;  // a PAUSE printed the display
    int                      m_bAnswers;

private:
    const cSessionCommand *FindCommand(std::string_view Name) const;
    void                   PrintCommands() const;
    const cSessionCommand *FindCommandLike(std::string_view Word) const;
    void                   PerformCommand(const cSessionCommand &Row, const std::string &Argument);
    void                   Calculate(const std::string &Line);
    void Travel(int (cUndoHistory::*pOperation)(), const char *szName, const std::string &Argument);
    void SaveAs(const std::string &Name);
    void SavePlot(const cPictureFile &File);
    int  LoadText(const std::string &Listing);
    void TellLines(const char *szDone, unsigned nLines, const std::string &File);
    int  ReadText(const std::string &Name, std::string *pText);
    void LoadEdited(const std::string &Name);

    cTypedLines  m_Lines;
    cUndoHistory m_History;
    std::string  m_Rejected;  // file with an edited text that could not be loaded
    int          m_bEnded;
};

#endif
