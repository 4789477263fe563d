#include <cstring>
#include <filesystem>
#include <random>

#include "engine/listing_words.h"
#include "tests/unit/calculator_rig.h"
#include "tests/unit/scratch_folder.h"

namespace
{

// A calculator that loads what is handed to it.
struct cLoadRig : cCalculatorRig
{
    int LoadText(const std::string &Text)
    {
        m_Folder.Write("program.txt", Text);
        return m_Engine.LoadProgram(m_Folder.Name("program.txt").c_str());
    }

    cScratchFolder m_Folder;
};

}  // namespace

static std::string Repeated(const std::string &Line, unsigned nTimes)
{
    std::string Text;
    for (unsigned n = 0; n < nTimes; n++)
        Text += Line;
    return Text;
}

static void CheckBox(const cRecordingHost::cBox &Box, const std::string &Text,
                     const char *szCaption, eButtons nButtons, eIcon nIcon)
{
    CHECK_TEXT(Box.m_Text, Text);
    CHECK_TEXT(Box.m_Caption, szCaption);
    CHECK(Box.m_nButtons == nButtons);
    CHECK(Box.m_nIcon == nIcon);
}

// The program of the texts and R/S after them.
static void CheckSteps(cCalculatorRig &Rig, const std::vector<std::string> &Steps)
{
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
        CHECK_TEXT(Rig.Step(nLine), nLine <= Steps.size() ? Steps[nLine - 1] : "R/S");
}

// Whether the line is listed as its record says, below nFormer, with its number
// followed by its text.
static int IsListed(cCalculatorRig &Rig, unsigned nLine, unsigned nFormer)
{
    const ProgramLine &Line = Rig.State().m_Program[nLine];
    if (Line.m_nListingLine <= nFormer || Line.m_nListingLine >= Rig.m_Listing.CountLines() ||
        Line.m_szText[0] == 0)
        return 0;
    const std::string Listed = Rig.ListingLine(Line.m_nListingLine);
    const size_t      nText  = Listed.find_first_not_of(" \t", 3);
    std::string       Text   = Line.m_szText;
    if (Line.m_pInstruction)
    {
        if (Text != Line.m_pInstruction->m_szMnemonic)
            return 0;
        Text = Text.substr(0, Text.find(' '));
    }
    return Listed.substr(0, 3) == TwoDigits(nLine) + " " &&
           Listed.compare(nText, Text.size(), Text) == 0;
}

// What must hold after every load. One assertion for all 98 lines: a million of them
// take longer than what they check.
static void CheckProgram(cCalculatorRig &Rig)
{
    const cVorstekState &State = Rig.State();
    REQUIRE(State.m_bParseOnly == 0);
    REQUIRE(State.m_nCurLine == 0);
    REQUIRE(!State.m_Program[0].m_pInstruction);
    REQUIRE(State.m_Program[0].m_szText[0] == 0);
    REQUIRE(State.m_Program[0].m_nListingLine == 0);
    REQUIRE(Rig.ListingLine(0) == "00");
    unsigned nLine = 1;
    while (nLine <= kLastLine && IsListed(Rig, nLine, State.m_Program[nLine - 1].m_nListingLine))
        nLine++;
    REQUIRE(nLine == kProgramLines);
    REQUIRE(Rig.Highlighted() == 0);
}

// --- what a load makes of a file

TEST_CASE("a loaded program is numbered by its order, comments not counted")
{
    cLoadRig Rig;

    const int nResult =
        Rig.LoadText("; lander\n\n  STO 5 ; store\n3.5e2\n\t; between\nRCL i\nLBL 7\n");

    CHECK(nResult == 1);
    CHECK(Rig.m_Host.m_Boxes.empty());
    CheckSteps(Rig, {"STO 5", "3.5e2", "RCL i", "LBL 7"});
    static const char *const s_Listing[] = {
        "00",       "   ; lander", "   ",   "01   STO 5 ; store", "02 3.5e2", "   \t; between",
        "03 RCL i", "04 LBL 7",    "05 R/S"};
    for (unsigned nLine = 0; nLine < 9; nLine++)
        CHECK_TEXT(Rig.ListingLine(nLine), s_Listing[nLine]);
    CHECK(Rig.m_Listing.CountLines() == 102);
    CHECK_TEXT(Rig.ListingLine(101), "98 R/S");
    CheckProgram(Rig);
}

