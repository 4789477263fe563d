// The test program's main(). It takes the options of doctest, which --help
// lists, --screen=800x599, which sets the size of the desktop, and --dpi=144, which
// sets its resolution.

#include "toolkit/win32/win32.h"

#include <cstdio>

#include <doctest/doctest.h>

#include "tests/win32/test_desktop.h"
#include "tests/window/shared_rig.h"

namespace
{

// A test that has failed may leave its program in any state, so the next test
// does not use that program.
struct cFailureListener : doctest::IReporter
{
    explicit cFailureListener(const doctest::ContextOptions &) {}

    void test_case_end(const doctest::CurrentTestCaseStats &Stats) override
    {
        if (Stats.failure_flags != 0)
            EndSharedRig();
    }
    void test_run_end(const doctest::TestRunStats &) override { EndSharedRig(); }

    void report_query(const doctest::QueryData &) override {}
    void test_run_start() override {}
    void test_case_start(const doctest::TestCaseData &) override {}
    void test_case_reenter(const doctest::TestCaseData &) override {}
    void test_case_exception(const doctest::TestCaseException &) override {}
    void subcase_start(const doctest::SubcaseSignature &) override {}
    void subcase_end() override {}
    void log_assert(const doctest::AssertData &) override {}
    void log_message(const doctest::MessageData &) override {}
    void test_case_skipped(const doctest::TestCaseData &) override {}
};

}  // namespace

REGISTER_LISTENER("failures", 1, cFailureListener);

int main(int nArguments, char **pszArguments)
{
    int nWidth  = 1280;
    int nHeight = 1024;
    int nDpi    = 96;
    for (int i = 1; i < nArguments; i++)
    {
        sscanf(pszArguments[i], "--screen=%dx%d", &nWidth, &nHeight);
        sscanf(pszArguments[i], "--dpi=%d", &nDpi);
    }
    cTestDesktop::SeePixels();
    if (!cTestDesktop::IsEntered())
    {
        const cTestDesktop Desktop(nWidth, nHeight, nDpi);
        return Desktop.RunThisProgram();
    }
    // A window that opened under the pointer would receive mouse moves.
    SetCursorPos(GetSystemMetrics(SM_CXSCREEN) - 1, GetSystemMetrics(SM_CYSCREEN) - 1);
    doctest::Context Context(nArguments, pszArguments);
    return Context.run();
}
