#include "toolkit/win32/win32.h"

#include "toolkit/win32/command_table.h"

#include <doctest/doctest.h>

namespace
{

struct cCounter
{
    void OnAdd() { m_nCount++; }
    void OnClear() { m_nCount = 0; }

    int m_nCount = 0;
};

}  // namespace

static const cCommandRowOf<cCounter> kRows[] = {
    {101, 1, &cCounter::OnAdd},
    {102, 0, &cCounter::OnClear},
};

TEST_CASE("a command has the handler and the permission of its row")
{
    cCounter Counter;
    REQUIRE(FindCommand(kRows, 101) == &kRows[0]);
    REQUIRE(FindCommand(kRows, 102) == &kRows[1]);

    (Counter.*FindCommand(kRows, 101)->m_pfnHandler)();

    CHECK(Counter.m_nCount == 1);
    CHECK(FindCommand(kRows, 101)->m_bWhileRunning == 1);
    CHECK(FindCommand(kRows, 102)->m_bWhileRunning == 0);
}

TEST_CASE("a command that is not in the table has no row")
{
    CHECK(!FindCommand(kRows, 0));
    CHECK(!FindCommand(kRows, 103));
}
