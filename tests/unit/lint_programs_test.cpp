#include <string>
#include <vector>

#include "listing/lint.h"
#include "tests/unit/calculator_rig.h"

// The programs that other tests load and run. Where one of them is odd, it is on
// purpose.
// clang-format off
static const struct
{
    std::vector<std::string> m_Lines;
    const char              *m_szWarnings;
} s_Programs[] =
{
    { { "LBL 1", "5" }, "" },
    { { "GSB 1", "LBL 1", "R/S" }, "" },
    { { "; head", "", " LBL 1  ; label", "5", "STO i;x" }, "" },
    { { "1", "R/S", "2", "R/S", "R/S" }, "" },
    { { "R/S" }, "" },
    { { "1", "R/S", "; tail" }, "" },
    { { "LBL 0", "SumG", "1", "+", "GTO 0" }, "" },
    { { "LBL 1", "5", "STO 3", "PAUSE", "SumG" }, "" },
    { { "LBL 0", "1", "STO+ 1", "GTO 0" }, "" },
    { { "1", "R/S", "LBL 3", "2", "R/S", "LBL 3", "3" }, "6 duplicate-label" },
    { { "1", "2", "R/S" }, "" },
    { { "; a comment", "-3.5", "STO .2", "7", "STO 0", "SCI 3", "x<>y" }, "" },
    { { "GSB 1", "R/S", "LBL 1", "GSB 2", "RTN", "LBL 2", "GSB 3", "RTN", "LBL 3", "RTN" }, "" },
    { { "4", "SumG", "LBL 0", "GTO 0" }, "" },
    { { "1", "LBL 0", "2", "RTN", "3" }, "5 unreachable" },
    { { "-100", "STO 0", "GTO i" }, "" },
    { { "LBL 0", "GSB 0" }, "2 deep-calls" },
    { { "LBL 0", "SumG", "1", "STO+ 1", "GTO 0" }, "" },
    { { "1", "2", "3", "4", "R/S", "5", "6", "GTO 0", "LBL 0", "RTN" }, "" },
    { { "LBL 0", "SumG", "GTO 0" }, "" },
    { { "PAUSE", "LBL 0", "GTO 0" }, "" },
    { { "5", "R/S", "6" }, "" },
    { { "LBL 0", "1", "STO+ 5", "SumG", "GTO 0" }, "" },
    { { "LBL 0", "1", "STO+ 5", "GTO 0" }, "" },
    { { "; comment", "1", "SumG", "GSB 1", "R/S", "LBL 1", "StdDev", "R/S", "RTN" }, "" },
    { { "GSB 1", "LBL 1", "GSB 2", "LBL 2", "GSB 3", "LBL 3", "R/S" }, "" },
    { { "LBL 0", "PAUSE", "GTO 0" }, "" },
    { { "STO 3", "GTO 3", "GSB 3", "FIX 3", "3", "LBL 2" }, "2 missing-label, 3 missing-label, 6 unused-label" },
    { { "LBL 0", "LBL 1" }, "2 unused-label" },
    { { "LBL 1", "CLX", "1/x" }, "" },
    { { "GSB 1", "R/S", "LBL 1", "GSB 2", "STO 1", "RTN", "LBL 2", "GSB 3", "STO 2", "RTN", "LBL 3", "STO 3", "RTN" }, "" },
    { { "GSB 1", "R/S", "LBL 1", "RTN" }, "" },
    { { "LBL 1", "1", "STO+ 5", "DSZ", "GTO 1" }, "" },
    { { "4", "R/S", "5" }, "" },
    { { "LBL 1", "1", "SumG", "GTO 1" }, "" },
    { { "LBL 1", "SumG", "GTO 1" }, "" },
    { { "LBL 1", "GTO 1" }, "" },
    { { "x<>y", "ENTER", "CLX" }, "" },
    { { "x<>y", "ENTER" }, "" },
    { { "x<>y" }, "" },
    { { "; lander", "", "  STO 5 ; store", "3.5e2", "\t; between", "RCL i", "LBL 7" }, "7 unused-label" },
    { { "GSB 1", "LBL 1" }, "" },
    { { "x<>y", "STO 1", "PAUSE", "7", "GTO 3", "R/S" }, "5 missing-label" },
    { { "RTN", "; former" }, "" },
    { { "CLX", "; c", "GSB 1" }, "3 missing-label" },
    { { "CLX", "R/S" }, "" },
    { { "CLX", "R/S", "R/S ; stop" }, "" },
    { { "R/S", "CLX", "R/S" }, "" },
    { { "R/S", "CLX" }, "" },
    { { "CLX", " R/S" }, "" },
    { { "CLX", "R/S", "; end" }, "" },
    { { "-3.14", "STO .5", "GTO i", "FIX 2", "LBL 7", "R/S", "x<>y" }, "" },
    { { "; one", "; two", "x<>y", "; three", "CLX" }, "" },
    { { "; one", "x<>y" }, "" },
    { { "STO .3", "RCL i", "3.14", "LBL 7" }, "4 unused-label" },
    { { "LBL 5" }, "" },
    { { "CLX", "R/S", "1/x" }, "" },
    { { "1", "2", "RTN" }, "" },
    { { "LBL 1", "GTO 9" }, "2 missing-label" },
    { { "CLX", "CLX", "R/S" }, "" },
    { { "LBL 1", "CLX", "RTN" }, "" },
    { { "1", "2", "LBL 1", "3" }, "3 unused-label" },
    { { "LBL 1", "CLX", "CLX" }, "" },
    { { "LBL 1", "CLX", "CLX", "SumG" }, "" },
    { { "LBL 1", "CLX", "CLX", "1/x" }, "" },
    { { "LBL 1", "CLX", "CLX", "CLX" }, "" },
    { { "GSB 1", "CLX", "LBL 1", "RTN" }, "" },
    { { "R/S", "7" }, "" },
    { { "; twice", "2", "STO 0", "LBL 1", "STO+ .3", "-1.5e1", "DSZ", "GTO 1", "R/S" }, "" },
    { { "GTO 5", "LBL 5" }, "" },
    { { "GSB 1", "LBL 1", "CLX" }, "" },
    { { "CLX", "LBL 7", "RTN" }, "" },
    { { "1", "R/S", "2" }, "" },
    { { "; a", "x<>y", "; b", "CLX", "; c", "LBL 5" }, "6 unused-label" },
    { { "; a", "x<>y", "; b", "CLX" }, "" },
    { { "; a", "x<>y" }, "" },
    { { "RTN" }, "" },
    { { "GTO 9" }, "1 missing-label" },
    { { "LBL 1", "GSB 1" }, "2 deep-calls" },
    { { "LBL 1", "1", "STO+ 2", "RCL 2", "sin", "RCL 2", "SumG", "5000", "STO 0", "LBL 2", "DSZ", "GTO 2", "GTO 1" }, "" },
    { { "LBL 0", "ClearG", "0", "STO 0", "1", "SetG", "LBL 1", "1", "STO+ 0", "RCL 0", "sin", "RCL 0", "SumG", "RCL 0", "300", "x<=y", "GTO 0", "GTO 1" }, "" },
    { { "LBL 1", "SumG", "ISZ", "GTO 1" }, "" },
    { { "LBL 1", "RCL 0", "sin", "STO 1", "R/S", "GTO 1" }, "" },
    { { "LBL 1", "1", "+", "GTO 1" }, "" },
    { { "LBL 1", "1", "+", "PAUSE", "GTO 1" }, "" },
    { { "LBL 1", "PAUSE", "GTO 1" }, "" },
    { { "20000", "STO 0", "LBL 1", "DSZ", "GTO 1", "RCL 0", "R/S" }, "" },
    { { "LBL 1", "SumG", "ClearG", "GTO 1" }, "" },
};
// clang-format on

TEST_CASE("programs of other tests have no warnings but those that they deserve")
{
    for (const auto &Program : s_Programs)
    {
        std::string Text;
        for (const std::string &Line : Program.m_Lines)
            Text += Line + "\n";
        CAPTURE(Text);

        std::string Found;
        for (const cFinding &Finding : LintListing(Text))
            Found += (Found.empty() ? "" : ", ") + std::to_string(Finding.m_nLine) + " " +
                     Finding.m_szName;

        CHECK_TEXT(Found, Program.m_szWarnings);
    }
}