TEST_CASE("the record of a loaded line holds handler, operand, texts and place")
{
    // clang-format off
    static const struct
    {
        const char *szLine;
        const char *szText;
        const char *szOperandText;
        unsigned    nOperand;
    } s_Rows[] =
    {
        { "STO 5",     "STO",    "5",  5  },
        { "STO .5",    "STO",    ".5", 15 },
        { "STO .10",   "STO",    ".1", 20 },
        { "RCL i",     "RCL i",  "",   0  },
        { "STO/  i;x", "STO/ i", "",   0  },
        { "GSB 9",     "GSB",    "9",  9  },
        { "FIX 0",     "FIX",    "0",  0  },
        { "x<>y",      "x<>y",   "",   0  },
        { "->H.MS",    "->H.MS", "",   0  },
        { "3.14",      "3.14",   "",   0  },
        { "-",         "-",      "",   0  },
        { "STO .05",   "STO",    ".0", 15 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szLine);
        cLoadRig Rig;

        CHECK(Rig.LoadText("; first\n" + std::string(Row.szLine) + "\n") == 1);

        const ProgramLine &Line = Rig.State().m_Program[1];
        CHECK_TEXT(Line.m_szText, Row.szText);
        CHECK_TEXT(Line.m_szOperandText, Row.szOperandText);
        CHECK(Line.m_nOperand == Row.nOperand);
        CHECK(Line.m_nListingLine == 2);
        CHECK((!Line.m_pInstruction) == (Row.szLine[0] == '3'));
        CheckProgram(Rig);
    }
}

TEST_CASE("loading ends the former program with all that belongs to it")
{
    cLoadRig Rig;
    Rig.LoadText("GSB 1\nLBL 1\n");
    Rig.Type("SST PRGM x<>y RUN SST");
    Rig.m_Engine.Raw().m_nReturnDepth = 2;
    REQUIRE(Rig.State().m_bProgramModified == 1);

    CHECK(Rig.LoadText("CLX\n") == 1);

    CheckSteps(Rig, {"CLX"});
    CHECK(Rig.State().m_bProgramModified == 0);
    CHECK(Rig.State().m_nCurLine == 0);
    CHECK(Rig.State().m_nReturnDepth == 0);
    CHECK(Rig.m_Listing.HighlightedLine() == 0);
    CHECK(Rig.m_Listing.CountLines() == 99);
}

TEST_CASE("loading executes and records nothing, in either mode")
{
    for (const char *const szMode : {"", "PRGM"})
    {
        cLoadRig Rig;
        Rig.Set(1.0, 2.0);
        Rig.Type(szMode);
        Rig.Forget();

        CHECK(Rig.LoadText("x<>y\nSTO 1\nPAUSE\n7\nGTO 3\nR/S\n") == 1);

        CHECK(Rig.X() == 1.0);
        CHECK(Rig.State().m_dReg[1] == 0.0);
        CHECK(Rig.m_Host.m_Pauses.empty());
        CHECK_TEXT(Rig.Sounds(), "");
        CHECK(Rig.m_Host.m_Boxes.empty());
        CheckSteps(Rig, {"x<>y", "STO 1", "PAUSE", "7", "GTO 3", "R/S"});
        CheckProgram(Rig);
    }
}

TEST_CASE("every instruction loads in the form that it is recorded in")
{
    for (const cInstruction &Instruction : Instructions())
    {
        CAPTURE_TEXT(Instruction.m_szMnemonic);
        cLoadRig          Rig;
        const std::string Mnemonic = Instruction.m_szMnemonic;
        const std::string Line     = Mnemonic + (Instruction.m_nOperand == opNone ? "" : " 7");

        CHECK(Rig.LoadText(Line + "\n") == 1);

        CHECK(Rig.m_Host.m_Boxes.empty());
        CHECK_TEXT(Rig.Step(1), Line);
        CHECK(Rig.State().m_Program[1].m_pInstruction == &Instruction);
    }
}

