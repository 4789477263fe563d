#include <cmath>
#include <string>

#include "tests/unit/calculator_rig.h"
#include "tests/unit/special_numbers.h"

// Keys of a number: digits, point, e, and n for CHS.
static void Key(cCalculatorRig *pRig, const char *szKeys)
{
    for (const char *p = szKeys; *p; p++)
        if (*p == 'n')
            pRig->Run("CHS");
        else
            CHECK(pRig->m_Engine.EnterCharacter(*p) == 1);
}

static size_t CountRejects(const cCalculatorRig &Rig)
{
    for (const unsigned nSound : Rig.m_Host.m_Sounds)
        CHECK(nSound == 10051);
    return Rig.m_Host.m_Sounds.size();
}

// X as texts and number, the display with it.
static void CheckX(cCalculatorRig *pRig, const char *szText, double dValue)
{
    CHECK_TEXT(pRig->State().m_szX, szText);
    CHECK_TEXT(pRig->Display(), szText);
    CHECK(pRig->X() == dValue);
}

static int IsEntryInProgress(cCalculatorRig *pRig)
{
    return pRig->State().m_szEntry[0] != 0;
}

TEST_CASE("X and the display show a number as it is keyed")
{
    // clang-format off
    static const struct { const char *szKeys; const char *szText; double dValue; } s_Rows[] =
    {
        { "1",             "+1.",               1.0             },
        { "12",            "+12.",              12.0            },
        { "1.",            "+1.",               1.0             },
        { "1.5",           "+1.5",              1.5             },
        { ".",             "+0.",               0.0             },
        { ".5",            "+0.5",              0.5             },
        { "0",             "+0.",               0.0             },
        { "0.000",         "+0.000",            0.0             },
        { "0012",          "+0012.",            12.0            },
        { "1234567890",    "+1234567890.",      1234567890.0    },
        { "1234567890.",   "+1234567890.",      1234567890.0    },
        { "123456789.5",   "+123456789.5",      123456789.5     },
        { "0.123456789",   "+0.123456789",      0.123456789     },
        { ".123456789",    "+0.123456789",      0.123456789     },
        { "e",             "+1.e+00",           1.0             },
        { "0e",            "+1.e+00",           1.0             },
        { "0.000e",        "+1.e+00",           1.0             },
        { ".e",            "+1.e+00",           1.0             },
        { "0e5",           "+1.e+05",           1e5             },
        { "5e",            "+5.e+00",           5.0             },
        { "1.5e3",         "+1.5e+03",          1500.0          },
        { "1.5e34",        "+1.5e+34",          1.5e34          },
        { "1.5e345",       "+1.5e+45",          1.5e45          },
        { "1.5e3456",      "+1.5e+56",          1.5e56          },
        { "1e100",         "+1.e+00",           1.0             },
        { "9.9e99",        "+9.9e+99",          9.9e99          },
        { "9.999999999e99", "+9.999999999e+99", kMost           },
        { "1234567890e89", "+1234567890.e+89",  1.234567890e98  },
        { "5n",            "-5.",               -5.0            },
        { "5nn",           "+5.",               5.0             },
        { "5n3",           "-53.",              -53.0           },
        { "5.2n",          "-5.2",              -5.2            },
        { "0n",            "+0.",               0.0             },
        { "0.00n",         "+0.00",             0.0             },
        { "0.0n5",         "+0.05",             0.05            },
        { "0.05n",         "-0.05",             -0.05           },
        { "en",            "+1.e-00",           1.0             },
        { "1e5n",          "+1.e-05",           1e-5            },
        { "1e5n3",         "+1.e-53",           1e-53           },
        { "1e5nn",         "+1.e+05",           1e5             },
        { "5ne3n",         "-5.e-03",           -5e-3           },
        { "1.5e99n",       "+1.5e-99",          1.5e-99         },
        { "1e99n",         "+1.e-99",           1e-99           },
        { "1ne99n9",       "-1.e-99",           -1e-99          },
        { "0.5e99n",       "+0.5e-99",          0.5e-99         },
        { "12e9n99n",      "+12.e+99",          1.2e100         },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(std::string(Row.szKeys));
        cCalculatorRig Rig;

        Key(&Rig, Row.szKeys);

        CheckX(&Rig, Row.szText, Row.dValue);
        CHECK(IsEntryInProgress(&Rig));
        CHECK(Rig.State().m_bStackLift == 1);
        CHECK(CountRejects(Rig) == 0);
        CHECK(Rig.m_Host.m_Boxes.empty());
    }
}

