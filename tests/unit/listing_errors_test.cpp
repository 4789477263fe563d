#include <random>

#include "listing/lint.h"
#include "listing/source_lines.h"
#include "tests/unit/calculator_rig.h"
#include "tests/unit/scratch_folder.h"

// "3:5 operand Error: ... -> suggestion", a line for each error.
static std::string Errors(std::string_view Text)
{
    std::string Errors;
    for (const cFinding &Finding : FindListingErrors(Text))
    {
        CHECK(Finding.m_nSeverity == svError);
        Errors += std::to_string(Finding.m_nLine) + ":" + std::to_string(Finding.m_nColumn) + " " +
                  Finding.m_szName + " " + Finding.m_Text;
        Errors += (Finding.m_Suggestion.empty() ? "" : " -> ") + Finding.m_Suggestion + "\n";
    }
    return Errors;
}

TEST_CASE("an error names the word and what is accepted in its place")
{
    // clang-format off
    static const struct { const char *szLine; const char *szError; } s_Rows[] =
    {
        { "  enter",     "1:3 mnemonic Error: unrecognized instr mnemonic \"enter\" -> ENTER"                   },
        { "nonsense",    "1:1 mnemonic Error: unrecognized instr mnemonic \"nonsense\""                         },
        { "\xC3\xA9 \x1B[31m", "1:1 mnemonic Error: unrecognized instr mnemonic \"\u00E9\""                     },
        { "\x1B[31m",    "1:1 mnemonic Error: unrecognized instr mnemonic \"<U+001B>[31m\""                     },
        { "a\xFF\u00A0", "1:1 mnemonic Error: unrecognized instr mnemonic \"a<byte FF><U+00A0>\""               },
        { "\u00AD\u200B\u2028\u202E", "1:1 mnemonic Error: unrecognized instr mnemonic \"<U+00AD><U+200B><U+2028><U+202E>\"" },
        { "\u2066\u3000\uFEFF\x7F",   "1:1 mnemonic Error: unrecognized instr mnemonic \"<U+2066><U+3000><U+FEFF><U+007F>\"" },
        { "3.5 7",       "1:5 number Error: illegal number: only a comment may follow 3.5, not \"7\""           },
        { "LBL 12",      "1:5 operand Error: illegal operand \"12\": LBL takes a label, 0 to 9"                 },
        { "GTO x",       "1:5 operand Error: illegal operand \"x\": GTO takes a label, 0 to 9, or i"            },
        { "LBL",         "1:1 operand Error: illegal operand: LBL takes a label, 0 to 9"                        },
        { "LBL i",       "1:5 operand Error: illegal operand \"i\": LBL takes a label, 0 to 9"                  },
        { "ENTER\t5",    "1:7 operand Error: illegal operand \"5\": ENTER takes no operand"                     },
        { "STO 15;",     "1:5 operand Error: illegal operand \"15\" -> .5"                                      },
        { "STO + 5",     "1:5 operand Error: illegal operand \"+\" -> STO+"                                   },
        { "RCL Sum+",    "1:5 operand Error: illegal operand \"Sum+\" -> RCLSum+"                             },
        { "cl reg ; a",  "1:1 mnemonic Error: unrecognized instr mnemonic \"cl\" -> ClearREG"                 },
        { "STO .11",     "1:5 operand Error: illegal operand \".11\": STO takes a register, 0 to 9 or .0 to .10, or i" },
        { "FIX -1",      "1:5 operand Error: illegal operand \"-1\": FIX takes the number of digits, 0 to 9"    },
        { "STO 1 2",     "1:7 operand Error: illegal operand: only a comment may follow, not \"2\""             },
        { "GTO i 5",     "1:7 operand Error: illegal operand: only a comment may follow, not \"5\""             },
        { "sin 1 2",     "1:5 operand Error: illegal operand \"1\": sin takes no operand"                       },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szLine);
        CHECK_TEXT(Errors(Row.szLine), std::string(Row.szError) + "\n");
    }
}

