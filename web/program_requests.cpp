// program_requests.cpp - keys, the commands of the menu, and what survives a reload.

#include "web/web_calculator.h"

#include <cstdio>
#include <iterator>
#include <map>

#include "console/json.h"
#include "console/typed_words.h"
#include "console/vocabulary.h"
#include "engine/decimal.h"
#include "engine/snapshot.h"
#include "engine/vorstek_state.h"
#include "toolkit/disk_file.h"

// A file that the page does not get to see.
static const char *const kScratchFile = "/~listing";

// The first line of what is kept; another number for another form.
static const char *const kKeptForm = "vorstek 1";

// --- keys

// "20 1": key 20 is pressed.
int cWebCalculator::OnKey(const cRequest &Request, std::string *)
{
    m_Engine.OnCalcKey(Request.Number(0), Request.Number(1) != 0);
    return 1;
}

int cWebCalculator::OnChar(const cRequest &Request, std::string *)
{
    m_Engine.OnChar(static_cast<char>(Request.Number(0)));
    return 1;
}

int cWebCalculator::OnHalt(const cRequest &, std::string *)
{
    m_Engine.HaltProgram();
    return 1;
}

// --- the menu

int cWebCalculator::OnNew(const cRequest &, std::string *)
{
    return m_Engine.New();
}

int cWebCalculator::OnOpen(const cRequest &, std::string *)
{
    return m_Engine.Open();
}

// The file's name is the body; the worker has its bytes. A name is used up even if the
// user keeps a modified program.
int cWebCalculator::OnOpenFile(const cRequest &Request, std::string *)
{
    const int bOpened = m_Engine.ConfirmDiscard() && m_Engine.LoadProgram(Request.m_Body.c_str());
    if (bOpened)
        m_Engine.TakeLoadedProgram(Request.m_Body.c_str());
    return bOpened;
}

int cWebCalculator::OnSave(const cRequest &, std::string *)
{
    return m_Engine.Save();
}

int cWebCalculator::OnSaveAs(const cRequest &, std::string *)
{
    return m_Engine.SaveAs();
}

int cWebCalculator::OnRepair(const cRequest &, std::string *)
{
    return m_Engine.RepairHighlight();
}

// Listing and registers kept open, trace, sound off.
int cWebCalculator::OnOptions(const cRequest &Request, std::string *)
{
    m_Engine.ApplyOptions({Request.Number(0) != 0, Request.Number(1) != 0, Request.Number(2) != 0,
                           Request.Number(3) != 0});
    return 1;
}

// --- texts

std::string cWebCalculator::ListingText()
{
    std::string Text;
    if (m_Engine.SaveProgram(kScratchFile))
        if (const cOpenFile File{OpenDiskFile(kScratchFile, "rb"), fclose})
            for (int c = getc(File.get()); c != EOF; c = getc(File.get()))
                Text.push_back(static_cast<char>(c));
    RemoveDiskFile(kScratchFile);
    return Text;
}

int cWebCalculator::OnListing(const cRequest &, std::string *pValue)
{
    AppendJsonText(pValue, ListingText());
    return 1;
}

// All or none of the words; an error ends them, as it ends a program.
int cWebCalculator::OnPerform(const cRequest &Request, std::string *)
{
    static const cVocabulary  s_Vocabulary;
    std::vector<cListingLine> Steps;
    cTypedWords               Words(s_Vocabulary, Request.m_Body);
    cTypedStep                Step;
    while (Words.Next(&Step))
    {
        if (Step.m_Parsed.m_nKind != llInstruction && Step.m_Parsed.m_nKind != llNumber)
            return 0;
        Steps.push_back(Step.m_Parsed);
    }
    for (const cListingLine &Each : Steps)
        if (!m_Engine.Perform(Each))
            return 0;
    return 1;
}

// --- what survives a reload

static void AddLine(std::string *pText, const char *szName, double dValue)
{
    pText->append(szName).push_back(' ');
    AppendJsonNumber(pText, dValue);
    pText->push_back('\n');
}

static const char *const s_Levels[] = {"x", "y", "z", "t"};

