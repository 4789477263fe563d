#include "listing/suggestion.h"

#include "engine/mnemonic_map.h"
#include "listing/plain_spelling.h"
#include "listing/source_lines.h"
#include "tests/unit/calculator_rig.h"

TEST_CASE("signs, Greek letters and superscripts have an ASCII spelling")
{
    // clang-format off
    static const struct { const char *szWord; const char *szPlain; } s_Rows[] =
    {
        { "x\u2264y",              "x<=y"   },
        { "x\u22600",              "x!=0"   },
        { "\u03A3+",               "Sum+"   },
        { "\u221A",                "sqrt"   },
        { "\u03C0",                "pi"     },
        { "\u2192P",               "->P"    },
        { "\u2212",                "-"      },
        { "\u00D7",                "*"      },
        { "x\u00B2",               "x^2"    },
        { "10\u02E3",              "10^x"   },
        { "tan\u207B\u00B9",       "tan^-1" },
        { "x\u2194y",              "x<>y"   },
        { "\uFEFFLBL",             "LBL"    },
        { "STO\u00A05",            "STO5"   },
        { "\u2010\u2011\u2013",    "---"    },
        { "\u00B7\u22C5\u2217",    "***"    },
        { "\u00F7\u2215\u2044",    "///"    },
        { "\u2211-",               "Sum-"   },
        { "10\u207B",              "10^-"   },
        { "x\u21C4y",              "x<>y"   },
        { "s\u200Bi\u00ADn",       "sin"    },
        { "ENTER",                 "ENTER"  },
        { "caf\u00E9",             "caf\u00E9" },
        { "caf\xE9",               "caf\xE9" },
        { "",                      ""       },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
        CHECK_TEXT(PlainSpelling(Row.szWord), Row.szPlain);
}

TEST_CASE("a word that the loader rejects has a suggestion if it is near to one that it accepts")
{
    // clang-format off
    static const struct { const char *szWord; const char *szSuggestion; } s_Rows[] =
    {
        { "enter",                "ENTER"    },
        { "ROLLDOWN",             "Rolldown" },
        { "->h.ms",               "->H.MS"   },
        { "LASTX",                "LASTx"    },
        { "ETNER",                "ENTER"    },
        { "sqr",                  "sqrt"     },
        { "sine",                 "sin"      },
        { "x2",                   "x^2"      },
        { "STO5",                 "STO 5"    },
        { "sto5",                 "STO 5"    },
        { "STO.5",                "STO .5"   },
        { "STO+5",                "STO+ 5"   },
        { "rcli",                 "RCL i"    },
        { "gto1",                 "GTO 1"    },
        { "FIX10",                "FIX"      },
        { "x\u2264y",             "x<=y"     },
        { "STO\u00A05",           "STO 5"    },
        { "\u22125",              "-5"       },
        { "1,5",                  "1.5"      },
        { "1,5,5",                ""         },
        { "x>=y",                 ""         },  // x>y and x<=y are equally near
        { "=",                    ""         },
        { "nonsense",             ""         },
        { "12345678901234567890", ""         },
        { "1e",                   ""         },
        { "\uFEFF",               ""         },
        { "swap",                 "x<>y"     },
        { "CLSum",                "ClearSum" },
        { "\u221Ax",              "sqrt"     },
        { "+\x01",                ""         },
        { "sin\x7F",              ""         },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szWord);
        CHECK_TEXT(SuggestWord(Row.szWord), Row.szSuggestion);
    }
    CHECK_TEXT(SuggestWord(std::string_view("+\0", 2)), "");
    CHECK_TEXT(SuggestForPair("cl", "\u03A3"), "ClearSum");
    CHECK_TEXT(SuggestForPair("STO", "+"), "STO+");
    CHECK_TEXT(SuggestForPair("CL", "PRGM"), "");
    CHECK_TEXT(SuggestForPair("CL", ""), "");
    CHECK_TEXT(SuggestWord(std::string(500, 'x')), "");
    std::string Long = "sin";
    while (Long.size() + 3 <= 24)
        Long += "\u200B";
    CHECK_TEXT(SuggestWord(Long), "sin");
    CHECK_TEXT(SuggestWord(Long + "\u200B"), "");
}

TEST_CASE("every mnemonic is suggested for its misspellings")
{
    for (const cInstruction &Instruction : Instructions())
    {
        const std::string Mnemonic = Instruction.m_szMnemonic;
        std::string       Lower    = Mnemonic;
        for (char &c : Lower)
            c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        CAPTURE(Mnemonic);
        CHECK_TEXT(SuggestWord(Lower), Mnemonic);
        if (Mnemonic.size() >= 5 && Mnemonic.find(' ') == std::string::npos)
            CHECK_TEXT(SuggestWord(Mnemonic + "#"), Mnemonic);
    }
}

TEST_CASE(
    "a register that is written without its point, and a digit with a zero, have a suggestion")
{
    // clang-format off
    static const struct { const char *szMnemonic; const char *szOperand; const char *szSuggestion; } s_Rows[] =
    {
        { "STO",   "10",  ".0"  },
        { "RCL",   "20",  ".10" },
        { "STO",   "21",  ""    },
        { "STO",   "05",  "5"   },
        { "STO",   ".11", ""    },
        { "STO",   "x",   ""    },
        { "LBL",   "07",  "7"   },
        { "LBL",   "12",  ""    },
        { "FIX",   "01",  "1"   },
        { "ENTER", "5",   ""    },
        { "STO",   "4294967296", "" },
        { "STO",   "5x",  ""    },
        { "STO",   "",    ""    },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szMnemonic);
        CAPTURE_TEXT(Row.szOperand);
        CHECK_TEXT(SuggestOperand(*Mnemonics().Find(Row.szMnemonic), Row.szOperand),
                   Row.szSuggestion);
    }
}
