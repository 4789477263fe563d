#include <algorithm>
#include <random>
#include <sstream>

#include <doctest/doctest.h>

#include "console/debug/debug_session.h"
#include "console/session/session_commands.h"
#include "console/vocabulary.h"
#include "engine/vorstek_state.h"
#include "tests/unit/scratch_folder.h"

namespace
{

// A program in a debugger that prints into a text.
struct cDebugRig
{
    explicit cDebugRig(const char *szProgram) : m_Session({&m_In, &m_Out, &m_Err})
    {
        m_Folder.Write("program.txt", szProgram);
        REQUIRE(m_Session.Load(m_Folder.Name("program.txt")) == 1);
    }

    // Performs the lines; returns what the last one has brought about, its error and what
    // it has printed included, with "|" between the rows.
    std::string Type(std::initializer_list<std::string> Lines)
    {
        std::string Text;
        for (const std::string &Line : Lines)
        {
            m_Out.str("");
            m_Session.Perform(Line);
            Text.clear();
            for (const std::string &Row : m_Session.News())
                Text += Row + "|";
            for (const std::string &Row : m_Session.PlainRows())
                Text += Row + "|";
            Text += m_Session.Error();
        }
        std::string Printed = m_Out.str();
        std::replace(Printed.begin(), Printed.end(), '\n', '|');
        return Text + Printed;
    }

    // All that can be seen of the calculator.
    std::string Seen()
    {
        const cVorstekState &State = m_Session.State();
        std::ostringstream   Text;
        Text << State.m_nCurLine << " " << State.m_bStackLift << " " << State.m_nReturnDepth << " "
             << m_Session.LastXText() << " " << m_Session.ModesText() << "|" << Type({"stack"})
             << Type({"registers"});
        return Text.str();
    }

    cScratchFolder     m_Folder;
    std::istringstream m_In;
    std::ostringstream m_Out;
    std::ostringstream m_Err;
    cDebugSession      m_Session;
};

}  // namespace

static const char s_szCalls[] = "GSB 1\nSTO 5\nR/S\nLBL 1\n7\nGSB 2\n+\nRTN\nLBL 2\n9\nRTN\n";

TEST_CASE("no command of the debugger is an instruction or hides one of the session")
{
    const cVocabulary Vocabulary;
    cDebugRig         Rig("5\n");
    const auto        Own = Rig.m_Session.Commands().front();
    for (const cSessionCommand &Command : Own)
    {
        CHECK(Vocabulary.Find(Command.m_szName) == nullptr);
        for (const cSessionCommand &Other : SessionCommands())
            CHECK(std::string(Command.m_szName) != Other.m_szName);
    }
}

TEST_CASE("step runs one line or several, and shows the next")
{
    cDebugRig Rig(s_szCalls);

    CHECK(Rig.Type({"step"}) == "> 04 LBL 1|");
    CHECK(Rig.Type({"step 2"}) == "> 06 GSB 2|");
    CHECK(Rig.Type({""}) == "> 10 9|");
    CHECK(Rig.m_Session.XText() == "7.00");
    CHECK(Rig.Type({"stack", ""}).empty());
    CHECK(Rig.Type({"step 0"}) == "step: how many lines?");
    CHECK(Rig.Type({"step x"}) == "step: how many lines?");
}

TEST_CASE("next runs a GSB with all that it calls, finish to the line after it")
{
    cDebugRig Rig(s_szCalls);

    CHECK(Rig.Type({"next"}) == "> 02 STO 5|");
    CHECK(Rig.m_Session.XText() == "16.00");
    CHECK(Rig.Type({"back 9", "step 4"}) == "> 09 LBL 2|");
    CHECK(Rig.Type({"where"}) == "> 09 LBL 2|called by 06 GSB 2|called by 01 GSB 1|");
    CHECK(Rig.Type({"finish"}) == "> 07 +|");
    CHECK(Rig.Type({"finish"}) == "> 02 STO 5|");
    CHECK(Rig.Type({"finish"}) == "finish: no call is open");
}

