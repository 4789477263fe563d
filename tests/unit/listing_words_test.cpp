#include "engine/listing_words.h"

#include <climits>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "engine/mnemonic_map.h"
#include "engine/vorstek_engine.h"
#include "tests/unit/calculator_rig.h"

namespace
{

// The calculator's own mnemonics.
class cMnemonics : public cMnemonicMap
{
public:
    cMnemonics() : cMnemonicMap(120, nullptr)
    {
        for (const cInstruction &Instruction : Instructions())
            Slot(Instruction.m_szMnemonic) = &Instruction;
    }
};

}  // namespace

static cListingLine ParsedLine(const std::string &Line)
{
    static const cMnemonics s_Mnemonics;
    cListingLine            Parsed;
    ParseListingLine(Line.c_str(), s_Mnemonics, &Parsed);
    return Parsed;
}

static eListingLine Kind(const std::string &Line)
{
    return ParsedLine(Line).m_nKind;
}

// All pieces in which a text comes.
static std::vector<std::string> Pieces(const std::string &Text)
{
    std::vector<std::string> Pieces;
    char                     szLine[kFileLineText];
    const char              *pText = Text.data();
    const char *const        pEnd  = pText + Text.size();
    while ((pText = NextFileLine(pText, pEnd, szLine)) != nullptr)
        Pieces.push_back(szLine);
    return Pieces;
}

TEST_CASE("blank lines and those that begin with a semicolon are comments")
{
    for (const char *const szLine :
         {"", " ", "\t", " \t \t ", ";", "; text", "  ;text", "\t; STO 5", ";;"})
    {
        CAPTURE_TEXT(szLine);
        CHECK(Kind(szLine) == llComment);
    }
}

TEST_CASE("every mnemonic of the table is an instruction, exactly as it is written")
{
    for (const cInstruction &Instruction : Instructions())
    {
        CAPTURE_TEXT(Instruction.m_szMnemonic);
        const std::string Mnemonic = Instruction.m_szMnemonic;
        for (const std::string &Line : {Mnemonic, "  " + Mnemonic, "\t" + Mnemonic + " \t",
                                        Mnemonic + ";note", Mnemonic + " ; note"})
        {
            CAPTURE(Line);
            const cListingLine Result = ParsedLine(Line);
            CHECK(Result.m_nKind == llInstruction);
            CHECK_TEXT(Result.m_szText, Mnemonic);
            CHECK_TEXT(Result.m_szOperandText, "");
            CHECK(Result.m_nOperand == 0);
        }
    }
}

TEST_CASE("what is neither a mnemonic nor a number is unrecognized")
{
    for (const char *const szLine :
         {"sto 5", "Sqrt", "SQRT", "STO5", "STO.5",    "rolldown", "xyz",  "i",   "R/",
          "R/S.",  "3.5x", "x3",   "1e",   "1e+",      "1e5x",     ".",    "+.",  "-e5",
          "e5",    "0x10", "inf",  "nan",  "INF",      "NaN",      "-inf", "1,5", "1..5",
          "1.5.2", "++3",  "+-3",  "$",    "\x80\xff", "\r",       "STO\r"})
    {
        CAPTURE_TEXT(szLine);
        CHECK(Kind(szLine) == llBadMnemonic);
    }
}

TEST_CASE("decimal numbers are number lines and kept as they are written")
{
    for (const char *const szLine :
         {"0",        "3",   "+3",   "-3",   "3.14",  "-3.14",  ".5",
          "5.",       "-.5", "+5.",  "1e5",  "1E5",   "1e+5",   "1e-5",
          "-1.5E-05", "007", "1.e5", ".5e5", "3e999", "1e-999", "12345678901234567"})
    {
        CAPTURE_TEXT(szLine);
        for (const std::string &Line : {std::string(szLine), " \t" + std::string(szLine) + "\t ",
                                        szLine + std::string(";c"), szLine + std::string(" ; c")})
        {
            const cListingLine Result = ParsedLine(Line);
            CHECK(Result.m_nKind == llNumber);
            CHECK_TEXT(Result.m_szText, szLine);
            CHECK_TEXT(Result.m_szOperandText, "");
            CHECK(Result.m_nOperand == 0);
        }
    }
}

