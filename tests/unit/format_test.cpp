#include "engine/listing_words.h"
#include "listing/format.h"

#include <random>

#include "console/unified_diff.h"
#include "tests/unit/calculator_rig.h"
#include "tests/unit/scratch_folder.h"

static std::string Formatted(const std::string &Text)
{
    std::vector<cFormattedLine> Lines;
    std::vector<cFinding>       Findings;
    REQUIRE(FormatListing(Text, &Lines, &Findings) == 1);
    std::string New;
    for (const cFormattedLine &Line : Lines)
        New += Line.m_New;
    return New;
}

// "2 operand", for a listing that is left alone.
static std::string Refusal(const std::string &Text)
{
    std::vector<cFormattedLine> Lines;
    std::vector<cFinding>       Findings;
    CHECK(FormatListing(Text, &Lines, &Findings) == 0);
    REQUIRE(Findings.size() == 1);
    return std::to_string(Findings[0].m_nLine) + " " + Findings[0].m_szName;
}

TEST_CASE("instructions begin in the first column, their comments in column 17")
{
    // clang-format off
    static const struct { const char *szLine; const char *szFormatted; } s_Rows[] =
    {
        { "LBL 1",                 "LBL 1"                   },
        { "\t LBL \t 1  ",         "LBL 1"                   },
        { "STO\ti",                "STO i"                   },
        { "RCL  .10;x",            "RCL .10         ;x"      },
        { "sin;x",                 "sin             ;x"      },
        { "sin                    ; x  ", "sin             ; x" },
        { "STO .5\t; a\tb ; c \t", "STO .5          ; a\tb ; c" },
        { "-3.500E+05 ; kept",     "-3.500E+05      ; kept"  },
        { "1.2345678901234 ;x",    "1.2345678901234 ;x"      },
        { "12345678901234567;x",   "12345678901234567 ;x"    },
        { "; head",                "; head"                  },
        { "   ; head",             "; head"                  },
        { ";",                     ";"                       },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szLine);
        CHECK_TEXT(Formatted(std::string(Row.szLine) + "\n"), std::string(Row.szFormatted) + "\n");
    }
}

TEST_CASE("an indented comment that continues another is aligned with it")
{
    CHECK_TEXT(Formatted("5 ; one\n  ; two\n\t; three\n; four\n ; five\n"),
               "5               ; one\n                ; two\n                ; three\n; four\n"
               "; five\n");
    CHECK_TEXT(Formatted("5\n  ; one\n"), "5\n; one\n");
    CHECK_TEXT(Formatted("5 ; one\n\n  ; two\n"), "5               ; one\n\n; two\n");
}

TEST_CASE("blank lines are left out at both ends and where there are several")
{
    CHECK_TEXT(Formatted("\n \n5\n\n\t\n\n6\n\n \n"), "5\n\n6\n");
    CHECK_TEXT(Formatted("\n\n"), "");
    CHECK_TEXT(Formatted(""), "");
}

TEST_CASE("all lines end as the first does, the last one too")
{
    CHECK_TEXT(Formatted("5\r\n6\n7"), "5\r\n6\r\n7\r\n");
    CHECK_TEXT(Formatted("5\n6\r\n7"), "5\n6\n7\n");
    CHECK_TEXT(Formatted("5"), "5\n");
    CHECK_TEXT(Formatted("5 ; x\r\r\n6\r\n"), "5               ; x\r\n6\r\n");
}

TEST_CASE("a comment is moved only as far as the line has room")
{
    const std::string Comment = ";" + std::string(500, 'x');
    CHECK_TEXT(Formatted("5" + Comment + "\n"), "5        " + Comment + "\n");
    const std::string Longest = ";" + std::string(508, 'x');
    CHECK_TEXT(Formatted("5" + Longest + "\n"), "5" + Longest + "\n");
    const std::string Alone = ";" + std::string(509, 'x');
    CHECK_TEXT(Formatted("5;\n" + Alone + "\n ;\n"), "5               ;\n" + Alone + "\n;\n");
}

