// vorstek_engine.h - the calculator: state, number entry, instructions,
// keystrokes, program memory, the run loop and listing files. It needs no
// window; what it asks of its surroundings goes through cVorstekHost and two
// line boxes.
//
// This is the page for callers. The parts of the engine begin at calculator.h.
//
// Operations return 1 for success and 0 for failure unless they say otherwise.

#ifndef ENGINE_VORSTEK_ENGINE_H
#define ENGINE_VORSTEK_ENGINE_H

#include <cstdio>
#include <memory>

#include "engine/key_codes.h"
#include "engine/vorstek_host.h"
#include "toolkit/dbg_file.h"

class cCalculator;
class cLineBox;
class cRunObserver;
struct cSnapshot;
struct cStep;
struct cVorstekState;

// What the options dialog sets.
struct cOptions
{
    int m_bKeepListingOpen;
    int m_bKeepRegistersOpen;
    int m_bTrace;
    int m_bSoundOff;
};

class cVorstekEngine
{
public:
    // All three must outlive the engine. A derived class may be its own host:
    // the constructor calls none of their operations, except for pHost's
    // message box when there is no memory for the table of instructions. Throws
    // std::bad_alloc after Cancel there, and if there is none for the calculator itself.
    cVorstekEngine(cVorstekHost *pHost, cLineBox *pListing, cLineBox *pRegisters);
    virtual ~cVorstekEngine();
    cVorstekEngine(const cVorstekEngine &)            = delete;
    cVorstekEngine &operator=(const cVorstekEngine &) = delete;

    // Fills the two boxes; called once when they exist.
    int Start();

    // What the calculator remembers; all texts are up to date. One object for
    // the life of the engine.
    const cVorstekState &State();

    // Keys. nKeyCode is 1 to 30 for the keys of the face in row order, 31
    // and 32 for the slide switches; bIsDown 1 for a press, 0 for a release.
    void OnCalcKey(unsigned nKeyCode, int bIsDown);

    // A character of the PC keyboard: a key pressed and released, Escape
    // (27) halts a program, others only sound.
    void OnChar(char cChar);

    // Halts a running program after the current line, without a sound.
    void HaltProgram();

    // Performs an instruction by its mnemonic as the current mode requires:
    // executed, recorded or checked. 0 also if there is none of this name.
    int Perform(const char *szMnemonic, unsigned nOperand);

    // The same for a step of a listing: an instruction with an operand that it
    // takes, or a number, which is entered as a number line enters it.
    int Perform(const cStep &Step);

    // Number entry: '0' to '9', '.' or 'e'. Always returns 1.
    int EnterCharacter(char cKey);

    // A number that comes as a text, "-2.5e-07", as from a clipboard; 0 and a box if it
    // is none. See number_transfer.h.
    int EnterNumber(const char *szText);

    // Sets a level (0 X to 3 T) or a register, as a number line would set X.
    int SetStackLevel(unsigned nLevel, double dValue);
    int SetRegister(unsigned nRegister, double dValue);

    // The current line: 0 to kLastLine; the number after it is line 1.
    int GoToLine(unsigned nLine);
    int RepairHighlight();

    // A single step counts as running, but no run is in progress then.
    int IsRunning() const;
    int IsInRun() const;

    // How many runs have begun, the present one included.
    unsigned RunNumber() const;

    // 1 if the last run that has ended did so with an error in the current line.
    int HasRunFailed() const;

    // Everything that the calculator remembers, and back to it; see snapshot.h.
    void TakeSnapshot(cSnapshot *pSnapshot);
    int  Restore(const cSnapshot &Snapshot, const char *szListing);

    // Runs on from the current line in the run that was halted last: stack lift and open
    // calls are as they were, which R/S would end. 0 in a run, and after an error.
    int ContinueRun();

    // Watches the runs from now on; null: no longer. It may call HaltProgram(),
    // State() and TakeSnapshot().
    void SetObserver(cRunObserver *pObserver);

    // The trace log's name, "tracelog.txt" unless set; kept, not copied.
    void SetTraceFileName(const char *szName);

    // How long the log may become before it is its own backup and begins again, in
    // units of 1,000,000 bytes: 1 to 100; 1 unless set.
    void SetTraceCap(unsigned nMegabytes);

    // Writes traces to this stream, without a cap; null: to the log.
    void SetTraceStream(FILE *pStream);

    // What the traces that were written so far have lost.
    eLogLoss TraceLoss() const;

    // Listing files. LoadProgram: 1 when the file was read, rejected lines
    // and an overflow included; 0 when it could not be opened (nothing has
    // changed) or the user cancelled (the program is empty).
    int LoadProgram(const char *szFileName);

    // The same for a listing that is in memory.
    int LoadListing(const char *pText, size_t nLength);
    int SaveProgram(const char *szFileName);

    // What follows a successful LoadProgram: the program takes the name, unless
    // the listing box had no room for the complete file.
    void TakeLoadedProgram(const char *szFileName);

    // File commands of the menu, with their questions and reports.
    int New();
    int Open();
    int Save();
    int SaveAs();
    int SaveUnderName(const char *szFileName);

    // 0 if the user wants to keep working on the modified program.
    int ConfirmDiscard();

    // The options dialog's OK.
    void ApplyOptions(const cOptions &Options);

    // Brings display, registers box and highlight up to date. During a run
    // they lag behind the state until they become visible.
    void RefreshViews();
    int  PaintDisplay();
    int  BlankDisplay();

    // The display's lines in the present layout.
    void ComposeDisplay(cDisplay *pDisplay);

protected:
    // Shows "Program Error Code #" and the number; an inconsistency within the
    // program, which then continues.
    void ShowProgramError(unsigned nCode);

    // For tests, which call the parts of the engine and put the calculator into
    // situations that keys cannot reach.
    cCalculator &Calculator() { return *m_pCalculator; }

private:
    const std::unique_ptr<cCalculator> m_pCalculator;
};

#endif
