#include <algorithm>
#include <filesystem>
#include <sstream>

#include "tests/unit/calculator_rig.h"
#include "tests/unit/failing_memory.h"
#include "tests/unit/scratch_folder.h"

static const char *const kHeading =
    " Instruction          X                 Y                 Reg[0]       Subr Return Addr";

namespace
{

// A calculator that traces into a file of its own.
struct cTraceRig : cCalculatorRig
{
    cTraceRig() : m_Name(m_Folder.Name("trace.txt"))
    {
        m_Engine.ApplyOptions({0, 0, 1, 0});
        m_Engine.SetTraceFileName(m_Name.c_str());
    }

    // The log's lines, whatever the platform's line end.
    std::vector<std::string> Log() const
    {
        std::string Text = m_Folder.Read("trace.txt");
        Text.erase(std::remove(Text.begin(), Text.end(), '\r'), Text.end());
        std::istringstream       Stream(Text);
        std::vector<std::string> Lines;
        for (std::string Line; std::getline(Stream, Line);)
            Lines.push_back(Line);
        return Lines;
    }

    // Those of executed lines.
    std::vector<std::string> Traced() const
    {
        std::vector<std::string> Lines = Log();
        REQUIRE(Lines.size() >= 4);
        Lines.erase(Lines.begin(), Lines.begin() + 4);
        return Lines;
    }

    cScratchFolder m_Folder;
    std::string    m_Name;
};

}  // namespace

// A line of the log: an instruction, X, Y, register 0 and the return stack.
static std::string Row(const std::string &Instruction, const std::string &X, const std::string &Y,
                       const std::string &Register, const std::string &Returns)
{
    const auto Padded = [](std::string Text, size_t nWidth) {
        Text.resize(nWidth, ' ');
        return Text;
    };
    return Padded(Instruction, 21) + Padded(X, 18) + Padded(Y, 18) + Padded(Register, 18) + Returns;
}

static std::string ColumnOf(const std::string &Line, size_t nFirst, size_t nWidth)
{
    const std::string Column = Line.substr(nFirst, nWidth);
    return Column.substr(0, Column.find_last_not_of(' ') + 1);
}

static std::string Instruction(const std::string &Line)
{
    return ColumnOf(Line, 0, 21);
}

static std::string Returns(const std::string &Line)
{
    return Line.substr(75);
}

static int IsDate(const std::string &Text)
{
    const std::string Shape = "Aaa Aaa d0 00:00:00 0000";
    if (Text.size() != Shape.size())
        return 0;
    for (size_t i = 0; i < Shape.size(); i++)
    {
        const int bDigit = Text[i] >= '0' && Text[i] <= '9';
        const int bUpper = Text[i] >= 'A' && Text[i] <= 'Z';
        const int bLower = Text[i] >= 'a' && Text[i] <= 'z';
        if ((Shape[i] == '0' && !bDigit) || (Shape[i] == 'd' && !bDigit && Text[i] != ' ') ||
            (Shape[i] == 'A' && !bUpper) || (Shape[i] == 'a' && !bLower) ||
            (Shape[i] == ' ' && Text[i] != ' ') || (Shape[i] == ':' && Text[i] != ':'))
            return 0;
    }
    return 1;
}

TEST_CASE("a trace begins with the program's name, the date and a heading")
{
    for (const char *const szName : {"", "programs/lander.txt"})
    {
        cTraceRig Rig;
        if (*szName)
            Rig.m_Engine.TakeLoadedProgram(szName);

        Rig.Type("R/S");

        const std::vector<std::string> Log = Rig.Log();
        REQUIRE(Log.size() == 5);
        CHECK_TEXT(Log[0], "Program from file '" + std::string(szName) + "'");
        CHECK_TEXT(Log[1].substr(0, 7), "run on ");
        CHECK(IsDate(Log[1].substr(7)));
        CHECK_TEXT(Log[2], "");
        CHECK_TEXT(Log[3], kHeading);
        CHECK_TEXT(Log[4], Row("01 R/S", "+0.00", "+0.00", "+0.00", "--  --  --"));
    }
}

