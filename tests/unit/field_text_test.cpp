#include "graph/field_text.h"

#include <cfloat>

#include <doctest/doctest.h>

TEST_CASE("an unsigned integer fills its field and lies within its limits")
{
    // clang-format off
    static const struct
    {
        const char *szText; uint32_t nLeast; uint32_t nMost; int bRead; uint32_t nValue;
    } s_Rows[] =
    {
        { "0",           0, 26,         1, 0          },
        { "26",          0, 26,         1, 26         },
        { "27",          0, 26,         0, 0          },
        { "007",         0, 26,         1, 7          },
        { "1",           1, 4,          1, 1          },
        { "4",           1, 4,          1, 4          },
        { "0",           1, 4,          0, 0          },
        { "5",           1, 4,          0, 0          },
        { "1",           1, 0,          0, 0          },  // no data line at all
        { "  \t3",       1, 4,          1, 3          },
        { "+3",          1, 4,          1, 3          },
        { " +3",         1, 4,          1, 3          },
        { "4294967295",  0, UINT32_MAX, 1, UINT32_MAX },
        { "4294967296",  0, UINT32_MAX, 0, 0          },
        { "4294967297",  1, 4,          0, 0          },  // 1 in 32 bits
        { "99999999999999999999", 0, UINT32_MAX, 0, 0 },
        { "",            0, 26,         0, 0          },
        { " ",           0, 26,         0, 0          },
        { "+",           0, 26,         0, 0          },
        { "-1",          0, UINT32_MAX, 0, 0          },
        { "+-1",         0, UINT32_MAX, 0, 0          },
        { "+ 3",         0, 26,         0, 0          },
        { "3 ",          0, 26,         0, 0          },
        { "3x",          0, 26,         0, 0          },
        { "3.0",         0, 26,         0, 0          },
        { "3e0",         0, 26,         0, 0          },
        { "0x3",         0, 26,         0, 0          },
        { "abc",         0, 26,         0, 0          },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.szText);
        uint32_t nValue = 77;
        CHECK(ReadUnsignedField(Row.szText, Row.nLeast, Row.nMost, &nValue) == Row.bRead);
        CHECK(nValue == (Row.bRead ? Row.nValue : 77));
    }
}

TEST_CASE("a number fills its field, blanks before it allowed")
{
    // clang-format off
    static const struct { const char *szText; int bRead; float fValue; } s_Rows[] =
    {
        { "0",       1, 0.0F     },
        { "-1.5",    1, -1.5F    },
        { "+2",      1, 2.0F     },
        { " \t2.5",  1, 2.5F     },
        { ".5",      1, 0.5F     },
        { "5.",      1, 5.0F     },
        { "1.5e3",   1, 1500.0F  },
        { "1e-2",    1, 0.01F    },
        { "1e99",    1, FLT_MAX  },
        { "-1e99",   1, -FLT_MAX },
        { "1e-99",   1, 0.0F     },
        { "",        0, 0.0F     },
        { " ",       0, 0.0F     },
        { "2.5 ",    0, 0.0F     },
        { "2.5x",    0, 0.0F     },
        { "1,5",     0, 0.0F     },
        { "1 2",     0, 0.0F     },
        { "1e",      0, 0.0F     },
        { "1e+",     0, 0.0F     },
        { "0x10",    0, 0.0F     },
        { "inf",     0, 0.0F     },
        { "nan",     0, 0.0F     },
        { "-",       0, 0.0F     },
        { ".",       0, 0.0F     },
        { "1.2.3",   0, 0.0F     },
        { "abc",     0, 0.0F     },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.szText);
        float fValue = 77.0F;
        CHECK(ReadNumberField(Row.szText, &fValue) == Row.bRead);
        CHECK(fValue == (Row.bRead ? Row.fValue : 77.0F));
    }
}

TEST_CASE("an integer with a sign fills its field")
{
    static const struct
    {
        const char *szText;
        int         bRead;
        int32_t     nValue;
    } s_Rows[] = {
        {"480", 1, 480},
        {"-5", 1, -5},
        {"+7", 1, 7},
        {" \t12", 1, 12},
        {"-2147483648", 1, INT32_MIN},
        {"2147483648", 0, 0},
        {"", 0, 0},
        {"-", 0, 0},
        {"+-3", 0, 0},
        {"3 ", 0, 0},
        {"1.5", 0, 0},
        {"x", 0, 0},
    };
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.szText);
        int32_t nValue = 77;
        CHECK(ReadSignedField(Row.szText, &nValue) == Row.bRead);
        CHECK(nValue == (Row.bRead ? Row.nValue : 77));
    }
}

TEST_CASE("the integer at the start of a text is read")
{
    CHECK(ReadLeadingInteger("24  (millions of colors)") == 24);
    CHECK(ReadLeadingInteger(" 8") == 8);
    CHECK(ReadLeadingInteger("16x") == 16);
    CHECK(ReadLeadingInteger("colors") == 0);
    CHECK(ReadLeadingInteger("-1") == 0);
    CHECK(ReadLeadingInteger("99999999999") == 0);
    CHECK(ReadLeadingInteger("") == 0);
}
