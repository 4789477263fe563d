#include "listing/lint.h"

#include <set>

#include "engine/program_line.h"
#include "tests/unit/calculator_rig.h"

// The lines of a listing, each with "\n".
static std::string Listing(const std::vector<std::string> &Lines)
{
    std::string Text;
    for (const std::string &Line : Lines)
        Text += Line + "\n";
    return Text;
}

// "3:5 missing-label, 7:1 unreachable": all warnings, errors left out.
static std::string WarningNames(std::string_view Text)
{
    std::string Names;
    for (const cFinding &Finding : LintListing(Text))
        if (Finding.m_nSeverity == svWarning)
            Names += (Names.empty() ? "" : ", ") + std::to_string(Finding.m_nLine) + ":" +
                     std::to_string(Finding.m_nColumn) + " " + Finding.m_szName;
    return Names;
}

// The text of the only warning.
static std::string WarningText(std::string_view Text)
{
    std::string Warning;
    for (const cFinding &Finding : LintListing(Text))
        if (Finding.m_nSeverity == svWarning)
        {
            CHECK(Warning.empty());
            Warning = Finding.m_Text;
        }
    return Warning;
}

TEST_CASE("each warning has a name of its own, in small letters")
{
    std::set<std::string> Names;
    for (const cWarningRow &Row : Warnings())
    {
        const std::string Name = Row.m_szName;
        CHECK(Name.find_first_not_of("abcdefghijklmnopqrstuvwxyz-") == std::string::npos);
        CHECK(Names.insert(Name).second);
    }
    CHECK(Names.size() == 13);
}

TEST_CASE("the findings are sorted by lines, errors first")
{
    const std::vector<cFinding> Findings = LintListing("1e\n\u00A0sin\n1e\n");

    std::string Found;
    for (const cFinding &Finding : Findings)
        Found += std::to_string(Finding.m_nLine) + " " + Finding.m_szName + "\n";
    CHECK_TEXT(Found, "1 mnemonic\n1 number-digits\n2 mnemonic\n2 no-break-space\n3 mnemonic\n"
                      "3 number-digits\n");
}

static std::string Repeated(size_t nTimes, std::string_view Text)
{
    std::string All;
    for (size_t i = 0; i < nTimes; i++)
        All += Text;
    return All;
}

TEST_CASE("after a thousand errors, one more says so and ends the reading")
{
    std::vector<cFinding> Findings = LintListing(Repeated(1000, "x\n") + "5\n");
    REQUIRE(Findings.size() == 1000);
    CHECK_TEXT(Findings.back().m_szName, "mnemonic");

    for (const size_t nMore : {1, 2, 5000})
    {
        Findings = LintListing(Repeated(1000, "x\n") + "5\n" + Repeated(nMore, "STO\u00A0\n"));
        REQUIRE(Findings.size() == 1002);
        CHECK(Findings[1000].m_nLine == 1002);
        CHECK(Findings[1000].m_nSeverity == svError);
        CHECK_TEXT(Findings[1000].m_szName, "too-many");
        CHECK_TEXT(Findings[1000].m_Text, "Error: too many errors; the rest is not read");
        CHECK_TEXT(Findings[1000].m_Suggestion, "");
        CHECK_TEXT(Findings[1001].m_szName, "no-break-space");
    }
    CHECK(FindListingErrors(Repeated(3000, "x\n")).size() == 1001);
}

TEST_CASE("after a thousand warnings of a kind, one more says so and others follow")
{
    const std::string_view Hidden(";\0\n", 3);
    CHECK(LintListing(Repeated(1000, Hidden)).size() == 1000);

    std::vector<cFinding> Findings = LintListing(Repeated(3000, Hidden) + "GTO 1\nx\n");
    REQUIRE(Findings.size() == 1003);
    CHECK_TEXT(Findings[999].m_Text, "a NUL byte hides the rest of the line");
    CHECK(Findings[1000].m_nLine == 1001);
    CHECK_TEXT(Findings[1000].m_szName, "nul-byte");
    CHECK_TEXT(Findings[1000].m_Text, "too many warnings like this one; more are not reported");
    CHECK_TEXT(Findings[1001].m_szName, "missing-label");
    CHECK(Findings[1002].m_nSeverity == svError);

    Findings = LintListing(Repeated(3000, Hidden) + "GTO 1\n");
    REQUIRE(Findings.size() == 1002);
    CHECK_TEXT(Findings[1001].m_szName, "missing-label");
}

