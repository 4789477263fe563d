// vorstek_engine.h - the calculator: state, number entry, instructions,
// keystrokes, program memory, the run loop and listing files. It needs no
// window; what it asks of the outside goes through cVorstekHost and two line
// boxes.
//
// Where to find what:
//   instruction_table.cpp      the 80 instructions
//   instruction_dispatch.cpp   checking, recording, executing one of them
//   stack.cpp mathematics.cpp statistics.cpp registers.cpp
//   display_mode.cpp flow.cpp graph_calls.cpp       their handlers
//   number_entry.cpp           digits, point, EEX, CHS
//   keystrokes.cpp             keys of the face, prefixes, waiting states
//   pc_keyboard.cpp            characters typed on the PC keyboard
//   program_memory.cpp         lines, editing, the listing box
//   program_run.cpp            run loop, single step
//   trace_log.cpp              the trace of a run
//   listing_load.cpp           listing files in, listing_save.cpp out
//   options.cpp                the options dialog's OK
//   views.cpp display.cpp      display, registers box, highlight
//
// Operations return 1 for success and 0 for failure unless they say otherwise.

#ifndef ENGINE_VORSTEK_ENGINE_H
#define ENGINE_VORSTEK_ENGINE_H

#include <cmath>
#include <cstdint>

#include "engine/instruction.h"
#include "engine/mnemonic_map.h"
#include "engine/vorstek_host.h"
#include "engine/vorstek_state.h"

class cDbgFile;
class cLineBox;
struct cListingLine;

// Results stay within +-kLargest; magnitudes below kSmallest become 0.
const double kLargest  = 9.999999999e99;
const double kSmallest = 1e-99;

const unsigned kKeySst       = 1;
const unsigned kKeyRunStop   = 30;
const unsigned kKeyStackView = 31;  // slide switch, down while it is held right
const unsigned kKeyMode      = 32;  // slide switch, down in run mode, up in program mode

// What the options dialog sets.
struct cOptions
{
    int m_bKeepListingOpen;
    int m_bKeepRegistersOpen;
    int m_bTrace;
    int m_bSoundOff;
};

class cVorstekEngine : protected cVorstekState
{
public:
    // Calls none of its arguments' operations, so a derived class may be its
    // own host. All three must outlive the engine.
    cVorstekEngine(cVorstekHost *pHost, cLineBox *pListing, cLineBox *pRegisters);
    virtual ~cVorstekEngine();
    cVorstekEngine(const cVorstekEngine &)            = delete;
    cVorstekEngine &operator=(const cVorstekEngine &) = delete;

    // Fills the two boxes; called once when they exist.
    int Start();

    // What the calculator remembers; all texts are up to date.
    const cVorstekState &State();

    // Keys. nKeyCode is 1 to 30 for the keys of the face in row order, 31
    // and 32 for the slide switches; bIsDown 1 for a press, 0 for a release.
    void OnCalcKey(unsigned nKeyCode, int bIsDown);
    int  OnDigitKey(unsigned nDigit);

    // A character of the PC keyboard: a key pressed and released, Escape
    // (27) halts a program, others only sound.
    void OnChar(char cChar);

    // Halts a running program after the line in hand, without a sound.
    void HaltProgram();

    // Performs an instruction by its mnemonic as the running mode wants it:
    // executed, recorded or checked. 0 also if there is none of this name.
    int Perform(const char *szMnemonic, unsigned nOperand);

    // Number entry: '0' to '9', '.' or 'e'. Always returns 1.
    int EnterCharacter(char cKey);

    // Sets a level (0 X to 3 T) or a register, as a number line would set X.
    int SetStackLevel(unsigned nLevel, double dValue);
    int SetRegister(unsigned nRegister, double dValue);

    // Program memory. GoToLine: 0 to 98; 99 is line 1.
    int ClearProgram();
    int DeleteCurrentLine();
    int GoToLine(unsigned nLine);
    int StepForward();
    int StepBack();
    int ShowCurrentLine();
    int RepairHighlight();

    // Runs from the current line; returns the last line's result.
    int RunProgram();
    int ExecuteCurrentLine();
    int SingleStep();

    // A single step counts as running, but no run is going on then.
    int IsRunning() const { return m_bProgramRunning; }
    int IsInRun() const { return m_bInRun; }

