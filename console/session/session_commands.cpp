#include "console/session/session_commands.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fstream>
#include <ostream>
#include <sstream>
#include <utility>

#include "console/arguments.h"
#include "console/file_reason.h"
#include "console/input_text.h"
#include "console/session/instruction_help.h"
#include "console/session/session.h"
#include "console/session/terminal.h"
#include "console/stack_text.h"
#include "console/state_report.h"
#include "console/vocabulary.h"
#include "engine/instruction.h"
#include "engine/vorstek_state.h"
#include "figure/plot_source.h"
#include "listing/source_lines.h"
#include "listing/spellings.h"
#include "listing/suggestion.h"
#include "toolkit/disk_file.h"
#include "toolkit/spelling.h"

template <void (cSession::*pOperation)(const std::string &)>
static const auto Do = PerformIn<cSession, pOperation>;

// clang-format off
static const cSessionCommand s_SessionCommands[] =
{
    { "undo",      "[N]",     "go back to before the last line, or the last N", 1, Do<&cSession::OnUndo> },
    { "redo",      "[N]",     "go forward again, by a line or N",            1, Do<&cSession::OnRedo> },
    { "stack",     "",        "print T, Z, Y and X",                         0, Do<&cSession::OnStack> },
    { "registers", "",        "print the registers that are not 0, and LASTx", 0, Do<&cSession::OnRegisters> },
    { "load",      "FILE",    "load a program",                              0, Do<&cSession::OnLoad> },
    { "list",      "",        "print the program; '>' is the current line",  0, Do<&cSession::OnList> },
    { "edit",      "",        "change the program in your editor",           0, Do<&cSession::OnEdit> },
    { "run",       "[LABEL]", "run the program from its current line or a label", 0, Do<&cSession::OnRun> },
    { "save",      "[FILE]",  "save the program",                            0, Do<&cSession::OnSave> },
    { "save!",     "FILE",    "save the program in place of another file",   0, Do<&cSession::OnReplace> },
    { "plot",      "[FILE]",  "draw what programs have drawn into graph.svg or FILE", 0, Do<&cSession::OnPlot> },
    { "help",      "[WORD]",  "say more about an instruction or a command",  0, Do<&cSession::OnHelp> },
    { "quit",      "",        "end, as Ctrl-D does",                         0, Do<&cSession::OnQuit> },
};
// clang-format on

std::span<const cSessionCommand> SessionCommands()
{
    return s_SessionCommands;
}

std::vector<std::span<const cSessionCommand>> cSession::Commands() const
{
    return {SessionCommands()};
}

const cSessionCommand *cSession::FindCommand(std::string_view Name) const
{
    for (const auto Table : Commands())
        for (const cSessionCommand &Row : Table)
            if (EqualIgnoringCase(Name, Row.m_szName))
                return &Row;
    return nullptr;
}

// The command that a word was probably meant to be; null if an instruction is as near.
const cSessionCommand *cSession::FindCommandLike(std::string_view Word) const
{
    static const std::pair<const char *, const char *> s_Elsewhere[] = {
        {"q", "quit"}, {"exit", "quit"}, {"?", "help"}};
    for (const auto &[szOther, szName] : s_Elsewhere)
        if (EqualIgnoringCase(Word, szOther))
            return FindCommand(szName);
    const std::vector<std::string>      Words = this->Words();
    const std::vector<std::string_view> Views(Words.begin(), Words.end());
    const int                           nNear = NearestWord(Word, Views);
    return nNear < 0 ? nullptr : FindCommand(Words[static_cast<size_t>(nNear)]);
}

// What is printed on a key, other than a letter or a sign.
static int IsTyped(const cSpelling &Spelling)
{
    const std::string_view Word = Spelling.m_szWord;
    return Spelling.m_nKind == spLegend && Word.size() > 1 &&
           (Word.find(' ') != std::string_view::npos ||
            std::all_of(Word.begin(), Word.end(), [](char c) { return c > ' ' && c <= '~'; }));
}

