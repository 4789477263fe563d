// trace_log.h - one line of text for each line that a run executes: the
// instruction, X, Y, Reg[0] and the return addresses, newest first.

#ifndef ENGINE_TRACE_LOG_H
#define ENGINE_TRACE_LOG_H

#include <cstddef>
#include <cstdio>

#include "engine/listing_words.h"
#include "engine/program_line.h"
#include "toolkit/dbg_file.h"

class cCalculator;

class cTraceLog
{
public:
    cTraceLog()
        : m_Steps{}, m_pFile(nullptr), m_szName("tracelog.txt"), m_nMegabytes(1),
          m_pStream(nullptr), m_nLoss(loNone)
    {
    }
    ~cTraceLog() { Close(); }
    cTraceLog(const cTraceLog &)            = delete;
    cTraceLog &operator=(const cTraceLog &) = delete;

    // Kept, not copied.
    void SetName(const char *szName) { m_szName = szName; }

    // See vorstek_engine.h.
    void SetCap(unsigned nMegabytes) { m_nMegabytes = nMegabytes; }
    void SetStream(FILE *pStream) { m_pStream = pStream; }

    // Writes the heading. Returns 0 when memory is short and the user gave up.
    int  Open(cCalculator &c);
    void Close();
    int  IsOpen() const { return m_pFile != nullptr; }

    // The state after line nLine, which has just been executed. Interrupts the run
    // where it could not be written: a box may have said so and asked for the end.
    void WriteLine(cCalculator &c, unsigned nLine);

    // What has been written so far is in the file for everybody to see.
    void Flush();

    // The worst of all traces that were closed.
    eLogLoss Loss() const { return m_nLoss; }

private:
    void PrepareSteps(const ProgramLine (&Program)[kProgramLines]);

    // A line's instruction column.
    struct cStepText
    {
        size_t m_nLength;
        char   m_szText[kListedText];
    };

    cStepText   m_Steps[kProgramLines];
    cDbgFile   *m_pFile;
    const char *m_szName;
    unsigned    m_nMegabytes;
    FILE       *m_pStream;
    eLogLoss    m_nLoss;
};

#endif
