#include "shell/key_names.h"

#include <cstring>
#include <set>
#include <string>

#include <doctest/doctest.h>

#include "engine/key_codes.h"

static std::string Tip(unsigned nCode)
{
    char szText[kKeyTip];
    FormatKeyTip(nCode, szText);
    return szText;
}

static std::string Description(unsigned nCode)
{
    char szText[kKeyDescription];
    DescribeKey(nCode, szText);
    return szText;
}

// The key whose PC key is the character itself.
static unsigned KeyNamedAfter(const std::string &Character)
{
    for (unsigned nCode = 1; nCode <= kFaceCodes; nCode++)
        if (PcKeyOf(nCode) == Character)
            return nCode;
    return 0;
}

TEST_CASE("a tip shows the functions of a key and the PC keys that press it")
{
    CHECK(Tip(1) == "SST: single step (F8)\r\n"
                    "f FIX: fixed notation, d places\r\n"
                    "g BST: back one line (F9)");
    CHECK(Tip(11) == "ENTER: separate two numbers (Enter)");
    CHECK(Tip(12) == "CHS: change sign\r\nf CL PRGM: clear the program\r\ng GRD: angles in grads");
    CHECK(Tip(20) == "4: digit (4)\r\nf sin: sine\r\ng sin^-1: arc sine");
    CHECK(Tip(31) == "X: show X alone\r\nSTACK: show T, Z, Y and X (F11)");
    CHECK(Tip(32) == "PRGM: record a program\r\nRUN: execute keys and programs (F12)");
}

TEST_CASE("a description has both shifted functions, or both ends of a switch")
{
    CHECK(Description(1) == "gold FIX: fixed notation, d places; blue BST: back one line");
    CHECK(Description(4) == "");
    CHECK(Description(11) == "");
    CHECK(Description(31) == "X: show X alone; STACK: show T, Z, Y and X");
}

TEST_CASE("no tip and no description is cut")
{
    for (unsigned nCode = 1; nCode <= kFaceCodes; nCode++)
    {
        CAPTURE(nCode);
        CHECK(Tip(nCode).size() + 1 < kKeyTip);
        CHECK(Description(nCode).size() + 1 < kKeyDescription);
    }
}

TEST_CASE("every key and switch has a spoken name of its own")
{
    std::set<std::string> Names;
    for (unsigned nCode = 1; nCode <= kFaceCodes; nCode++)
        Names.insert(SpokenName(nCode));

    CHECK(Names.size() == kFaceCodes);
    CHECK(Names.count("") == 0);
    CHECK(std::string(SpokenName(11)) == "enter");
    CHECK(std::string(SpokenName(31)) == "stack view");
}

TEST_CASE("each key but f, g and ENTER has a gold and a blue function")
{
    const std::set<unsigned> Alone = {kKeyF, kKeyG, 11};
    for (unsigned nCode = 1; nCode <= static_cast<unsigned>(kFaceKeys); nCode++)
    {
        CAPTURE(nCode);
        const cKeyName &Name = kKeyNames[nCode - 1];
        CHECK(strlen(Name.m_Plain.m_szLegend) > 0);
        for (const cKeyFunction &Function : {Name.m_Gold, Name.m_Blue})
        {
            CHECK((Function.m_szLegend[0] == 0) == (Alone.count(nCode) == 1));
            CHECK((Function.m_szMeaning[0] == 0) == (Alone.count(nCode) == 1));
        }
    }
}

TEST_CASE("the characters of the PC keyboard are those that press the keys")
{
    for (int nChar = 1; nChar < 128; nChar++)
    {
        CAPTURE(nChar);
        const char        cChar = static_cast<char>(nChar);
        const std::string Name  = cChar == '\r' ? "Enter" : std::string(1, cChar);
        CHECK(KeyOfCharacter(cChar) == KeyNamedAfter(Name));
    }
}

TEST_CASE("function keys press the keys that have no character")
{
    static const struct
    {
        unsigned m_nNumber;
        unsigned m_nCount;
        unsigned m_nKeys[2];
    } s_Rows[] = {
        {1, 0, {0, 0}},  {2, 1, {4, 0}},  {3, 1, {5, 0}},   {4, 1, {8, 0}},
        {5, 1, {30, 0}}, {6, 0, {0, 0}},  {7, 1, {9, 0}},   {8, 1, {1, 0}},
        {9, 2, {5, 1}},  {10, 0, {0, 0}}, {11, 1, {31, 0}}, {12, 1, {32, 0}},
    };
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.m_nNumber);
        const cKeySequence Keys = KeysOfFunctionKey(Row.m_nNumber);
        CHECK(Keys.m_nCount == Row.m_nCount);
        CHECK(Keys.m_nKeys[0] == Row.m_nKeys[0]);
        CHECK(Keys.m_nKeys[1] == Row.m_nKeys[1]);
    }
}
