#include "listing/lint.h"

#include <set>

#include "tests/unit/calculator_rig.h"

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

TEST_CASE("characters that a person does not see are reported where they are")
{
    // clang-format off
    static const struct { const char *szText; const char *szWarnings; } s_Rows[] =
    {
        { "\uFEFFLBL 1\n",              "1:1 byte-order-mark" },
        { "\xFF\xFEL\n",                "1:1 byte-order-mark" },
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
        { "1e",                   "the exponent has no digits" },
        { "2.5E+",                "the exponent has no digits" },
        { ".",                    "a number has at least one digit" },
        { "-.",                   "a number has at least one digit" },
        { "3.5x",                 "" },
        { "1.2.3",                "" },
        { "e5",                   "" },
        { "-",                    "" },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szLine);
        CHECK_TEXT(WarningText(Row.szLine), Row.szWarning);
    }
}