TEST_CASE("characters that a person does not see are reported where they are")
{
    // clang-format off
    static const struct { const char *szText; const char *szWarnings; } s_Rows[] =
    {
        { "\uFEFFLBL 1\n",              "1:1 byte-order-mark" },
        { "\xFF\xFEL\n",                "1:1 byte-order-mark" },
        { "\xFE\xFFL\n",                "1:1 byte-order-mark" },
        { "; a\n\uFEFFLBL 1\n",         "2:1 non-ascii"       },
        { "STO\u00A05\n",               "1:4 no-break-space"  },
        { "STO\xA0" "5\n",              "1:4 no-break-space"  },
        { "STO\u202F5\u00A0\n",         "1:4 no-break-space"  },
        { "\u00A0\u221A\u00A0\u03C0\n", "1:1 no-break-space, 1:2 non-ascii" },
        { "5 \u03C0\n",                 "1:3 non-ascii"       },
        { "STO \u0665\n",               "1:5 non-ascii"       },
        { "5 ; \u00A0\u03C0\n",         ""                    },
        { "; caf\u00E9 \xFF\n",         ""                    },
        { "LBL 1\tx\n",                 ""                    },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szText);
        CHECK_TEXT(WarningNames(Row.szText), Row.szWarnings);
    }
    CHECK_TEXT(WarningNames(std::string_view("5 \0 6\n", 6)), "1:3 nul-byte");
    CHECK_TEXT(WarningText("\u03A3+\n"),
               "\"\u03A3\" (U+03A3) is not ASCII; instructions and numbers are");
    CHECK_TEXT(WarningText("sin\u200B\n"), "U+200B is not ASCII; instructions and numbers are");
    CHECK_TEXT(WarningText("caf\xE9\n"), "byte E9 is not ASCII; instructions and numbers are");
}

TEST_CASE("a line that the loader splits is reported once, at the place where it does")
{
    for (const std::string LineEnd : {"\n", "\r\n"})
    {
        CHECK_TEXT(WarningNames(";" + std::string(509, 'x') + LineEnd + "; 2" + LineEnd), "");
        CHECK_TEXT(WarningNames(";" + std::string(510, 'x') + LineEnd + "; 2" + LineEnd),
                   "1:511 long-line");
        CHECK_TEXT(WarningNames("5 ;" + std::string(2000, ';') + LineEnd + "; 2" + LineEnd),
                   "1:511 long-line");
    }
    CHECK_TEXT(WarningNames(";" + std::string(510, 'x')), "");
    CHECK_TEXT(WarningNames(";" + std::string(511, ';')), "1:511 long-line");
}

TEST_CASE("numbers that cannot be held as they are written are reported")
{
    // clang-format off
    static const struct { const char *szLine; const char *szWarning; } s_Rows[] =
    {
        { "0.577215664901533",    "" },
        { "2.50662827463100",     "" },
        { "9007199254740992",     "" },
        { "0.1234567890123456",   "a number has at most 17 characters; this one has 18" },
        { "9007199254740993",     "9007199254740993 has more digits than are kept; its value is 9.007199254740992e+15" },
        { "-9007199254740993",    "-9007199254740993 has more digits than are kept; its value is -9.007199254740992e+15" },
        { "0.00000000000001",     "" },
        { "00000000000000001",    "" },
        { "9.999999999e99",       "" },
        { "1e100",                "1e100 is beyond the calculator's range and becomes 9.999999999e+99" },
        { "-1e999",               "-1e999 is beyond the calculator's range and becomes -9.999999999e+99" },
        { "1e-99",                "" },
        { "9e-100",               "9e-100 is beyond the calculator's range and becomes 0" },
        { "1e-400",               "1e-400 is beyond the calculator's range and becomes 0" },
        { "-0.00e500",            "" },
        { "0E5",                  "" },
        { "123456789012345E5",    "" },
        { "1e",                   "the exponent has no digits" },
        { "2.5E+",                "the exponent has no digits" },
        { ".",                    "a number has at least one digit" },
        { "-.",                   "a number has at least one digit" },
        { "3.5x",                 "" },
        { "1.2.3",                "" },
        { "e5",                   "" },
        { "E",                    "" },
        { "e-.",                  "" },
        { "-",                    "" },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szLine);
        CHECK_TEXT(WarningText(Row.szLine), Row.szWarning);
    }
}

