// main.cpp - the fuzz targets as one program: VORSTEK_FUZZ_TARGET in the environment
// names the one that gets the inputs. The fuzzer starts itself again for some
// jobs; the environment reaches those processes as well.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "tests/fuzz/fuzz_target.h"

namespace
{

struct cFuzzTarget
{
    const char *m_szName;
    void (*m_pUse)(std::string_view Input);
};

}  // namespace

// clang-format off
static const cFuzzTarget s_Targets[] =
{
    { "bmp_gif",      FuzzBmpGif      },
    { "check",        FuzzCheck       },
    { "command_line", FuzzCommandLine },
    { "data_file",    FuzzDataFile    },
    { "eval",         FuzzEval        },
    { "figure",       FuzzFigure      },
    { "format",       FuzzFormat      },
    { "keys",         FuzzKeys        },
    { "listing",      FuzzListing     },
    { "numbers",      FuzzNumbers     },
    { "script",       FuzzScript      },
    { "session",      FuzzSession     },
    { "svg",          FuzzSvg         },
};
// clang-format on

static const cFuzzTarget *s_pTarget;

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    const char *const      szName = getenv("VORSTEK_FUZZ_TARGET");
    const std::string_view Name   = szName ? szName : "";
    for (const cFuzzTarget &Target : s_Targets)
        if (Name == Target.m_szName)
            s_pTarget = &Target;
    if (s_pTarget)
        return 0;
    fprintf(stderr, "set VORSTEK_FUZZ_TARGET to one of:");
    for (const cFuzzTarget &Target : s_Targets)
        fprintf(stderr, " %s", Target.m_szName);
    fprintf(stderr, "\n");
    exit(2);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *pBytes, size_t nBytes)
{
    // Inputs without bytes come as a null pointer.
    if (nBytes > 0)
        s_pTarget->m_pUse({reinterpret_cast<const char *>(pBytes), nBytes});
    return 0;
}
