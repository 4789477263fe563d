// screen.h - shows the calculator of a session: where the cursor can go back, in one
// place that is drawn again after each line; elsewhere X after each line.

#ifndef CONSOLE_SESSION_SCREEN_H
#define CONSOLE_SESSION_SCREEN_H

#include <string>
#include <vector>

#include "console/console.h"

class cSession;

class cScreen
{
public:
    // Streams must outlive the screen.
    cScreen(const cStreams &Streams, int bRedraws);

    // For the first time, or below what has been printed since.
    void Show(cSession *pSession);

    // After a line that has been performed. Typed is that line as the terminal
    // shows it, the prompt included.
    void Answer(cSession *pSession, const std::string &Typed);

private:
    void PrintRow(const std::string &Text, const char *szStyle);

    const cStreams          &m_Streams;
    const int                m_bRedraws;
    const int                m_bStyles;
    std::vector<std::string> m_Rows;  // drawn by the last Show()
};

#endif
