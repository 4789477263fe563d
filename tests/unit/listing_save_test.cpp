#include <filesystem>

#include "tests/unit/calculator_rig.h"
#include "tests/unit/scratch_folder.h"

namespace
{

struct cSaveRig : cCalculatorRig
{
    int LoadText(const std::string &Text)
    {
        m_Folder.Write("loaded.txt", Text);
        return m_Engine.LoadProgram(m_Folder.Name("loaded.txt").c_str());
    }

    // What is saved of the present program.
    std::string Saved()
    {
        REQUIRE(m_Engine.SaveProgram(m_Folder.Name("saved.txt").c_str()) == 1);
        return m_Folder.Read("saved.txt");
    }

    cScratchFolder m_Folder;
};

}  // namespace

TEST_CASE("a program is saved without numbers, comments and rejected lines in their places")
{
    // clang-format off
    static const struct { const char *szLoaded; const char *szSaved; } s_Rows[] =
    {
        { "CLX\n",                     "CLX\r\n"                               },
        { "CLX",                       "CLX\r\n"                               },
        { "CLX\r\nSTO .5\r\n",         "CLX\r\nSTO .5\r\n"                     },
        { "  STO   5 ; x\n",           "  STO   5 ; x\r\n"                     },
        { "; a\n\nCLX\n\t\n;b\n3.5\n", "; a\r\n\r\nCLX\r\n\t\r\n;b\r\n3.5\r\n" },
        { "sto 5\nCLX\n3 4\n",         "sto 5\r\nCLX\r\n3 4\r\n"               },
        // Trailing lines that hold R/S are not written, deliberate ones neither.
        { "CLX\nR/S\n",                "CLX\r\n"                               },
        { "CLX\nR/S\nR/S ; stop\n",    "CLX\r\n"                               },
        { "R/S\nCLX\nR/S\n",           "R/S\r\nCLX\r\n"                        },
        { "CLX\n R/S\n",               "CLX\r\n R/S\r\n"                       },
        { "CLX\nR/S\n; end\n",         "CLX\r\nR/S\r\n; end\r\n"               },
        { "CLX\n\n",                   "CLX\r\n\r\n"                           },
        { "CLX\nR/S 5\n",              "CLX\r\n"                               },
        { "R/S\n",                     ""                                      },
        { "",                          ""                                      },
        { "; only\n; comments\n",      "; only\r\n; comments\r\n"              },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szLoaded);
        cSaveRig Rig;
        REQUIRE(Rig.LoadText(Row.szLoaded) == 1);

        CHECK_TEXT(Rig.Saved(), Row.szSaved);
    }
}

TEST_CASE("a listing of which the box has cut off the end does not keep the file's name")
{
    // Has room for the lines of a program without comments.
    class cSmallBox : public cMemoryLineBox
    {
    public:
        int SetText(const char *szText) override
        {
            const std::string Text = szText;
            cMemoryLineBox::SetText(Text.substr(0, 1000).c_str());
            return Text.size() <= 1000;
        }
    };
    for (const int bLong : {0, 1})
    {
        CAPTURE(bLong);
        const cScratchFolder Folder;
        const std::string    Name = Folder.Name("loaded.txt");
        Folder.Write("loaded.txt", "CLX\n" + std::string(bLong ? 1000 : 0, ';'));
        cRecordingHost Host;
        cSmallBox      Listing;
        cMemoryLineBox Registers;
        cTestEngine    Engine(&Host, &Listing, &Registers);
        Engine.Start();

        REQUIRE(Engine.LoadProgram(Name.c_str()) == 1);
        Engine.TakeLoadedProgram(Name.c_str());
        CHECK_TEXT(Host.m_StatusText, "filename: " + (bLong ? "UNTITLED" : Name));

        // So a name is asked for, and without one nothing is written.
        CHECK(Engine.Save() == !bLong);
        CHECK(Host.m_FileDialogs.size() == (bLong ? 1 : 0));
    }
}

TEST_CASE("a listing that the box has cut off within a line's mark is saved as far as it goes")
{
    for (const char *const szRest : {"", "0", "02", "02 ", "\r\n"})
    {
        CAPTURE_TEXT(szRest);
        cSaveRig Rig;
        Rig.m_Listing.SetText((std::string("00\r\n01 CLX\r\n") + szRest).c_str());

        CHECK_TEXT(Rig.Saved(), "CLX\r\n");
    }
}

TEST_CASE("a cleared program is saved as an empty file")
{
    cSaveRig Rig;

    CHECK_TEXT(Rig.Saved(), "");
}