TEST_CASE("next N counts the lines outside of the calls that they make")
{
    cDebugRig Rig(s_szCalls);

    CHECK(Rig.Type({"next 2"}) == "> 03 R/S|");
    CHECK(Rig.Type({"back 99", "step 2", "next 3"}) == "> 08 RTN|");
    CHECK(Rig.Type({"next 2"}) == "> 03 R/S|");
    CHECK(Rig.Type({"back 99", "break 9", "next 5"}) == "break 9|>*09 LBL 2|");
    CHECK(Rig.Type({"next 0"}) == "next: how many lines?");
}

TEST_CASE("a run stops at breakpoints and goes on with its calls and its stack lift")
{
    cDebugRig Rig(s_szCalls);

    CHECK(Rig.Type({"break LBL 2", "break 7", "run"}) == "break LBL 2|>*09 LBL 2|");
    CHECK(Rig.Type({"continue"}) == "break 7|>*07 +|");
    CHECK(Rig.Type({"break"}) == "break LBL 2|break 7|");
    CHECK(Rig.Type({"delete 7", "delete 7"}) == "delete: there is no breakpoint '7'");
    CHECK(Rig.Type({"continue"}) == "the program has halted|> 04 LBL 1|");
    CHECK(Rig.m_Session.State().m_dReg[5] == 16.0);
    CHECK(Rig.Type({"delete", "break"}).empty());
    CHECK(Rig.Type({"break 4 IF x<0", "break Lbl 1", "break"}) == "break 4 if x<0|break LBL 1|");
    CHECK(Rig.Type({"delete 4 if x<0", "delete lbl 1", "break"}).empty());
    CHECK(Rig.Type({"break 5 if x"}) == "break: 'x' is no condition such as x<0 or r5>=y");
    CHECK(Rig.Type({"break 5 if x<1e100"}) ==
          "break: 'x<1e100' is no condition such as x<0 or r5>=y");
    CHECK(Rig.Type({"break 5 x<0"}) == "break: '5 x<0' is no place such as 12, LBL 3 or 12 if x<0");
}

TEST_CASE("instructions that begin a run stop at breakpoints, at its first line too")
{
    cDebugRig Rig(s_szCalls);

    CHECK(Rig.Type({"break 1", "R/S"}) == "break 1|> 00|");
    CHECK(Rig.Type({"continue"}) == "the program has halted|> 04 LBL 1|");
    CHECK(Rig.Type({"break LBL 2", "GSB 2"}) == "break LBL 2|>*09 LBL 2|");
    CHECK(Rig.Type({"step"}) == "> 10 9|");
}

TEST_CASE("a condition decides whether a breakpoint stops")
{
    cDebugRig Rig("LBL 1\n1\nSTO- 5\nRCL 5\nx>0\nGTO 1\n");

    CHECK(Rig.Type({"3.5 STO 5", "break 4 if r5 < 2", "run 1"}) == "break 4 if r5<2|>*04 RCL 5|");
    CHECK(Rig.m_Session.State().m_dReg[5] == 1.5);
    CHECK(Rig.Type({"break 4 if r5<x", "continue"}) == "break 4 if r5<x|>*04 RCL 5|");
    CHECK(Rig.m_Session.State().m_dReg[5] == 0.5);
    CHECK(Rig.Type({"break 4 if r5"}) == "break: 'r5' is no condition such as x<0 or r5>=y");
}