TEST_CASE("a listing that the loader does not understand is left alone")
{
    CHECK_TEXT(Refusal("5\nSTO 12\n"), "2 operand");
    CHECK_TEXT(Refusal("enter\n"), "1 mnemonic");
    CHECK_TEXT(Refusal("\uFEFF; head\n"), "1 mnemonic");
    CHECK_TEXT(Refusal("5\n;" + std::string(510, 'x') + "\n"), "2 long-line");
    CHECK_TEXT(Refusal("5\n;" + std::string(510, 'x')), "2 long-line");
    CHECK_TEXT(Refusal(std::string("5\n6 \0 7\n", 8)), "2 nul-byte");
    std::string Long;
    for (unsigned nLine = 0; nLine <= kLastLine; nLine++)
        Long += "5\n";
    CHECK_TEXT(Refusal(Long), "99 overflow");
}

namespace
{

// Listings without errors in every shape.
class cRandomShape
{
public:
    explicit cRandomShape(unsigned nSeed) : m_Random(nSeed) {}

    std::string Text()
    {
        std::string Text;
        for (size_t nLines = m_Random() % 99; nLines > 0; nLines--)
            Text += Line() + (m_Random() % 4 ? "\n" : "\r\n");
        if (m_Random() % 2 && !Text.empty())
            Text.erase(Text.find_last_not_of("\r\n") + 1);
        return Text;
    }

private:
    std::string Blanks(size_t nLeast)
    {
        std::string Blanks(nLeast, ' ');
        while (m_Random() % 2)
            Blanks.push_back(m_Random() % 4 ? ' ' : '\t');
        return Blanks;
    }

    std::string Code()
    {
        static const char *const s_Numbers[]   = {"5", "-.5", "1E+05", "12345678901234567", "0"};
        static const char *const s_Registers[] = {"3", ".3", ".10", "i", ".05", ".0", ".010"};
        if (m_Random() % 4 == 0)
            return s_Numbers[m_Random() % std::size(s_Numbers)];
        const auto          Rows        = Instructions();
        const cInstruction &Instruction = Rows[m_Random() % Rows.size()];
        const std::string   Mnemonic    = Instruction.m_szMnemonic;
        if (Instruction.m_nOperand == opNone)
            return Mnemonic;
        if (Instruction.m_nOperand == opRegister)
            return Mnemonic + Blanks(1) + s_Registers[m_Random() % std::size(s_Registers)];
        return Mnemonic + Blanks(1) + std::to_string(m_Random() % 10);
    }

    std::string Comment()
    {
        std::string Comment = ";";
        for (size_t n = m_Random() % 50 ? m_Random() % 20 : 470 + m_Random() % 20; n > 0; n--)
            Comment.push_back("ab; \t\xC3\xA9"[m_Random() % 7]);
        return Comment;
    }

    std::string Line()
    {
        std::string Line = Blanks(0);
        if (m_Random() % 3)
            Line += Code() + Blanks(0);
        if (m_Random() % 3 == 0)
            Line += Comment();
        return Line;
    }

    std::mt19937 m_Random;
};

}  // namespace

static std::string WithoutBlankEnd(const std::string &Text)
{
    return Text.substr(0, Text.find_last_not_of(" \t\r") + 1);
}

// The line, with the register that it uses instead of how that was written.
static std::string LoadedStep(const cStep &Step)
{
    char szStep[kStepText];
    PrintStep(Step, szStep);
    if (Step.m_pInstruction && Step.m_szOperandText[0])
        PrintInstruction(*Step.m_pInstruction, Step.m_nOperand, szStep);
    return szStep;
}

// What the calculator makes of a listing: the program, then the comments.
static std::string Loaded(cScratchFolder *pFolder, const std::string &Text)
{
    cCalculatorRig Rig;
    pFolder->Write("listing.txt", Text);
    REQUIRE(Rig.m_Engine.LoadProgram(pFolder->Name("listing.txt").c_str()) == 1);
    CHECK(Rig.m_Host.m_Boxes.empty());
    std::string Loaded;
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
        Loaded += LoadedStep(Rig.State().m_Program[nLine]) + "\n";
    for (unsigned nLine = 1; nLine < Rig.m_Listing.CountLines(); nLine++)
    {
        const std::string Listed   = Rig.ListingLine(nLine);
        const size_t      nComment = Listed.find(';');
        if (nComment != std::string::npos)
            Loaded += WithoutBlankEnd(Listed.substr(nComment)) + "\n";
    }
    return Loaded;
}