TEST_CASE("a trace's heading is complete however long the program's path is")
{
    for (const size_t nLength : {471u, 510u, 511u, 512u, 1022u, 1023u})
    {
        cTraceRig         Rig;
        const std::string Path(nLength, 'p');
        Rig.m_Engine.TakeLoadedProgram(Path.c_str());

        Rig.Type("R/S");

        const std::vector<std::string> Log = Rig.Log();
        REQUIRE(Log.size() == 5);
        CHECK(Log[0] == "Program from file '" + Path + "'");
        CHECK(IsDate(Log[1].substr(7)));
        CHECK_TEXT(Log[3], kHeading);
    }
}

TEST_CASE("a trace has one line for each executed line")
{
    cTraceRig Rig;
    Rig.Load("; twice\n2\nSTO 0\nLBL 1\nSTO+ .3\n-1.5e1\nDSZ\nGTO 1\nR/S\n");

    Rig.Type("R/S");

    const std::vector<std::string> Expected = {
        Row("01 2", "+2.00", "+0.00", "+0.00", "--  --  --"),
        Row("02 STO 0", "+2.00", "+0.00", "+2.00", "--  --  --"),
        Row("03 LBL 1", "+2.00", "+0.00", "+2.00", "--  --  --"),
        Row("04 STO+ 13", "+2.00", "+0.00", "+2.00", "--  --  --"),
        Row("05 -1.5e1", "-15.00", "+2.00", "+2.00", "--  --  --"),
        Row("06 DSZ", "-15.00", "+2.00", "+1.00", "--  --  --"),
        Row("07 GTO 1", "-15.00", "+2.00", "+1.00", "--  --  --"),
        Row("03 LBL 1", "-15.00", "+2.00", "+1.00", "--  --  --"),
        Row("04 STO+ 13", "-15.00", "+2.00", "+1.00", "--  --  --"),
        Row("05 -1.5e1", "-15.00", "-15.00", "+1.00", "--  --  --"),
        Row("06 DSZ", "-15.00", "-15.00", "+0.00", "--  --  --"),
        Row("08 R/S", "-15.00", "-15.00", "+0.00", "--  --  --"),
    };
    CHECK(Rig.Traced() == Expected);
}

TEST_CASE("trace columns of the widest texts are still separated")
{
    cTraceRig Rig;
    Rig.Load("SCI 9\n-1.234567891e-50\n");

    Rig.Type("R/S");

    const std::vector<std::string> Traced = Rig.Traced();
    REQUIRE(Traced.size() == 3);
    CHECK_TEXT(Traced[1], Row("02 -1.234567891e-50", "-1.234567891e-50", "+0.000000000e+00",
                              "+0.000000000e+00", "--  --  --"));
}

TEST_CASE("a run that begins at line 0 is traced from line 1")
{
    cTraceRig Rig;
    Rig.Load("GTO 5\nLBL 5\n");

    Rig.Type("R/S");

    CHECK_TEXT(Instruction(Rig.Traced()[0]), "01 GTO 5");
    CHECK_TEXT(Instruction(Rig.Traced()[1]), "02 LBL 5");
}

TEST_CASE("the return addresses are traced newest first, as they are after the line")
{
    cTraceRig Rig;
    Rig.Load("GSB 1\nR/S\n"
             "LBL 1\nGSB 2\nRTN\n"
             "LBL 2\nGSB 3\nRTN\n"
             "LBL 3\nRTN\n");

    Rig.Type("R/S");

    // clang-format off
    static const char *const s_Returns[] =
    {
        "02  --  --", "02  --  --",                              // GSB 1, LBL 1
        "05  02  --", "05  02  --",                              // GSB 2, LBL 2
        "08  05  02", "08  05  02",                              // GSB 3, LBL 3
        "05  02  --", "02  --  --", "--  --  --", "--  --  --",  // three RTN, R/S
    };
    // clang-format on
    const std::vector<std::string> Traced = Rig.Traced();
    REQUIRE(Traced.size() == 10);
    for (size_t i = 0; i < 10; i++)
        CHECK_TEXT(Returns(Traced[i]), s_Returns[i]);
    CHECK_TEXT(Instruction(Traced[6]), "10 RTN");
}

TEST_CASE("a return stack deeper than three is an inconsistency and traced as three")
{
    cTraceRig Rig;
    Rig.Load("GSB 1\nLBL 1\nCLX\n");
    Rig.m_Host.m_OnDrain = [&Rig] {
        if (Rig.m_Host.m_nDrains == 1)
            Rig.m_Engine.Raw().m_nReturnDepth = 4;
        return Rig.m_Host.m_nDrains < 2;
    };

    Rig.Type("R/S");

    CHECK(Rig.m_Host.m_Boxes.size() == 1);
    CHECK_TEXT(Rig.LastBox(), "Program Error Code #118");
    CHECK_TEXT(Returns(Rig.Traced()[1]), "00  00  02");
}