TEST_CASE("a jump to a label that is not there is reported")
{
    CHECK_TEXT(WarningNames("LBL 1\n  GTO 2\n"), "2:3 missing-label");
    CHECK_TEXT(WarningNames("GSB 2\n"), "1:1 missing-label");
    CHECK_TEXT(WarningNames("LBL 2\nRTN\nGTO 2\n"), "3:1 unreachable");
    CHECK_TEXT(WarningNames("GTO i\nGSB 3\n"), "2:1 missing-label");
    CHECK_TEXT(WarningText("GTO 2\n"), "there is no LBL 2: the program would halt here with "
                                       "\"Error: no such label\"");
}

TEST_CASE("a label that is given again is reported with the line of the former")
{
    CHECK_TEXT(WarningNames("LBL 1\nR/S\n LBL 1\nR/S\nLBL 1\n"),
               "3:2 duplicate-label, 3:2 unused-label, 5:1 duplicate-label, 5:1 unused-label");
    CHECK_TEXT(WarningText("; comment: GSB 1\nLBL 1\nR/S\nLBL 1\n"),
               "LBL 1 is already in line 2; a jump goes to the next one after it, then from the "
               "top");
}

TEST_CASE("a label is unused if no jump finds it and nothing makes it a place to start")
{
    // clang-format off
    static const struct { std::vector<std::string> Lines; const char *szWarnings; } s_Rows[] =
    {
        { { "1", "LBL 7", "2" },                   "2:1 unused-label" },
        { { "LBL 7", "2" },                        "" },  // where R/S starts
        { { "1", "LBL 7", "2", "GTO 7" },          "" },
        { { "1", "LBL 7", "x=0", "GSB 7" },        "" },
        { { "1", "LBL 7", "2", "GSB i" },          "" },
        { { "1", "LBL 7", "2", "RTN" },            "" },  // may be called from the keyboard
        { { "1", "LBL 7", "x=0", "RTN", "2" },     "" },
        { { "1", "LBL 7", "GTO 8", "LBL 9", "R/S", "LBL 8", "RTN" }, "4:1 unused-label" },
        { { "1", "R/S", "LBL 7", "2" },            "3:1 unused-label" },  // nothing runs into it
        { { "1", "RTN", "LBL 7", "2" },            "3:1 unused-label" },
        { { "1", "RTN", "LBL 7", "2", "RTN" },     "3:1 unused-label" },
        { { "LBL 1", "GTO 1", "LBL 7", "2" },      "3:1 unused-label" },
        { { "1", "R/S", "; GSB 7", "LBL 7", "2" }, "" },
        { { "x=0", "LBL 7", "2" },                 "2:1 unused-label" },
        { { "GSB 1", "LBL 7", "R/S", "LBL 1" },    "2:1 unused-label" },
        { { "; then GSB 7.", "1", "LBL 7", "2" },  "" },
        { { "1", "LBL 7   ; (lbl 7)", "2" },       "" },
        { { "1 ; label 7: next", "LBL 7", "2" },   "" },
        { { "; run --label 7", "1", "LBL 7" },     "" },
        { { "; GSB 17, GSB 8", "1", "LBL 7" },     "3:1 unused-label" },
        { { "; labels 5 and 7", "1", "LBL 7" },    "" },
        { { "; 7", "1", "LBL 7" },                 "3:1 unused-label" },
        { { "LBL 1", "LBL 1", "GTO 1" },           "2:1 duplicate-label, 2:1 unused-label" },
        { { "LBL 1", "R/S", "LBL 1", "GTO 1" },    "3:1 duplicate-label, 3:1 unused-label" },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        const std::string Text = Listing(Row.Lines);
        CAPTURE(Text);
        CHECK_TEXT(WarningNames(Text), Row.szWarnings);
    }
    CHECK_TEXT(WarningText("1\nLBL 7\n2\n"),
               "no GTO or GSB goes to LBL 7, and no comment names it");
    CHECK_TEXT(WarningNames(std::string_view("1\nLBL 7 \0; GSB 7\n2\n", 19)),
               "2:7 nul-byte, 2:1 unused-label");
}

