// Memory that runs out in the window: Retry goes on as if nothing had been, and Cancel
// quits without a file that is half written.

#include "tests/window/graph_window.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <functional>

#include <doctest/doctest.h>

#include "tests/window/common_steps.h"
#include "tests/window/waiting.h"

namespace
{

// What is done while memory fails.
struct cOperation
{
    const char           *m_szName;
    std::function<void()> m_Prepare;  // the same state each time
    std::function<void()> m_Perform;
    int                   m_bReports = 0;  // may say that it failed, in place of asking
};

class cMemoryRig
{
public:
    cMemoryRig();

    // How many allocations it takes, once it has been performed before.
    int Count(const cOperation &Operation);

    // The state after it.
    std::string After(const cOperation &Operation);

    // The state after it when one allocation fails.
    std::string AfterFailure(const cOperation &Operation, int nFailing, eProbe nAnswer);

    // Of the last one: boxes about memory, and how often the program was to quit.
    int Boxes() const { return m_nBoxes; }
    int Quits() const { return m_nQuits; }

    // The files before and after it.
    const std::string &FilesBefore() const { return m_FilesBefore; }
    const std::string &FilesAfter() const { return m_FilesAfter; }

    // Without memory for its work buffers, the GIF encoder fails as on a full disk.
    int HasReported(const cOperation &Operation) const
    {
        return Operation.m_bReports && m_nBoxes == 0 && m_FilesAfter == m_FilesBefore;
    }

    // --- steps

    void OpenListing(const std::string &File);
    void OpenGraph(const std::string &File) { ChooseFile(m_Graph.Window(), IDM_GRAPH_OPEN, File); }
    void AppendGraph(const std::string &File)
    {
        ChooseFile(m_Graph.Window(), IDM_GRAPH_APPEND, File);
    }
    void Command(unsigned nId) { SendMessageA(m_Calculator.Window(), WM_COMMAND, nId, 0); }
    void GraphCommand(unsigned nId) { SendMessageA(m_Graph.Window(), WM_COMMAND, nId, 0); }
    void PressKey(int nKey);
    void SetProgramMode(int bOn);
    void RunToEnd();
    void CreatePicture(unsigned nCommand, const std::string &File);
    void EnterPoints();
    void ChangeResolution();
    void ResizeGraph();
    void Write(const std::string &File, const std::string &Content)
    {
        m_Calculator.Folder().Write(File, Content);
    }

private:
    cProbeAnswer Ask(eProbe nProbe, UINT nId = 0) const
    {
        return cProbeLink::Current()->Ask(nProbe, nId);
    }
    void        Reset();
    void        AcceptDialog(unsigned nCommand, const std::function<void(HWND)> &Fill);
    void        GiveFile(const std::string &File);
    void        ChooseFile(HWND hFrame, unsigned nCommand, const std::string &File);
    std::string Files();
    std::string State();

    cCalculator  m_Calculator;
    cGraphWindow m_Graph;
    std::string  m_FilesBefore;
    std::string  m_FilesAfter;
    int          m_nGraphWidth;
    int          m_nAllocations;
    int          m_nBoxes;
    int          m_nQuits;
};

}  // namespace

static const char *const kListing = "; the first\r\nLBL 1\r\n7\r\nSTO 3\r\n";
static const char *const kOther   = "LBL 2\r\nRCL 3 ; another\r\nsqrt\r\nRTN\r\n";
static const char *const kPoints  = "1\r\n10\r\nSumG\r\n2\r\n20\r\nSumG\r\n";
static const char *const kGraph   = "ImplicitX\r\nTitle \"A line\"\r\n1\r\n2\r\n4\r\n";
static const char *const kMore =
    "ImplicitX\r\nSetLabels \"b\" , \"c\"\r\n5 , 6\r\n7 , 8\r\n9 , 9\r\n";
static const char *const kOld = "the old content";

static const int kWide        = 600;
static const int kNarrow      = 500;
static const int kGraphHeight = 400;
static const int kShownLines  = 9;  // of the listing, more than the programs have

// A file of the test itself, which is no part of the state.
static const char *const kSeen = "seen.txt";

cMemoryRig::cMemoryRig()
    : m_Graph(&m_Calculator), m_nGraphWidth(0), m_nAllocations(0), m_nBoxes(0), m_nQuits(0)
{
    Ask(pbMemoryRetry);
}