// With their ends.
static std::vector<std::string> SplitLines(const std::string &Text)
{
    std::vector<std::string> Lines;
    for (size_t nAt = 0; nAt < Text.size();)
    {
        const size_t nEnd = std::min(Text.find('\n', nAt), Text.size() - 1) + 1;
        Lines.push_back(Text.substr(nAt, nEnd - nAt));
        nAt = nEnd;
    }
    return Lines;
}

// Performs the changes of a diff, which must fit; a small patch program.
static std::string Patched(const std::string &Text, const std::string &Diff)
{
    const std::vector<std::string> Old   = SplitLines(Text);
    const std::vector<std::string> Edits = SplitLines(Diff);
    std::string                    New;
    size_t                         nOld = 0, nNew = 0;
    for (size_t i = 2; i < Edits.size(); i++)
    {
        const std::string Rest = Edits[i].substr(1);
        unsigned          nFrom, nFromLines, nTo, nToLines;
        if (sscanf(Edits[i].c_str(), "@@ -%u,%u +%u,%u @@", &nFrom, &nFromLines, &nTo, &nToLines) ==
            4)
        {
            REQUIRE(nFromLines > 0);
            for (; nOld + 1 < nFrom; nOld++, nNew++)
                New += Old[nOld];
            CHECK(nNew + (nToLines > 0) == nTo);
            continue;
        }
        if (Edits[i][0] == '\\')
            continue;
        const int bNoEnd = i + 1 < Edits.size() && Edits[i + 1][0] == '\\';
        if (Edits[i][0] != '+')
        {
            REQUIRE(nOld < Old.size());
            CHECK_TEXT(Old[nOld++], bNoEnd ? Rest.substr(0, Rest.size() - 1) : Rest);
        }
        if (Edits[i][0] != '-')
        {
            New += Rest;
            nNew++;
        }
    }
    for (; nOld < Old.size(); nOld++)
        New += Old[nOld];
    return New;
}

TEST_CASE("random listings hold the same program and comments when they are formatted")
{
    cScratchFolder Folder;
    for (unsigned nSeed = 0; nSeed < 400; nSeed++)
    {
        CAPTURE(nSeed);
        const std::string           Text = cRandomShape(nSeed).Text();
        std::vector<cFormattedLine> Lines;
        std::vector<cFinding>       Findings;

        const std::string New = Formatted(Text);

        CHECK_TEXT(Loaded(&Folder, New), Loaded(&Folder, Text));
        CHECK_TEXT(Formatted(New), New);
        FormatListing(Text, &Lines, &Findings);
        const std::string Diff = UnifiedDiff("a.txt", Lines);
        CHECK(Diff.empty() == (New == Text));
        if (!Diff.empty())
            CHECK_TEXT(Patched(Text, Diff), New);
    }
}

TEST_CASE("a register has one spelling")
{
    CHECK_TEXT(
        Formatted("STO .05\nRCL .0005 ;x\nSTO .5\nSTO .00\nSTO .010\nSTO .10\nSTO 5\nFIX 0\n"),
        "STO .5\nRCL .5          ;x\nSTO .5\nSTO .0\nSTO .10\nSTO .10\nSTO 5\nFIX 0\n");
}

TEST_CASE("a diff shows three lines around each change and counts the lines")
{
    std::vector<cFormattedLine> Lines;
    std::vector<cFinding>       Findings;
    FormatListing("1\n2\n3\n4\n 5\n6\n7\n8\n9\n10\n11\n12\n 13\n\n\n14", &Lines, &Findings);

    CHECK_TEXT(UnifiedDiff("a.txt", Lines), "--- a.txt\n"
                                            "+++ a.txt\n"
                                            "@@ -2,7 +2,7 @@\n"
                                            " 2\n 3\n 4\n- 5\n+5\n 6\n 7\n 8\n"
                                            "@@ -10,7 +10,6 @@\n"
                                            " 10\n 11\n 12\n- 13\n+13\n \n-\n-14\n"
                                            "\\ No newline at end of file\n"
                                            "+14\n");
    CHECK_TEXT(UnifiedDiff("a.txt", {{"\n", ""}}), "--- a.txt\n+++ a.txt\n@@ -1,1 +0,0 @@\n-\n");
    CHECK_TEXT(UnifiedDiff("a.txt", {{"5\n", "5\n"}}), "");
    CHECK_TEXT(UnifiedDiff("a.txt", {}), "");
}
