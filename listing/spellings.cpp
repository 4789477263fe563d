#include "listing/spellings.h"

#include <algorithm>

#include "listing/plain_spelling.h"

// clang-format off
static const cSpelling s_KnownWords[] =
{
    { "CL G",    "ClearG",   spLegend },
    { "CL REG",  "ClearREG", spLegend },
    { "CL Σ",    "ClearSum", spLegend },
    { "SUM G",   "SumG",     spLegend },
    { "SET G",   "SetG",     spLegend },
    { "LAST x",  "LASTx",    spLegend },
    { "x-bar",   "Mean",     spLegend },
    { "x̄",       "Mean",     spLegend },
    { "s",       "StdDev",   spLegend },
    { "L.R.",    "LR",       spLegend },
    { "R↓",      "Rolldown", spLegend },
    { "√x",      "sqrt",     spLegend },
    { "x≷y",     "x<>y",     spLegend },

    { "STO +",   "STO+",     spOther  },  // the keys one after the other
    { "STO -",   "STO-",     spOther  },
    { "STO *",   "STO*",     spOther  },
    { "STO /",   "STO/",     spOther  },
    { "RCL Σ+",  "RCLSum+",  spOther  },
    { "xbar",    "Mean",     spOther  },
    { "Rdn",     "Rolldown", spOther  },
    { "swap",    "x<>y",     spOther  },
    { "+/-",     "CHS",      spOther  },
    { "±",       "CHS",      spOther  },
    { "GRAD",    "GRD",      spOther  },
    { "->HMS",   "->H.MS",   spOther  },
    { "exp",     "e^x",      spOther  },
    { "^",       "y^x",      spOther  },
    { "√",       "sqrt",     spOther  },
    { "asin",    "sin^-1",   spOther  },
    { "acos",    "cos^-1",   spOther  },
    { "atan",    "tan^-1",   spOther  },
    { "log10",   "log",      spOther  },
    { "recip",   "1/x",      spOther  },

    { "CL PRGM", "PRGM",     spKey    },
    { "SST",     "SST",      spKey    },
    { "BST",     "BST",      spKey    },
    { "DEL",     "DEL",      spKey    },
    { "EEX",     "EEX",      spKey    },
    { "f",       "f",        spKey    },
    { "g",       "g",        spKey    },
    { "i",       "i",        spKey    },
};
// clang-format on

std::span<const cSpelling> Spellings()
{
    return s_KnownWords;
}

static int IsAscii(std::string_view Word)
{
    return std::all_of(Word.begin(), Word.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::string FoldedSpelling(std::string_view Word)
{
    std::string Folded = IsAscii(Word) ? std::string(Word) : PlainSpelling(Word);
    for (char &c : Folded)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return Folded;
}
