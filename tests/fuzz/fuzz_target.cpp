#include "tests/fuzz/fuzz_target.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

void ReportFinding(const char *szFile, int nLine, const std::string &Text)
{
    fprintf(stderr, "%s:%d: finding: %s\n", szFile, nLine, Text.c_str());
    abort();
}

void CheckText(const char *szFile, int nLine, const std::string &Actual,
               const std::string &Expected)
{
    if (Actual != Expected)
        ReportFinding(szFile, nLine, "\n--- is\n" + Actual + "\n--- expected\n" + Expected);
}

cTwoParts DivideInput(std::string_view Input)
{
    const size_t nAt = Input.rfind('\xFF');
    if (nAt == std::string_view::npos)
        return {Input, {}};
    return {Input.substr(0, nAt), Input.substr(nAt + 1)};
}

unsigned ByteAt(std::string_view Text, size_t nAt)
{
    return nAt < Text.size() ? static_cast<unsigned char>(Text[nAt]) : 0;
}

// --- the scratch folder

static std::filesystem::path s_Scratch;

static void RemoveScratch()
{
    std::error_code Error;
    std::filesystem::remove_all(s_Scratch, Error);
}

// Saving flushes files to the disk. In memory, where the system has such a folder,
// this costs nothing.
static std::filesystem::path Parent()
{
    const std::filesystem::path Memory = "/dev/shm";
    std::error_code             Error;
    return is_directory(Memory, Error) ? Memory : std::filesystem::temp_directory_path();
}

static void MakeScratch()
{
    std::random_device Random;
    do
        s_Scratch = Parent() / ("vorstek-fuzz-" + std::to_string(Random()));
    while (!std::filesystem::create_directory(s_Scratch));
    atexit(RemoveScratch);
}

cScratchFolder::cScratchFolder() : m_Former(std::filesystem::current_path().string())
{
    if (s_Scratch.empty())
        MakeScratch();
    std::filesystem::current_path(s_Scratch);
}

cScratchFolder::~cScratchFolder()
{
    std::error_code Error;
    for (const auto &Entry : std::filesystem::directory_iterator(s_Scratch, Error))
        std::filesystem::remove_all(Entry.path(), Error);
    std::filesystem::current_path(m_Former, Error);
}

std::string WithoutSlashes(std::string_view Text)
{
    std::string Plain(Text);
    std::replace(Plain.begin(), Plain.end(), '/', '_');
    return Plain;
}

void WriteScratch(const char *szName, std::string_view Text)
{
    std::ofstream(szName, std::ios::binary) << Text;
}

std::string ReadScratch(const char *szName)
{
    std::ifstream File(szName, std::ios::binary);
    return {std::istreambuf_iterator<char>(File), {}};
}