TEST_CASE("recorded lines are saved as they are listed")
{
    cSaveRig Rig;

    Rig.Type("PRGM 3.14 CHS STO . 5 GTO i f SST 2 g GTO 7 R/S x<>y");

    CHECK_TEXT(Rig.Saved(), "-3.14\r\nSTO .5\r\nGTO i\r\nFIX 2\r\nLBL 7\r\nR/S\r\nx<>y\r\n");
}

TEST_CASE("every recorded instruction and number reads back")
{
    for (const cInstruction &Instruction : Instructions())
    {
        if (std::string(Instruction.m_szMnemonic) == "R/S")
            continue;
        CAPTURE_TEXT(Instruction.m_szMnemonic);
        cSaveRig Rig;
        Rig.Type("PRGM 1.5 EEX 3 CHS SST g SST");
        Rig.Run(Instruction.m_szMnemonic, 4);
        const std::string Recorded = Rig.Step(2);

        REQUIRE(Rig.LoadText(Rig.Saved()) == 1);

        CHECK(Rig.m_Host.m_Boxes.empty());
        CHECK_TEXT(Rig.Step(1), "+1.5e-03");
        CHECK_TEXT(Rig.Step(2), Recorded);
        CHECK_TEXT(Rig.Step(3), "R/S");
    }
}

TEST_CASE("98 full lines are saved and read back")
{
    cSaveRig    Rig;
    std::string Text;
    for (int i = 0; i < 98; i++)
        Text += "STO " + std::to_string(i % 10) + "\r\n";

    REQUIRE(Rig.LoadText(Text) == 1);

    CHECK_TEXT(Rig.Saved(), Text);
}

TEST_CASE("what was saved loads and saves again as the same text")
{
    cSaveRig Rig;
    Rig.LoadText("; a\nCLX ;x\nsto\n\n5\nR/S\n  RCL i\n");
    Rig.Type("PRGM SST x<>y SST g Sum+");
    const std::string First = Rig.Saved();

    REQUIRE(Rig.LoadText(First) == 1);

    CHECK_TEXT(Rig.Saved(), First);
    CHECK_TEXT(First, "; a\r\nCLX ;x\r\nx<>y\r\nsto\r\n\r\nR/S\r\n  RCL i\r\n");
}

TEST_CASE("saving changes neither program nor listing nor name")
{
    cSaveRig Rig;
    Rig.LoadText("; a\nCLX\n");
    Rig.m_Engine.TakeLoadedProgram("former.txt");
    Rig.Type("PRGM SST x<>y");
    const unsigned nLines = Rig.m_Listing.CountLines();

    Rig.Saved();

    CHECK_TEXT(Rig.Step(2), "x<>y");
    CHECK(Rig.State().m_nCurLine == 2);
    CHECK(Rig.m_Listing.CountLines() == nLines);
    CHECK(Rig.State().m_bProgramModified == 1);
    CHECK_TEXT(Rig.State().m_szFileName, "former.txt");
}

TEST_CASE("saving replaces a longer file wholly and leaves nothing beside it")
{
    cSaveRig Rig;
    Rig.m_Folder.Write("saved.txt", std::string(10000, 'x'));
    Rig.Type("PRGM CLX");

    CHECK_TEXT(Rig.Saved(), "CLX\r\n");

    CHECK(Rig.m_Folder.Count() == 1);
}

// --- Save and Save As

TEST_CASE("Save writes under the program's name")
{
    cSaveRig Rig;
    Rig.m_Engine.TakeLoadedProgram(Rig.m_Folder.Name("a.txt").c_str());
    Rig.Type("PRGM CLX");
    Rig.m_Host.m_StatusText = "";

    const int nResult = Rig.m_Engine.Save();

    CHECK(nResult == 1);
    CHECK_TEXT(Rig.m_Folder.Read("a.txt"), "CLX\r\n");
    CHECK(Rig.State().m_bProgramModified == 0);
    CHECK_TEXT(Rig.m_Host.m_StatusText, "filename: " + Rig.m_Folder.Name("a.txt"));
    CHECK(Rig.m_Host.m_FileDialogs.empty());
    CHECK(Rig.m_Host.m_Boxes.empty());
}