TEST_CASE("the failing line is traced")
{
    cTraceRig Rig;
    Rig.Load("4\nCHS\nsqrt\n5\n");

    Rig.Type("R/S");

    const std::vector<std::string> Traced = Rig.Traced();
    REQUIRE(Traced.size() == 3);
    CHECK_TEXT(Traced[2], Row("03 sqrt", "-4.00", "+0.00", "+0.00", "--  --  --"));
}

TEST_CASE("a run that GSB starts from the keyboard is traced from the label")
{
    cTraceRig Rig;
    Rig.Load("CLX\nLBL 7\nRTN\n");

    Rig.Type("GSB 7");

    const std::vector<std::string> Traced = Rig.Traced();
    REQUIRE(Traced.size() == 2);
    CHECK_TEXT(Instruction(Traced[0]), "02 LBL 7");
    CHECK_TEXT(Instruction(Traced[1]), "03 RTN");
}

TEST_CASE("single steps are not traced")
{
    cTraceRig Rig;
    Rig.Load("CLX\n");

    Rig.Type("SST");

    CHECK_FALSE(Rig.m_Folder.Has("trace.txt"));
}

TEST_CASE("without the option nothing is traced")
{
    cTraceRig Rig;
    Rig.m_Engine.ApplyOptions({0, 0, 0, 0});

    Rig.Type("R/S");

    CHECK(Rig.m_Folder.Count() == 0);
}

TEST_CASE("each run has a trace of its own and keeps the former one as a backup")
{
    cTraceRig Rig;
    Rig.Load("1\nR/S\n2\n");

    Rig.Type("R/S");
    Rig.Type("R/S");

    CHECK_TEXT(Instruction(Rig.Traced()[0]), "03 2");
    CHECK(Rig.m_Folder.Read("trace_older.txt").find("01 1 ") != std::string::npos);
}

TEST_CASE("the trace is complete and closed when the run has ended")
{
    cTraceRig Rig;
    Rig.Type("R/S");

    std::error_code Error;
    CHECK(std::filesystem::remove(Rig.m_Name, Error));

    CHECK_FALSE(Error);
}

TEST_CASE("the trace log is called tracelog.txt")
{
    cScratchFolder              Folder;
    const std::filesystem::path Former = std::filesystem::current_path();
    cCalculatorRig              Rig;
    Rig.m_Engine.ApplyOptions({0, 0, 1, 0});

    std::filesystem::current_path(Folder.Name(""));
    Rig.Type("R/S");
    std::filesystem::current_path(Former);

    CHECK(Folder.Has("tracelog.txt"));
    CHECK(Folder.Count() == 1);
}

TEST_CASE("when memory is short for the trace the user may try again")
{
    cTraceRig Rig;
    Rig.Load("5\n");
    Rig.m_Host.m_Answers = {anRetry, anRetry};

    {
        cFailingMemory Memory(0, 2);
        Rig.Type("R/S");
    }

    REQUIRE(Rig.m_Host.m_Boxes.size() == 2);
    CHECK_TEXT(Rig.LastBox(), "ERROR: insufficient memory.\n"
                              "Close other running applications\n"
                              "and then hit 'Retry'");
    CHECK(Rig.m_Host.m_Boxes[0].m_nButtons == bnRetryCancel);
    CHECK(Rig.m_Host.m_Boxes[0].m_nIcon == icError);
    CHECK(Rig.X() == 5.0);
    CHECK(Rig.Traced().size() == 2);
    CHECK(Rig.m_Host.m_QuitCodes.empty());
}

TEST_CASE("giving up when memory runs out ends the application and runs nothing")
{
    cTraceRig Rig;
    Rig.Load("5\n");
    Rig.m_Host.m_Answers = {anCancel};

    {
        cFailingMemory Memory(0, 1);
        Rig.Type("R/S");
    }

    CHECK(Rig.m_Host.m_Boxes.size() == 1);
    CHECK(Rig.m_Host.m_QuitCodes == std::vector<int>{0});
    CHECK(Rig.X() == 0.0);
    CHECK(Rig.State().m_nCurLine == 0);
    CHECK(Rig.State().m_bProgramRunning == 0);
    CHECK(Rig.m_Host.m_Enabled[101] == 1);
    CHECK_FALSE(Rig.m_Folder.Has("trace.txt"));
}