TEST_CASE("a long word is cut")
{
    CHECK_TEXT(Errors(std::string(25, 'x')), "1:1 mnemonic Error: unrecognized instr mnemonic \"" +
                                                 std::string(24, 'x') + "...\"\n");
    CHECK_TEXT(Errors(std::string(24, 'x')), "1:1 mnemonic Error: unrecognized instr mnemonic \"" +
                                                 std::string(24, 'x') + "\"\n");
}

TEST_CASE("the line after a full program is the last that is read")
{
    std::string Text;
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
        Text += "1\n";

    CHECK_TEXT(Errors(Text + "; end\n"), "");
    CHECK_TEXT(Errors(Text + "; end\n  2\nwrong\n"),
               "100:3 overflow Program memory overflow \"2\": a program has at most 98 "
               "lines\n");
}

namespace
{

// Lines that are right, nearly right, and wrong.
class cRandomListing
{
public:
    explicit cRandomListing(unsigned nSeed) : m_Random(nSeed) {}

    std::string Text()
    {
        std::string Text;
        for (size_t nLines = m_Random() % 130; nLines > 0; nLines--)
            Text += Line() + (m_Random() % 8 ? "\n" : "\r\n");
        return Text;
    }

private:
    const char *Pick(const std::vector<const char *> &Words)
    {
        return Words[m_Random() % Words.size()];
    }

    std::string Line()
    {
        std::string Line;
        for (size_t nWords = m_Random() % 4; nWords > 0; nWords--)
        {
            const auto Rows = Instructions();
            Line += Pick({"", " ", "\t", "  "});
            Line += m_Random() % 3 ? Rows[m_Random() % Rows.size()].m_szMnemonic
                                   : Pick({"5", ".5", "i", "12", "3.5e2", "1e", "enter", ".10",
                                           "99999999999999999999", "\xC3\xA9", "-", "x", "+.5"});
            Line += Pick({" ", " 5", " .3", " i", "\t7", "", " 12"});
        }
        if (m_Random() % 40 == 0)
            Line += " ;" + std::string(480 + m_Random() % 600, 'x');
        if (m_Random() % 100 == 0)
            Line.push_back('\0');
        return Line + Pick({"", "", "; note", " ;"});
    }

    std::mt19937 m_Random;
};

}  // namespace

// The loader's boxes, each as "3: Error: illegal operand".
static std::string LoaderErrors(cCalculatorRig *pRig, cScratchFolder *pFolder,
                                const std::string &Text)
{
    std::string Errors;
    pRig->Forget();
    pRig->m_Host.m_OnAsk = [&] {
        const std::string Box = pRig->LastBox();
        Errors += std::to_string(pRig->m_Engine.LoaderLine()) + ": " +
                  Box.substr(0, Box.find(" on line ")) + "\n";
    };
    pFolder->Write("random.txt", Text);
    REQUIRE(pRig->m_Engine.LoadProgram(pFolder->Name("random.txt").c_str()) == 1);
    return Errors;
}

TEST_CASE("the errors of random listings are those of the loader, and so is the program")
{
    cScratchFolder Folder;
    cCalculatorRig Rig;
    size_t         nErrors = 0;
    for (unsigned nSeed = 0; nSeed < 400; nSeed++)
    {
        CAPTURE(nSeed);
        const std::string Text = cRandomListing(nSeed).Text();

        const std::string Loaded = LoaderErrors(&Rig, &Folder, Text);

        std::string Found;
        for (const cFinding &Finding : FindListingErrors(Text))
        {
            const std::string Line = std::to_string(Finding.m_nLine) + ": ";
            const size_t      nEnd = Loaded.find('\n', Found.size());
            REQUIRE(nEnd != std::string::npos);
            const std::string Wanted = Loaded.substr(Found.size(), nEnd - Found.size());
            CHECK_TEXT((Line + Finding.m_Text).substr(0, Wanted.size()), Wanted);
            Found += Wanted + "\n";
            nErrors++;
        }
        CHECK_TEXT(Found, Loaded);

        cSourceReader Reader(Text);
        cSourceLine   Line;
        while (Reader.Next(&Line))
            if (Line.m_nProgramLine)
            {
                char szStep[kStepText];
                PrintStep(Line.m_Parsed, szStep);
                CHECK_TEXT(Rig.Step(Line.m_nProgramLine), szStep);
            }
    }
    CHECK(nErrors > 1000);
}