TEST_CASE("Save of an untitled program and Save As ask for a name and keep it")
{
    for (const int bUntitled : {0, 1})
    {
        cSaveRig Rig;
        if (!bUntitled)
            Rig.m_Engine.TakeLoadedProgram("former.txt");
        Rig.Type("PRGM CLX");
        Rig.m_Host.m_FileNames = {Rig.m_Folder.Name("new.txt")};

        const int nResult = bUntitled ? Rig.m_Engine.Save() : Rig.m_Engine.SaveAs();

        CHECK(nResult == 1);
        CHECK(Rig.m_Host.m_FileDialogs == std::vector<eFileDialog>{fdSave});
        CHECK_TEXT(Rig.m_Folder.Read("new.txt"), "CLX\r\n");
        CHECK_TEXT(Rig.State().m_szFileName, Rig.m_Folder.Name("new.txt"));
        CHECK_TEXT(Rig.m_Host.m_StatusText, "filename: " + Rig.m_Folder.Name("new.txt"));
        CHECK(Rig.State().m_bProgramModified == 0);
    }
}

TEST_CASE("a cancelled save dialog saves nothing")
{
    cSaveRig Rig;
    Rig.Type("PRGM CLX");

    CHECK(Rig.m_Engine.Save() == 0);
    CHECK(Rig.m_Engine.SaveAs() == 0);

    CHECK(Rig.m_Host.m_Boxes.empty());
    CHECK(Rig.State().m_bProgramModified == 1);
    CHECK_TEXT(Rig.State().m_szFileName, "");
    CHECK(Rig.m_Folder.Count() == 0);
}

// --- failures

TEST_CASE("a save that fails reports it and keeps name and changes")
{
    cSaveRig          Rig;
    const std::string Name = Rig.m_Folder.Name("no/such/folder.txt");
    Rig.m_Engine.TakeLoadedProgram("former.txt");
    Rig.Type("PRGM CLX");

    CHECK(Rig.m_Engine.SaveProgram(Name.c_str()) == 0);
    CHECK(Rig.m_Host.m_Boxes.empty());
    CHECK(Rig.m_Engine.SaveUnderName(Name.c_str()) == 0);

    REQUIRE(Rig.m_Host.m_Boxes.size() == 1);
    CHECK_TEXT(Rig.LastBox(), "Could not write the file:\n " + Name);
    CHECK_TEXT(Rig.m_Host.m_Boxes[0].m_Caption, "");
    CHECK(Rig.m_Host.m_Boxes[0].m_nButtons == bnOk);
    CHECK(Rig.m_Host.m_Boxes[0].m_nIcon == icError);
    CHECK_TEXT(Rig.State().m_szFileName, "former.txt");
    CHECK_TEXT(Rig.m_Host.m_StatusText, "filename: former.txt");
    CHECK(Rig.State().m_bProgramModified == 1);
}

TEST_CASE("a folder's name, an empty one and those that there is no room for are not written")
{
    cSaveRig    Rig;
    std::string Long;
    while (Long.size() < sizeof Rig.State().m_szFileName)
        Long += "./";
    Long += Rig.m_Folder.Name("a.txt");
    for (const std::string &Name :
         {Rig.m_Folder.Name(""), std::string(), Long, std::string(100000, 'x')})
    {
        CHECK(Rig.m_Engine.SaveUnderName(Name.c_str()) == 0);
        CHECK(Rig.LastBox().find("Could not write the file:\n " + Name.substr(0, 100)) == 0);
    }
    CHECK(Rig.m_Folder.Count() == 0);
}

TEST_CASE("a file that may not be written keeps its content")
{
    namespace fs = std::filesystem;
    cSaveRig Rig;
    Rig.m_Folder.Write("saved.txt", "former\r\n");
    fs::permissions(Rig.m_Folder.Name("saved.txt"), fs::perms::owner_read);
    Rig.Type("PRGM CLX");

    const int nResult = Rig.m_Engine.SaveUnderName(Rig.m_Folder.Name("saved.txt").c_str());
    fs::permissions(Rig.m_Folder.Name("saved.txt"), fs::perms::owner_all);

    CHECK(nResult == 0);
    CHECK_TEXT(Rig.m_Folder.Read("saved.txt"), "former\r\n");
    CHECK(Rig.m_Folder.Count() == 1);
    CHECK(Rig.State().m_bProgramModified == 1);
}

#ifdef __linux__
TEST_CASE("a write that fails half-way is noticed")
{
    cSaveRig Rig;
    Rig.Type("PRGM CLX");

    CHECK(Rig.m_Engine.SaveUnderName("/dev/full") == 0);

    CHECK_TEXT(Rig.LastBox(), "Could not write the file:\n /dev/full");
    CHECK(Rig.State().m_bProgramModified == 1);
}
#endif
