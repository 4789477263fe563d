#include "console/table_options.h"

#include <string>
#include <vector>

#include <doctest/doctest.h>

namespace
{

struct cAnyOptions
{
    cTableOptions m_Tables;
};

// Options of a command, and what was said about them.
class cOptionsRig
{
public:
    explicit cOptionsRig(const std::vector<std::string> &Arguments)
    {
        std::vector<cOptionRow>  Rows;
        std::vector<std::string> Words;
        AppendTableRows<cAnyOptions>(&Rows);
        m_bRead = ReadOptions(Rows, Arguments, &m_Options, &Words, &m_Error);
    }

    const cTableFormat &Format() const { return m_Options.m_Tables.m_Format; }

    cAnyOptions m_Options;
    std::string m_Error;
    int         m_bRead;
};

}  // namespace

TEST_CASE("options choose columns, lines and separators of a table")
{
    const cOptionsRig Rig({"--columns", "1,3,3", "--skip=12", "--separator", ";"});

    CHECK(Rig.m_bRead == 1);
    CHECK(Rig.Format().m_Columns == std::vector<unsigned>{1, 3, 3});
    CHECK(Rig.Format().m_nSkip == 12);
    CHECK(Rig.Format().m_cSeparator == ';');
    CHECK(Rig.m_Options.m_Tables.m_LastGiven == "--separator");
    CHECK(cOptionsRig({"--columns", "2,3", "--columns", "0,4"}).Format().m_Columns ==
          std::vector<unsigned>{0, 4});
    for (const char *const szTab : {"tab", "\t", "\\t"})
        CHECK(cOptionsRig({"--separator", szTab}).Format().m_cSeparator == '\t');
    CHECK(cOptionsRig({"--separator", "|"}).Format().m_cSeparator == '|');
}

TEST_CASE("flags about tables")
{
    const cTableOptions None    = cOptionsRig({}).m_Options.m_Tables;
    const cTableOptions Strict  = cOptionsRig({"--strict"}).m_Options.m_Tables;
    const cTableOptions Comma   = cOptionsRig({"--decimal-comma"}).m_Options.m_Tables;
    const cTableOptions Silent  = cOptionsRig({"--no-progress"}).m_Options.m_Tables;
    const cTableOptions Skipped = cOptionsRig({"--skip", "1"}).m_Options.m_Tables;

    CHECK(None.m_LastGiven.empty());
    CHECK(None.m_bStrict + None.m_bNoProgress + None.m_Format.m_bDecimalComma == 0);
    CHECK(Strict.m_bStrict == 1);
    CHECK(Strict.m_LastGiven == "--strict");
    CHECK(Comma.m_Format.m_bDecimalComma == 1);
    CHECK(Comma.m_LastGiven == "--decimal-comma");
    CHECK(Silent.m_bNoProgress == 1);
    CHECK(Silent.m_LastGiven.empty());
    CHECK(Skipped.m_LastGiven == "--skip");
    CHECK(cOptionsRig({"--columns", "1,2"}).m_Options.m_Tables.m_LastGiven == "--columns");
}

TEST_CASE("values of table options that mean nothing are refused")
{
    for (const char *const szColumns :
         {"", "1", "1,", ",1", "1,0", "a,b", "1,-2", "1;2", "1,100001", "1.5,2"})
    {
        CAPTURE(szColumns);
        CHECK(cOptionsRig({"--columns", szColumns}).m_bRead == 0);
    }
    CHECK(cOptionsRig({"--columns", "1,100000"}).m_bRead == 1);
    for (const char *const szSeparator :
         {"", ";;", "5", "e", "+", "-", ".", "\"", "#", "\n", "\xE9", "\x7F"})
    {
        CAPTURE(szSeparator);
        CHECK(cOptionsRig({"--separator", szSeparator}).m_bRead == 0);
    }
    CHECK(cOptionsRig({"--skip", "-1"}).m_bRead == 0);
    CHECK(cOptionsRig({"--separator", ";;"}).m_Error ==
          "--separator needs a character that is part of no number, or tab");
}

TEST_CASE("a decimal comma separates nothing")
{
    const auto Why = [](const std::vector<std::string> &Arguments) {
        return WhyNoTable(cOptionsRig(Arguments).m_Options.m_Tables);
    };
    CHECK(Why({"--separator", ",", "--decimal-comma"}) ==
          "--decimal-comma needs a --separator that is no comma");
    CHECK(Why({"--separator", ","}).empty());
    CHECK(Why({"--separator", ";", "--decimal-comma"}).empty());
    CHECK(Why({"--decimal-comma"}).empty());
}