    // How many runs have begun, the present one included.
    unsigned RunNumber() const { return m_nRuns; }

    // The trace log's name, "tracelog.txt" unless set; kept, not copied.
    void SetTraceFileName(const char *szName) { m_szTraceFileName = szName; }

    // 1 once part of a trace could not be written.
    int IsTraceLost() const { return m_bTraceLost; }

    // Listing files. LoadProgram: 1 when the file was read, rejected lines
    // and an overflow included; 0 when it could not be opened (nothing has
    // changed) or the user cancelled (the program is empty).
    int LoadProgram(const char *szFileName);
    int SaveProgram(const char *szFileName);

    // What follows a successful LoadProgram: the program takes the name, unless
    // the listing box had no room for all of it.
    void TakeLoadedProgram(const char *szFileName);

    // The line of the file that the loader is at, from 1.
    unsigned LoaderLine() const { return m_nLoaderLine; }

    // File commands of the menu, with their questions and reports.
    int New();
    int Open();
    int Save();
    int SaveAs();
    int SaveUnderName(const char *szFileName);

    // 0 if the user wants to go on with the modified program.
    int ConfirmDiscard();

    // The options dialog's OK.
    void ApplyOptions(const cOptions &Options);

    // Brings display, registers box and highlight up to date. During a run
    // they lag behind the state until somebody could see it.
    void RefreshViews();
    int  PaintDisplay();
    int  BlankDisplay();

    // The display's lines in the present layout.
    void ComposeDisplay(cDisplay *pDisplay);

    // dBase to the power n by repeated squaring; 1 divided by the power for
    // a negative n. Power(10, -2) is 0.01.
    static double Power(double dBase, int n);

    // The instruction table, in registration order.
    static const unsigned     kInstructions = 80;
    static const cInstruction s_Instructions[kInstructions];

protected:
    // Shows "Program Error Code #" and the number; an inconsistency within the
    // program, which then goes on.
    void ShowProgramError(unsigned nCode);

    cVorstekHost *m_pHost;

private:
    // --- reports
    void    ShowKeystrokesError(unsigned nCode);
    int     ShowUserError(const char *szText);
    void    StartSound(unsigned nId);
    void    PlayErrorSound();
    void    PlayRejectSound();
    eAnswer AskUser(const char *szText, eButtons nButtons, eIcon nIcon,
                    const char *szCaption = nullptr);

    // --- views
    void FormatNumber(double dValue, char (&szText)[kStackText]);
    void ReportUnformattable(double dValue);
    void ReportFormatCode(double dValue);
    void SettleTexts();
    int  IsXKeyed() const { return m_szEntry[0] && !m_bProgramMode; }
    void ShowX();
    void ShowFormattedX();
    void ShowText(const char *szText);
    void TraceRegister(unsigned nRegister);
    void TraceLastX();
    void WriteRegisterLines();
    void WriteRegisterLine(unsigned nLine);
    void FormatRegisterLine(unsigned nLine, char *szText, size_t nSize);
    void ListRegisters();
    void WriteHighlight();
    void ComposeProgram(cDisplay *pDisplay);
    void ComposeStack(cDisplay *pDisplay);
    void ComposeNormal(cDisplay *pDisplay);
    void AddAnnunciator(cDisplay *pDisplay);
    int  HasVisibleKeystrokes() const;

    // --- stack and endings
    static double Clamp(double dValue);
    void          Push();
    void          Drop();
    void          PushIfLift();
    int           EndOperation(eEnding nEnding);
    void          EndEntry();
    void          AbandonEntry();
    void          SaveLastX(double dFormerX);

    // --- dispatch
    int      PerformInstruction(const cInstruction &Instruction, unsigned nOperand);
    int      AcceptsOperand(const cInstruction &Instruction, unsigned nOperand);
    unsigned RepairOperand(const cInstruction &Instruction, unsigned nOperand);
    int      Record(const cInstruction &Instruction, unsigned nOperand);
    int      Execute(const cInstruction &Instruction, unsigned nOperand);