TEST_CASE("beside rejected lines, what is so whatever they were meant to be is reported")
{
    // clang-format off
    static const struct { std::vector<std::string> Lines; const char *szWarnings; } s_Rows[] =
    {
        { { "entr", "GTO 5" },                       "2:1 missing-label" },
        { { "foo", "GTO 5" },                        "2:1 missing-label" },
        { { "foo 5", "GTO 5" },                      "" },  // might be LBL 5
        { { "lbl5", "GTO 5" },                       "" },
        { { "lbl5", "GTO 6" },                       "2:1 missing-label" },
        { { "\uFEFFLBL 1", "GTO 1", "GTO 5" },       "1:1 byte-order-mark, 3:1 missing-label" },
        { { "foo 5", "GTO 6", "foo 66" },            "" },
        { { "LBL 1", "R/S", "LBL 7", "2", "gto 1" }, "3:1 unused-label" },
        { { "LBL 1", "R/S", "LBL 7", "2", "gto 7" }, "" },
        { { "LBL 1", "R/S", "LBL 7", "2", "gto i" }, "" },
        { { "LBL 1", "GTO 1", "2", "gto 1" },        "3:1 unreachable" },
        { { "LBL 1", "GTO 2", "5", "lbl 2" },        "" },
        { { "LBL 12", "GTO 5" },                     "" },
        { { "STO 12", "GTO 5" },                     "2:1 missing-label" },
        { { "3 4", "GTO 5" },                        "2:1 missing-label" },
        { { "foo", "LBL 5", "R/S", "LBL 5" },        "4:1 duplicate-label, 4:1 unused-label" },
        { { "foo 5", "LBL 5", "R/S", "LBL 5" },      "4:1 duplicate-label" },
        { { "entr", "LBL 7", "2" },                  "" },  // the first, without that line
        { { "1", "entr", "LBL 7", "2" },             "3:1 unused-label" },
        { { "1", "entr", "LBL 7", "2", "RTN" },      "" },
        { { "1", "LBL 7", "2", "rtn" },              "" },  // may be called
        { { "1", "LBL 7", "2", "gto x" },            "" },
        { { "LBL 1", "GTO 1", "2", "entr" },         "3:1 unreachable" },
        { { "LBL 1", "GTO 1", "entr", "3", "4" },    "" },  // might be a label
        { { "LBL 1", "GTO 1", "2", "GTO x" },        "" },
        { { "GSB 1", "R/S", "LBL 1", "GSB 2", "RTN", "LBL 2", "GSB 3", "RTN", "LBL 3", "GSB 4",
            "RTN", "LBL 4", "RTN", "entr" },         "10:1 deep-calls" },
        { { "GSB 1", "R/S", "LBL 1", "GSB 2", "RTN", "LBL 2", "rtn", "GSB 3", "RTN", "LBL 3",
            "GSB 4", "RTN", "LBL 4", "RTN" },        "" },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        const std::string Text = Listing(Row.Lines);
        CAPTURE(Text);
        CHECK_TEXT(WarningNames(Text), Row.szWarnings);
    }
    const std::string Full = Listing(std::vector<std::string>(kLastLine - 1, "1"));
    CHECK_TEXT(WarningNames(Full + "GTO 5\n"), "98:1 missing-label");
    CHECK_TEXT(WarningNames(Full + "GTO 5\nentr\n"), "");
    CHECK_TEXT(WarningNames("entr\n" + Full), "");
}

