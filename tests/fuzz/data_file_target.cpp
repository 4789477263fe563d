// data_file_target.cpp - the input is a data file. It is read, written and read again.

#include <cstdio>
#include <cstdlib>

#include "graph/ascii_data_file.h"
#include "graph/short_line_reader.h"
#include "tests/fuzz/fuzz_calculator.h"
#include "tests/fuzz/fuzz_target.h"

// A written line that a reader takes for two, which happens to long titles, to many
// labels and to many columns.
static int HasLongLine(const std::string &Text)
{
    size_t nStart = 0;
    for (size_t nEnd; (nEnd = Text.find('\n', nStart)) != std::string::npos; nStart = nEnd + 1)
        if (nEnd - nStart >= kShortLine - 1)
            return 1;
    return 0;
}

static std::string LabelOf(const cAsciiDataFile &File, uint32_t nSet)
{
    return File.Label(nSet) ? File.Label(nSet) : "";
}

// What six decimals leave of a value.
static float Written(float fValue)
{
    char szText[64];
    snprintf(szText, sizeof szText, "%.6f", static_cast<double>(fValue));
    return strtof(szText, nullptr);
}

static void CheckColumn(const float *pRead, const float *pFormer, uint32_t nRows)
{
    FUZZ_CHECK(!pRead == !pFormer);
    for (uint32_t nRow = 0; pRead && nRow < nRows; nRow++)
        FUZZ_CHECK(pRead[nRow] == Written(pFormer[nRow]));
}

static void CheckSame(const cAsciiDataFile &Read, const cAsciiDataFile &Former)
{
    FUZZ_CHECK_TEXT(Read.Title(), Former.Title());
    FUZZ_CHECK_TEXT(Read.HorzLabel(), Former.HorzLabel());
    FUZZ_CHECK(Read.ExplicitX() == Former.ExplicitX());
    FUZZ_CHECK(Read.SetCount() == Former.SetCount() && Read.RowCount() == Former.RowCount());
    CheckColumn(Read.XValues(), Former.XValues(), Former.RowCount());
    for (uint32_t nSet = 1; nSet <= Former.SetCount(); nSet++)
    {
        FUZZ_CHECK_TEXT(LabelOf(Read, nSet), LabelOf(Former, nSet));
        CheckColumn(Read.YValues(nSet), Former.YValues(nSet), Former.RowCount());
    }
}

void FuzzDataFile(std::string_view Input)
{
    const cScratchFolder Scratch;
    cFuzzHost            Host;
    cAsciiDataFile       First(&Host);
    cAsciiDataFile       Second(&Host);
    WriteScratch("input.txt", Input);
    if (!First.ReadFromFile("input.txt"))
        return;

    FUZZ_CHECK(First.WriteToFile("first.txt"));
    const std::string Text = ReadScratch("first.txt");
    if (HasLongLine(Text))
        return;
    FUZZ_CHECK(Second.ReadFromFile("first.txt"));
    FUZZ_CHECK(Second.WriteToFile("second.txt"));

    CheckSame(Second, First);
    FUZZ_CHECK_TEXT(ReadScratch("second.txt"), Text);
    FUZZ_CHECK(Host.m_Boxes.empty());
}