    // --- handlers of the instruction table
    int SetDisplayMode(unsigned nMode, unsigned nDigits);
    int OnFix(unsigned nDigits);
    int OnSci(unsigned nDigits);
    int OnEng(unsigned nDigits);
    int OnEnter(unsigned);
    int OnClearX(unsigned);
    int OnSwapXY(unsigned);
    int OnRollDown(unsigned);
    int OnLastX(unsigned);
    int OnPi(unsigned);
    int OnChangeSign(unsigned);
    int OnAdd(unsigned);
    int OnSubtract(unsigned);
    int OnMultiply(unsigned);
    int OnDivide(unsigned);
    int OnPower(unsigned);
    int OnPercent(unsigned);
    int OnSin(unsigned);
    int OnCos(unsigned);
    int OnTan(unsigned);
    int OnArcSin(unsigned);
    int OnArcCos(unsigned);
    int OnArcTan(unsigned);
    int OnLn(unsigned);
    int OnLog(unsigned);
    int OnExp(unsigned);
    int OnTenToX(unsigned);
    int OnSqrt(unsigned);
    int OnSquare(unsigned);
    int OnReciprocal(unsigned);
    int OnInt(unsigned);
    int OnFrac(unsigned);
    int OnAbs(unsigned);
    int OnToHms(unsigned);
    int OnToHours(unsigned);
    int OnToRectangular(unsigned);
    int OnToPolar(unsigned);
    int OnRad(unsigned);
    int OnDeg(unsigned);
    int OnGrd(unsigned);
    int OnSumPlus(unsigned);
    int OnSumMinus(unsigned);
    int AddPoint(double dSign);
    int OnMean(unsigned);
    int OnStdDev(unsigned);
    int OnLinearRegression(unsigned);
    int OnRecallSums(unsigned);
    int OnClearSums(unsigned);
    int OnClearRegisters(unsigned);
    int ThroughIndex(cHandler pDirect);
    int DivideQuietly(unsigned nRegister);
    int Store(unsigned nRegister, double dValue);
    int RecallOver(unsigned nRegister);
    int OnSto(unsigned nRegister);
    int OnStoPlus(unsigned nRegister);
    int OnStoMinus(unsigned nRegister);
    int OnStoTimes(unsigned nRegister);
    int OnStoDivide(unsigned nRegister);
    int OnRcl(unsigned nRegister);
    int OnStoI(unsigned);
    int OnStoPlusI(unsigned);
    int OnStoMinusI(unsigned);
    int OnStoTimesI(unsigned);
    int OnStoDivideI(unsigned);
    int OnRclI(unsigned);
    int OnLbl(unsigned);
    int OnGto(unsigned nLabel);
    int OnGtoI(unsigned);
    int OnGsb(unsigned nLabel);
    int OnGsbI(unsigned);
    int OnRtn(unsigned);
    int OnRunStop(unsigned);
    int OnPause(unsigned);
    int OnXLessOrEqualY(unsigned);
    int OnXGreaterY(unsigned);
    int OnXNotEqualY(unsigned);
    int OnXEqualY(unsigned);
    int OnXNegative(unsigned);
    int OnXPositive(unsigned);
    int OnXNotZero(unsigned);
    int OnXZero(unsigned);
    int OnDsz(unsigned);
    int OnIsz(unsigned);
    int OnClearG(unsigned);
    int OnSetG(unsigned);
    int OnSumG(unsigned);

    // --- number entry
    int    ChangeEntrySign();
    int    AcceptEntryKey(char cKey);
    void   AppendToEntry(char c);
    int    AcceptPoint();
    int    AcceptExponentKey();
    int    AcceptDigit(char cDigit);
    void   ComposeEntry(char (&szText)[kStackText]) const;
    int    ClampEntry(char (&szText)[kStackText], double *pdValue);
    double ParseEntry(const char *szText);
    void   ShowEntry(const char *szText, double dValue, int bEnded);