TEST_CASE("each instruction decides which operands it takes")
{
    static const char *const s_Operands[] = {"",   "0",  "9",   "10",  "05",
                                             ".0", ".9", ".10", ".11", ".05"};
    // clang-format off
    static const struct
    {
        const char *szMnemonic;
        const char *szAccepts;   // a 1 for each of the operands
    } s_Rows[] =
    {
        { "STO",   "0110011101" },
        { "RCL",   "0110011101" },
        { "STO+",  "0110011101" },
        { "STO-",  "0110011101" },
        { "STO*",  "0110011101" },
        { "STO/",  "0110011101" },
        { "FIX",   "0110000000" },
        { "SCI",   "0110000000" },
        { "ENG",   "0110000000" },
        { "LBL",   "0110000000" },
        { "GTO",   "0110000000" },
        { "GSB",   "0110000000" },
        { "x<=y",  "1000000000" },
        { "PAUSE", "1000000000" },
        { "R/S",   "1000000000" },
        { "ENTER", "1000000000" },
        { "RTN",   "1000000000" },
        { "DSZ",   "1000000000" },
        { "STO i", "1000000000" },
        { "SumG",  "1000000000" },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
        for (size_t i = 0; i < 10; i++)
        {
            const std::string Line = std::string(Row.szMnemonic) + " " + s_Operands[i];
            CAPTURE(Line);
            cLoadRig Rig;

            CHECK(Rig.LoadText(Line + "\n") == 1);

            CHECK(Rig.m_Host.m_Boxes.empty() == (Row.szAccepts[i] == '1'));
            if (!Rig.m_Host.m_Boxes.empty())
                CHECK_TEXT(Rig.LastBox(), "Error: illegal operand on line 1:\n" + Line);
        }
}

TEST_CASE("a check that reaches another instruction is an inconsistency and rejects")
{
    cCalculatorRig Rig;
    strcpy(Rig.m_Engine.Raw().m_szMnemonic, "RCL");
    strcpy(Rig.m_Engine.Raw().m_szOperand, "5");
    Rig.m_Engine.Raw().m_bParseOnly = 1;

    CHECK(Rig.Run("STO", 5) == 0);

    CHECK(Rig.m_Host.m_Boxes.size() == 1);
    CHECK_TEXT(Rig.LastBox(), "Program Error Code #100");
    CHECK(Rig.Run("RCL", 5) == 1);
    CHECK(Rig.m_Host.m_Boxes.size() == 1);
}

TEST_CASE("all line ends load alike, the last line needs none")
{
    for (const char *const szText : {"STO 5\nCLX\n; c\n3\n", "STO 5\r\nCLX\r\n; c\r\n3\r\n",
                                     "STO 5\r\nCLX\n; c\r\n3\n", "STO 5\nCLX\n; c\n3"})
    {
        CAPTURE_TEXT(szText);
        cLoadRig Rig;

        CHECK(Rig.LoadText(szText) == 1);

        CHECK(Rig.m_Host.m_Boxes.empty());
        CheckSteps(Rig, {"STO 5", "CLX", "3"});
        CHECK_TEXT(Rig.ListingLine(3), "   ; c");
        CHECK(Rig.m_Listing.CountLines() == 100);
    }
}

TEST_CASE("an empty file is an empty program")
{
    cLoadRig Rig;
    Rig.LoadText("CLX\n");

    CHECK(Rig.LoadText("") == 1);

    CheckSteps(Rig, {});
    CHECK(Rig.m_Listing.CountLines() == 99);
    CheckProgram(Rig);
}

TEST_CASE("a file of only comments is an empty program with comments")
{
    cLoadRig Rig;

    CHECK(Rig.LoadText("; one\n\n; two\n") == 1);

    CheckSteps(Rig, {});
    CHECK_TEXT(Rig.ListingLine(1), "   ; one");
    CHECK_TEXT(Rig.ListingLine(2), "   ");
    CHECK_TEXT(Rig.ListingLine(3), "   ; two");
    CHECK_TEXT(Rig.ListingLine(4), "01 R/S");
    CHECK(Rig.m_Listing.CountLines() == 102);
    CheckProgram(Rig);
}

TEST_CASE("98 lines fill memory to its end")
{
    cLoadRig Rig;

    CHECK(Rig.LoadText(Repeated("CLX\n", 98)) == 1);

    CHECK(Rig.m_Host.m_Boxes.empty());
    CHECK_TEXT(Rig.Step(98), "CLX");
    CHECK(Rig.m_Listing.CountLines() == 99);
    CheckProgram(Rig);
}

// --- lines that are rejected

static const struct
{
    const char *szLine;
    const char *szMessage;  // with % for the line number
} s_Rejected[] = {
    {"sto 5", "Error: unrecognized instr mnemonic on line #%:\nsto 5"},
    {"123456789012345678", "Error: unrecognized instr mnemonic on line #%:\n123456789012345678"},
    {"  3.5x ; c", "Error: unrecognized instr mnemonic on line #%:\n  3.5x ; c"},
    {"3.5 7", "Error: illegal number on line #%:\n3.5 7"},
    {"LBL 12", "Error: illegal operand on line %:\nLBL 12"},
    {"STO x", "Error: illegal operand on line %:\nSTO x"},
    {"STO 5 6", "Error: illegal operand on line %:\nSTO 5 6"},
    {"STO", "Error: illegal operand on line %:\nSTO"},
    {"ENTER i", "Error: illegal operand on line %:\nENTER i"},
    {"PAUSE 5", "Error: illegal operand on line %:\nPAUSE 5"},
};

static std::string Message(const char *szMessage, unsigned nLine)
{
    std::string Text = szMessage;
    return Text.replace(Text.find('%'), 1, std::to_string(nLine));
}

TEST_CASE("a line that the user lets go is marked and left out")
{
    for (const auto &Row : s_Rejected)
    {
        CAPTURE_TEXT(Row.szLine);
        cLoadRig Rig;
        Rig.m_Host.m_Answers = {anOk};
        unsigned nLoaderLine = 0;
        int      bParseOnly  = 0;
        Rig.m_Host.m_OnAsk   = [&] {
            nLoaderLine = Rig.m_Engine.LoaderLine();
            bParseOnly  = Rig.State().m_bParseOnly;
        };

        const int nResult = Rig.LoadText("; first\nCLX\n" + std::string(Row.szLine) + "\nENTER\n");

        CHECK(nResult == 1);
        REQUIRE(Rig.m_Host.m_Boxes.size() == 1);
        CheckBox(Rig.m_Host.m_Boxes[0], Message(Row.szMessage, 3), "ERROR", bnOkCancel, icNone);
        CHECK(nLoaderLine == 3);
        CHECK(bParseOnly == 1);
        CheckSteps(Rig, {"CLX", "ENTER"});
        CHECK_TEXT(Rig.ListingLine(2), "01 CLX");
        CHECK_TEXT(Rig.ListingLine(3), "-- " + std::string(Row.szLine));
        CHECK_TEXT(Rig.ListingLine(4), "02 ENTER");
        CHECK(Rig.State().m_bProgramModified == 0);
        CheckProgram(Rig);
    }
}

TEST_CASE("beside its boxes a load shows how far the listing has come")
{
    cLoadRig Rig;
    Rig.LoadText("RTN\n; former\n");
    Rig.Type("GTO . 0 1");
    Rig.m_Host.m_Answers = {anOk, anOk};
    std::vector<std::string> Seen;
    const auto               Listing = [&] {
        char szText[2000];
        Rig.m_Listing.GetText(szText, sizeof szText);
        return std::string(szText);
    };
    Rig.m_Host.m_OnAsk = [&] {
        Seen.push_back(Listing());
        CHECK(Rig.State().m_nCurLine == 0);
        CHECK(Rig.m_Listing.HighlightedLine() == 0);
    };
    std::string Full;
    for (int i = 0; i < 97; i++)
        Full += "1\n";

    Rig.LoadText("CLX\nbad\n; between\n" + Full + "ENTER\n");

    REQUIRE(Seen.size() == 2);
    CHECK_TEXT(Seen[0], "00\r\n01 CLX\r\n");
    CHECK(Seen[1].starts_with("00\r\n01 CLX\r\n-- bad\r\n   ; between\r\n02 1\r\n"));
    CHECK(Seen[1].ends_with("\r\n98 1\r\n"));
    CHECK_TEXT(Listing(), Seen[1]);
}

TEST_CASE("Cancel abandons the load and leaves an empty program")
{
    for (const auto &Row : s_Rejected)
    {
        CAPTURE_TEXT(Row.szLine);
        cLoadRig Rig;
        Rig.LoadText("RTN\n; former\n");
        Rig.m_Engine.TakeLoadedProgram("former.txt");
        Rig.Type("PRGM x<>y RUN");
        Rig.m_Engine.Raw().m_nReturnDepth = 2;
        Rig.m_Host.m_Answers              = {anCancel};
        std::string FirstStep;
        Rig.m_Host.m_OnAsk = [&] { FirstStep = Rig.Step(1); };

        const int nResult = Rig.LoadText("CLX\n" + std::string(Row.szLine) + "\nENTER\nsto 7\n");

        CHECK(nResult == 0);
        REQUIRE(Rig.m_Host.m_Boxes.size() == 2);
        CheckBox(Rig.m_Host.m_Boxes[0], Message(Row.szMessage, 2), "ERROR", bnOkCancel, icNone);
        CheckBox(Rig.m_Host.m_Boxes[1], "Program Memory has been cleared", "", bnOk, icNone);
        CHECK_TEXT(FirstStep, "R/S");
        CheckSteps(Rig, {});
        CHECK(Rig.m_Listing.CountLines() == 99);
        CHECK(Rig.State().m_nReturnDepth == 0);
        CHECK(Rig.State().m_bProgramModified == 0);
        CHECK_TEXT(Rig.State().m_szFileName, "");
        CHECK_TEXT(Rig.m_Host.m_StatusText, "filename: UNTITLED");
        CheckProgram(Rig);
    }
}

TEST_CASE("each rejected line is asked about until the user cancels")
{
    cLoadRig Rig;
    Rig.m_Host.m_Answers = {anOk, anOk, anCancel};

    CHECK(Rig.LoadText("aa\nbb\ncc\ndd\n") == 0);

    REQUIRE(Rig.m_Host.m_Boxes.size() == 4);
    CHECK_TEXT(Rig.m_Host.m_Boxes[2].m_Text, "Error: unrecognized instr mnemonic on line #3:\ncc");
}

TEST_CASE("a calculator works as before after a rejected line")
{
    cLoadRig Rig;
    Rig.LoadText("sto 5\n");

    Rig.Type("4 ENTER 5 +");

    CHECK(Rig.X() == 9.0);
}

// --- overflow

TEST_CASE("the 99th program line overflows and 98 are kept")
{
    cLoadRig Rig;

    const int nResult = Rig.LoadText(Repeated("CLX\n", 98) + "ENTER\n; behind\nENTER\n");

    CHECK(nResult == 1);
    REQUIRE(Rig.m_Host.m_Boxes.size() == 1);
    CheckBox(Rig.m_Host.m_Boxes[0], "Program memory overflow", "", bnOk, icNone);
    CHECK(Rig.m_Engine.LoaderLine() == 99);
    CHECK_TEXT(Rig.Step(98), "CLX");
    CHECK(Rig.m_Listing.CountLines() == 99);
    CHECK(Rig.State().m_bProgramModified == 0);
    CheckProgram(Rig);
}

TEST_CASE("comments and rejected lines before the 99th program line are kept")
{
    cLoadRig Rig;

    CHECK(Rig.LoadText(Repeated("CLX\n", 98) + "; a\nsto 5\n; b\n7\n; c\n") == 1);

    REQUIRE(Rig.m_Host.m_Boxes.size() == 2);
    CHECK_TEXT(Rig.m_Host.m_Boxes[0].m_Text,
               "Error: unrecognized instr mnemonic on line #100:\nsto 5");
    CHECK_TEXT(Rig.m_Host.m_Boxes[1].m_Text, "Program memory overflow");
    CHECK_TEXT(Rig.ListingLine(99), "   ; a");
    CHECK_TEXT(Rig.ListingLine(100), "-- sto 5");
    CHECK_TEXT(Rig.ListingLine(101), "   ; b");
    CHECK(Rig.m_Listing.CountLines() == 102);
    CheckProgram(Rig);
}

// --- lines of unusual length and content

TEST_CASE("a line of 510 characters is read complete, a longer one comes in pieces")
{
    // clang-format off
    static const struct
    {
        size_t   nLength;
        unsigned nListed;   // lines that it makes
    } s_Rows[] =
    {
        { 509,  1 },
        { 510,  1 },
        { 511,  2 },
        { 512,  2 },
        { 1021, 2 },
        { 1022, 3 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.nLength);
        cLoadRig          Rig;
        const std::string Comment(Row.nLength, ';');

        CHECK(Rig.LoadText(Comment + "\r\nCLX\r\n") == 1);

        CHECK(Rig.m_Host.m_Boxes.empty());
        CHECK_TEXT(Rig.ListingLine(1), "   " + Comment.substr(0, 511));
        CHECK_TEXT(Rig.ListingLine(Row.nListed + 1), "01 CLX");
        CHECK(Rig.m_Engine.LoaderLine() == Row.nListed + 1);
        CheckSteps(Rig, {"CLX"});
        CheckProgram(Rig);
    }
}

TEST_CASE("a rejected line of full length is complete in its box and in the listing")
{
    cLoadRig          Rig;
    const std::string Line(511, 'x');

    CHECK(Rig.LoadText(Line) == 1);

    CHECK_TEXT(Rig.LastBox(), "Error: unrecognized instr mnemonic on line #1:\n" + Line);
    CHECK_TEXT(Rig.ListingLine(1), "-- " + Line);
    CheckProgram(Rig);
}

TEST_CASE("a NUL byte hides the rest of its line")
{
    using namespace std::string_literals;
    cLoadRig Rig;

    CHECK(Rig.LoadText("CLX\0 junk\nENTER\n\0; c\n"s) == 1);

    CHECK(Rig.m_Host.m_Boxes.empty());
    CheckSteps(Rig, {"CLX", "ENTER"});
    CHECK_TEXT(Rig.ListingLine(1), "01 CLX");
    CHECK_TEXT(Rig.ListingLine(3), "   ");
    CheckProgram(Rig);
}

// --- files that cannot be read

TEST_CASE("what cannot be opened as a file leaves the program untouched")
{
    std::vector<std::string> Names = {"missing.txt", "no/such/folder.txt", "", "."};
#ifdef __linux__
    Names.insert(Names.end(), {"/dev/zero", "/dev/null", "/dev/stdin"});
#endif
    for (const std::string &Name : Names)
    {
        CAPTURE(Name);
        cLoadRig Rig;
        Rig.LoadText("CLX\n; c\nGSB 1\n");
        Rig.m_Engine.TakeLoadedProgram("former.txt");
        Rig.Type("PRGM SST 12 RUN 34 STO");
        Rig.m_Engine.Raw().m_nReturnDepth = 2;
        const std::string FullName        = Name == "." ? Rig.m_Folder.Name("") : Name;
        Rig.Forget();

        const int nResult = Rig.m_Engine.LoadProgram(FullName.c_str());

        CHECK(nResult == 0);
        REQUIRE(Rig.m_Host.m_Boxes.size() == 1);
        CheckBox(Rig.m_Host.m_Boxes[0],
                 "ERROR: couldn't open the file '" + FullName + "' for reading", "", bnOk, icError);
        CheckSteps(Rig, {"CLX", "+12.", "GSB 1"});
        CHECK_TEXT(Rig.ListingLine(3), "   ; c");
        CHECK(Rig.State().m_nCurLine == 2);
        CHECK(Rig.State().m_bProgramModified == 1);
        CHECK(Rig.State().m_nReturnDepth == 2);
        CHECK_TEXT(Rig.State().m_szFileName, "former.txt");
        CHECK_TEXT(Rig.State().m_szEntry, "+34");
        CHECK_TEXT(Rig.State().m_szKeystrokes, "STO ");
        CHECK(Rig.State().m_bParseOnly == 0);
        CHECK_TEXT(Rig.Sounds(), "");
    }
}

TEST_CASE("a name that the calculator has no room for is not opened")
{
    cLoadRig Rig;
    Rig.m_Folder.Write("program.txt", "CLX\n");
    const std::string Name = Repeated("./", 2046) + Rig.m_Folder.Name("program.txt");
    REQUIRE(Name.size() >= 4096);

    for (const std::string &Long : {Name, std::string(100000, 'x')})
    {
        Rig.Forget();
        CHECK(Rig.m_Engine.LoadProgram(Long.c_str()) == 0);

        REQUIRE(Rig.m_Host.m_Boxes.size() == 1);
        CHECK(Rig.LastBox().find("ERROR: couldn't open the file '" + Long.substr(0, 500)) == 0);
    }
    CheckSteps(Rig, {});
}

// --- Open, New and the questions before them

TEST_CASE("Open loads the file that the user chose and takes its name")
{
    cLoadRig Rig;
    Rig.m_Folder.Write("program.txt", "CLX\n");
    Rig.m_Host.m_FileNames = {Rig.m_Folder.Name("program.txt")};
    Rig.Type("12 STO");
    const int nDraws = Rig.m_Host.m_nDraws;

    const int nResult = Rig.m_Engine.Open();

    CHECK(nResult == 1);
    CheckSteps(Rig, {"CLX"});
    CHECK(Rig.m_Host.m_FileDialogs == std::vector<eFileDialog>{fdOpen});
    CHECK(Rig.m_Host.m_Boxes.empty());
    CHECK_TEXT(Rig.State().m_szFileName, Rig.m_Folder.Name("program.txt"));
    CHECK_TEXT(Rig.m_Host.m_StatusText, "filename: " + Rig.m_Folder.Name("program.txt"));
    CHECK(Rig.State().m_bProgramModified == 0);
    CHECK_TEXT(Rig.State().m_szEntry, "");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "");
    CHECK(Rig.m_Host.m_nDraws > nDraws);
}