TEST_CASE("keys that a number cannot take only sound")
{
    // clang-format off
    static const struct { const char *szKeys; char cRejected; const char *szText; } s_Rows[] =
    {
        { "1234567890",   '1', "+1234567890."  },
        { "1234567890.",  '1', "+1234567890."  },
        { "12345.67890",  '1', "+12345.67890"  },
        { ".123456789",   '0', "+0.123456789"  },
        { "0000000000",   '0', "+0000000000."  },
        { "5n234567890",  '1', "-5234567890."  },
        { "1.",           '.', "+1."           },
        { "1.5",          '.', "+1.5"          },
        { ".",            '.', "+0."           },
        { "1234567890.",  '.', "+1234567890."  },
        { "1e",           '.', "+1.e+00"       },
        { "1e5",          '.', "+1.e+05"       },
        { "1.5e5",        '.', "+1.5e+05"      },
        { "e",            'e', "+1.e+00"       },
        { "1e5",          'e', "+1.e+05"       },
        { "1e5n",         'e', "+1.e-05"       },
        { "1e5",          'x', "+1.e+05"       },   // no key, but refused all the same
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(std::string(Row.szKeys));
        cCalculatorRig Rig;
        Key(&Rig, Row.szKeys);
        CHECK_TEXT(Rig.State().m_szX, Row.szText);
        const std::string Before = Rig.Snapshot();

        Rig.m_Engine.EnterCharacter(Row.cRejected);

        CHECK_TEXT(Rig.Snapshot(), Before);
        CHECK_TEXT(Rig.Display(), Row.szText);
        CHECK(CountRejects(Rig) == 1);
        CHECK(Rig.m_Host.m_Boxes.empty());
    }
}

TEST_CASE("the eleventh digit is refused with the reject sound")
{
    cCalculatorRig Rig;
    Rig.Type("1234567890");
    CHECK(Rig.LastSound() == 10050);

    Rig.Type("1");

    CHECK_TEXT(Rig.Display(), "+1234567890.");
    CHECK(Rig.LastSound() == 10051);
}

TEST_CASE("a point does not count as a digit")
{
    cCalculatorRig Rig;
    Rig.Type("12345.67890");
    CHECK(Rig.LastSound() == 10050);

    Rig.Type("1");

    CHECK_TEXT(Rig.Display(), "+12345.67890");
    CHECK(Rig.LastSound() == 10051);
}

TEST_CASE("a second point is refused")
{
    cCalculatorRig Rig;
    Rig.Type("1.5 .");

    CHECK_TEXT(Rig.Display(), "+1.5");
    CHECK(Rig.LastSound() == 10051);
}

TEST_CASE("a point and EEX are refused while an exponent is keyed")
{
    cCalculatorRig Rig;
    Rig.Type("1.5 EEX 2 .");
    CHECK_TEXT(Rig.Display(), "+1.5e+02");
    CHECK(Rig.LastSound() == 10051);

    Rig.Forget();
    Rig.Type("EEX");
    CHECK_TEXT(Rig.Display(), "+1.5e+02");
    CHECK(Rig.LastSound() == 10051);
}

TEST_CASE("refused keys are silent while sounds are off")
{
    cCalculatorRig Rig;
    Rig.m_Engine.ApplyOptions({0, 0, 0, 1});

    Key(&Rig, "1.5.");

    CHECK_TEXT(Rig.Display(), "+1.5");
    CHECK(Rig.m_Host.m_Sounds.empty());
}

TEST_CASE("EEX on an empty entry and after 0 begins 1 times a power of ten")
{
    cCalculatorRig Empty;
    Empty.Type("EEX");
    CheckX(&Empty, "+1.e+00", 1.0);
    CHECK_TEXT(Empty.State().m_szEntry, "+1.");

    cCalculatorRig Zero;
    Zero.Type("0 EEX");
    CheckX(&Zero, "+1.e+00", 1.0);
    CHECK_TEXT(Zero.State().m_szEntry, "+1.");
}

TEST_CASE("a third exponent digit shifts out the first")
{
    cCalculatorRig Rig;
    Rig.Type("9.9 EEX 99");
    CheckX(&Rig, "+9.9e+99", 9.9e99);
    CHECK(IsEntryInProgress(&Rig));

    Rig.Type("CLX EEX 100");
    CheckX(&Rig, "+1.e+00", 1.0);
    CHECK(IsEntryInProgress(&Rig));
}

