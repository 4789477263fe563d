// session_host.h - the surroundings of the calculator of a session.

#ifndef CONSOLE_SESSION_SESSION_HOST_H
#define CONSOLE_SESSION_SESSION_HOST_H

#include <string>
#include <vector>

#include "console/console.h"
#include "console/headless_host.h"

// Boxes are kept as text; questions are answered with Cancel. Ctrl-C halts a program
// as R/S does.
class cSessionHost : public cHeadlessHost
{
public:
    explicit cSessionHost(const cStreams &Streams);

    // Set before the engine runs.
    void SetEngine(cVorstekEngine *pEngine) { m_pEngine = pEngine; }

    eAnswer Ask(const char *szText, const char *szCaption, eButtons nButtons, eIcon nIcon) override;
    unsigned DrainMessages(unsigned nLines) override;
    void     Pause(unsigned nMilliseconds) override;

    // The texts of the boxes since the last call.
    std::vector<std::string> TakeBoxes();

    // 1 if PAUSE has printed since the last call.
    int TakePaused();

private:
    const cStreams  m_Streams;
    cVorstekEngine *m_pEngine;
    int             m_bPaused;

    std::vector<std::string> m_Boxes;
};

#endif