TEST_CASE("a cancelled Open dialog changes nothing")
{
    cLoadRig Rig;
    Rig.LoadText("CLX\n");
    Rig.m_Engine.TakeLoadedProgram("former.txt");

    CHECK(Rig.m_Engine.Open() == 0);

    CheckSteps(Rig, {"CLX"});
    CHECK_TEXT(Rig.State().m_szFileName, "former.txt");
    CHECK_TEXT(Rig.m_Host.m_StatusText, "filename: former.txt");
    CHECK(Rig.m_Host.m_Boxes.empty());
}

TEST_CASE("a failed Open leaves the program without a name")
{
    cLoadRig Rig;
    Rig.LoadText("CLX\n");
    Rig.m_Engine.TakeLoadedProgram("former.txt");
    Rig.m_Host.m_FileNames = {Rig.m_Folder.Name("missing.txt")};

    CHECK(Rig.m_Engine.Open() == 0);

    CHECK(Rig.m_Host.m_Boxes.size() == 1);
    CheckSteps(Rig, {"CLX"});
    CHECK_TEXT(Rig.State().m_szFileName, "");
    CHECK_TEXT(Rig.m_Host.m_StatusText, "filename: UNTITLED");
}

TEST_CASE("an Open that is cancelled at a rejected line leaves an empty program without a name")
{
    cLoadRig Rig;
    Rig.m_Folder.Write("program.txt", "CLX\nsto 5\n");
    Rig.m_Host.m_FileNames = {Rig.m_Folder.Name("program.txt")};
    Rig.m_Host.m_Answers   = {anCancel};

    CHECK(Rig.m_Engine.Open() == 0);

    CheckSteps(Rig, {});
    CHECK_TEXT(Rig.State().m_szFileName, "");
    CHECK_TEXT(Rig.m_Host.m_StatusText, "filename: UNTITLED");
}

