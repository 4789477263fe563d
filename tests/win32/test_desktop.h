// test_desktop.h - a desktop for the windows of one test program. Under Wine all
// programs of a user share one desktop, including focus, foreground window and
// screen, so that tests running in parallel would disturb each other.

#ifndef TESTS_WIN32_TEST_DESKTOP_H
#define TESTS_WIN32_TEST_DESKTOP_H

#include "toolkit/win32/win32.h"

class cTestDesktop
{
public:
    // Creates a desktop of this size, on which windows have frames. Under Wine, programs
    // that start from now on find the resolution nDpi, in dots per inch.
    cTestDesktop(int nWidth, int nHeight, int nDpi = 96);

    // Closes the desktop with everything on it.
    ~cTestDesktop();
    cTestDesktop(const cTestDesktop &)            = delete;
    cTestDesktop &operator=(const cTestDesktop &) = delete;

    // 1 if this program runs on such a desktop, or outside Wine, where it uses
    // the user's desktop.
    static int IsEntered();

    // Starts this program again with the same arguments, on the desktop: a running
    // program cannot change its desktop. Returns its exit code.
    int RunThisProgram() const;

    // Makes this program see the pixels of the screen as they are, in any resolution.
    static void SeePixels();

    // The name for STARTUPINFO: "vorstek-tests-120".
    const char *Name() const { return m_szName; }

private:
    char                m_szName[40];
    PROCESS_INFORMATION m_Explorer;  // its main window is the desktop
};

#endif
