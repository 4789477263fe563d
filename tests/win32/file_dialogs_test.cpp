#include "toolkit/win32/win32.h"

#include "toolkit/win32/file_dialogs.h"

#include <cstdio>
#include <filesystem>
#include <string>

#include <doctest/doctest.h>

#include "tests/unit/scratch_folder.h"
#include "tests/win32/dialog_driver.h"
#include "tests/win32/file_dialog_steps.h"
#include "tests/win32/test_frame.h"

static const char kFilter[] = "Text Files (*.TXT)\0*.TXT\0";

namespace
{

struct cTypedName
{
    std::string m_Text;
    const char *m_szExtension;
    int         m_bAccepted;
};

}  // namespace

// Types the name into a dialog that starts in Folder. The dialog accepts it, or
// shows a message and stays open with the name.
static void CheckTypedName(const std::string &Folder, const cTypedName &Name,
                           eFileNameDialog nDialog)
{
    cFrameRig           Rig;
    HWND                hFile  = nullptr;
    int                 bStays = 0;
    const cDialogDriver Driver([&](HWND hDialog) {
        if (!hFile)
        {
            hFile = hDialog;
            GiveFileName(hDialog, Name.m_Text);
            return Name.m_bAccepted;
        }
        bStays = hDialog == hFile && TextOf(FileNameField(hDialog)) == Name.m_Text;
        Press(hDialog, IDCANCEL);
        return 1;
    });
    char                szName[kFileName] = "";
    CHECK(AskFileName(nDialog, kFilter, Folder.c_str(), Name.m_szExtension, &Rig.m_Boxes, szName) ==
          Name.m_bAccepted);
    CHECK(bStays == !Name.m_bAccepted);
    REQUIRE(Rig.m_Boxes.m_Boxes.size() == (Name.m_bAccepted ? 0 : 1));
    if (!Name.m_bAccepted)
        CHECK(Rig.m_Boxes.m_Boxes[0].m_Text ==
              "The file name is too long: it may have 259 characters, its folder included.");
}

static std::string CurrentFolder()
{
    char szFolder[kFileName] = "";
    GetCurrentDirectoryA(sizeof szFolder, szFolder);
    return szFolder;
}

TEST_CASE("a cancelled file dialog returns 0")
{
    cFrameRig Rig;
    for (const eFileNameDialog nDialog : {fnOpen, fnSave})
    {
        const cDialogDriver Driver([](HWND hDialog) {
            Press(hDialog, IDCANCEL);
            return 1;
        });
        char                szName[kFileName] = "";
        CHECK(AskFileName(nDialog, kFilter, nullptr, "txt", &Rig.m_Boxes, szName) == 0);
    }
}

TEST_CASE("opening returns the full path of an existing file")
{
    cFrameRig            Rig;
    const cScratchFolder Folder;
    Folder.Write("old.txt", "01 PI\r\n");
    const cDialogDriver Driver([&](HWND hDialog) { return GiveFileName(hDialog, "old.txt"); });
    char                szName[kFileName] = "";

    CHECK(AskFileName(fnOpen, kFilter, FullPath(Folder.Name("")).c_str(), "txt", &Rig.m_Boxes,
                      szName) == 1);

    CHECK(szName == FullPath(Folder.Name("old.txt")));
}

TEST_CASE("opening refuses a file that does not exist")
{
    cFrameRig            Rig;
    const cScratchFolder Folder;
    int                  nRefused = 0;
    HWND                 hFile    = nullptr;
    const cDialogDriver  Driver([&](HWND hDialog) {
        if (!hFile)
        {
            hFile = hDialog;
            GiveFileName(hDialog, "none.txt");
            return 0;
        }
        if (hDialog != hFile)
        {
            nRefused = 1;
            Press(hDialog, IDOK);
            return 0;
        }
        if (nRefused)
            Press(hDialog, IDCANCEL);
        return nRefused;
    });
    char                 szName[kFileName] = "";

    CHECK(AskFileName(fnOpen, kFilter, FullPath(Folder.Name("")).c_str(), "txt", &Rig.m_Boxes,
                      szName) == 0);

    CHECK(nRefused == 1);
}

TEST_CASE("a file dialog starts in the current folder and does not change it")
{
    cFrameRig           Rig;
    const std::string   Before = CurrentFolder();
    const cDialogDriver Driver([&](HWND hDialog) { return GiveFileName(hDialog, "here"); });
    char                szName[kFileName] = "";

    CHECK(AskFileName(fnSave, kFilter, nullptr, nullptr, &Rig.m_Boxes, szName) == 1);

    CHECK(std::string(szName) == Before + "\\here");
    CHECK(CurrentFolder() == Before);
}

