// calculator.h - the core of the engine, private to it: the calculator's state,
// its reports, the stack, the current line and the views. Its functions are in
// calculator.cpp, views.cpp and display.cpp. The other parts of the engine are
// functions over a cCalculator, declared in a header of their own:
//
//   dispatch.h         checks, records or executes one instruction
//   instructions/      the table of instructions and their handlers
//   number_entry.h     digits, point, EEX, CHS
//   keystrokes.h       events of the face's keys and of the PC keyboard
//   key_actions.h      what each key does, alone and after a prefix
//   pending_keys.h     unfinished instructions and waiting states
//   mode_switch.h      between run mode and program mode
//   program_memory.h   program lines, editing, the listing box
//   program_run.h      run loop, single step
//   run_lines.h        program lines as the run loop executes them
//   trace_log.h        the trace of a run
//   listing_files.h    listing files, commands of the file menu
//   options.h          the options dialog's OK
//   snapshot.h         the whole state, to be restored later
//
// Such a header declares only what other parts call; everything else is static in
// its source file. The rest of the engine knows no calculator: listing_words.h,
// number_format.h, decimal.h, power.h, range.h, mnemonic_map.h, line_box.h,
// run_lock.h.

#ifndef ENGINE_CALCULATOR_H
#define ENGINE_CALCULATOR_H

#include <cmath>
#include <cstddef>
#include <cstdint>

#include "engine/instruction.h"
#include "engine/mnemonic_map.h"
#include "engine/number_texts.h"
#include "engine/range.h"
#include "engine/run_lines.h"
#include "engine/trace_log.h"
#include "engine/vorstek_host.h"
#include "engine/vorstek_state.h"

class cLineBox;
class cRunObserver;

const unsigned kLastXLine     = kRegisters;  // line of LASTx in the registers box
const unsigned kRegisterLines = kRegisters + 1;

class cCalculator : public cVorstekState
{
public:
    cCalculator(cVorstekHost *pHost, cLineBox *pListing, cLineBox *pRegisters);
    cCalculator(const cCalculator &)            = delete;
    cCalculator &operator=(const cCalculator &) = delete;

    // --- reports
    // Shows "Program Error Code #" and the number: an inconsistency within the
    // program, which then continues.
    [[gnu::cold]] void ShowProgramError(unsigned nCode);

    // An error of the user, shown in the display with a sound. Ends the entry;
    // returns 0.
    [[gnu::cold]] int ShowUserError(const char *szText);

    eAnswer AskUser(const char *szText, eButtons nButtons, eIcon nIcon,
                    const char *szCaption = nullptr);

    // Silent while the sounds are off.
    void StartSound(unsigned nId);
    void PlayErrorSound();
    void PlayRejectSound();

    // --- stack and operations
    // X keeps its value; the caller overwrites it.
    void Push()
    {
        m_dT = m_dZ;
        m_dZ = m_dY;
        m_dY = m_dX;
    }

    // The caller has already computed X from X and Y.
    void Drop()
    {
        m_dY = m_dZ;
        m_dZ = m_dT;
    }

    void PushIfLift()
    {
        if (m_bStackLift)
            Push();
    }

    int EndOperation(eEnding nEnding)  // always returns 1
    {
        EndEntry();
        MarkX();
        if (nEnding != enKeep)
            m_bStackLift = nEnding == enLift;
        return 1;
    }

    void SaveLastX(double dLastX)
    {
        m_dLastX = dLastX;
        TraceLastX();
    }

    void EndEntry()
    {
        m_szEntry[0]    = 0;
        m_szExponent[0] = 0;
    }

    // Ends an entry in progress. Outside program mode the number keyed so far
    // stays in X, formatted.
    void AbandonEntry();

    // These two clamp; 0 if there is no such level or register.
    int SetStackLevel(unsigned nLevel, double dValue);
    int SetRegister(unsigned nRegister, double dValue)
    {
        if (nRegister >= kRegisters)
            return 0;
        m_dReg[nRegister] = Clamp(dValue);
        TraceRegister(nRegister);
        return 1;
    }

    // --- current line
    // The line after the last is line 1; anything above is an inconsistency.
    void SetCurLine(unsigned nLine)
    {
        m_nCurLine = nLine < kProgramLines ? nLine : RepairLine(nLine);
        MarkHighlight();
    }
    void AdvanceLine() { SetCurLine(m_nCurLine + 1); }

    // --- running
    // Ends a run after the present line.
    void Halt()
    {
        m_bProgramRunning = 0;
        m_bInterrupted    = 1;
    }

    // The present line has used the host: in a run, the host's messages are
    // drained after it, however many lines they might have waited.
    void Interrupt() { m_bInterrupted = 1; }

