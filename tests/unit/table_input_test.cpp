#include "console/table_input.h"

#include <sstream>
#include <string>
#include <vector>

#include "tests/unit/table_rig.h"

namespace
{

// Tables as a command reads them.
class cInputRig
{
public:
    explicit cInputRig(const std::vector<std::string> &Contents)
        : m_Streams{&m_In, &m_Out, &m_Err}, m_Input(m_Options, m_Streams)
    {
        for (const std::string &Content : Contents)
        {
            const std::string File = "t" + std::to_string(m_Names.size() + 1);
            m_Folder.Write(File, Content);
            m_Names.push_back(m_Folder.Name(File));
        }
    }

    // What the findings and errors were, without the folder.
    std::string Said() const
    {
        std::string       Text   = m_Err.str();
        const std::string Folder = m_Folder.Name("");
        for (size_t nAt; (nAt = Text.find(Folder)) != std::string::npos;)
            Text.erase(nAt, Folder.size());
        return Text;
    }

    cScratchFolder           m_Folder;
    std::istringstream       m_In;
    std::ostringstream       m_Out, m_Err;
    cStreams                 m_Streams;
    cTableOptions            m_Options;
    cTableInput              m_Input;
    std::vector<std::string> m_Names;
};

}  // namespace

TEST_CASE("tables of a command line are the points of a figure")
{
    cInputRig Rig({"Title \"T\"\nSetLabels \"a\"\n1\n", "ExplicitX\nHorzAxisLabel \"s\"\n2 3\n"});

    REQUIRE(Rig.m_Input.Load(Rig.m_Names) == kExitDone);

    cPointText Sink;
    CHECK(Rig.m_Input.Read(&Sink) == 1);
    CHECK(Sink.m_Text == "0:0,1 1:2,3");
    CHECK(Rig.m_Input.Lines() == 2);
    CHECK(Rig.m_Input.LineLabel(0) == "a");
    CHECK(Rig.m_Input.LineLabel(1) == Rig.m_Names[1]);
    CHECK(Rig.m_Input.Title() == "T");
    CHECK(Rig.m_Input.XLabel() == "s");
    CHECK(Rig.Said().empty());
}

TEST_CASE("warnings of all tables are printed and do not stop the command")
{
    cInputRig Rig({"1 2\n3 nan\n", "1 abc\n"});

    CHECK(Rig.m_Input.Load(Rig.m_Names) == kExitDone);
    CHECK(Rig.Said() == "t1:2:3: warning: \"nan\" is a gap [gap-word]\n"
                        "t2:1:3: warning: text after column 1 ignored: \"abc\" [text-ignored]\n");
}

TEST_CASE("warnings are errors where the options say so")
{
    cInputRig Rig({"1\n", "1 abc\n"});
    Rig.m_Options.m_bStrict = 1;
    CHECK(Rig.m_Input.Load(Rig.m_Names) == kExitError);
    CHECK(Rig.Said() == "t2:1:3: warning: text after column 1 ignored: \"abc\" [text-ignored]\n"
                        "vorstek-cli: nothing was drawn, because of --strict\n");

    cInputRig Clean({"1\n"});
    Clean.m_Options.m_bStrict = 1;
    CHECK(Clean.m_Input.Load(Clean.m_Names) == kExitDone);
    CHECK(Clean.Said().empty());
}

TEST_CASE("what is no table is refused with its place")
{
    cInputRig Rig({"1 2\nabc\n"});
    Rig.m_Options.m_bStrict = 1;
    CHECK(Rig.m_Input.Load(Rig.m_Names) == kExitUsage);
    CHECK(Rig.Said() == "t1:2: Error: no number in \"abc\"\n");

    cInputRig Missing({"1\n"});
    Missing.m_Names.push_back(Missing.m_Folder.Name("none"));
    CHECK(Missing.m_Input.Load(Missing.m_Names) == kExitUsage);
    CHECK(Missing.Said() == "vorstek-cli: cannot read 'none': no such file\n");
}

TEST_CASE("a table that becomes shorter between two readings is an error")
{
    std::string Content;
    for (size_t i = 0; i <= kMostKeptValues; i++)
        Content += "1\n";
    cInputRig Rig({Content});
    REQUIRE(Rig.m_Input.Load(Rig.m_Names) == kExitDone);
    REQUIRE(CutFile(Rig.m_Names[0].c_str(), 1000) == 1);

    cPointText Sink;
    CHECK(Rig.m_Input.Read(&Sink) == 0);
    CHECK(Rig.Said() == "vorstek-cli: cannot read 't1': it fails while it is read\n");
}