TEST_CASE("beside a PAUSE and a box the lines traced so far are in the file")
{
    cTraceRig   Rig;
    std::string Seen;
    Rig.Load("1\nPAUSE\nSumG\n2\n");
    Rig.m_Host.m_nPointLimit = 0;
    Rig.m_Host.m_OnPause     = [&] { Seen += std::to_string(Rig.Traced().size()) + " "; };
    Rig.m_Host.m_OnAsk       = [&] { Seen += std::to_string(Rig.Traced().size()); };

    Rig.Type("R/S");

    CHECK_TEXT(Seen, "1 2");
}

TEST_CASE("a run whose trace is lost asks the host after that line")
{
    cTraceRig Rig;
    std::filesystem::create_directory(Rig.m_Folder.Name("logs"));
    const std::string Name = Rig.m_Folder.Name("logs/trace.txt");
    Rig.m_Engine.SetTraceFileName(Name.c_str());
    Rig.m_Engine.SetTraceCap(0);
    Rig.Load("LBL 1\n1\nGTO 1\n");
    Rig.m_Host.m_nAllowed = 1000;
    Rig.m_Host.m_OnDrain  = [&] {
        if (Rig.m_Host.m_nDrains == 1)
            std::filesystem::rename(Rig.m_Folder.Name("logs"), Rig.m_Folder.Name("moved"));
        return Rig.m_Host.m_Boxes.empty();
    };

    Rig.Type("R/S");

    CHECK_TEXT(Rig.LastBox(), "couldn't fopen() the output file named:\n" + Name);
    CHECK(Rig.m_Host.m_nLines == 2);
}

TEST_CASE("register 0 with three digits of exponent is reported, and the trace goes on")
{
    cTraceRig Rig;
    Rig.Load("1\n2\n");
    Rig.m_Engine.Raw().m_dReg[0] = 1e100;

    Rig.Type("R/S");

    CHECK_TEXT(Rig.LastBox(), "Program Error Code #106");
    CHECK(Rig.Traced().size() == 3);
}

TEST_CASE("the columns follow numbers that come back, in every display mode")
{
    cTraceRig Rig;
    Rig.Load("1.5\nENTER\nSTO 0\nFIX 4\nx<>y\nSCI 3\nx<>y\nENG 3\nx<>y\nFIX 2\nCHS\nCHS\n0\nCHS\n");

    Rig.Type("R/S");

    const std::vector<std::string> Expected = {
        Row("01 1.5", "+1.50", "+0.00", "+0.00", "--  --  --"),
        Row("02 ENTER", "+1.50", "+1.50", "+0.00", "--  --  --"),
        Row("03 STO 0", "+1.50", "+1.50", "+1.50", "--  --  --"),
        Row("04 FIX 4", "+1.5000", "+1.5000", "+1.5000", "--  --  --"),
        Row("05 x<>y", "+1.5000", "+1.5000", "+1.5000", "--  --  --"),
        Row("06 SCI 3", "+1.500e+00", "+1.500e+00", "+1.500e+00", "--  --  --"),
        Row("07 x<>y", "+1.500e+00", "+1.500e+00", "+1.500e+00", "--  --  --"),
        Row("08 ENG 3", "+1.500e+00", "+1.500e+00", "+1.500e+00", "--  --  --"),
        Row("09 x<>y", "+1.500e+00", "+1.500e+00", "+1.500e+00", "--  --  --"),
        Row("10 FIX 2", "+1.50", "+1.50", "+1.50", "--  --  --"),
        Row("11 CHS", "-1.50", "+1.50", "+1.50", "--  --  --"),
        Row("12 CHS", "+1.50", "+1.50", "+1.50", "--  --  --"),
        Row("13 0", "+0.00", "+1.50", "+1.50", "--  --  --"),
        Row("14 CHS", "-0.00", "+1.50", "+1.50", "--  --  --"),
        Row("15 R/S", "-0.00", "+1.50", "+1.50", "--  --  --"),
    };
    CHECK(Rig.Traced() == Expected);
}
