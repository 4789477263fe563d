#include "console/console.h"

#include <new>
#include <sstream>
#include <streambuf>
#include <string>
#include <vector>

#include <doctest/doctest.h>

namespace
{

// Output that needs more memory than there is.
class cGreedyBuffer : public std::streambuf
{
protected:
    int_type        overflow(int_type) override { throw std::bad_alloc(); }
    std::streamsize xsputn(const char *, std::streamsize) override { throw std::bad_alloc(); }
};

}  // namespace

TEST_CASE("memory that runs out ends a command with one line and exit code 2")
{
    static const std::vector<const char *> s_Commands[] = {{"--help"}, {"run", "--help"}};
    for (const auto &Command : s_Commands)
    {
        cGreedyBuffer      Buffer;
        std::istringstream In;
        std::ostream       Out(&Buffer);
        std::ostringstream Err;
        Out.exceptions(std::ios::badbit);  // lets the buffer's exception through

        const int nExitCode =
            RunConsole(static_cast<int>(Command.size()), Command.data(), {&In, &Out, &Err});

        CHECK(nExitCode == kExitUsage);
        CHECK(Err.str() == "vorstek-cli: " + std::string(Command[0]) + ": not enough memory\n");
    }
}
