// The help command: with the help files beside the program, and without them.

#include "tests/window/calculator.h"
#include "tests/window/graph_window.h"

#include <doctest/doctest.h>

#include <filesystem>

#include "resources/resource.h"
#include "tests/window/input.h"
#include "tests/window/waiting.h"

namespace
{

const unsigned kHelpMenu = 3;

std::string MissingText(const std::string &File)
{
    return "ERROR: HtmlHelp() failed to find the " + File +
           " file.\n\n"
           "This probably means that your computer has an archaic\n"
           "version of Internet Explorer.  You can download the\n"
           "latest version of Internet Explorer from Microsoft's\n"
           "web site or you can get Version 5.5 from the CD you\n"
           "used to install this software (in either case, you\n"
           "don't have to make it your default web browser).\n";
}

// Help files and pages beside the program, as the build leaves them.
void BringHelp(cCalculator &Calculator)
{
    const std::filesystem::path Built = std::filesystem::path(VORSTEK_PROGRAM).parent_path();
    for (const char *szName : {"VORSTEK.chm", "cVantor.CHM"})
        std::filesystem::copy_file(Built / szName, Calculator.Path(szName));
    std::filesystem::copy(Built / "HtmlHelp", Calculator.Path("HtmlHelp"),
                          std::filesystem::copy_options::recursive);
}

}  // namespace

TEST_CASE("the graph's help that is not there is reported and the graph goes on")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Choose(gmHelp, IDM_GRAPH_HELP);
    const cSeenBox Seen = Calculator.Box();
    CHECK(Seen.m_Caption == "Vorstek");
    CHECK(Seen.m_Text == MissingText("CVANTOR.CHM"));
    CHECK((Seen.m_Buttons == std::vector<std::string>{"OK"}));
    Calculator.Click("OK");
    CHECK(Eventually(0, [&] { return Calculator.HasDialog(); }) == 0);

    Graph.Open("3.txt", "1\n2\n3\n");
    CHECK(Graph.Count() == 1);
}

TEST_CASE("with its help there the calculator opens it and goes on")
{
    cCalculator Calculator;
    BringHelp(Calculator);
    Calculator.Choose(kHelpMenu, IDM_HELP);
    Calculator.Settle();
    Calculator.PhotographScreen().Save("help-there");
    CHECK(Calculator.HasDialog() == 0);
}