std::vector<std::string> cSession::Words() const
{
    std::vector<std::string> Words;
    for (const auto Table : Commands())
        for (const cSessionCommand &Row : Table)
            Words.emplace_back(Row.m_szName);
    for (const cInstruction &Instruction : Instructions())
        Words.emplace_back(Instruction.m_szMnemonic);
    for (const cSpelling &Spelling : Spellings())
        if (IsTyped(Spelling))
            Words.emplace_back(Spelling.m_szWord);
    return Words;
}

// --- back and forward

uint64_t CountFrom(const std::string &Argument)
{
    uint64_t nCount;
    if (Argument.empty())
        return 1;
    return ParseWholeNumber(Argument, &nCount) ? nCount : 0;
}

void cSession::Travel(int (cUndoHistory::*pOperation)(), const char *szName,
                      const std::string &Argument)
{
    const uint64_t nLines = CountFrom(Argument);
    uint64_t       nDone  = 0;
    while (nDone < nLines && (m_History.*pOperation)())
        nDone++;
    if (nLines == 0)
        m_Error = std::string(szName) + ": how many lines?";
    else if (nDone == 0)
        m_Error = std::string("nothing to ") + szName;
    else if (nDone < nLines)
        m_Error = std::string(szName) + ": only " + std::to_string(nDone) + " were left";
    OnTravelled(m_History.Tag());
}

void cSession::OnUndo(const std::string &Argument)
{
    Travel(&cUndoHistory::Undo, "undo", Argument);
}

void cSession::OnRedo(const std::string &Argument)
{
    Travel(&cUndoHistory::Redo, "redo", Argument);
}

// --- what there is

void cSession::OnStack(const std::string &)
{
    PrintStack(State(), m_Streams.m_pOut);
    m_bPrinted = 1;
}

void cSession::OnRegisters(const std::string &)
{
    PrintRegisters(State(), m_Calculator.m_Registers, m_Streams.m_pOut);
    *m_Streams.m_pOut << BoxLine(m_Calculator.m_Registers, kRegisters) << "\n";
    m_bPrinted = 1;
}

static void PrintCommandRow(const cSessionCommand &Row, std::ostream *pOut)
{
    char szStart[48];
    snprintf(szStart, sizeof szStart, "  %-9s %-8s", Row.m_szName, Row.m_szArgument);
    *pOut << szStart << Row.m_szSummary << "\n";
}

void cSession::PrintCommands() const
{
    *m_Streams.m_pOut << "Type numbers and instructions, several in a row: 2 3 + sqrt STO 5\n\n";
    for (const auto Table : Commands())
        for (const cSessionCommand &Row : Table)
            if (FindCommand(Row.m_szName) == &Row)
                PrintCommandRow(Row, m_Streams.m_pOut);
}

void cSession::OnHelp(const std::string &Argument)
{
    m_bPrinted = 1;
    if (Argument.empty())
        return PrintCommands();
    const cVocabulary   Vocabulary;
    const std::string   First        = SplitWords(Argument)[0];  // "GSB" of "GSB 3"
    const cInstruction *pInstruction = Vocabulary.Find(Argument);
    pInstruction                     = pInstruction ? pInstruction : Vocabulary.Find(First);
    const cSessionCommand *pCommand  = FindCommand(Argument);
    if (pCommand)
        *m_Streams.m_pOut << pCommand->m_szName << " " << pCommand->m_szArgument
                          << (*pCommand->m_szArgument ? ": " : "- ") << pCommand->m_szSummary
                          << "\n";
    else if (pInstruction)
        *m_Streams.m_pOut << InstructionHelp(pInstruction->m_szMnemonic);
    else
    {
        const cSessionCommand *const pLike      = FindCommandLike(Argument);
        const std::string            Suggestion = pLike ? pLike->m_szName : SuggestWord(First);
        m_Error =
            "no help on '" + Argument + "'" +
            (Suggestion.empty() || Suggestion == Argument ? ""
                                                          : ", did you mean " + Suggestion + "?");
    }
}

// --- programs

static std::string InOneLine(std::string Text)
{
    Text.resize(Text.find_last_not_of(" \n") + 1);
    std::replace(Text.begin(), Text.end(), '\n', ' ');
    return Text;
}

