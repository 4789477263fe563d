// failing_memory.h - lets the allocations of a test fail that ask for null on
// failure, new (std::nothrow). All others go on as always.

#ifndef TESTS_UNIT_FAILING_MEMORY_H
#define TESTS_UNIT_FAILING_MEMORY_H

// While an object lives, the next nSucceed such allocations succeed and the
// nFail behind them return null; then all succeed again. One at a time.
class cFailingMemory
{
public:
    cFailingMemory(int nSucceed, int nFail);
    ~cFailingMemory();
    cFailingMemory(const cFailingMemory &)            = delete;
    cFailingMemory &operator=(const cFailingMemory &) = delete;

    // How many of the failures are still to come.
    int FailuresLeft() const;
};

#endif
