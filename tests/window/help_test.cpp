// The help command, with the help files in the program's folder and without them.

#include "tests/window/calculator.h"
#include "tests/window/graph_window.h"

#include <doctest/doctest.h>

#include <cstring>
#include <filesystem>
#include <fstream>

#include "resources/resource.h"
#include "tests/window/common_steps.h"
#include "tests/window/input.h"
#include "tests/window/keys.h"
#include "tests/window/waiting.h"
#include "tests/window/window_state.h"

// Copies help files and pages from the build to the program's folder.
static void BringHelp(cCalculator &Calculator)
{
    const std::filesystem::path Built = std::filesystem::path(VORSTEK_PROGRAM).parent_path();
    for (const char *szName : {"VORSTEK.chm", "cVantor.CHM"})
        std::filesystem::copy_file(Built / szName, Calculator.Path(szName));
    std::filesystem::copy(Built / "HtmlHelp", Calculator.Path("HtmlHelp"),
                          std::filesystem::copy_options::recursive);
}

// The number of pages whose names have this beginning; each page is a topic.
static int Pages(cCalculator &Calculator, const std::string &Beginning)
{
    int nPages = 0;
    for (const auto &File : std::filesystem::directory_iterator(Calculator.Path("HtmlHelp")))
        if (File.path().extension() == ".htm" &&
            File.path().filename().string().starts_with(Beginning))
            nPages++;
    return nPages;
}

static HWND WaitForViewer(const char *szTitle)
{
    return WaitFor([=] { return FindWindowA(nullptr, szTitle); });
}

// The number of topics in the viewer's contents, which the viewer fills by and by.
static int CountTopics(HWND hViewer, int nExpected)
{
    return Eventually(nExpected, [=] {
        HWND hTree = nullptr;
        EnumChildWindows(
            hViewer,
            [](HWND hChild, LPARAM lParam) -> BOOL {
                char szClass[64] = "";
                GetClassNameA(hChild, szClass, sizeof szClass);
                if (strcmp(szClass, WC_TREEVIEWA) != 0)
                    return TRUE;
                *reinterpret_cast<HWND *>(lParam) = hChild;
                return FALSE;
            },
            reinterpret_cast<LPARAM>(&hTree));
        return static_cast<int>(SendMessageA(hTree, TVM_GETCOUNT, 0, 0));
    });
}

namespace
{

// Replaces the user's browser: registers a command that writes the name of the
// page to a file. Wine without its browser has none; where a browser is registered,
// the registry stays as it is and the test fails.
class cPageReader
{
public:
    explicit cPageReader(const std::string &Note) : m_Note(Note)
    {
        LONG nSize = 0;
        REQUIRE(RegQueryValueA(HKEY_CLASSES_ROOT, ".htm", nullptr, &nSize) != ERROR_SUCCESS);
        SetClass(".htm", "vorstek.page");
        SetClass("vorstek.page\\shell\\open\\command", "cmd.exe /c echo %1>\"" + Note + "\"");
    }

    ~cPageReader()
    {
        RegDeleteTreeA(HKEY_CLASSES_ROOT, ".htm");
        RegDeleteTreeA(HKEY_CLASSES_ROOT, "vorstek.page");
    }

    cPageReader(const cPageReader &)            = delete;
    cPageReader &operator=(const cPageReader &) = delete;

    // The page, empty until one has been opened.
    std::string Opened() const
    {
        std::ifstream File(m_Note);
        std::string   Line;
        std::getline(File, Line);
        while (!Line.empty() && (Line.back() == '\r' || Line.back() == ' '))
            Line.pop_back();
        return Line;
    }

private:
    static void SetClass(const char *szKey, const std::string &Value)
    {
        REQUIRE(RegSetValueA(HKEY_CLASSES_ROOT, szKey, REG_SZ, Value.c_str(), 0) == ERROR_SUCCESS);
    }

    std::string m_Note;
};

// Registers the viewer of ./run in place of the platform's.
class cPageViewer
{
public:
    cPageViewer()
    {
        LONG nSize = sizeof m_szFormer;
        REQUIRE(RegQueryValueA(HKEY_CLASSES_ROOT, kViewerKey, m_szFormer, &nSize) == ERROR_SUCCESS);
        Register(VORSTEK_HELP_PAGES);
    }