// Silent but for the boxes. A listing with errors changes nothing.
int cSession::LoadText(const std::string &Listing)
{
    m_Calculator.m_Engine.LoadListing(Listing.data(), Listing.size());
    const std::vector<std::string> Boxes = m_Host.TakeBoxes();
    if (Boxes.empty())
    {
        m_Rejected.clear();
        OnProgramChanged();
        return 1;
    }
    m_Error = InOneLine(Boxes[0]);  // a second one says that the program is gone
    m_History.Revert();
    return 0;
}

int cSession::LoadAs(const std::string &Name, const std::string &Listing)
{
    if (!LoadText(Listing))
    {
        m_Error = (Name == kStandardInput ? "<stdin>" : Name) + ": " + m_Error;
        return 0;
    }
    if (Name != kStandardInput)
        m_Calculator.m_Engine.TakeLoadedProgram(Name.c_str());
    return 1;
}

// The reason why it cannot be read is what is wrong with the line.
int cSession::ReadText(const std::string &Name, std::string *pText)
{
    std::ostringstream Why;
    if (ReadInput(Name, {m_Streams.m_pIn, m_Streams.m_pOut, &Why}, pText))
        return 1;
    m_Error = InOneLine(Why.str());
    m_Error.erase(0, m_Error.find(": ") + 2);  // the name of this program
    return 0;
}

static unsigned CountProgramLines(const std::string &Listing)
{
    cSourceReader Reader(Listing);
    cSourceLine   Line;
    unsigned      nLines = 0;
    while (Reader.Next(&Line))
        nLines = std::max(nLines, Line.m_nProgramLine);
    return nLines;
}

// "saved 12 lines in x.txt", for a person.
void cSession::TellLines(const char *szDone, unsigned nLines, const std::string &File)
{
    if (IsTerminal())
        m_News.push_back(szDone + (" " + std::to_string(nLines)) +
                         (nLines == 1 ? " line " : " lines ") + File);
}

void cSession::OnLoad(const std::string &Argument)
{
    std::string Listing;
    if (Argument.empty() || Argument == kStandardInput)
        m_Error = "which file?";
    else if (ReadText(Argument, &Listing) && LoadAs(Argument, Listing))
        TellLines("loaded", CountProgramLines(Listing), "from " + Argument);
    if (!m_Error.empty())
        m_Error = "load: " + m_Error;
}

std::string cSession::MarkOf(unsigned nLine, const cVorstekState &State) const
{
    return nLine == State.m_nCurLine ? "> " : "  ";
}

// "  34 R/S", without a mark and a comment.
static int IsFiller(const std::string &Row, const std::string &Unmarked)
{
    static const std::string s_End = " R/S";
    return Row.size() == Unmarked.size() + 2 + s_End.size() && Row.starts_with(Unmarked) &&
           Row.ends_with(s_End);
}

// Lines of the listing that are no program lines are comments. Of the R/S that fill the
// program up, the first is shown, where the program ends.
void cSession::OnList(const std::string &)
{
    const cVorstekState     &Is     = State();
    const unsigned           nLines = m_Calculator.m_Listing.CountLines();
    unsigned                 nAt    = 0;  // in the program
    std::vector<std::string> Rows;
    size_t                   nShown = 0;
    for (unsigned nLine = 0; nLine < nLines; nLine++)
    {
        const int         bProgram = nAt <= kLastLine && nLine == Is.m_Program[nAt].m_nListingLine;
        const std::string Unmarked = MarkOf(kProgramLines, Is);
        const std::string Text     = BoxLine(m_Calculator.m_Listing, nLine);
        Rows.push_back((bProgram ? MarkOf(nAt, Is) : Unmarked) + Text);
        if (!bProgram || !IsFiller(Rows.back(), Unmarked))
            nShown = Rows.size() + 1;
        nAt += static_cast<unsigned>(bProgram);
    }
    for (size_t n = 0; n < std::min(nShown, Rows.size()); n++)
        *m_Streams.m_pOut << Rows[n] << "\n";
    m_bPrinted = 1;
}