// The state that each operation begins with.
void cMemoryRig::Reset()
{
    Write("first.txt", kListing);
    Write("other.txt", kOther);
    Write("points.txt", kPoints);
    Write("line.txt", kGraph);
    Write("more.txt", kMore);
    Write("picture.bmp", kOld);
    Write("picture.gif", kOld);
    OpenListing("first.txt");
    OpenGraph("line.txt");
}

void cMemoryRig::GiveFile(const std::string &File)
{
    const ATOM nName = GlobalAddAtomA(m_Calculator.Path(File).c_str());
    REQUIRE(nName);
    Ask(pbGiveFile, nName);
    GlobalDeleteAtom(nName);
}

void cMemoryRig::ChooseFile(HWND hFrame, unsigned nCommand, const std::string &File)
{
    GiveFile(File);
    SendMessageA(hFrame, WM_COMMAND, nCommand, 0);
}

void cMemoryRig::OpenListing(const std::string &File)
{
    SetProgramMode(0);
    ChooseFile(m_Calculator.Window(), IDM_OPEN, File);
}

// The listing is shown in program mode only.
void cMemoryRig::SetProgramMode(int bOn)
{
    if (m_Calculator.IsListingShown() != bOn)
        PressKey(VK_F12);
}

void cMemoryRig::PressKey(int nKey)
{
    SendMessageA(m_Calculator.Window(), WM_KEYDOWN, static_cast<WPARAM>(nKey), 0);
}

void cMemoryRig::RunToEnd()
{
    PressKey(VK_F5);
    REQUIRE(HasHalted(m_Calculator));
}

// Without memory there may be no dialog, or there is one nevertheless.
void cMemoryRig::AcceptDialog(unsigned nCommand, const std::function<void(HWND)> &Fill)
{
    PostMessageA(m_Graph.Window(), WM_COMMAND, nCommand, 0);
    REQUIRE(WaitFor([&] { return m_Calculator.HasDialog() || Ask(pbMemoryCounts).m_nState; }));
    m_Calculator.Settle();
    if (m_Calculator.HasDialog())
    {
        Fill(m_Calculator.Dialog());
        PostMessageA(m_Calculator.Dialog(), WM_COMMAND, IDOK, 0);
    }
    REQUIRE(m_Calculator.HasNoDialog());
    m_Calculator.Settle();
}

void cMemoryRig::CreatePicture(unsigned nCommand, const std::string &File)
{
    GiveFile(File);
    AcceptDialog(nCommand, [](HWND) {});
}

void cMemoryRig::EnterPoints()
{
    AcceptDialog(IDM_ENTER_Y, [](HWND hDialog) {
        SendDlgItemMessageA(hDialog, IDC_NEW_POINTS, WM_SETTEXT, 0,
                            reinterpret_cast<LPARAM>("7\r\n8\r\n9\r\n"));
    });
}

void cMemoryRig::ChangeResolution()
{
    m_Calculator.ChangeResolution(144);
    m_Calculator.ChangeResolution(96);
}

