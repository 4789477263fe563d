#include "toolkit/pointer_list.h"

#include <doctest/doctest.h>

#include "tests/unit/failing_memory.h"
#include "tests/unit/recording_boxes.h"

TEST_CASE("a pointer list keeps the order of appending")
{
    cRecordingBoxes   Boxes;
    cPointerList<int> List;
    int               Items[100];

    for (int &nItem : Items)
        REQUIRE(List.Append(&nItem, &Boxes) == 1);

    REQUIRE(List.Count() == 100);
    for (unsigned i = 0; i < 100; i++)
        CHECK(List.At(i) == &Items[i]);
}

TEST_CASE("removing from a pointer list closes the gap")
{
    cRecordingBoxes   Boxes;
    cPointerList<int> List;
    int               Items[3];
    for (int &nItem : Items)
        List.Append(&nItem, &Boxes);

    CHECK(List.Remove(&Items[1]) == 1);

    REQUIRE(List.Count() == 2);
    CHECK(List.At(0) == &Items[0]);
    CHECK(List.At(1) == &Items[2]);
}

TEST_CASE("removing what is not in a pointer list changes nothing")
{
    cRecordingBoxes   Boxes;
    cPointerList<int> List;
    int               nIn  = 0;
    int               nOut = 0;
    List.Append(&nIn, &Boxes);

    CHECK(List.Remove(&nOut) == 0);

    CHECK(List.Count() == 1);
}

TEST_CASE("a pointer list takes one pointer twice and gives the first back")
{
    cRecordingBoxes   Boxes;
    cPointerList<int> List;
    int               nTwice = 0;
    int               nOnce  = 0;
    List.Append(&nTwice, &Boxes);
    List.Append(&nOnce, &Boxes);
    List.Append(&nTwice, &Boxes);

    CHECK(List.Remove(&nTwice) == 1);

    REQUIRE(List.Count() == 2);
    CHECK(List.At(0) == &nOnce);
    CHECK(List.At(1) == &nTwice);
}

TEST_CASE("a pointer list grows when the user retries")
{
    cRecordingBoxes   Boxes({anRetry});
    cPointerList<int> List;
    int               nItem = 0;

    const cFailingMemory Memory(0, 1);
    CHECK(List.Append(&nItem, &Boxes) == 1);

    CHECK(List.Count() == 1);
    CHECK(Boxes.m_Boxes.size() == 1);
    CHECK(Boxes.m_QuitCodes.empty());
}

TEST_CASE("a pointer list stays as it was when the user gives up on memory")
{
    cRecordingBoxes   Boxes;
    cPointerList<int> List;
    int               nItem = 0;

    const cFailingMemory Memory(0, 1);
    CHECK(List.Append(&nItem, &Boxes) == 0);

    CHECK(List.Count() == 0);
    CHECK(Boxes.m_QuitCodes == std::vector<int>{0});
}