TEST_CASE("a run stops after each line that changes what is watched")
{
    cDebugRig Rig("LBL 1\n1\nSTO+ 5\nSTO+ 6\nGTO 1\n");

    CHECK(Rig.Type({"watch r5", "watch R6", "run"}) == "watch r5: 0 -> 1|> 04 STO+ 6|");
    CHECK(Rig.Type({"continue"}) == "watch r6: 0 -> 1|> 05 GTO 1|");
    CHECK(Rig.Type({"unwatch r6", "continue"}) == "watch r5: 1 -> 2|> 04 STO+ 6|");
    CHECK(Rig.Type({"watch"}) == "r5 = 2|");
    CHECK(Rig.Type({"unwatch r6"}) == "unwatch: 'r6' is not watched");
    CHECK(Rig.Type({"watch r30"}) == "watch: 'r30' is none of x, y, z, t, lastx, i, r0 to r29");
}

TEST_CASE("until runs to a line or a label")
{
    cDebugRig Rig(s_szCalls);

    CHECK(Rig.Type({"until 2"}) == "> 02 STO 5|");
    CHECK(Rig.Type({"break LBL 1", "run 1", "until LBL 2"}) == "> 09 LBL 2|");
    CHECK(Rig.Type({"until 99"}) == "until: to which place, such as 12 or LBL 3?");
}

TEST_CASE("an error ends the run at its line, and can be taken back")
{
    cDebugRig Rig("5\nENTER\n0\n/\n");

    CHECK(Rig.Type({"continue"}) == "> 04 /|/: Error: divide by 0");
    CHECK(Rig.Type({"back 2"}) == "> 03 0|");
    CHECK(Rig.m_Session.XText() == "5.00");
    CHECK(Rig.Type({"step"}) == "> 04 /|");
    CHECK(Rig.Type({"2", "step"}) == "> 05 R/S|");
}

TEST_CASE("counts are of the lines that ran and were not taken back")
{
    cDebugRig Rig("1\nSTO 5\nR/S\n");

    CHECK(Rig.Type({"step 2", "back", "step 2", "counts"}) ==
          "         1    01 1|         1    02 STO 5|         1    03 R/S|");
    CHECK(Rig.Type({"back 2", "counts"}) == "         1    01 1|");
    CHECK(Rig.Type({"back 5"}) == "> 00|back: only 1 were left");
    CHECK(Rig.Type({"back"}) == "back: no line that ran is left");
}

TEST_CASE("what was typed between lines goes back with them, and undo knows open calls")
{
    cDebugRig Rig(s_szCalls);

    Rig.Type({"step 2", "44 STO 9", "step"});
    Rig.Type({"back 2"});
    CHECK(Rig.m_Session.State().m_dReg[9] == 0.0);
    Rig.Type({"step 3", "undo", "continue"});
    CHECK(Rig.m_Session.State().m_dReg[5] == 16.0);
}

TEST_CASE("another program forgets what has run")
{
    cDebugRig Rig(s_szCalls);
    Rig.m_Folder.Write("other.txt", "8\n");

    Rig.Type({"step 3", "load " + Rig.m_Folder.Name("other.txt")});

    CHECK(Rig.Type({"counts"}).empty());
    CHECK(Rig.Type({"back"}) == "back: no line that ran is left");
    CHECK(Rig.Type({"step"}) == "> 02 R/S|");
}

TEST_CASE("ten thousand lines with what they draw can be taken back")
{
    cDebugRig Rig("LBL 1\n1\nSTO+ 5\nRCL 5\nSumG\nGTO 1\n");
    Rig.Type({"until 5"});
    const std::string Before = Rig.Seen();

    Rig.Type({"step 10000"});
    CHECK(Rig.m_Session.State().m_dReg[5] > 1600.0);
    CHECK(Rig.Type({"back 10000"}) == "> 05 SumG|");

    CHECK(Rig.Seen() == Before);
    CHECK(Rig.Type({"plot"}) == "plot: nothing has been drawn; see help SumG");
}