// A text that cannot be loaded is kept: its mistakes are corrected there.
void cSession::LoadEdited(const std::string &Name)
{
    std::string Listing;
    if (ReadText(Name, &Listing) && LoadText(Listing))
    {
        RemoveDiskFile(Name.c_str());
        return;
    }
    m_Rejected = Name;
    m_Error    = "edit: " + m_Error + "\nedit opens your text again; it is in " + Name;
}

// An editor would take what follows in a script for its keys.
void cSession::OnEdit(const std::string &)
{
    if (!IsTerminal())
    {
        m_Error = "edit: an editor needs a terminal";
        return;
    }
    const int         bAgain = !m_Rejected.empty() && KindOfFile(m_Rejected.c_str()) != fkNone;
    const std::string Name   = bAgain ? m_Rejected : ScratchFile();
    m_bPrinted               = 1;
    if (Name.empty() || (!bAgain && !m_Calculator.m_Engine.SaveProgram(Name.c_str())))
        m_Error = "edit: no file can be written for it";
    else if (EditFile(Name))
        return LoadEdited(Name);
    else
        m_Error = "edit: the editor failed, see VISUAL or EDITOR";
    if (!bAgain && !Name.empty())
        RemoveDiskFile(Name.c_str());
}

void cSession::OnRun(const std::string &Argument)
{
    const int bLabel = Argument.size() == 1 && Argument[0] >= '0' && Argument[0] <= '9';
    if (!Argument.empty() && !bLabel)
    {
        m_Error = "run: a label is a digit from 0 to 9";
        return;
    }
    cVorstekEngine &Engine = m_Calculator.m_Engine;
    const int       bDone = bLabel ? Engine.Perform("GSB", static_cast<unsigned>(Argument[0] - '0'))
                                   : Engine.Perform("R/S", 0);
    if (!bDone)
        m_Error = DisplayedText(&Engine);
}

void cSession::SaveAs(const std::string &Name)
{
    if (!m_Calculator.m_Engine.SaveProgram(Name.c_str()))
        m_Error = "save: " + UnwritableText(Name, errno);
    else
    {
        m_Calculator.m_Engine.TakeLoadedProgram(Name.c_str());
        TellLines("saved", LastUsedLine(State(), m_Calculator.m_Listing), "in " + Name);
    }
}

// A file that is not the program's own is not overwritten by mistake.
void cSession::OnSave(const std::string &Argument)
{
    const std::string Own  = State().m_szFileName;
    const std::string Name = Argument.empty() ? Own : Argument;
    if (Name.empty())
        m_Error = "save: which file?";
    else if (Name != Own && KindOfFile(Name.c_str()) != fkNone)
        m_Error = "save: '" + Name + "' exists already; save! " + Name + " replaces it";
    else
        SaveAs(Name);
}

void cSession::OnReplace(const std::string &Argument)
{
    if (Argument.empty())
        m_Error = "save!: which file?";
    else
        SaveAs(Argument);
}

void cSession::OnPlot(const std::string &Argument)
{
    const std::string Name    = Argument.empty() ? "graph.svg" : Argument;
    const auto        nFormat = FormatOfName(Name);
    m_bPrinted                = 1;
    if (!nFormat)
        m_Error = "plot: the name of a picture ends in .svg, .png or .pdf";
    else if (!CanDraw(*nFormat))
        m_Error = "plot: this vorstek-cli was built without cairo and draws SVG only";
    else if (m_Host.m_Plot.Count() == 0)
        m_Error = "plot: nothing has been drawn; see help SumG";
    else
        SavePlot({Name, *nFormat, 1.0});
}

void cSession::SavePlot(const cPictureFile &File)
{
    cPlotSource  Source(m_Host.m_Plot);
    cFigureNotes Notes;
    if (SaveFigure({}, &Source, File, &Notes) == svDone)
        *m_Streams.m_pOut << "wrote " << File.m_Name << "\n";
    else
        m_Error = "plot: " + UnwritableText(File.m_Name, errno);
}

void cSession::OnQuit(const std::string &)
{
    m_bEnded = 1;
}