TEST_CASE("CHS during entry does not clamp and the entry continues")
{
    cCalculatorRig Rig;
    Rig.Type("1.5 EEX 99 CHS");
    CheckX(&Rig, "+1.5e-99", 1.5e-99);
    CHECK(IsEntryInProgress(&Rig));

    Rig.Type("CLX 0.5 EEX 99 CHS");
    CheckX(&Rig, "+0.5e-99", 0.5e-99);
    CHECK(IsEntryInProgress(&Rig));

    Rig.Type("9");
    CheckX(&Rig, "+0.00", 0.0);
    CHECK_FALSE(IsEntryInProgress(&Rig));
}

TEST_CASE("CHS keeps the sign of a zero mantissa")
{
    cCalculatorRig Rig;
    Rig.Type("0.00 CHS");

    CheckX(&Rig, "+0.00", 0.0);
    CHECK(IsEntryInProgress(&Rig));
    CHECK_TEXT(Rig.State().m_szEntry, "+0.00");
}

TEST_CASE("a number beyond the limits becomes the limit and ends the entry")
{
    // clang-format off
    static const struct
    {
        const char *szMode;
        const char *szKeys;
        const char *szText;
        double     dValue;
    } s_Rows[] =
    {
        { "FIX", "99.9e99",         "+9.999999999e+99", kMost  },
        { "FIX", "10e99",           "+9.999999999e+99", kMost  },
        { "FIX", "99.9ne99",        "-9.999999999e+99", -kMost },
        { "FIX", "1234567890e91",   "+9.999999999e+99", kMost  },
        { "SCI", "99.9e99",         "+9.999999999e+99", kMost  },
        { "ENG", "99.9ne99",        "-9.999999999e+99", -kMost },
        { "FIX", "0.5e99n9",        "+0.00",            0.0    },
        { "FIX", "0.5ne99n9",       "+0.00",            0.0    },
        { "FIX", "0.999999999e99n9", "+0.00",           0.0    },
        { "SCI", "0.5e99n9",        "+0.00e+00",        0.0    },
        { "ENG", "0.5ne99n9",       "+0.00e+00",        0.0    },
        { "FIX", "12e9n99n9",       "+9.999999999e+99", kMost  },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(std::string(Row.szKeys));
        cCalculatorRig Rig;
        Rig.Run(Row.szMode, 2);

        Key(&Rig, Row.szKeys);

        CheckX(&Rig, Row.szText, Row.dValue);
        CHECK_FALSE(std::signbit(Row.dValue == 0.0 ? Rig.X() : 0.0));
        CHECK_FALSE(IsEntryInProgress(&Rig));
        CHECK_TEXT(Rig.State().m_szExponent, "");
        CHECK(Rig.State().m_bStackLift == 1);
        CHECK(CountRejects(Rig) == 0);
        CHECK(Rig.m_Host.m_Boxes.empty());
    }
}

TEST_CASE("a digit after a clamped number begins the next one")
{
    cCalculatorRig Rig;
    Key(&Rig, "99.9e99");

    Key(&Rig, "3");

    CheckX(&Rig, "+3.", 3.0);
    CHECK(Rig.Y() == kMost);
}

TEST_CASE("the first key of a number pushes the stack if stack lift is on")
{
    for (const char cKey : {'7', '.', 'e'})
    {
        CAPTURE(cKey);
        cCalculatorRig Rig;
        Rig.Set(1, 2, 3, 4);
        Rig.m_Engine.Raw().m_bStackLift = 1;

        Rig.m_Engine.EnterCharacter(cKey);
        Rig.m_Engine.EnterCharacter('5');

        CHECK(Rig.Y() == 1);
        CHECK(Rig.Z() == 2);
        CHECK(Rig.T() == 3);
        CHECK_TEXT(Rig.State().m_szY, "+1.00");
        CHECK_TEXT(Rig.State().m_szZ, "+2.00");
        CHECK_TEXT(Rig.State().m_szT, "+3.00");
    }
}

TEST_CASE("the first key of a number overwrites X if stack lift is off")
{
    for (const char cKey : {'7', '.', 'e'})
    {
        CAPTURE(cKey);
        cCalculatorRig Rig;
        Rig.Set(1, 2, 3, 4);
        Rig.m_Engine.Raw().m_bStackLift = 0;

        Rig.m_Engine.EnterCharacter(cKey);
        Rig.m_Engine.EnterCharacter('5');

        CHECK(Rig.Y() == 2);
        CHECK(Rig.Z() == 3);
        CHECK(Rig.T() == 4);
        CHECK(Rig.State().m_bStackLift == 1);
    }
}

