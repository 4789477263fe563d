// stop_signal.h - the signals that ask a program to end: Ctrl-C, and SIGTERM as
// "kill" sends it.

#ifndef CONSOLE_STOP_SIGNAL_H
#define CONSOLE_STOP_SIGNAL_H

// Program lines between two looks at the signals: some 10 milliseconds, a third of a
// second with a trace.
const unsigned kLinesPerLook = 1000000;

enum eSecondSignal
{
    ssEnds,  // the process, as usual, if it is of the same kind
    ssNoted
};

// While it exists, signals are only noted. One that is made while there is another does
// nothing.
class cStopSignals
{
public:
    explicit cStopSignals(eSecondSignal nSecond = ssEnds);
    ~cStopSignals();
    cStopSignals(const cStopSignals &)            = delete;
    cStopSignals &operator=(const cStopSignals &) = delete;

    // The number of the signal that has come, 0 if none has. SIGTERM outlasts SIGINT.
    static int Caught();

    // Ctrl-C has been answered.
    static void ForgetInterrupt();

private:
    const int m_bOutermost;
};

// The exit code of a process that a signal ends: 130 for Ctrl-C, 143 for SIGTERM.
int ExitCodeOfSignal(int nSignal);

#endif
