// stop_signal.h - the signals that ask a program to end: Ctrl-C, and SIGTERM as
// "kill" sends it.

#ifndef CONSOLE_STOP_SIGNAL_H
#define CONSOLE_STOP_SIGNAL_H

// Program lines between two looks at the signals: some 10 milliseconds, a third of a
// second with a trace.
const unsigned kLinesPerLook = 1000000;

// While it exists, the first signal is only noted; a second one of the same kind
// ends the process as usual.
class cStopSignals
{
public:
    cStopSignals();
    ~cStopSignals();
    cStopSignals(const cStopSignals &)            = delete;
    cStopSignals &operator=(const cStopSignals &) = delete;

    // The number of the signal that has come, 0 if none has.
    static int Caught();
};

// The exit code of a process that a signal ends: 130 for Ctrl-C, 143 for SIGTERM.
int ExitCodeOfSignal(int nSignal);

#endif
