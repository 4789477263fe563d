#include "listing/named_labels.h"

#include "tests/unit/calculator_rig.h"

TEST_CASE("a comment names labels by a word and digits, one or several")
{
    // clang-format off
    static const struct { const char *szComment; const char *szLabels; } s_Rows[] =
    {
        { "; run it with GSB 1",            "1"    },
        { "; run it with GSB 1, 2 or 3",    "123"  },
        { "; labels 1 and 2",               "12"   },
        { "; label #3",                     "3"    },
        { "; GSB3",                         "3"    },
        { "; GSB-3",                        "3"    },
        { ";gsb 0: start",                  "0"    },
        { "; (Lbl 7) GTO 9.",               "79"   },
        { "; run --label 4 or --label=5",   "45"   },
        { "; labels 1-3",                   "123"  },
        { "; LBL 0 to 2, 4 - 6, 8/9",       "01245689" },
        { "; labels 5-3",                   "35"   },
        { "; GSB 1, GSB-4",                 "14"   },
        { "; GSB 1 - or 4",                 "14"   },
        { "; GSB 1, 3-4 and 6",             "1346" },
        { "; GSB 1 starts, GSB 2 goes on",  "12"   },
        { "; `GSB 1`; <GSB 2>",             "12"   },
        { "; label 2nd",                    "2"    },
        { "; GTO\t8",                       "8"    },
        { "; 7",                            ""     },
        { "; GSB 17, GSB 123",              ""     },
        { "; GSB 17, 3",                    ""     },
        { "; GSB adds 3",                   ""     },
        { "; GSB 1 adds 3",                 "1"    },
        { "; GSB 1 to add 3",               "1"    },
        { "; GSB 2 to GSB 5",               "25"   },
        { "; the labelled 3, GSBs 3",       ""     },
        { "; GSB i",                        ""     },
        { "; GSB",                          ""     },
        { "",                               ""     },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szComment);
        const std::bitset<kLabels> Labels = NamedLabels(Row.szComment);
        std::string                Named;
        for (size_t i = 0; i < kLabels; i++)
            if (Labels[i])
                Named += std::to_string(i);
        CHECK_TEXT(Named, Row.szLabels);
    }
}
