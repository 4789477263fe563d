#include "toolkit/retry_alloc.h"

#include <memory>

#include <doctest/doctest.h>

#include "tests/unit/recording_boxes.h"

TEST_CASE("an allocation that succeeds asks nothing")
{
    cRecordingBoxes Boxes;
    int             nMemory = 0;

    int *const pMemory = AllocateWithRetry(&Boxes, [&] { return &nMemory; });

    CHECK(pMemory == &nMemory);
    CHECK(Boxes.m_Boxes.empty());
    CHECK(Boxes.m_QuitCodes.empty());
}

TEST_CASE("an allocation is repeated for as long as the user retries")
{
    cRecordingBoxes Boxes({anRetry, anRetry});
    int             nMemory = 0;
    int             nCalls  = 0;

    int *const pMemory =
        AllocateWithRetry(&Boxes, [&] { return ++nCalls == 3 ? &nMemory : nullptr; });

    CHECK(pMemory == &nMemory);
    CHECK(nCalls == 3);
    CHECK(Boxes.m_Boxes.size() == 2);
    CHECK(Boxes.m_QuitCodes.empty());
}

TEST_CASE("giving up on memory posts quit code 0 and returns null")
{
    cRecordingBoxes Boxes({anRetry, anCancel});
    int             nCalls = 0;

    const std::unique_ptr<int> pMemory = AllocateWithRetry(&Boxes, [&] {
        nCalls++;
        return std::unique_ptr<int>();
    });

    CHECK(!pMemory);
    CHECK(nCalls == 2);
    CHECK(Boxes.m_QuitCodes == std::vector<int>{0});
}

TEST_CASE("the memory box offers Retry and Cancel under the application's name")
{
    cRecordingBoxes Boxes;

    AllocateWithRetry(&Boxes, [] { return static_cast<char *>(nullptr); });

    REQUIRE(Boxes.m_Boxes.size() == 1);
    CHECK(Boxes.m_Boxes[0].m_Text == "ERROR: insufficient memory.\n"
                                     "Close other running applications\n"
                                     "and then hit 'Retry'");
    CHECK(Boxes.m_Boxes[0].m_Caption == "");
    CHECK(Boxes.m_Boxes[0].m_nButtons == bnRetryCancel);
    CHECK(Boxes.m_Boxes[0].m_nIcon == icError);
}
