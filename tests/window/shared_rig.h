// shared_rig.h - lets consecutive tests of a file use one running program, since
// starting it takes longer than most of these tests.
//
//     cTwoLinesRig &Rig = Shared<cTwoLinesRig>();
//
// A rig is for tests that leave the program as they found it. IsAsNew() of the
// rig checks that before each reuse; if it returns 0, if a test has failed, or if
// another test starts a program of its own, the next use starts a new program.

#ifndef TESTS_WINDOW_SHARED_RIG_H
#define TESTS_WINDOW_SHARED_RIG_H

#include <functional>
#include <memory>

// Ends the program of the shared rig, if there is one.
void EndSharedRig();

// Keeps what EndSharedRig() has to do. There is one shared rig at a time.
void SetSharedRigEnd(std::function<void()> End);

template <class cRig> cRig &Shared()
{
    static std::unique_ptr<cRig> s_pRig;
    if (s_pRig && s_pRig->IsAsNew())
        return *s_pRig;
    EndSharedRig();
    s_pRig = std::make_unique<cRig>();
    SetSharedRigEnd([] { s_pRig.reset(); });
    return *s_pRig;
}

#endif