    ~cPageViewer() { Register(m_szFormer); }

    cPageViewer(const cPageViewer &)            = delete;
    cPageViewer &operator=(const cPageViewer &) = delete;

private:
    static constexpr const char *kViewerKey =
        "CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32";

    static void Register(const char *szViewer)
    {
        RegSetValueA(HKEY_CLASSES_ROOT, kViewerKey, REG_SZ, szViewer, 0);
    }

    char m_szFormer[MAX_PATH] = "";
};

}  // namespace

TEST_CASE("a missing help file of the graph is reported, and the graph still works")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Choose(gmHelp, IDM_GRAPH_HELP);
    const cSeenBox Seen = Calculator.Box();
    CHECK(Seen.m_Caption == "Vorstek");
    CHECK(Seen.m_Text == MissingHelpText("CVANTOR.CHM"));
    CHECK((Seen.m_Buttons == std::vector<std::string>{"OK"}));
    Calculator.Click("OK");
    CHECK(Calculator.HasNoDialog());

    Graph.Open("3.txt", "1\n2\n3\n");
    CHECK(Graph.Count() == 1);
}

TEST_CASE("the help opens with its contents, and the calculator still works")
{
    cCalculator Calculator;
    BringHelp(Calculator);
    Calculator.HitShortcut(VK_F1);
    const HWND hViewer = WaitForViewer("Vorstek Help");
    REQUIRE(hViewer);
    CHECK(CountTopics(hViewer, Pages(Calculator, "")) == Pages(Calculator, ""));
    CHECK(Calculator.HasDialog() == 0);
    Calculator.PhotographScreen().Save("help-there");

    // Next to the calculator, so that its face is not covered.
    const RECT Frame = RectOf(Calculator.Window());
    SetWindowPos(hViewer, nullptr, Frame.right + 10, Frame.top, 300, 300, SWP_NOACTIVATE);
    Calculator.Settle();
    Calculator.HitKey(kKey7);
    CHECK(Calculator.ReadsX("7."));

    Calculator.HitShortcut('E', kCtrl);
    CHECK(Calculator.ExitCode() == 0);
    CHECK(!FindWindowA(nullptr, "Vorstek Help"));
}

TEST_CASE("the graph's help opens with its own contents")
{
    cCalculator Calculator;
    BringHelp(Calculator);
    cGraphWindow Graph(&Calculator);
    Graph.Choose(gmHelp, IDM_GRAPH_HELP);
    const HWND hViewer = WaitForViewer("cVantor Help");
    REQUIRE(hViewer);
    CHECK(CountTopics(hViewer, Pages(Calculator, "cVantor")) == Pages(Calculator, "cVantor"));
    CHECK(Calculator.HasDialog() == 0);
}

TEST_CASE("without a help file the introduction is opened as a page")
{
    cCalculator Calculator;
    BringHelp(Calculator);
    std::filesystem::remove(Calculator.Path("VORSTEK.chm"));
    const cPageReader Reader(Calculator.Path("opened.txt"));
    Calculator.HitShortcut(VK_F1);
    const std::string Page = Calculator.Path("HtmlHelp\\Introduction.htm");
    CHECK(Eventually(Page, [&] { return Reader.Opened(); }) == Page);
    CHECK(Calculator.HasDialog() == 0);

    Calculator.HitKey(kKey7);
    CHECK(Calculator.ReadsX("7."));
}

TEST_CASE("the viewer of ./run opens the help of calculator and graph as pages")
{
    const cPageViewer Viewer;
    cCalculator       Calculator;
    BringHelp(Calculator);
    const cPageReader Reader(Calculator.Path("opened.txt"));
    Calculator.HitShortcut(VK_F1);
    const std::string Page = Calculator.Path("HtmlHelp\\Introduction.htm");
    CHECK(Eventually(Page, [&] { return Reader.Opened(); }) == Page);

    cGraphWindow Graph(&Calculator);
    Graph.Choose(gmHelp, IDM_GRAPH_HELP);
    const std::string Topic = Calculator.Path("HtmlHelp\\cVantor Introduction.htm");
    CHECK(Eventually(Topic, [&] { return Reader.Opened(); }) == Topic);
    CHECK(Calculator.HasDialog() == 0);
}