TEST_CASE("lines after a jump are unreachable up to the next label")
{
    // clang-format off
    static const struct { std::vector<std::string> Lines; const char *szWarnings; } s_Rows[] =
    {
        { { "LBL 1", "GTO 1", "2", "3" },             "3:1 unreachable" },
        { { "LBL 1", "GTO 1", "; c", "2", "LBL 3" },  "4:1 unreachable, 5:1 unused-label" },
        { { "LBL 1", "x=0", "GTO 1", "2" },           "" },
        { { "LBL 1", "DSZ", "GTO 1", "2" },           "" },
        { { "LBL 1", "x=0", "2", "GTO 1", "3" },      "5:1 unreachable" },
        { { "LBL 1", "ISZ", "GTO 1", "GTO 1", "3" },  "5:1 unreachable" },
        { { "LBL 1", "R/S", "3" },                    "" },
        { { "LBL 1", "GTO 1", "R/S" },                "" },
        { { "LBL 1", "GTO 1", "R/S", "R/S" },         "" },
        { { "LBL 1", "GTO 1", "R/S", "2" },           "3:1 unreachable" },
        { { "LBL 1", "GTO 1", "2", "GTO i" },         "" },
        { { "LBL 1", "GTO 1", "2", "GSB i" },         "" },
        { { "LBL 1", "RTN", "2" },                    "3:1 unreachable" },
        { { "LBL 1", "GSB 1", "2" },                  "2:1 deep-calls" },
        { { "GTO 9", "2" },                           "1:1 missing-label" },
        { { "LBL 1", "GTO 1", "5", "LBL 2", "GTO 2", "6" }, "3:1 unreachable, 6:1 unreachable" },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        const std::string Text = Listing(Row.Lines);
        CAPTURE(Text);
        CHECK_TEXT(WarningNames(Text), Row.szWarnings);
    }
    CHECK_TEXT(WarningText("LBL 1\nGTO 1\n2\n"), "nothing reaches this line");
    CHECK_TEXT(WarningText("LBL 1\nGTO 1\n2\n3\n"), "nothing reaches this line and the next");
    CHECK_TEXT(WarningText("LBL 1\nGTO 1\n2\n3\n4\n"), "nothing reaches this line and the next 2");
    CHECK_TEXT(WarningText("LBL 1\nGTO 1\n2\n3\nLBL 2 ; GSB 2\n"),
               "nothing reaches this line and the next");
    CHECK_TEXT(WarningText("LBL 1\nRTN\n2\n"),
               "nothing but R/S after a run that RTN has ended reaches this line");
}

TEST_CASE("a run that continues in line 01 after the last line is reported")
{
    // clang-format off
    static const struct { std::vector<std::string> Last; const char *szWarnings; } s_Rows[] =
    {
        { { "1" },                "98:1 falls-off-end" },
        { { "x=0" },              "98:1 falls-off-end" },
        { { "GSB 1" },            "98:1 falls-off-end" },
        { { "GSB i" },            "98:1 falls-off-end" },
        { { "R/S" },              "" },
        { { "RTN" },              "" },
        { { "GTO 1" },            "" },
        { { "GTO i" },            "" },
        { { "x=0", "GTO 1" },     "97:1 falls-off-end" },
        { { "DSZ", "RTN" },       "97:1 falls-off-end" },
        { { "DSZ", "1" },         "98:1 falls-off-end" },
        { { "GTO 1", "1" },       "98:1 unreachable" },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        std::vector<std::string> Lines(kLastLine - Row.Last.size(), "CHS");
        Lines[0] = "LBL 1";
        Lines[1] = "x=0";  // ends the subroutine, which may be called from the last line
        Lines[2] = "RTN";
        Lines.insert(Lines.end(), Row.Last.begin(), Row.Last.end());
        CAPTURE(Row.Last.front());
        CHECK_TEXT(WarningNames(Listing(Lines)), Row.szWarnings);

        // The unused line 98 is R/S, which only a test skips; a blank line is no line.
        Lines.erase(Lines.begin() + 10);
        Lines.insert(Lines.begin() + 20, "");
        const int bFalls = WarningNames(Listing(Lines)).find("falls-off-end") != std::string::npos;
        CHECK(bFalls == (Row.Last.back() == "x=0"));
    }
}

