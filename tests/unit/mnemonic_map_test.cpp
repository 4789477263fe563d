#include "engine/mnemonic_map.h"

#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "engine/instruction.h"
#include "tests/unit/failing_memory.h"
#include "tests/unit/recording_boxes.h"

// Only their addresses matter.
static const cInstruction kFirst  = {};
static const cInstruction kSecond = {};

TEST_CASE("a mnemonic's hash is the sum of its bytes, taken as signed")
{
    static const struct
    {
        const char *szKey;
        unsigned    nBuckets;
        unsigned    nHash;
    } s_Rows[] = {
        {"", 120, 0},         {"+", 120, 43},     // 43
        {"x", 120, 0},                            // 120
        {"STO", 120, 6},                          // 83 + 84 + 79 = 246
        {"OST", 120, 6},                          // the order does not matter
        {"STO", 7, 1},                            // 246 = 35 * 7 + 1
        {"STO", 1, 0},        {"\xFF", 120, 15},  // 4294967295 = 35791394 * 120 + 15
        {"\x80", 120, 8},                         // 4294967168
        {"\xFF\x01", 120, 0},                     // -1 + 1
        {"\xFFz", 120, 1},                        // -1 + 122
    };
    for (const auto &Row : s_Rows)
    {
        CAPTURE(std::string(Row.szKey));
        CHECK(cMnemonicMap::Hash(Row.szKey, Row.nBuckets) == Row.nHash);
    }
}

TEST_CASE("a mnemonic map finds exactly what was put in")
{
    cRecordingBoxes Boxes;
    cMnemonicMap    Map(120, &Boxes);

    Map.Slot("sqrt")  = &kFirst;
    Map.Slot("STO i") = &kSecond;

    CHECK(Map.Find("sqrt") == &kFirst);
    CHECK(Map.Find("STO i") == &kSecond);
    CHECK(Map.Contains("sqrt") == 1);
    for (const char *const szOther : {"Sqrt", "SQRT", "sqr", "sqrt ", "tqrs", "STO", "i", ""})
    {
        CAPTURE(std::string(szOther));
        CHECK(!Map.Find(szOther));
        CHECK(Map.Contains(szOther) == 0);
    }
}

TEST_CASE("an empty mnemonic map finds nothing and has taken no memory")
{
    cRecordingBoxes Boxes;
    cFailingMemory  Memory(0, 1);
    cMnemonicMap    Map(120, &Boxes);

    CHECK(Map.Contains("sqrt") == 0);
    CHECK(!Map.Find("sqrt"));
    CHECK(Memory.FailuresLeft() == 1);
    CHECK(Boxes.m_Boxes.empty());
}

TEST_CASE("a new slot is null and stays the same slot")
{
    cRecordingBoxes Boxes;
    cMnemonicMap    Map(120, &Boxes);

    const cInstruction *&pSlot = Map.Slot("sin");
    CHECK(!pSlot);
    CHECK(Map.Contains("sin") == 1);

    pSlot           = &kFirst;
    Map.Slot("cos") = &kSecond;
    CHECK(&Map.Slot("sin") == &pSlot);
    CHECK(Map.Find("sin") == &kFirst);

    Map.Slot("sin") = &kSecond;
    CHECK(Map.Find("sin") == &kSecond);
}

TEST_CASE("mnemonics that share a bucket are all found")
{
    static const char *const s_Keys[] = {"STO", "OST", "TSO", "sin", "x<>y", "", "+"};
    for (const unsigned nBuckets : {1u, 2u, 120u})
    {
        cRecordingBoxes                    Boxes;
        cMnemonicMap                       Map(nBuckets, &Boxes);
        std::vector<const cInstruction **> Slots;
        std::vector<cInstruction>          Values(std::size(s_Keys));
        for (size_t i = 0; i < std::size(s_Keys); i++)
        {
            Slots.push_back(&Map.Slot(s_Keys[i]));
            *Slots[i] = &Values[i];
        }

        for (size_t i = 0; i < std::size(s_Keys); i++)
        {
            CHECK(&Map.Slot(s_Keys[i]) == Slots[i]);
            CHECK(Map.Find(s_Keys[i]) == &Values[i]);
        }
        for (const char *const szOther : {"SOT", "STO ", "ST", "sinh", "si", "x<>", "-"})
            CHECK(Map.Contains(szOther) == 0);
    }
}

TEST_CASE("keys are compared by their text, not by their address")
{
    cRecordingBoxes   Boxes;
    cMnemonicMap      Map(120, &Boxes);
    const std::string Key    = "R/S";
    const std::string Lookup = "R/S";

    Map.Slot(Key.c_str()) = &kFirst;

    CHECK(Map.Find(Lookup.c_str()) == &kFirst);
}

TEST_CASE("when memory is short the user may try an insertion again")
{
    // The first allocation is the bucket array, the second the node.
    for (const int nSucceed : {0, 1})
    {
        cRecordingBoxes Boxes({anRetry, anRetry});
        cMnemonicMap    Map(120, &Boxes);
        {
            cFailingMemory Memory(nSucceed, 2);
            Map.Slot("ENTER") = &kFirst;
            CHECK(Memory.FailuresLeft() == 0);
        }

        CHECK(Map.Find("ENTER") == &kFirst);
        REQUIRE(Boxes.m_Boxes.size() == 2);
        CHECK(Boxes.m_Boxes[0].m_Text == "ERROR: insufficient memory.\n"
                                         "Close other running applications\n"
                                         "and then hit 'Retry'");
        CHECK(Boxes.m_Boxes[0].m_nButtons == bnRetryCancel);
        CHECK(Boxes.m_Boxes[0].m_nIcon == icError);
    }
}