// The plot is drawn again only if its size changes.
void cMemoryRig::ResizeGraph()
{
    m_nGraphWidth = m_nGraphWidth == kWide ? kNarrow : kWide;
    SetWindowPos(m_Graph.Window(), nullptr, 0, 0, m_nGraphWidth, kGraphHeight,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    m_Calculator.SettlePaint();
}

// Names and contents.
std::string cMemoryRig::Files()
{
    std::vector<std::string> Names;
    for (const auto &Entry : std::filesystem::directory_iterator(m_Calculator.Folder().Name("")))
        if (Entry.path().extension() != ".exe" && Entry.path().filename() != kSeen)
            Names.push_back(Entry.path().filename().string());
    std::sort(Names.begin(), Names.end());
    std::string Files;
    for (const std::string &Name : Names)
        Files += "--- " + Name + "\n" + m_Calculator.Folder().Read(Name) + "\n";
    return Files;
}

// The graph as it is saved, last, because that gives it another name.
std::string cMemoryRig::State()
{
    std::string              State = m_Calculator.StatusText() + "\n" + m_Graph.StatusText() + "\n";
    std::vector<std::string> Lines = m_Calculator.ListingLines();
    Lines.resize(kShownLines);
    for (const std::string &Line : Lines)
        State += Line + "\n";
    State += Files();
    Write(kSeen, "");
    ChooseFile(m_Graph.Window(), IDM_GRAPH_SAVE_AS, kSeen);
    return State + "--- graph\n" + m_Calculator.Folder().Read(kSeen);
}

int cMemoryRig::Count(const cOperation &Operation)
{
    AfterFailure(Operation, 0, pbMemoryRetry);
    return m_nAllocations;
}

std::string cMemoryRig::After(const cOperation &Operation)
{
    return AfterFailure(Operation, 0, pbMemoryRetry);
}

std::string cMemoryRig::AfterFailure(const cOperation &Operation, int nFailing, eProbe nAnswer)
{
    Reset();
    Operation.m_Prepare();
    m_FilesBefore = Files();
    Ask(nAnswer, static_cast<UINT>(nFailing));
    Operation.m_Perform();
    const cProbeAnswer Counts = Ask(pbMemoryCounts);
    m_nAllocations            = Counts.m_nValue;
    m_nBoxes                  = Counts.m_nMore;
    m_nQuits                  = Counts.m_nState;
    Ask(pbMemoryRetry);
    m_FilesAfter = Files();
    return State();
}

static std::vector<cOperation> OperationsOf(cMemoryRig *p)
{
    const auto Nothing = [] {};
    return {
        {"open", Nothing, [=] { p->OpenListing("other.txt"); }},
        {"save", [=] { p->Write("first.txt", kOld); }, [=] { p->Command(IDM_SAVE); }},
        {"record", [=] { p->SetProgramMode(1); },
         [=] {
             p->PressKey(VK_F5);
             p->SetProgramMode(0);
         }},
        {"run",
         [=] {
             p->OpenListing("points.txt");
             p->GraphCommand(IDM_GRAPH_NEW);
         },
         [=] { p->RunToEnd(); }},
        {"open graph", Nothing, [=] { p->OpenGraph("more.txt"); }},
        {"append", Nothing, [=] { p->AppendGraph("more.txt"); }},
        {"save graph", [=] { p->Write("line.txt", kOld); },
         [=] { p->GraphCommand(IDM_GRAPH_SAVE); }},
        {"paint", Nothing, [=] { p->ResizeGraph(); }},
        {"bitmap", Nothing, [=] { p->CreatePicture(IDM_CREATE_BMP, "picture.bmp"); }},
        {"GIF", Nothing, [=] { p->CreatePicture(IDM_CREATE_GIF, "picture.gif"); }, 1},
        {"enter points", Nothing, [=] { p->EnterPoints(); }},
        {"resolution", Nothing, [=] { p->ChangeResolution(); }},
    };
}

// Allocations that fail of each operation, evenly spread; VORSTEK_THOROUGH: all.
static int Step(int nCount)
{
    const int nMost = getenv("VORSTEK_THOROUGH") ? nCount : 8;
    return std::max(nCount / std::max(nMost, 1), 1);
}

TEST_CASE("when any allocation fails, Retry goes on as if nothing had been")
{
    cMemoryRig Rig;
    for (const cOperation &Operation : OperationsOf(&Rig))
    {
        CAPTURE(std::string(Operation.m_szName));
        const std::string After  = Rig.After(Operation);
        const int         nCount = Rig.Count(Operation);
        CHECK(nCount > 0);
        for (int n = 1; n <= nCount; n += Step(nCount))
        {
            CAPTURE(n);
            const std::string State = Rig.AfterFailure(Operation, n, pbMemoryRetry);
            if (!Rig.HasReported(Operation))
                CHECK(State == After);
            CHECK(Rig.Boxes() <= 1);
            CHECK(Rig.Quits() == 0);
        }
    }
}

TEST_CASE("when any allocation fails, Cancel quits, and each file is the old or the new one")
{
    cMemoryRig Rig;
    for (const cOperation &Operation : OperationsOf(&Rig))
    {
        CAPTURE(std::string(Operation.m_szName));
        const std::string After    = Rig.After(Operation);
        const std::string NewFiles = Rig.FilesAfter();
        const std::string OldFiles = Rig.FilesBefore();
        const int         nCount   = Rig.Count(Operation);
        for (int n = 1; n <= nCount; n += Step(nCount))
        {
            CAPTURE(n);
            const std::string State = Rig.AfterFailure(Operation, n, pbMemoryCancel);
            CHECK((Rig.FilesAfter() == OldFiles || Rig.FilesAfter() == NewFiles));
            CHECK((Rig.Quits() > 0) == (Rig.Boxes() > 0));
            if (Rig.Boxes() == 0 && !Rig.HasReported(Operation))
                CHECK(State == After);
        }
    }
}
