#include "toolkit/win32/help_viewer.h"

#include <doctest/doctest.h>

#include <cstdio>
#include <string>

namespace
{

// A file of this name, deleted at the end of the scope.
class cFileThere
{
public:
    explicit cFileThere(const std::string &Name) : m_Name(Name)
    {
        FILE *const pFile = fopen(Name.c_str(), "w");
        REQUIRE(pFile);
        fclose(pFile);
    }

    ~cFileThere() { remove(m_Name.c_str()); }

    cFileThere(const cFileThere &)            = delete;
    cFileThere &operator=(const cFileThere &) = delete;

private:
    std::string m_Name;
};

// Changes the current folder until the end of the scope.
class cOtherFolder
{
public:
    cOtherFolder()
    {
        GetCurrentDirectoryA(sizeof m_szFormer, m_szFormer);
        char szOther[MAX_PATH] = "";
        GetTempPathA(sizeof szOther, szOther);
        SetCurrentDirectoryA(szOther);
    }

    ~cOtherFolder() { SetCurrentDirectoryA(m_szFormer); }

    cOtherFolder(const cOtherFolder &)            = delete;
    cOtherFolder &operator=(const cOtherFolder &) = delete;

private:
    char m_szFormer[MAX_PATH];
};

}  // namespace

static std::string BesideProgram(const std::string &Name)
{
    char szProgram[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, szProgram, sizeof szProgram);
    const std::string Program = szProgram;
    return Program.substr(0, Program.rfind('\\') + 1) + Name;
}

static std::string Found(const char *szName)
{
    char szPath[MAX_PATH];
    FindHelp(szName, szPath);
    return szPath;
}

TEST_CASE("a help file is that in the program's folder, whatever the current folder has")
{
    const cOtherFolder Elsewhere;
    CHECK(Found("beside.chm") == BesideProgram("beside.chm"));

    const cFileThere Here("beside.chm");
    CHECK(Found("beside.chm") == BesideProgram("beside.chm"));
}

TEST_CASE("a name that is too long for a path is no help file")
{
    CHECK(Found(std::string(300, 'n').c_str()).empty());
}
