#include <fstream>
#include <map>
#include <random>
#include <sstream>

#include <doctest/doctest.h>

#include "console/session/session.h"
#include "console/session/session_commands.h"
#include "console/vocabulary.h"
#include "engine/vorstek_state.h"
#include "tests/unit/scratch_folder.h"

namespace
{

// A session that prints into a text.
struct cSessionRig
{
    cSessionRig() : m_Session({&m_In, &m_Out, &m_Err}) {}

    // Performs the lines; returns what they have printed.
    std::string Type(std::initializer_list<std::string> Lines)
    {
        m_Out.str("");
        for (const std::string &Line : Lines)
            m_Session.Perform(Line);
        return m_Out.str();
    }

    // All that can be seen of the calculator.
    std::string Seen()
    {
        std::ostringstream   Text;
        const cVorstekState &State = m_Session.State();
        Text << State.m_szX << " " << State.m_szY << " " << State.m_szZ << " " << State.m_szT << " "
             << State.m_nCurLine << " " << m_Session.ModesText() << " " << m_Session.LastXText()
             << "\n";
        return Text.str() + Type({"registers", "list"});
    }

    std::istringstream m_In;
    std::ostringstream m_Out;
    std::ostringstream m_Err;
    cSession           m_Session;
};

}  // namespace

TEST_CASE("no command is an instruction")
{
    const cVocabulary Vocabulary;
    for (const cSessionCommand &Command : SessionCommands())
        CHECK(Vocabulary.Find(Command.m_szName) == nullptr);
}

TEST_CASE("a session calculates, and says where a line stopped")
{
    cSessionRig Rig;

    CHECK(Rig.Type({"2 3 + sqrt"}).empty());
    CHECK(Rig.m_Session.XText() == "2.24");
    CHECK(Rig.m_Session.LastXText() == "5.00");
    CHECK(Rig.m_Session.Error().empty());

    Rig.Type({"0 1/x 5"});
    CHECK(Rig.m_Session.Error() == "column 3: 1/x: Error: divide by 0");
    Rig.Type({"FIX 4"});
    CHECK(Rig.m_Session.ModesText() == "DEG  FIX 4");
    CHECK(Rig.m_Session.Error().empty());
}

TEST_CASE("undo goes back line by line, redo forward again, until something else is typed")
{
    cSessionRig Rig;
    Rig.Type({"1 STO 3", "2 +", "RAD"});

    Rig.Type({"undo"});
    CHECK(Rig.m_Session.ModesText() == "DEG  FIX 2");
    CHECK(Rig.m_Session.XText() == "3.00");
    Rig.Type({"undo", "undo"});
    CHECK(Rig.Type({"registers"}) == "LASTx   = +0.00\n");
    Rig.Type({"undo"});
    CHECK(Rig.m_Session.Error() == "nothing to undo");
    Rig.Type({"redo", "redo"});
    CHECK(Rig.m_Session.XText() == "3.00");
    Rig.Type({"7", "redo"});
    CHECK(Rig.m_Session.Error() == "nothing to redo");
}

TEST_CASE("undo and redo go over several lines")
{
    cSessionRig Rig;
    Rig.Type({"1", "2", "3", "undo 2"});
    CHECK(Rig.m_Session.XText() == "1.00");
    Rig.Type({"redo 2"});
    CHECK(Rig.m_Session.XText() == "3.00");
    Rig.Type({"undo 9"});
    CHECK(Rig.m_Session.Error() == "undo: only 3 were left");
    CHECK(Rig.m_Session.XText() == "0.00");
    Rig.Type({"redo 0"});
    CHECK(Rig.m_Session.Error() == "redo: how many lines?");
    Rig.Type({"redo x"});
    CHECK(Rig.m_Session.Error() == "redo: how many lines?");
}