TEST_CASE("the first token has at most 17 characters")
{
    CHECK(Kind("12345678901234567") == llNumber);
    CHECK(Kind("123456789012345678") == llBadMnemonic);
    CHECK(Kind("0.000000000000000") == llNumber);
    CHECK(Kind("0.0000000000000000") == llBadMnemonic);
    CHECK(Kind("1234567890123456 8") == llBadNumber);
    CHECK(Kind(std::string(500, 'S')) == llBadMnemonic);
    CHECK(Kind(std::string(500, '5')) == llBadMnemonic);
}

TEST_CASE("a number is followed by nothing but blanks and a comment")
{
    for (const char *const szLine : {"3.5 7", "01 STO 5", "3.5 i", "3.5\tx;", "1 .", "1 1 ; one"})
    {
        CAPTURE_TEXT(szLine);
        CHECK(Kind(szLine) == llBadNumber);
    }
    CHECK(Kind("3.5e2   ; a comment") == llNumber);
    CHECK(Kind("3.5e2;a comment 7") == llNumber);
}

TEST_CASE("operands are digits or a point and digits, kept to two characters")
{
    // clang-format off
    static const struct
    {
        const char *szLine;
        const char *szOperandText;
        unsigned    nOperand;
    } s_Rows[] =
    {
        { "STO 5",           "5",  5           },
        { "STO 0",           "0",  0           },
        { "STO\t5",          "5",  5           },
        { "STO   5 ; x",     "5",  5           },
        { "STO 5;x",         "5",  5           },
        { "STO .5",          ".5", 15          },
        { "STO .0",          ".0", 10          },
        { "STO .10",         ".1", 20          },
        { "STO .11",         ".1", 21          },
        { "STO .05",         ".0", 15          },
        { "STO 05",          "05", 5           },
        { "STO 12",          "12", 12          },
        { "LBL 12",          "12", 12          },
        { "LBL 123",         "12", 123         },
        { "STO .123456",     ".1", 123466      },
        { "STO 4294967295",  "42", 4294967295U },
        { "STO .4294967285", ".4", 4294967295U },
        // Whether an instruction takes its operand is its own matter.
        { "ENTER 5",         "5",  5           },
        { "R/S .3",          ".3", 13          },
        { "FIX .2",          ".2", 12          },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szLine);
        const cListingLine Result = ParsedLine(Row.szLine);
        const std::string  Line   = Row.szLine;
        CHECK(Result.m_nKind == llInstruction);
        CHECK_TEXT(Result.m_szText, Line.substr(0, Line.find_first_of(" \t")));
        CHECK_TEXT(Result.m_szOperandText, Row.szOperandText);
        CHECK(Result.m_nOperand == Row.nOperand);
    }
}

TEST_CASE("a mnemonic and i name one instruction without an operand")
{
    for (const char *const szMnemonic :
         {"STO", "RCL", "STO+", "STO-", "STO*", "STO/", "GTO", "GSB"})
        for (const char *const szRest : {" i", "\ti", "   i  ", " i;c", " i ; c"})
        {
            CAPTURE_TEXT(szMnemonic);
            const cListingLine Result = ParsedLine(szMnemonic + std::string(szRest));
            CHECK(Result.m_nKind == llInstruction);
            CHECK_TEXT(Result.m_szText, szMnemonic + std::string(" i"));
            CHECK_TEXT(Result.m_szOperandText, "");
            CHECK(Result.m_nOperand == 0);
        }
}

TEST_CASE("illegal operands")
{
    for (const char *const szLine :
         {"STO x",           "STO -5",          "STO +5",         "STO 5x",
          "STO x5",          "STO .",           "STO .x",         "STO .5x",
          "STO ..5",         "STO 5.",          "STO 1.5",        "STO I",
          "STO ii",          "STO i5",          "STO 4294967296", "STO 99999999999999999999",
          "STO .4294967286", "STO .4294967296", "STO 5 6",        "STO 5 i",
          "STO i i",         "STO i 5",         "STO .5 ,",       "STO 5\r",
          "ENTER i",         "LBL i",           "FIX i",          "x<=y i",
          "R/S i",           "STO e",           "STO 5\x80"})
    {
        CAPTURE_TEXT(szLine);
        CHECK(Kind(szLine) == llBadOperand);
    }
}

// --- lines of a file

TEST_CASE("an empty text has no lines, the last line needs no line end")
{
    CHECK(Pieces("").empty());
    CHECK(Pieces("\n") == std::vector<std::string>{""});
    CHECK(Pieces("a") == std::vector<std::string>{"a"});
    CHECK(Pieces("a\nb") == std::vector<std::string>{"a", "b"});
    CHECK(Pieces("a\nb\n") == std::vector<std::string>{"a", "b"});
    CHECK(Pieces("a\n\n\nb\n\n") == std::vector<std::string>{"a", "", "", "b", ""});
}