TEST_CASE("keying a number leaves LASTx and the registers alone")
{
    cCalculatorRig Rig;
    Rig.Type("4 f 2");  // sqrt
    CHECK(Rig.State().m_dLastX == 4.0);

    Key(&Rig, "12.5ne3");

    CHECK(Rig.State().m_dLastX == 4.0);
    for (const double dRegister : Rig.State().m_dReg)
        CHECK(dRegister == 0.0);
}

TEST_CASE("an operation ends the number, and the next key begins another")
{
    cCalculatorRig Rig;
    Rig.Type("12.5 x<>y");
    CHECK_FALSE(IsEntryInProgress(&Rig));

    Rig.Type("3");

    CheckX(&Rig, "+3.", 3.0);
    CHECK(Rig.Y() == 0.0);
    CHECK(Rig.Z() == 12.5);
    CHECK_TEXT(Rig.State().m_szZ, "+12.50");
}

TEST_CASE("in program mode a number grows in one line and the stack stays")
{
    // clang-format off
    static const struct { const char *szKeys; const char *szLine; } s_Rows[] =
    {
        { "3",         "01 +3."          },
        { "3.14",      "01 +3.14"        },
        { ".5",        "01 +0.5"         },
        { "e",         "01 +1.e+00"      },
        { "0e",        "01 +1.e+00"      },
        { "1.5e345",   "01 +1.5e+45"     },
        { "5n",        "01 -5."          },
        { "5ne3n",     "01 -5.e-03"      },
        { "0n",        "01 +0."          },
        { "1.5e99n",   "01 +1.5e-99"     },
        { "0.5e99n",   "01 +0.5e-99"     },
        { "1234567890e89", "01 +1234567890.e+89" },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(std::string(Row.szKeys));
        cCalculatorRig Rig;
        Rig.Set(1, 2, 3, 4);
        Rig.m_Engine.Raw().m_bStackLift = 0;
        Rig.Type("PRGM");
        Rig.Forget();

        Key(&Rig, Row.szKeys);

        CHECK_TEXT(Rig.ListingLine(1), Row.szLine);
        CHECK_TEXT(Rig.State().m_Program[1].m_szText, Row.szLine + 3);
        CHECK(!Rig.State().m_Program[1].m_pInstruction);
        CHECK_TEXT(Rig.ListingLine(2), "02 R/S");
        CHECK(Rig.State().m_nCurLine == 1);
        CHECK(IsEntryInProgress(&Rig));
        CHECK(Rig.X() == 1);
        CHECK(Rig.Y() == 2);
        CHECK(Rig.State().m_bStackLift == 0);
        CHECK(CountRejects(Rig) == 0);
    }
}

TEST_CASE("in program mode a refused key sounds and leaves the line alone")
{
    cCalculatorRig Rig;
    Rig.Type("PRGM");
    Key(&Rig, "1.5e2");
    Rig.Forget();

    Key(&Rig, ".e");

    CHECK_TEXT(Rig.ListingLine(1), "01 +1.5e+02");
    CHECK(CountRejects(Rig) == 2);
}

TEST_CASE("in program mode a clamped number is recorded as the display shows it")
{
    // clang-format off
    static const struct { const char *szKeys; const char *szLine; } s_Rows[] =
    {
        { "99.9e99",   "01 +9.999999999e+99" },
        { "99.9ne99",  "01 -9.999999999e+99" },
        { "0.5e99n9",  "01 +0.00"            },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(std::string(Row.szKeys));
        cCalculatorRig Rig;
        Rig.Type("PRGM");
        Rig.m_Engine.Raw().m_bStackLift = 0;

        Key(&Rig, Row.szKeys);
        CHECK_TEXT(Rig.ListingLine(1), Row.szLine);
        CHECK_FALSE(IsEntryInProgress(&Rig));
        CHECK(Rig.State().m_bStackLift == 1);

        Key(&Rig, "3");
        CHECK_TEXT(Rig.ListingLine(1), Row.szLine);
        CHECK_TEXT(Rig.ListingLine(2), "02 +3.");
    }
}

TEST_CASE("in program mode CHS after a finished number is an instruction")
{
    cCalculatorRig Rig;
    Rig.Type("PRGM 5 ENTER CHS");

    CHECK_TEXT(Rig.ListingLine(1), "01 +5.");
    CHECK_TEXT(Rig.ListingLine(2), "02 ENTER");
    CHECK_TEXT(Rig.ListingLine(3), "03 CHS");
}
