// debug_session.h - a session in which programs are run step by step.

#ifndef CONSOLE_DEBUG_DEBUG_SESSION_H
#define CONSOLE_DEBUG_DEBUG_SESSION_H

#include <string>
#include <vector>

#include "console/debug/debugger.h"
#include "console/session/session.h"

class cDebugSession : public cSession
{
public:
    explicit cDebugSession(const cStreams &Streams);

    // The program as it is read from a file or standard input; 0 with an Error() if it
    // cannot be loaded, without one if the streams have been told why.
    int Load(const std::string &Name);

    const char                                   *Prompt() const override { return "debug> "; }
    std::vector<std::string>                      Rows(size_t nMost) override;
    std::vector<std::string>                      PlainRows() override;
    std::vector<std::span<const cSessionCommand>> Commands() const override;

    // --- the commands; Argument is what follows their name
    void OnBreak(const std::string &Argument);
    void OnDelete(const std::string &Argument);
    void OnWatch(const std::string &Argument);
    void OnUnwatch(const std::string &Argument);
    void OnStep(const std::string &Argument);
    void OnNext(const std::string &Argument);
    void OnUntil(const std::string &Argument);
    void OnFinish(const std::string &Argument);
    void OnContinue(const std::string &Argument);
    void OnBack(const std::string &Argument);
    void OnWhere(const std::string &Argument);
    void OnCounts(const std::string &Argument);

protected:
    std::string Meant(const std::string &Typed) override;
    void        OnProgramChanged() override;
    unsigned    OnPerformed() override;
    void        OnTravelled(unsigned nNote) override;
    std::string MarkOf(unsigned nLine, const cVorstekState &State) const override;

private:
    void                     PrintBreakpoints() const;
    std::vector<std::string> WatchRows();
    std::string              ProgramRow(unsigned nLine);
    void                     Ended(int bDone);

    cDebugger   m_Debugger;
    int         m_bMoved;      // by the last line
    int         m_bTravelled;  // by undo or redo
    unsigned    m_nLine;       // current after the last line
    std::string m_Repeated;    // by an empty line
};

#endif