TEST_CASE("lines end in LF or CR LF, also mixed; a CR alone is a character")
{
    CHECK(Pieces("a\r\nb\r\n") == std::vector<std::string>{"a", "b"});
    CHECK(Pieces("a\r\nb\nc\r\n\r\n") == std::vector<std::string>{"a", "b", "c", ""});
    CHECK(Pieces("a\rb\n") == std::vector<std::string>{"a\rb"});
    CHECK(Pieces("a\r\r\n") == std::vector<std::string>{"a\r"});
    CHECK(Pieces("a\r") == std::vector<std::string>{"a\r"});
    CHECK(Pieces("\n\r") == std::vector<std::string>{"", "\r"});
}

TEST_CASE("a line above 511 bytes, its line end included, comes in pieces")
{
    const auto Long = [](size_t nLength) { return std::string(nLength, 'x'); };
    for (const char *const szEnd : {"\n", "\r\n"})
    {
        CHECK(Pieces(Long(509) + szEnd + "b") == std::vector<std::string>{Long(509), "b"});
        CHECK(Pieces(Long(510) + szEnd + "b") == std::vector<std::string>{Long(510), "b"});
        CHECK(Pieces(Long(511) + szEnd + "b") == std::vector<std::string>{Long(511), "", "b"});
        CHECK(Pieces(Long(512) + szEnd + "b") == std::vector<std::string>{Long(511), "x", "b"});
        CHECK(Pieces(Long(1021) + szEnd) == std::vector<std::string>{Long(511), Long(510)});
        CHECK(Pieces(Long(1022) + szEnd) == std::vector<std::string>{Long(511), Long(511), ""});
    }
    CHECK(Pieces(Long(511)) == std::vector<std::string>{Long(511)});
    CHECK(Pieces(Long(512)) == std::vector<std::string>{Long(511), "x"});
    CHECK(Pieces(Long(510) + "\r") == std::vector<std::string>{Long(510) + "\r"});
    CHECK(Pieces(Long(511) + "\r") == std::vector<std::string>{Long(511), "\r"});
}

TEST_CASE("a NUL byte hides the rest of its piece")
{
    using namespace std::string_literals;

    CHECK(Pieces("a\0b\nc\n"s) == std::vector<std::string>{"a", "c"});
    CHECK(Pieces("\0\0\0"s) == std::vector<std::string>{""});
    CHECK(Pieces("a\n\0b"s) == std::vector<std::string>{"a", ""});
    CHECK(Pieces("a\0"s + std::string(510, 'x') + "\nb"s) ==
          std::vector<std::string>{"a", "x", "b"});
}

static const cInstruction &InstructionOf(const char *szMnemonic)
{
    for (const cInstruction &Instruction : Instructions())
        if (std::string(Instruction.m_szMnemonic) == szMnemonic)
            return Instruction;
    FAIL("no such instruction: " << szMnemonic);
    return Instructions()[0];
}

template <class cPrint> static std::string Listed(cPrint Print, size_t nSize = kListedText)
{
    char szText[kListedText];
    Print(szText, nSize);
    return szText;
}

TEST_CASE("an instruction is printed with its operand, as a step keeps two characters of it")
{
    // clang-format off
    static const struct
    {
        const char *szMnemonic;
        unsigned    nOperand;
        const char *szPrinted;
        const char *szKept;
        unsigned    nKept;
    } s_Rows[] =
    {
        { "x<>y",   7,  "x<>y",   "x<>y",   0  },
        { "STO i",  0,  "STO i",  "STO i",  0  },
        { "STO",    0,  "STO 0",  "STO 0",  0  },
        { "STO",    9,  "STO 9",  "STO 9",  9  },
        { "STO+",   10, "STO+ .0", "STO+ .0", 10 },
        { "RCL",    19, "RCL .9", "RCL .9", 19 },
        { "STO",    20, "STO .10", "STO .1", 11 },
        { "FIX",    4,  "FIX 4",  "FIX 4",  4  },
        { "GTO",    12, "GTO 12", "GTO 12", 12 },
        { "LBL",    123, "LBL 123", "LBL 12", 12 },
        { "GSB",    4294967295, "GSB 4294967295", "GSB 42", 42 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szMnemonic);
        CAPTURE(Row.nOperand);
        const cInstruction &Instruction = InstructionOf(Row.szMnemonic);
        char                szText[kStepText];

        PrintInstruction(Instruction, Row.nOperand, szText);
        CHECK_TEXT(szText, Row.szPrinted);

        const cStep Step = RecordedStep(Instruction, Row.nOperand);
        PrintStep(Step, szText);
        CHECK_TEXT(szText, Row.szKept);
        CHECK(Step.m_nOperand == Row.nKept);
        CHECK(Step.m_pInstruction == &Instruction);
    }
}