TEST_CASE("Open and New ask about a modified program first")
{
    // clang-format off
    static const struct { int bOpen; eAnswer nAnswer; int bGoesOn; int bSaved; } s_Rows[] =
    {
        { 1, anYes,    1, 1 },
        { 1, anNo,     1, 0 },
        { 1, anCancel, 0, 0 },
        { 0, anYes,    1, 1 },
        { 0, anNo,     1, 0 },
        { 0, anCancel, 0, 0 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.bOpen);
        CAPTURE(Row.nAnswer);
        cLoadRig          Rig;
        const std::string Former = Rig.m_Folder.Name("former.txt");
        Rig.m_Folder.Write("new.txt", "ENTER\n");
        Rig.m_Engine.TakeLoadedProgram(Former.c_str());
        Rig.Type("PRGM CLX RUN");
        Rig.m_Host.m_FileNames = {Rig.m_Folder.Name("new.txt")};
        Rig.m_Host.m_Answers   = {Row.nAnswer};

        const int nResult = Row.bOpen ? Rig.m_Engine.Open() : Rig.m_Engine.New();

        CHECK(nResult == Row.bGoesOn);
        REQUIRE(Rig.m_Host.m_Boxes.size() == 1);
        CheckBox(Rig.m_Host.m_Boxes[0], "Save current changes in " + Former + "?", "",
                 bnYesNoCancel, icQuestion);
        CHECK(Rig.m_Folder.Has("former.txt") == (Row.bSaved == 1));
        CHECK_TEXT(Rig.Step(1), !Row.bGoesOn ? "CLX" : Row.bOpen ? "ENTER" : "R/S");
        CHECK(Rig.State().m_bProgramModified == !Row.bGoesOn);
    }
}

