// fuzz_target.h - what the fuzz targets share: each is a function that uses an input
// and ends the process when it finds something wrong.

#ifndef TESTS_FUZZ_FUZZ_TARGET_H
#define TESTS_FUZZ_FUZZ_TARGET_H

#include <string>
#include <string_view>

// --- the targets; the comment at the top of each file describes its inputs
void FuzzBmpGif(std::string_view Input);
void FuzzCheck(std::string_view Input);
void FuzzCommandLine(std::string_view Input);
void FuzzDataFile(std::string_view Input);
void FuzzEval(std::string_view Input);
void FuzzFigure(std::string_view Input);
void FuzzFormat(std::string_view Input);
void FuzzKeys(std::string_view Input);
void FuzzListing(std::string_view Input);
void FuzzNumbers(std::string_view Input);
void FuzzScript(std::string_view Input);
void FuzzSession(std::string_view Input);
void FuzzSvg(std::string_view Input);

// --- findings
// Each prints what is wrong and ends the process, which the fuzzer reports together
// with the input.
#define FUZZ_CHECK(bHolds)                                                                         \
    do                                                                                             \
    {                                                                                              \
        if (!(bHolds))                                                                             \
            ReportFinding(__FILE__, __LINE__, #bHolds);                                            \
    }                                                                                              \
    while (0)
#define FUZZ_CHECK_TEXT(Actual, Expected) CheckText(__FILE__, __LINE__, Actual, Expected)

[[noreturn]] void ReportFinding(const char *szFile, int nLine, const std::string &Text);
void              CheckText(const char *szFile, int nLine, const std::string &Actual,
                            const std::string &Expected);

// --- inputs
// An input that needs two parts is divided at its last byte 0xFF, which neither a
// listing nor a data file in UTF-8 contains, so that such files are inputs
// themselves. Without this byte the second part is empty.
struct cTwoParts
{
    std::string_view m_Text;
    std::string_view m_Rest;
};
cTwoParts DivideInput(std::string_view Input);

// The byte at nAt, 0 after the end.
unsigned ByteAt(std::string_view Text, size_t nAt);

// --- files
// While an object lives, the current folder is an empty one of this process. Files
// left in it are removed at the end. One at a time.
class cScratchFolder
{
public:
    cScratchFolder();
    ~cScratchFolder();
    cScratchFolder(const cScratchFolder &)            = delete;
    cScratchFolder &operator=(const cScratchFolder &) = delete;

private:
    std::string m_Former;  // the current folder before
};

// Without slashes, a name taken from an input remains in the scratch folder.
std::string WithoutSlashes(std::string_view Text);

void        WriteScratch(const char *szName, std::string_view Text);
std::string ReadScratch(const char *szName);  // "" if there is no such file

#endif