TEST_CASE("a step's text has room for the longest mnemonic and the largest operand")
{
    const cInstruction Longest = {"seventeen letters", nullptr, opRegister, rlNone};
    char               szText[kStepText];

    PrintInstruction(Longest, UINT_MAX, szText);

    CHECK_TEXT(szText, "seventeen letters .4294967285");
    CHECK(strlen(Longest.m_szMnemonic) == kMnemonicText - 1);
    CHECK(strlen(szText) == kStepText - 1);
}

TEST_CASE("what is printed of a step is read back as the same step")
{
    for (const cInstruction &Instruction : Instructions())
        for (unsigned nOperand = 0; nOperand < 20; nOperand++)
        {
            if (nOperand > 9 && Instruction.m_nOperand != opRegister)
                continue;
            char szText[kStepText];
            PrintInstruction(Instruction, nOperand, szText);
            CAPTURE_TEXT(szText);
            const cStep        Step = RecordedStep(Instruction, nOperand);
            const cListingLine Read = ParsedLine(szText);

            CHECK(Read.m_nKind == llInstruction);
            CHECK(Read.m_pInstruction == Step.m_pInstruction);
            CHECK(Read.m_nOperand == Step.m_nOperand);
            CHECK_TEXT(Read.m_szText, Step.m_szText);
            CHECK_TEXT(Read.m_szOperandText, Step.m_szOperandText);
        }
}

TEST_CASE("a step is numbered for the display and for the trace")
{
    char szText[kListedText];

    PrintNumberedStep(5, RecordedStep(InstructionOf("STO"), 13), szText);
    CHECK_TEXT(szText, "05 STO .3");
    PrintTracedStep(5, RecordedStep(InstructionOf("STO"), 13), szText);
    CHECK_TEXT(szText, "05 STO 13");
    PrintTracedStep(98, RecordedStep(InstructionOf("x<>y"), 0), szText);
    CHECK_TEXT(szText, "98 x<>y");
}

TEST_CASE("lines of the listing begin with a number or a mark of its width")
{
    // clang-format off
    CHECK_TEXT(Listed([](char *sz, size_t n) { PrintListedLine(0, "", sz, n); }), "00\r\n");
    CHECK_TEXT(Listed([](char *sz, size_t n) { PrintListedLine(7, "STO .3", sz, n); }), "07 STO .3\r\n");
    CHECK_TEXT(Listed([](char *sz, size_t n) { PrintListedLine(98, "", sz, n); }), "98\r\n");
    CHECK_TEXT(Listed([](char *sz, size_t n) { PrintListedComment("; text", sz, n); }), "   ; text\r\n");
    CHECK_TEXT(Listed([](char *sz, size_t n) { PrintListedRejection("sto 5", sz, n); }), "-- sto 5\r\n");
    CHECK_TEXT(Listed([](char *sz, size_t n) { PrintListedLine(7, "STO .3", sz, n); }, 6), "07 ST");
    // clang-format on
    char szText[kListedText];
    CHECK(PrintListedLine(7, "STO .3", szText, 6) == 11);
}

TEST_CASE("a line of the listing is renumbered if it begins with a number")
{
    static const struct
    {
        const char *szLine;
        unsigned    nNumber;
        int         nResult;
        const char *szRenumbered;
    } s_Rows[] = {{"05 STO 3", 6, 1, "06 STO 3"},
                  {"09 LBL 9", 10, 1, "10 LBL 9"},
                  {"98 12", 7, 1, "07 12"},
                  {"   12 ; text", 6, 0, "   12 ; text"},
                  {"-- 12", 6, 0, "-- 12"},
                  {"5", 6, 0, "5"},
                  {"", 6, 0, ""}};
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szLine);
        char szLine[kListedText];
        snprintf(szLine, sizeof szLine, "%s", Row.szLine);

        CHECK(RenumberListedLine(Row.nNumber, szLine) == Row.nResult);
        CHECK_TEXT(szLine, Row.szRenumbered);
    }
}