TEST_CASE("a program that is run in random pieces, back and forth, ends as in one run")
{
    static const char s_szProgram[] =
        "GTO 0\n"
        "LBL 2\nRCL 0\nENTER\n.3\n*\nGSB 3\nCHS\nRTN\n"
        "LBL 3\nSum+\n2\n/\nx>y\nRolldown\nSTO+ 4\nSumG\nRTN\n"
        "LBL 0\n5\nSTO 0\nLBL 1\nRCL 0\nGSB 2\nSTO+ 6\nGSB 3\nDSZ\nGTO 1\nR/S\n";
    static const unsigned    nEnd       = 30;
    static const char *const s_Pieces[] = {"step",     "step 3", "next",     "finish",  "back",
                                           "back 4",   "undo",   "redo",     "until 6", "continue",
                                           "break 16", "delete", "until 26", ""};
    cDebugRig                Whole(s_szProgram);
    Whole.Type({"run"});
    REQUIRE(Whole.m_Session.State().m_nCurLine == nEnd);
    const std::string Expected = Whole.Seen();

    std::mt19937 Random(5);
    for (int nRound = 0; nRound < 30; nRound++)
    {
        cDebugRig Rig(s_szProgram);
        Rig.Type({"step"});
        for (int nPiece = 0; nPiece < 40; nPiece++)
            if (Rig.m_Session.State().m_nCurLine != nEnd)
                Rig.Type({s_Pieces[Random() % std::size(s_Pieces)]});
        Rig.Type({"delete"});
        if (Rig.m_Session.State().m_nCurLine != nEnd)
            Rig.Type({"continue"});
        CHECK(Rig.Seen() == Expected);
    }
}

TEST_CASE("quantities and conditions are read in their forms, other texts are refused")
{
    cDebugRig            Rig("5\n");
    const cVorstekState &State = Rig.m_Session.State();
    Rig.Type({"8 STO 5 3 STO i 2 STO .3 4 3 2 1 + LASTx +"});

    // clang-format off
    static const struct { const char *m_szText; double m_dValue; } s_Rows[] =
    {
        { "x", 4.0 }, { "Y", 3.0 }, { "z", 4.0 }, { "T", 4.0 }, { "lastX", 1.0 },
        { "i", 3.0 }, { "r5", 8.0 }, { "REG.5", 8.0 }, { "r13", 2.0 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        const auto Quantity = cQuantity::Parse(Row.m_szText);
        REQUIRE(Quantity);
        CHECK_MESSAGE(Quantity->In(State) == Row.m_dValue, Row.m_szText);
    }
    for (const char *const szText : {"", "w", "r", "r30", "r-1", "reg5", "r5x", "lastx2"})
        CHECK_MESSAGE(!cQuantity::Parse(szText), szText);

    for (const char *const szText :
         {"x=4", "x == 4", "4>=x", "x<=4", "r5>i", "y<>x", "y!=x", "i<4e0", "-1<y"})
        CHECK_MESSAGE(cCondition::Parse(szText)->Holds(State), szText);
    for (const char *const szText : {"x=5", "x<4", "x>4", "r5<=i", "x<>4"})
        CHECK_MESSAGE(!cCondition::Parse(szText)->Holds(State), szText);
    for (const char *const szText : {"", "x", "x<", "<x", "x<<4", "x=>4", "x 4", "w<4", "x<4<5"})
        CHECK_MESSAGE(!cCondition::Parse(szText), szText);
    for (const char *const szText :
         {"", "0", "99", "LBL", "LBL 10", "LBL x", "12 13", "12 x<0", "12 if", "12 if x"})
        CHECK_MESSAGE(!cBreakpoint::Parse(szText), szText);
}

TEST_CASE("lines that are taken back leave the graph its texts, for undo and redo too")
{
    cDebugRig         Rig("5\nSumG\n6\nSumG\n");
    const std::string Picture = Rig.m_Folder.Name("graph.svg");
    Rig.Type({"step 4", "back", "plot " + Picture});
    CHECK(Rig.m_Folder.Read("graph.svg").find("My Graph") != std::string::npos);

    Rig.Type({"undo", "redo", "plot " + Picture});
    CHECK(Rig.m_Folder.Read("graph.svg").find("My Graph") != std::string::npos);
}