TEST_CASE("an untitled program is asked about as UNTITLED, and Yes asks for a name")
{
    cLoadRig Rig;
    Rig.Type("PRGM CLX RUN");
    Rig.m_Host.m_FileNames = {Rig.m_Folder.Name("a.txt")};
    Rig.m_Host.m_Answers   = {anYes};

    CHECK(Rig.m_Engine.New() == 1);

    CHECK_TEXT(Rig.LastBox(), "Save current changes in UNTITLED?");
    CHECK(Rig.m_Host.m_FileDialogs == std::vector<eFileDialog>{fdSave});
    CHECK_TEXT(Rig.m_Folder.Read("a.txt"), "CLX\r\n");
}

TEST_CASE("a failed or cancelled save counts as Cancel")
{
    for (const int bNamed : {0, 1})
    {
        cLoadRig Rig;
        if (bNamed)
            Rig.m_Engine.TakeLoadedProgram(Rig.m_Folder.Name("no/such/folder.txt").c_str());
        Rig.Type("PRGM CLX RUN");
        Rig.m_Host.m_Answers = {anYes};

        CHECK(Rig.m_Engine.New() == 0);

        CHECK_TEXT(Rig.Step(1), "CLX");
        CHECK(Rig.State().m_bProgramModified == 1);
    }
}

