// session.h - the calculator that a person works with in a terminal, line by line:
// instructions and numbers as "vorstek-cli eval" takes them, and commands.

#ifndef CONSOLE_SESSION_SESSION_H
#define CONSOLE_SESSION_SESSION_H

#include <string>
#include <vector>

#include "console/console.h"
#include "console/session/session_host.h"
#include "console/session/undo_history.h"
#include "console/typed_line.h"

class cSession
{
public:
    explicit cSession(const cStreams &Streams);

    // Performs a line. What a command prints goes to the streams.
    void Perform(const std::string &Line);

    // 1 once the user has asked for the end.
    int HasEnded() const { return m_bEnded; }

    // 1 if the last line printed something.
    int HasPrinted() const { return m_bPrinted; }

    // 1 if the last line may have changed X, and printed nothing.
    int HasAnswer() const { return m_bAnswers && !m_bPrinted; }

    // What went wrong with the last line, "" for nothing.
    const std::string &Error() const { return m_Error; }

    // The calculator with its texts up to date.
    const cVorstekState &State();

    std::string XText();      // "5.00"
    std::string LastXText();  // "3.00"
    std::string ModesText();  // "DEG  FIX 2"

    // What tab completes: commands and instructions, in their order.
    static std::vector<std::string> Words();

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

private:
    void Calculate(const std::string &Line);
    void SaveAs(const std::string &Name);
    int  LoadText(const std::string &Listing);

    const cStreams      m_Streams;
    cSessionHost        m_Host;
    cHeadlessCalculator m_Calculator;
    cTypedLines         m_Lines;
    cUndoHistory        m_History;
    std::string         m_Error;
    int                 m_bPrinted;
    int                 m_bAnswers;
    int                 m_bEnded;
};

#endif