    // --- views
    // What has changed is noted here; texts, boxes and display are brought up
    // to date by RefreshViews(), when they become visible.
    void RefreshViews();

    // X has a new value: its text is to be made from it, and the display shows
    // it.
    void MarkX()
    {
        m_bStackStale    = 1;
        m_bDisplayShowsX = 1;
        ReportUnformattable(m_dX);
    }

    // A number being keyed in is in X: its text is the keyed one.
    void MarkKeyedX(const char *szText);

    // The display shows X again, as it was formatted last.
    void DisplayFollowsX() { m_bDisplayShowsX = 1; }

    int DoesDisplayFollowX() const { return m_bDisplayShowsX; }

    // State and registers box are those of another moment, texts included.
    void MarkRestored(int bDisplayFollowsX)
    {
        m_bDisplayShowsX  = bDisplayFollowsX != 0;
        m_bHighlightStale = 1;
        m_bPaintStale     = 1;
    }

    // The display keeps its present text, whatever X becomes.
    void FreezeDisplay() { m_bDisplayShowsX = 0; }

    // An error text or a program line, cut to what the display has room for.
    void SetDisplayText(const char *szText);

    void MarkDisplay() { m_bPaintStale = 1; }
    void MarkHighlight() { m_bHighlightStale = 1; }

    // The register's or LASTx's line of the registers box has changed.
    void TraceRegister(unsigned nRegister)
    {
        m_bRegisterStale[nRegister] = 1;
        m_nSelectRegister           = -1;
        ReportUnformattable(m_dReg[nRegister]);
    }
    void TraceLastX()
    {
        m_bRegisterStale[kLastXLine] = 1;
        m_nSelectRegister            = -1;
        ReportUnformattable(m_dLastX);
    }

    // That line is to be selected. A later TraceRegister() undoes it.
    void SelectRegister(unsigned nRegister) { m_nSelectRegister = static_cast<int>(nRegister); }

    // Shows the box that formatting dValue now would show. All numbers but the
    // very smallest and largest format without one, whatever the display mode.
    // Each line of a running program comes here: the array for the text, and the
    // compiler's guard of it, stay in the rare case's own function.
    [[gnu::always_inline]] void ReportUnformattable(double dValue)
    {
        const double dMagnitude = std::fabs(dValue);
        if (!((dMagnitude > 1e-98 && dMagnitude < 1e99) || dValue == 0.0))
            ReportRepairs(dValue);
    }

    // Formats a number and reports what had to be repaired.
    void FormatNumber(double dValue, char (&szText)[kStackText]);

    // The texts of the stack levels and of the display.
    void SettleTexts();

    // A line of the registers box keeps the format in which it was last
    // written, so this also comes before each change of the display mode.
    void WriteRegisterLines();

    void ListRegisters();  // all lines
    void RepairHighlight();
    void PaintDisplay();
    void BlankDisplay();
    void ComposeDisplay(cDisplay *pDisplay);

    cVorstekHost *const m_pHost;
    cLineBox *const     m_pListing;
    cLineBox *const     m_pRegisters;
    cMnemonicMap        m_mapHandlers;

    // --- running
    unsigned  m_nRuns;         // that have begun
    int       m_bRunFailed;    // the last one ended with an error
    int       m_bInRun;        // the run loop is active, halted or not
    int       m_bInterrupted;  // the lines executed without a drain end here
    cRunLines m_RunLines;
    cTraceLog m_Trace;

    // Of the runs from now on; null for none.
    cRunObserver *m_pObserver;

    // --- loading
    unsigned m_nLoaderLine;       // line of the file that the loader is at, from 1
    int      m_bListingComplete;  // the listing box had room for the complete file

private:
    void PrepareBox();
    int  IsXKeyed() const { return m_szEntry[0] && !m_bProgramMode; }
    void FormatRegisterLine(unsigned nLine, char *szText, size_t nSize);
    [[gnu::cold, gnu::noinline]] void ReportRepairs(double dValue);
    [[gnu::cold]] unsigned            RepairLine(unsigned nLine);

    cNumberTexts m_NumberTexts;

    // What the views do not show yet. Each line of a running program sets some of
    // these flags: bytes next to one another, so that one store sets several.
    uint8_t m_bStackStale;     // m_szX to m_szT
    uint8_t m_bDisplayShowsX;  // m_szDisplay follows m_szX
    uint8_t m_bHighlightStale;
    uint8_t m_bPaintStale;
    uint8_t m_bRegisterStale[kRegisterLines];  // lines of the registers box
    int     m_nSelectRegister;                 // line to highlight there, -1 for none
};

#endif