TEST_CASE("an unmodified program is not asked about")
{
    cLoadRig Rig;
    Rig.LoadText("CLX\n");

    CHECK(Rig.m_Engine.ConfirmDiscard() == 1);
    CHECK(Rig.m_Engine.New() == 1);

    CHECK(Rig.m_Host.m_Boxes.empty());
    CheckSteps(Rig, {});
}

TEST_CASE("New clears the program, pending keys and a number entry")
{
    cLoadRig Rig;
    Rig.LoadText("CLX\n");
    Rig.m_Engine.TakeLoadedProgram("former.txt");
    Rig.Type("12 STO");
    Rig.m_Engine.Raw().m_nReturnDepth = 2;

    CHECK(Rig.m_Engine.New() == 1);

    CheckSteps(Rig, {});
    CHECK_TEXT(Rig.State().m_szEntry, "");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "");
    CHECK(Rig.State().m_nReturnDepth == 0);
    CHECK_TEXT(Rig.State().m_szFileName, "");
    CHECK_TEXT(Rig.m_Host.m_StatusText, "filename: UNTITLED");
    CheckProgram(Rig);
}

// --- large and random files

TEST_CASE("fifty megabytes of comments load")
{
    cLoadRig          Rig;
    const std::string Comment = ";" + std::string(498, 'c') + "\n";
    std::string       Text;
    Text.reserve(50000000);
    while (Text.size() + Comment.size() <= 50000000)
        Text += Comment;

    CHECK(Rig.LoadText(Text) == 1);

    CHECK(Rig.m_Host.m_Boxes.empty());
    CHECK(Rig.m_Listing.CountLines() == 100000 + 99);
    CHECK(Rig.State().m_Program[1].m_nListingLine == 100001);
    CheckProgram(Rig);
}