TEST_CASE("a line that is not meant so is explained")
{
    static const struct
    {
        const char *szTyped;
        const char *szError;
    } s_Rows[] = {
        {"quit now", "quit takes no argument"},
        {"stack 2", "stack takes no argument"},
        {"lsit", "column 1: lsit: neither an instruction nor a number, did you mean list?"},
        {"q", "column 1: q: neither an instruction nor a number, did you mean quit?"},
        {"exit", "column 1: exit: neither an instruction nor a number, did you mean quit?"},
        {"?", "column 1: ?: neither an instruction nor a number, did you mean help?"},
        {"sqr", "column 1: sqr: neither an instruction nor a number, did you mean sqrt?"},
        {"2 3 + undo", "column 7: undo: a command is alone in its line"},
        {"help 3", "no help on '3'"},
        {"help lsit", "no help on 'lsit', did you mean list?"},
        {"help \x1b[2J", "no help on '<U+001B>[2J'"},
    };
    cSessionRig Rig;
    for (const auto &Row : s_Rows)
    {
        Rig.Type({Row.szTyped});
        CHECK(Rig.m_Session.Error() == Row.szError);
    }
    // The reason is the system's: one says that there is none, another nothing.
    Rig.Type({"load \x1b[2J"});
    CHECK(Rig.m_Session.Error().rfind("load: cannot read '<U+001B>[2J'", 0) == 0);
    CHECK_FALSE(Rig.m_Session.HasEnded());
}

TEST_CASE("a list ends with the R/S where the program ends, or the current line")
{
    const cScratchFolder Folder;
    Folder.Write("one.txt", "LBL 1\n2\nR/S\n3\n");
    cSessionRig Rig;
    Rig.Type({"load " + Folder.Name("one.txt")});
    CHECK(Rig.Type({"list"}) == "> 00\n  01 LBL 1\n  02 2\n  03 R/S\n  04 3\n  05 R/S\n");
    const std::string Later = Rig.Type({"GTO 1", "R/S", "R/S", "list"});
    CHECK(Later.ends_with("  05 R/S\n> 06 R/S\n  07 R/S\n"));
}

TEST_CASE("help explains commands, and instructions with their operands")
{
    cSessionRig       Rig;
    const std::string Gsb = Rig.Type({"help GSB"});
    CHECK_FALSE(Gsb.empty());
    CHECK(Rig.Type({"help gsb  3"}) == Gsb);
    CHECK(Rig.Type({"help Save"}) == "save [FILE]: save the program\n");
    Rig.Type({"help ENTRE  3"});
    CHECK(Rig.m_Session.Error() == "no help on 'ENTRE  3', did you mean ENTER?");
}

TEST_CASE("commands ignore case, and a comment is no argument")
{
    cSessionRig Rig;
    CHECK(Rig.Type({"2 3 +", "STACK ; all"}) == "T   0.00\nZ   0.00\nY   0.00\nX   5.00\n");
    Rig.Type({"Undo", "QUIT"});
    CHECK(Rig.m_Session.XText() == "0.00");
    CHECK(Rig.m_Session.HasEnded());
}

TEST_CASE("lines that change nothing are not undone")
{
    cSessionRig Rig;
    Rig.Type({"list", "registers", "", "5", "stack", "help", "help sqrt", "run 77", "save"});

    Rig.Type({"undo", "undo"});

    CHECK(Rig.m_Session.Error() == "nothing to undo");
    CHECK(Rig.m_Session.XText() == "0.00");
}

TEST_CASE("a program that was loaded or run, and what it drew, can be undone")
{
    const cScratchFolder Folder;
    Folder.Write("one.txt", "1\nSTO 5\nSumG\n");
    Folder.Write("two.txt", "LBL 2 ; here\n2\nSTO 6\n");
    cSessionRig       Rig;
    const std::string Picture = Folder.Name("graph.svg");

    Rig.Type({"load " + Folder.Name("one.txt"), "run", "load " + Folder.Name("two.txt"), "run 2"});
    CHECK(Rig.Type({"registers"}) == "Reg[ 5] = +1.00\nReg[ 6] = +2.00\nLASTx   = +0.00\n");
    Rig.Type({"undo", "undo"});
    CHECK(Rig.Type({"list"}).find("01 1") != std::string::npos);
    CHECK(Rig.Type({"plot " + Picture}) == "wrote " + Picture + "\n");
    CHECK(Folder.Read("graph.svg").find("role=\"img\"") != std::string::npos);
    Rig.Type({"plot " + Folder.Name("graph.gif")});
    CHECK(Rig.m_Session.Error() == "plot: the name of a picture ends in .svg, .png or .pdf");
    Rig.Type({"undo", "plot " + Picture});
    CHECK(Rig.m_Session.Error() == "plot: nothing has been drawn; see help SumG");
    Rig.Type({"redo", "redo", "redo"});
    CHECK(Rig.m_Session.XText() == "2.00");
}