TEST_CASE("saving proposes the given name")
{
    cFrameRig            Rig;
    const cScratchFolder Folder;
    std::string          Proposed;
    const cDialogDriver  Driver([&](HWND hDialog) {
        Proposed = TextOf(FileNameField(hDialog));
        Press(hDialog, IDOK);
        return 1;
    });
    char                 szName[kFileName] = "plot.txt";

    CHECK(AskFileName(fnSave, kFilter, FullPath(Folder.Name("")).c_str(), "txt", &Rig.m_Boxes,
                      szName) == 1);

    CHECK(Proposed == "plot.txt");
    CHECK(szName == FullPath(Folder.Name("plot.txt")));
}

TEST_CASE("saving appends a missing extension")
{
    cFrameRig            Rig;
    const cScratchFolder Folder;
    const cDialogDriver  Driver([](HWND hDialog) { return GiveFileName(hDialog, "new"); });
    char                 szName[kFileName] = "";

    CHECK(AskFileName(fnSave, kFilter, FullPath(Folder.Name("")).c_str(), "txt", &Rig.m_Boxes,
                      szName) == 1);

    CHECK(szName == FullPath(Folder.Name("new.txt")));
}

TEST_CASE("saving asks before a file is overwritten")
{
    cFrameRig            Rig;
    const cScratchFolder Folder;
    Folder.Write("old.txt", "01 PI\r\n");
    HWND                hFile  = nullptr;
    int                 bAsked = 0;
    const cDialogDriver Driver([&](HWND hDialog) {
        if (!hFile)
        {
            hFile = hDialog;
            GiveFileName(hDialog, "old.txt");
            return 0;
        }
        if (hDialog == hFile)
            return 0;
        bAsked = 1;
        Press(hDialog, IDYES);
        return 1;
    });
    char                szName[kFileName] = "";

    CHECK(AskFileName(fnSave, kFilter, FullPath(Folder.Name("")).c_str(), "txt", &Rig.m_Boxes,
                      szName) == 1);

    CHECK(bAsked == 1);
    CHECK(szName == FullPath(Folder.Name("old.txt")));
}

TEST_CASE("a path has 259 characters at most, and the dialog stays open for a shorter one")
{
    const cScratchFolder Folder;
    const std::string    Root    = FullPath(Folder.Name(""));
    const size_t         nInRoot = 259 - Root.size();  // longest name in that folder
    std::filesystem::create_directory(Folder.Name("sub.d"));

    const auto       Name   = [](size_t nLength) { return std::string(nLength, 'n'); };
    const cTypedName Rows[] = {
        {Name(nInRoot), nullptr, 1},
        {Name(nInRoot + 1), nullptr, 0},
        {Name(300), nullptr, 0},
        {Name(3000), nullptr, 0},
        // with its folder
        {Root + Name(nInRoot), nullptr, 1},
        {Root + Name(nInRoot + 1), nullptr, 0},
        {'"' + Root + Name(nInRoot) + '"', nullptr, 1},
        {'"' + Root + Name(nInRoot + 1) + '"', nullptr, 0},
        {Root.substr(2) + Name(nInRoot), nullptr, 1},
        {Root.substr(2) + Name(nInRoot + 1), nullptr, 0},
        // with the extension, if the dialog adds one
        {Name(nInRoot - 4), "txt", 1},
        {Name(nInRoot - 3), "txt", 0},
        {Name(nInRoot - 4) + ".bin", "txt", 1},
        {"sub.d\\" + Name(nInRoot - 10), "txt", 1},
        {"sub.d\\" + Name(nInRoot - 9), "txt", 0},
        {"sub.d/" + Name(nInRoot - 9), "txt", 0},
    };
    for (const auto &Row : Rows)
        for (const eFileNameDialog nDialog : {fnOpen, fnSave})
        {
            CAPTURE(Row.m_Text);
            CAPTURE(nDialog);
            if (!Row.m_bAccepted || nDialog == fnSave)  // only existing files can be opened
                CheckTypedName(Root, Row, nDialog);
        }
}

TEST_CASE("a dialog still checks its names after another file dialog was opened over it")
{
    cFrameRig           Rig;
    HWND                hOuter             = nullptr;
    int                 nInner             = -1;
    char                szInner[kFileName] = "";
    char                szName[kFileName]  = "";
    const cDialogDriver Driver([&](HWND hDialog) {
        if (!hOuter)
        {
            hOuter = hDialog;
            nInner = AskFileName(fnOpen, kFilter, nullptr, "txt", &Rig.m_Boxes, szInner);
            return 0;
        }
        if (hDialog == hOuter && nInner == 0 && Rig.m_Boxes.m_Boxes.empty())
        {
            GiveFileName(hDialog, std::string(300, 'n'));
            return 0;
        }
        Press(hDialog, IDCANCEL);
        return hDialog == hOuter ? 1 : 0;
    });

    CHECK(AskFileName(fnSave, kFilter, nullptr, "txt", &Rig.m_Boxes, szName) == 0);

    CHECK(nInner == 0);
    CHECK(Rig.m_Boxes.m_Boxes.size() == 1);
}