TEST_CASE("a line of fifty megabytes loads in pieces or is cancelled at the first")
{
    cLoadRig Rig;

    CHECK(Rig.LoadText(std::string(50000000, ';')) == 1);
    CHECK(Rig.m_Host.m_Boxes.empty());
    CHECK(Rig.m_Engine.LoaderLine() == 97848);
    CheckProgram(Rig);

    Rig.m_Host.m_Answers = {anCancel};
    CHECK(Rig.LoadText(std::string(50000000, 'x')) == 0);
    CHECK(Rig.m_Host.m_Boxes.size() == 2);
    CHECK(Rig.m_Engine.LoaderLine() == 1);
    CheckProgram(Rig);
}

// Bytes, or words that a listing is made of.
static std::string RandomFile(std::mt19937 *pRandom)
{
    static const char *const s_Words[] = {
        "STO", "RCL", "GTO",  "LBL",  "FIX",   "STO+", "x<>y", "R/S",   "ENTER", "i",   "5",
        ".3",  "12",  "3.5",  "-2e5", "1e999", ";",    "; c",  "\r",    "\t",    "sto", "->HMS",
        "-",   "+",   "x<=y", ".",    "e",     "00",   "98",   "1e-99", "PAUSE", ".10"};
    const auto   Pick   = [pRandom](size_t nCount) { return (*pRandom)() % nCount; };
    const int    bBytes = Pick(3) == 0;
    const size_t nParts = Pick(bBytes ? 1200 : 250);
    std::string  Text;
    for (size_t n = 0; n < nParts; n++)
    {
        if (bBytes)
            Text += static_cast<char>(Pick(256));
        else
            Text += s_Words[Pick(sizeof s_Words / sizeof *s_Words)];
        if (!bBytes || Pick(20) == 0)
            Text += Pick(2) ? " " : Pick(2) ? "\n" : "\r\n";
    }
    return Text;
}

static std::vector<std::string> Steps(cCalculatorRig &Rig)
{
    std::vector<std::string> Steps;
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
        Steps.push_back(Rig.Step(nLine) + " " +
                        std::to_string(Rig.State().m_Program[nLine].m_nOperand));
    return Steps;
}

TEST_CASE("random files leave memory in order, and saved they load as the same program")
{
    cLoadRig     Rig, Again;
    std::mt19937 Random(19);
    unsigned     nFull = 0;
    for (int i = 0; i < 3000; i++)
    {
        CAPTURE(i);
        REQUIRE(Rig.LoadText(RandomFile(&Random)) == 1);
        CheckProgram(Rig);

        if (i % 4 == 0)
        {
            const std::string Saved = Again.m_Folder.Name("saved.txt");
            REQUIRE(Rig.m_Engine.SaveProgram(Saved.c_str()) == 1);
            REQUIRE(Again.m_Engine.LoadProgram(Saved.c_str()) == 1);
            REQUIRE(Steps(Again) == Steps(Rig));
        }
        nFull += Rig.Step(30) != "R/S" ? 1 : 0;
        Rig.Forget();
        Again.Forget();
    }
    CHECK(nFull > 100);
}

TEST_CASE("random answers to the questions about random files leave memory in order")
{
    cLoadRig     Rig;
    std::mt19937 Random(23);
    unsigned     nCancelled = 0;
    for (int i = 0; i < 500; i++)
    {
        CAPTURE(i);
        Rig.m_Host.m_Answers.assign(40, anOk);
        Rig.m_Host.m_Answers[Random() % 40] = anCancel;

        nCancelled += Rig.LoadText(RandomFile(&Random)) ? 0 : 1;

        CheckProgram(Rig);
        Rig.Forget();
    }
    CHECK(nCancelled > 50);
    CHECK(nCancelled < 450);
}
