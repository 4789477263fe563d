// run_observer.h - watches a run line by line: a profile, or a debugger.

#ifndef ENGINE_RUN_OBSERVER_H
#define ENGINE_RUN_OBSERVER_H

class cRunObserver
{
public:
    virtual ~cRunObserver() {}

    // A run begins at the current line. Halted here, it ends before its first line.
    virtual void OnRunBegins() = 0;

    // Line nLine, 1 to kLastLine, has been executed, and traced if there is a trace. The
    // current line is the one that is next, unless the program has halted with an
    // error. Halted here, the run ends before it.
    virtual void OnLineDone(unsigned nLine) = 0;
};

#endif