TEST_CASE("undo, redo and a program that cannot be loaded leave the graph its texts")
{
    const cScratchFolder Folder;
    Folder.Write("bad.txt", "frob\n");
    cSessionRig       Rig;
    const std::string Plot = "plot " + Folder.Name("graph.svg");
    const auto        Show = [&](std::initializer_list<std::string> Lines) {
        Rig.Type(Lines);
        Rig.Type({Plot});
        return Folder.Read("graph.svg");
    };
    const std::string Drawn = Show({"5 SumG"});
    REQUIRE(Drawn.find("My Graph") != std::string::npos);
    REQUIRE(Drawn.find("x axis") != std::string::npos);

    CHECK(Show({"6 SumG", "undo"}) == Drawn);
    CHECK(Show({"load " + Folder.Name("bad.txt")}) == Drawn);
    const std::string Cleared = Show({"ClearG 5 SumG"});
    CHECK(Cleared.find("My Graph") == std::string::npos);
    CHECK(Show({"undo"}) == Drawn);
    CHECK(Show({"redo"}) == Cleared);
}

TEST_CASE("a listing with an error leaves the program as it is")
{
    const cScratchFolder Folder;
    Folder.Write("good.txt", "1\nSTO 5\n");
    Folder.Write("bad.txt", "1\nfrob\n");
    cSessionRig Rig;
    Rig.Type({"load " + Folder.Name("good.txt")});
    const std::string Before = Rig.Seen();

    Rig.Type({"load " + Folder.Name("bad.txt")});

    CHECK(Rig.m_Session.Error() == "load: " + Folder.Name("bad.txt") +
                                       ": Error: unrecognized instr mnemonic on line #2: frob");
    CHECK(Rig.Seen() == Before);
}

TEST_CASE("save overwrites the program's own file, others only when told to")
{
    const cScratchFolder Folder;
    const std::string    Own   = Folder.Name("own.txt");
    const std::string    Other = Folder.Name("other.txt");
    Folder.Write("own.txt", "1\nSTO 5\n");
    Folder.Write("other.txt", "kept");
    cSessionRig Rig;
    Rig.Type({"save"});
    CHECK(Rig.m_Session.Error() == "save: which file?");
    Rig.Type({"load " + Own, "save " + Other});
    CHECK(Rig.m_Session.Error() ==
          "save: '" + Other + "' exists already; save! " + Other + " replaces it");
    CHECK(Folder.Read("other.txt") == "kept");
    Rig.Type({"save! " + Other});
    CHECK(Rig.m_Session.Error().empty());
    CHECK(Folder.Read("other.txt").find("STO 5") != std::string::npos);
    Rig.Type({"save"});
    CHECK(Rig.m_Session.Error().empty());
}

TEST_CASE("after random lines, undo and redo show what was seen before")
{
    static const char *const s_Lines[] = {"5",     "2 3 +",     "STO 4",    "STO+ 4", "0 1/x",
                                          "RAD",   "SCI 3",     "x<>y",     "SumG",   "Sum+",
                                          "CLX 7", "ClearREG",  "Rolldown", "LASTx",  "9 STO i",
                                          "-",     "RCL 4 1 +", "1.5",      "frob",   "DEG FIX 6"};
    std::mt19937             Random(7);
    cSessionRig              Rig;
    std::vector<std::string> Seen = {Rig.Seen()};
    for (int i = 0; i < 400; i++)
    {
        Rig.Type({s_Lines[Random() % std::size(s_Lines)]});
        const std::string Now = Rig.Seen();
        if (Now != Seen.back())
            Seen.push_back(Now);
    }
    size_t nAt = Seen.size() - 1;
    for (int i = 0; i < 2000; i++)
    {
        const int bBack = Random() % 2 == 0;
        Rig.Type({bBack ? "undo" : "redo"});
        if (!Rig.m_Session.Error().empty())
            continue;
        // Steps that are not seen, such as stack lift, lie between those that are.
        const std::string Now = Rig.Seen();
        if (Now == Seen[nAt])
            continue;
        nAt = bBack ? nAt - 1 : nAt + 1;
        REQUIRE(nAt < Seen.size());
        REQUIRE(Now == Seen[nAt]);
    }
}