    // --- keystrokes
    void InterpretKey(unsigned nKeyCode, int bIsDown);
    void OnKeyWhileRunning(unsigned nKeyCode, int bIsDown);
    void OnReleaseAfterHalt(unsigned nKeyCode);
    void OnKeyAfterError(unsigned nKeyCode, int bIsDown);
    void OnReleaseAfterError(unsigned nKeyCode);
    void OnPressAfterError(unsigned nKeyCode);
    void OnKeyWhileClearing(unsigned nKeyCode, int bIsDown);
    void OnPress(unsigned nKeyCode);
    void OnRelease(unsigned nKeyCode);
    int  PressFaceKey(unsigned nKeyCode);
    int  ReleaseStepKey();
    int  ReleaseRunKey();
    void SetStackView(int bShow);
    void EnterProgramMode();
    void EnterRunMode();
    void SwitchToProgramMode();
    void SwitchToRunMode();
    void SwitchIfPending();
    int  IsWaitingForKey() const;
    int  EndsWith(const char *szEnding) const;
    void SetKeystrokes(const char *szKeystrokes);
    void AppendKeystroke(const char *szKeystroke);
    void SetLastOp(const char *szName);
    int  IsFirstLineDigitPending() const;
    int  CompleteGoTo(unsigned nDigit);

    // --- actions of the key table
    struct cKeyRow;
    static const cKeyRow s_Keys[];
    int                  PressRun(const char *szMnemonic);
    int                  PressHeld(const char *szMnemonic);
    int                  PressPrefix(const char *szPrefix);
    int                  PressDigit(const char *szDigit);
    int                  PressPoint(const char *);
    int                  PressExponent(const char *);
    int                  PressShiftG(const char *);
    int                  PressIndirect(const char *szMnemonic);
    int                  PressArithmetic(const char *szMnemonic);
    int                  PressSum(const char *szMnemonic);
    int                  PressNothing(const char *);
    int                  PressSst(const char *szName);
    int                  PressBst(const char *szName);
    int                  PressRunStop(const char *szName);
    int                  PressDelete(const char *);
    int                  PressClearProgram(const char *);

    // --- program memory
    void        ResetProgram();
    void        ListClearedProgram();
    void        SetCurLine(unsigned nLine);
    void        AdvanceLine();
    void        HighlightSoon() { m_bHighlightStale = 1; }
    int         InsertInstruction(const char *szFormat, ...) __attribute__((format(printf, 2, 3)));
    int         InsertNumberLine(const char *szText);
    int         ReplaceCurrentLine(const char *szText);
    void        InsertLine(const ProgramLine &Line, const char *szText);
    void        RenumberListing(unsigned nFirstListingLine, unsigned nNumber);
    static void SetRunStop(const cInstruction *pRunStop, ProgramLine *pLine, unsigned nListingLine);
    static void SetNumber(ProgramLine *pLine, const char *szText);
    void ParseOperand(const char *szOperand, char (&szMnemonic)[kMnemonicText], ProgramLine *pLine);

    // --- running
    void EnableRunCommands(int bEnable);
    int  RunLine();
    int  ExecuteNumberLine(const ProgramLine &Line);
    int  OpenTrace();
    void CloseTrace();
    void WriteTraceLine(unsigned nLine);
    int  FindLabel(unsigned nLabel);
    int  FindTargetI();
    int  CallFrom(unsigned nCaller);
    int  SkipUnless(int bHolds);
    int  CountIndex(double dStep);

    // --- listing files
    struct cLoad;
    int  ReadLines(cLoad *pLoad, const char *pText, const char *pEnd);
    void ShowListingSoFar(cLoad *pLoad);
    int  AcceptsLine(const cListingLine &Line);
    void StoreLine(cLoad *pLoad, const cListingLine &Line, const char *szLine);
    int  RejectLine(const cListingLine &Line, const char *szLine);
    int  CancelLoad();
    void FinishLoad(cLoad *pLoad);
    void AbandonKeys();
    void ShowFileName();

    cLineBox    *m_pListing;
    cLineBox    *m_pRegisters;
    cMnemonicMap m_mapHandlers;
    cDbgFile    *m_pTraceFile;  // open during a traced run
    const char  *m_szTraceFileName;
    int          m_bTraceLost;
    unsigned     m_nLoaderLine;
    unsigned     m_nRuns;
    int          m_bInRun;         // the run loop is at work, be it halted or not
    int          m_bListingWhole;  // the listing box had room for all of the file

    // What the views do not show yet.
    int      m_bStackStale;      // m_szX to m_szT
    int      m_bDisplayShowsX;   // m_szDisplay follows m_szX
    uint32_t m_nStaleRegisters;  // bit n: line n of the registers box
    int      m_nSelectRegister;  // line to highlight there, -1 for none
    int      m_bHighlightStale;
    int      m_bPaintStale;
};

#endif