TEST_CASE("a run that halts in the last line, or before it, does not continue in line 01")
{
    // The lines between the first and the last are CHS.
    // clang-format off
    static const struct
    {
        std::vector<std::string> First;
        std::vector<std::string> Last;
        int                      bFalls;
    } s_Rows[] =
    {
        { { "1" },                                     { "GSB 1" },                 0 },
        { { "1" },                                     { "GSB 1", "1" },            0 },
        { { "1" },                                     { "GTO 1", "1" },            0 },
        { { "1" },                                     { "x=0", "GTO 1" },          1 },
        // the subroutine never returns
        { { "LBL 1" },                                 { "R/S", "GSB 1" },          0 },
        { { "LBL 1" },                                 { "R/S", "GSB 1", "1" },     0 },
        { { "LBL 1" },                                 { "R/S", "GSB i" },          0 },
        { { "LBL 1" },                                 { "GTO i", "LBL 3", "GSB 1" }, 0 },
        { { "LBL 1", "GTO 1", "RTN" },                 { "R/S", "LBL 3", "GSB 1" }, 0 },
        { { "LBL 1", "GTO 4", "RTN" },                 { "R/S", "LBL 3", "GSB 1" }, 0 },
        { { "LBL 1", "GSB 4", "RTN" },                 { "R/S", "LBL 3", "GSB 1" }, 0 },
        { { "LBL 1", "GSB 2", "RTN", "LBL 2" },        { "R/S", "LBL 3", "GSB 1" }, 0 },
        { { "LBL 1", "GSB 2", "R/S", "LBL 2", "RTN" }, { "R/S", "LBL 3", "GSB 1" }, 0 },
        { { "LBL 1" },                                 { "GTO i", "1" },            0 },
        // R/S has made a main program of it when it comes to RTN
        { { "LBL 1", "R/S", "RTN" },                   { "R/S", "LBL 3", "GSB 1" }, 0 },
        // it may return
        { { "LBL 1", "RTN" },                          { "R/S", "LBL 3", "GSB 1" }, 1 },
        { { "LBL 1", "GTO 2", "LBL 2", "RTN" },        { "R/S", "LBL 3", "GSB 1" }, 1 },
        { { "LBL 1", "GSB 2", "RTN", "LBL 2", "RTN" }, { "R/S", "LBL 3", "GSB 1" }, 1 },
        { { "LBL 1", "x=0", "R/S", "RTN" },            { "R/S", "LBL 3", "GSB 1" }, 1 },
        { { "LBL 1", "x=0", "RTN", "R/S" },            { "R/S", "LBL 3", "GSB 1" }, 1 },
        { { "LBL 1", "GSB i", "RTN" },                 { "R/S", "LBL 3", "GSB 1" }, 1 },
        { { "LBL 1", "GTO i", "LBL 2", "RTN" },        { "R/S", "LBL 3", "GSB 1" }, 1 },
        { { "LBL 1", "RTN" },                          { "R/S", "LBL 3", "GSB i" }, 1 },
        { { "LBL 2", "RTN", "LBL 1", "GTO 2" },        { "R/S", "LBL 3", "GSB 1" }, 1 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        std::vector<std::string> Lines = Row.First;
        Lines.resize(kLastLine - Row.Last.size(), "CHS");
        Lines.insert(Lines.end(), Row.Last.begin(), Row.Last.end());
        const std::string Text = Listing(Lines);
        CAPTURE(Text);
        const int bFalls = WarningNames(Text).find("falls-off-end") != std::string::npos;
        CHECK(bFalls == Row.bFalls);
    }
}

TEST_CASE("calls deeper than three levels are reported at the fourth")
{
    // clang-format off
    static const struct { std::vector<std::string> Lines; const char *szWarnings; } s_Rows[] =
    {
        { { "GSB 1", "R/S", "LBL 1", "GSB 2", "RTN", "LBL 2", "GSB 3", "RTN", "LBL 3", "RTN" }, "" },
        { { "GSB 1", "R/S", "LBL 1", "GSB 2", "RTN", "LBL 2", "GSB 3", "RTN",
            "LBL 3", "GSB 4", "RTN", "LBL 4", "RTN" },                        "10:1 deep-calls" },
        // from the keyboard a level less is in use
        { { "LBL 1", "GSB 2", "RTN", "LBL 2", "GSB 3", "RTN", "LBL 3", "GSB 4", "RTN", "LBL 4", "RTN" }, "" },
        // behind a test, and in the line after one
        { { "x=0", "GSB 1", "R/S", "LBL 1", "x=0", "GSB 2", "RTN", "LBL 2", "x=0", "GSB 3", "RTN",
            "LBL 3", "x=0", "GSB 4", "RTN", "LBL 4", "RTN" },                 "14:1 deep-calls" },
        // GTO stays in the level
        { { "GSB 1", "R/S", "LBL 1", "GTO 2", "LBL 2", "GTO 3", "LBL 3", "GTO 4", "LBL 4", "GSB 5",
            "RTN", "LBL 5", "RTN" },                                          "" },
        { { "x=0", "GSB 1", "R/S", "LBL 1", "GTO 5", "LBL 2", "GSB 3", "RTN", "LBL 3", "GSB 4",
            "RTN", "LBL 4", "RTN", "LBL 5", "GSB 2", "RTN" },                 "10:1 deep-calls" },
        // the longest way to a subroutine counts, not the first
        { { "GSB 3", "x=0", "GSB 1", "R/S", "LBL 1", "GSB 2", "RTN", "LBL 2", "GSB 3", "RTN",
            "LBL 3", "GSB 4", "RTN", "LBL 4", "RTN" },                        "12:1 deep-calls" },
        // R/S in a subroutine forgets the calls
        { { "GSB 1", "R/S", "LBL 1", "GSB 2", "RTN", "LBL 2", "R/S", "GSB 3", "RTN",
            "LBL 3", "GSB 4", "RTN", "LBL 4", "RTN" },                        "" },
        // a circle that a test can end
        { { "LBL 1", "DSZ", "GSB 1", "RTN" },                                 "" },
        { { "LBL 1", "x=0", "RTN", "GSB 2", "RTN", "LBL 2", "GSB 1", "RTN" }, "" },
        { { "LBL 1", "x=0", "RTN", "GSB 2", "RTN", "LBL 2", "GSB 3", "RTN", "LBL 3", "GSB 1", "RTN" }, "" },
        // a circle that nothing ends
        { { "LBL 1", "5", "GSB 1", "RTN" },                                   "3:1 deep-calls" },
        { { "LBL 1", "GSB 2", "RTN", "LBL 2", "GSB 1", "RTN" }, "2:1 deep-calls, 5:1 deep-calls" },
        { { "LBL 1", "GTO 2", "LBL 3", "RTN", "LBL 2", "GSB 1", "RTN" }, "3:1 unused-label, 6:1 deep-calls" },
        { { "LBL 1", "GSB 2", "GSB 1", "RTN", "LBL 2", "RTN" },               "2:1 deep-calls" },
        // the same subroutine one after another
        { { "GSB 1", "GSB 1", "GSB 1", "GSB 1", "GSB 1", "R/S", "LBL 1", "RTN" }, "" },
        // calls through i are not followed
        { { "GSB 1", "R/S", "LBL 1", "GSB 2", "RTN", "LBL 2", "GSB 3", "RTN", "LBL 3", "GSB i", "RTN" }, "" },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        const std::string Text = Listing(Row.Lines);
        CAPTURE(Text);
        CHECK_TEXT(WarningNames(Text), Row.szWarnings);
    }
    CHECK_TEXT(WarningNames("LBL 1\n" + Repeated(90, "CHS\n") + "GSB 1\n"), "92:1 deep-calls");
    CHECK_TEXT(WarningText("LBL 1\nGSB 1\n"),
               "GSB 1, GSB 1, GSB 1, GSB 1: the fourth call in a chain ends with "
               "\"Error: subr overflow\"");
}
