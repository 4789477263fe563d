// debugger.h - runs a program and stops it where it is told to. Each line that has
// been executed can be taken back.

#ifndef CONSOLE_DEBUG_DEBUGGER_H
#define CONSOLE_DEBUG_DEBUGGER_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "console/debug/breakpoint.h"
#include "console/session/undo_history.h"
#include "engine/program_line.h"
#include "engine/run_observer.h"

class cHeadlessCalculator;
class cHeadlessHost;

class cDebugger : public cRunObserver
{
public:
    // Both must outlive this. Observes all runs of the calculator.
    cDebugger(cHeadlessCalculator *pCalculator, cHeadlessHost *pHost);
    ~cDebugger() override;

    // --- where to stop
    // A place has one breakpoint: a second one takes its place.
    void                            AddBreakpoint(const cBreakpoint &Breakpoint);
    int                             DeleteBreakpoint(const cPlace &Place);  // 0: there is none
    void                            DeleteBreakpoints() { m_Breakpoints.clear(); }
    const std::vector<cBreakpoint> &Breakpoints() const { return m_Breakpoints; }

    // A run stops after each line that changes one of these.
    void                   Watch(const cQuantity &Quantity);
    int                    Unwatch(const cQuantity &Quantity);  // 0: it is not watched
    void                   UnwatchAll() { m_Watches.clear(); }
    std::vector<cQuantity> Watched() const;

    // --- running. Each goes on in the run that was stopped last, or begins one as R/S
    // does. 0 after an error, which the display shows.
    int Continue();
    int Step(uint64_t nLines);
    int StepOver(uint64_t nLines);  // a GSB with all that it calls is one line
    int RunTo(const cPlace &Place);
    int Finish();  // to the line after the GSB that is open

    // Takes back lines that have been executed, the last one first, with what has been
    // typed between them. Returns how many; kMostUndo are kept.
    uint64_t Back(uint64_t nLines);

    // --- what happened
    // How often each line has been executed and not been taken back.
    uint64_t CountOf(unsigned nLine) const { return m_nCounts[nLine]; }

    // 1 once a line has been executed or taken back since the last call.
    int TakeMoved();

    // Why the last run stopped, lines that end in "\n": "break 12 if x<0\n".
    std::string TakeReason();

    // 1 if a run is stopped that Continue() goes on with.
    int  IsSuspended() const { return m_bSuspended; }
    void SetSuspended(int bSuspended) { m_bSuspended = bSuspended; }

    // There is another program: counts and executed lines are forgotten.
    void ForgetRuns();

    // --- of the run
    void OnRunBegins() override;
    void OnLineDone(unsigned nLine) override;

private:
    // Where a run stops beside breakpoints and watches.
    struct cGoal
    {
        uint64_t              m_nLines = 0;   // after so many; 0: never
        int                   m_nDepth = -1;  // with so many open calls, or fewer
        std::optional<cPlace> m_Place;
        int                   m_bOver = 0;  // counts only lines outside of new calls
    };
    struct cWatch
    {
        cQuantity m_Quantity;
        double    m_dValue;
    };

    int  Go(const cGoal &Goal);
    void Stop();
    int  HasReachedGoal(const cVorstekState &State);
    int  StopsAtBreakpoint(const cVorstekState &State);
    int  HasWatchChanged(const cVorstekState &State);
    void NoteWatches();

    cHeadlessCalculator *const m_pCalculator;
    std::vector<cBreakpoint>   m_Breakpoints;
    std::vector<cWatch>        m_Watches;
    std::optional<cGoal>       m_Goal;   // of the run that Go() begins
    cUndoHistory               m_Lines;  // tagged with the line that has been executed
    uint64_t                   m_nCounts[kProgramLines];
    std::string                m_Reason;
    int                        m_bMoved;
    int                        m_bEnded;  // the last run, by itself
    int                        m_bSuspended;
};

#endif