// Lines of a name and a number; the program's name; then the listing. Numbers that are
// not finite are left out, and are 0 afterwards.
std::string cWebCalculator::KeptText()
{
    const cVorstekState &State    = m_Engine.State();
    const double         Levels[] = {State.m_dX, State.m_dY, State.m_dZ, State.m_dT};
    std::string          Text     = std::string(kKeptForm) + "\n";
    AddLine(&Text, "angle", State.m_nAngleMode);
    AddLine(&Text, "format", State.m_nDisplayMode);
    AddLine(&Text, "digits", State.m_nDisplayDigits);
    AddLine(&Text, "keepListing", State.m_bKeepListingOpen);
    AddLine(&Text, "keepRegisters", State.m_bKeepRegistersOpen);
    AddLine(&Text, "trace", State.m_bTrace);
    AddLine(&Text, "soundOff", State.m_bSoundOff);
    AddLine(&Text, "modified", State.m_bProgramModified);
    AddLine(&Text, "line", State.m_nCurLine);
    AddLine(&Text, "lastx", State.m_dLastX);
    for (unsigned n = 0; n < kRegisters; n++)
        AddLine(&Text, ("reg." + std::to_string(n)).c_str(), State.m_dReg[n]);
    for (size_t n = 0; n < std::size(s_Levels); n++)
        AddLine(&Text, s_Levels[n], Levels[n]);
    Text += std::string("file ") + State.m_szFileName + "\nlisting\n" + ListingText();
    return Text;
}

namespace
{

// What KeptText() wrote, by name.
struct cKept
{
    std::map<std::string, double> m_Numbers;
    std::string                   m_FileName;
    std::string                   m_Listing;

    // Up to nMost; 0 for one that is missing or larger.
    unsigned Whole(const char *szName, unsigned nMost) const
    {
        const auto Found = m_Numbers.find(szName);
        const int  bGood =
            Found != m_Numbers.end() && Found->second >= 0.0 && Found->second <= nMost;
        return bGood ? static_cast<unsigned>(Found->second) : 0;
    }

    double Number(const std::string &Name) const
    {
        const auto Found = m_Numbers.find(Name);
        return Found == m_Numbers.end() ? 0.0 : Found->second;
    }
};

}  // namespace

static int ReadKept(const std::string &Text, cKept *pKept)
{
    if (!Text.starts_with(std::string(kKeptForm) + "\n"))
        return 0;
    size_t nAt = Text.find('\n') + 1;
    for (size_t nEnd; (nEnd = Text.find('\n', nAt)) != std::string::npos; nAt = nEnd + 1)
    {
        const std::string Line   = Text.substr(nAt, nEnd - nAt);
        const size_t      nBlank = Line.find(' ');
        if (Line == "listing")
        {
            pKept->m_Listing = Text.substr(nEnd + 1);
            return 1;
        }
        if (nBlank == std::string::npos)
            return 0;
        const std::string Name = Line.substr(0, nBlank);
        double            dValue;
        if (Name == "file")
            pKept->m_FileName = Line.substr(nBlank + 1);
        else if (ParseDecimal(Line.c_str() + nBlank + 1, &dValue))
            pKept->m_Numbers[Name] = dValue;
    }
    return 0;
}

// Modes first: they decide how the registers are shown.
static void RestoreNumbers(const cKept &Kept, cVorstekEngine *pEngine)
{
    static const char *const s_Angles[]  = {"RAD", "DEG", "GRD"};
    static const char *const s_Formats[] = {"FIX", "SCI", "ENG"};
    pEngine->Perform(s_Angles[Kept.Whole("angle", 2)], 0);
    pEngine->Perform(s_Formats[Kept.Whole("format", 2)], Kept.Whole("digits", 9));
    for (unsigned n = 0; n < kRegisters; n++)
        pEngine->SetRegister(n, Kept.Number("reg." + std::to_string(n)));
    for (unsigned n = 0; n < std::size(s_Levels); n++)
        pEngine->SetStackLevel(n, Kept.Number(s_Levels[n]));
}

// In run mode, between two runs. A text of another form changes nothing.
int cWebCalculator::OnRestore(const cRequest &Request, std::string *)
{
    cKept Kept;
    if (m_Engine.State().m_bProgramMode || !ReadKept(Request.m_Body, &Kept) ||
        !m_Engine.LoadListing(Kept.m_Listing.data(), Kept.m_Listing.size()))
        return 0;
    m_Engine.TakeLoadedProgram(Kept.m_FileName.c_str());
    m_Engine.ApplyOptions({Kept.Whole("keepListing", 1) != 0, Kept.Whole("keepRegisters", 1) != 0,
                           Kept.Whole("trace", 1) != 0, Kept.Whole("soundOff", 1) != 0});
    RestoreNumbers(Kept, &m_Engine);
    m_Engine.GoToLine(Kept.Whole("line", kLastLine));
    cSnapshot Snapshot;
    m_Engine.TakeSnapshot(&Snapshot);
    Snapshot.m_State.m_dLastX           = Kept.Number("lastx");
    Snapshot.m_State.m_bProgramModified = Kept.Whole("modified", 1) != 0;
    return m_Engine.Restore(Snapshot, nullptr);
}
