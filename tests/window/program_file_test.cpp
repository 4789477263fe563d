// The version information, the manifest and the sounds in the program's file.

#include "tests/window/program_file.h"

#include <doctest/doctest.h>

#include <array>
#include <string>
#include <vector>

#include "resources/resource.h"

// A text of the version information, "ProductName"; empty if there is none.
static std::string VersionText(const std::vector<char> &Info, const char *szName)
{
    const std::string Path   = std::string("\\StringFileInfo\\040904B0\\") + szName;
    void             *pText  = nullptr;
    UINT              nChars = 0;
    if (!VerQueryValueA(Info.data(), Path.c_str(), &pText, &nChars))
        return "";
    return static_cast<const char *>(pText);
}

static std::vector<char> VersionOf(const char *szFile)
{
    DWORD             dwIgnored = 0;
    std::vector<char> Info(GetFileVersionInfoSizeA(szFile, &dwIgnored));
    REQUIRE(GetFileVersionInfoA(szFile, 0, static_cast<DWORD>(Info.size()), Info.data()));
    return Info;
}

static int Has(const std::string &Text, const std::string &Part)
{
    return Text.find(Part) != std::string::npos;
}

TEST_CASE("the properties of both programs show product and version")
{
    static const struct
    {
        const char *m_szFile;
        const char *m_szName;
        const char *m_szDescription;
    } s_Rows[] = {
        {VORSTEK_PROGRAM, "Vorstek", "Vorstek calculator"},
        {VORSTEK_CONSOLE, "vorstek-cli", "Vorstek calculator for the console"},
    };
    for (const auto &Row : s_Rows)
    {
        const std::vector<char> Info = VersionOf(Row.m_szFile);
        CHECK(VersionText(Info, "ProductName") == "Vorstek");
        CHECK(VersionText(Info, "ProductVersion") == "2.0");
        CHECK(VersionText(Info, "FileVersion") == "2.0");
        CHECK(VersionText(Info, "FileDescription") == Row.m_szDescription);
        CHECK(VersionText(Info, "LegalCopyright") == "Copyright (c) 2026 The Vorstek authors");
        CHECK(VersionText(Info, "InternalName") == Row.m_szName);
        CHECK(VersionText(Info, "OriginalFilename") == std::string(Row.m_szName) + ".exe");

        void *pFixed = nullptr;
        UINT  nBytes = 0;
        REQUIRE(VerQueryValueA(Info.data(), "\\", &pFixed, &nBytes));
        const auto *pInfo = static_cast<const VS_FIXEDFILEINFO *>(pFixed);
        CHECK(pInfo->dwFileVersionMS == MAKELONG(0, 2));
        CHECK(pInfo->dwFileVersionLS == 0);
        CHECK(pInfo->dwProductVersionMS == MAKELONG(0, 2));
        CHECK(pInfo->dwFileType == VFT_APP);
    }
}

TEST_CASE(
    "the manifest asks for modern controls, the user's own rights and screens of any resolution")
{
    const cProgramFile Program;
    const std::string  Manifest =
        Program.Bytes(MAKEINTRESOURCEA(24), 1);  // RT_MANIFEST, of a program
    CHECK(Manifest.starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\""));
    CHECK(Has(Manifest, "type=\"win32\" name=\"Vorstek\" version=\"2.0.0.0\""));
    CHECK(Has(Manifest, "name=\"Microsoft.Windows.Common-Controls\" version=\"6.0.0.0\""));
    CHECK(Has(Manifest, "level=\"asInvoker\" uiAccess=\"false\""));
    CHECK(Has(Manifest, ">true</dpiAware>"));
    CHECK(Has(Manifest, ">PerMonitorV2</dpiAwareness>"));
    // Windows 10 and later
    CHECK(Has(Manifest, "<supportedOS Id=\"{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}\"/>"));
    CHECK_FALSE(Has(Manifest, "activeCodePage xmlns"));
    CHECK_FALSE(Has(Manifest, "@"));

    // The platform accepts it.
    ACTCTXA Context        = {};
    Context.cbSize         = sizeof Context;
    Context.dwFlags        = ACTCTX_FLAG_RESOURCE_NAME_VALID;
    Context.lpSource       = VORSTEK_PROGRAM;
    Context.lpResourceName = MAKEINTRESOURCEA(1);
    const HANDLE hContext  = CreateActCtxA(&Context);
    CHECK(hContext != INVALID_HANDLE_VALUE);
    ReleaseActCtx(hContext);
}

TEST_CASE("the program contains the nine sounds, each with its size")
{
    static const std::array<size_t, 9> s_Sizes = {2596, 3550, 24168, 150396, 119384,
                                                  1934, 2143, 1589,  4849};

    const cProgramFile Program;
    for (unsigned i = 0; i < s_Sizes.size(); i++)
    {
        const std::string Wave = Program.Bytes("WAVE", IDW_KEY_CLICK + i);
        CHECK(Wave.size() == s_Sizes[i]);
        CHECK(Wave.starts_with("RIFF"));
    }
    CHECK(Program.Bytes("WAVE", IDW_RUN_MODE + 1).empty());
}
