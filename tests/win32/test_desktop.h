// test_desktop.h - a desktop for the windows of one test program. Under Wine
// all programs of a user share one desktop, with its focus, its foreground
// window and the screen that was there first; tests that run side by side would
// disturb each other.

#ifndef TESTS_WIN32_TEST_DESKTOP_H
#define TESTS_WIN32_TEST_DESKTOP_H

#include "toolkit/win32/win32.h"

class cTestDesktop
{
public:
    // Makes a desktop of this size, whose windows have frames.
    cTestDesktop(int nWidth, int nHeight);

    // Closes the desktop with all that is on it.
    ~cTestDesktop();
    cTestDesktop(const cTestDesktop &)            = delete;
    cTestDesktop &operator=(const cTestDesktop &) = delete;

    // Whether this program runs on such a desktop. It does outside Wine, where
    // the user's own desktop serves.
    static int IsEntered();

    // Runs this program with its arguments a second time, on the desktop: one
    // that has begun elsewhere cannot change over. Returns what it returned.
    int RunThisProgram() const;

    // As STARTUPINFO wants it: "vorstek-tests-120".
    const char *Name() const { return m_szName; }

private:
    char                m_szName[40];
    PROCESS_INFORMATION m_Explorer;  // whose main window the desktop is
};

#endif
