#include "listing/plain_spelling.h"

#include <algorithm>

#include "toolkit/utf8.h"

// clang-format off
static const struct
{
    const char *m_szCharacter;
    const char *m_szPlain;
} s_Spellings[] =
{
    { "\u2212", "-"    },  // minus sign
    { "\u2010", "-"    },  // hyphen
    { "\u2011", "-"    },  // hyphen that does not break
    { "\u2013", "-"    },  // en dash
    { "\u00D7", "*"    },
    { "\u00B7", "*"    },
    { "\u22C5", "*"    },
    { "\u2217", "*"    },
    { "\u00F7", "/"    },
    { "\u2215", "/"    },
    { "\u2044", "/"    },
    { "\u2264", "<="   },
    { "\u2260", "!="   },
    { "\u2192", "->"   },
    { "\u221A", "sqrt" },
    { "\u03C0", "pi"   },
    { "\u03A3", "Sum"  },
    { "\u03C3", "Sum"  },
    { "\u2211", "Sum"  },
    { "\u00B9", "^1"   },
    { "\u00B2", "^2"   },
    { "\u207B", "^-"   },
    { "\u02E3", "^x"   },
    { "\u2194", "<>"   },
    { "\u21C4", "<>"   },
    { "\u00A0", ""     },  // no-break space
    { "\u200B", ""     },  // space without a width
    { "\u00AD", ""     },  // soft hyphen
    { "\uFEFF", ""     },  // byte order mark
};
// clang-format on

static void AppendPlain(std::string_view Character, std::string *pPlain)
{
    const auto *const pRow =
        std::find_if(std::begin(s_Spellings), std::end(s_Spellings),
                     [Character](const auto &Row) { return Character == Row.m_szCharacter; });
    if (pRow != std::end(s_Spellings))
        pPlain->append(pRow->m_szPlain);
    else
        pPlain->append(Character);
}

std::string PlainSpelling(std::string_view Word)
{
    std::string Plain;
    while (!Word.empty())
    {
        const std::string_view Character = Word.substr(0, std::max<size_t>(Utf8Length(Word), 1));
        AppendPlain(Character, &Plain);
        Word.remove_prefix(Character.size());
    }
    // A superscript minus and one are two characters: "sin^-^1".
    const size_t nDouble = Plain.find("^-^");
    if (nDouble != std::string::npos)
        Plain.erase(nDouble + 2, 1);
    return Plain;
}
