// The export of the graph to picture files.

#include "tests/window/graph_window.h"

#include <filesystem>

#include <doctest/doctest.h>

#include "tests/window/input.h"
#include "tests/window/waiting.h"

static const UINT kMuchRoom = 10 * 1024 * 1024;  // bytes

// Little endian, of a file's content.
static unsigned Word(const std::string &Content, size_t nAt)
{
    return static_cast<unsigned char>(Content[nAt]) |
           static_cast<unsigned>(static_cast<unsigned char>(Content[nAt + 1])) << 8;
}

namespace
{

struct cExportRig
{
    cExportRig() : m_Graph(&m_Calculator)
    {
        m_Graph.Open("line.txt", "ExplicitX\nTitle \"A line\"\n0 , 0\n1 , 1\n2 , 4\n");
    }

    void SetDepth(const char *szText)
    {
        SendMessageA(m_Graph.Field(IDC_IMAGE_DEPTH), WM_SETTEXT, 0,
                     reinterpret_cast<LPARAM>(szText));
    }

    void Start(unsigned nCommand) { m_Graph.Choose(gmFile, nCommand); }

    // Accepts the size and gives the file a name.
    void Create(unsigned nCommand, const std::string &File)
    {
        Start(nCommand);
        m_Calculator.Click("OK");
        m_Calculator.GiveFileName(m_Calculator.Path(File));
    }

    // Waits for the report that a file could not be written, and closes it. 0 if
    // there is another box, or another dialog after it.
    int FailsToWrite(const std::string &File)
    {
        const std::string Text = "Could not write the file:\n " + m_Calculator.Path(File);
        return Eventually(Text, [this] { return m_Calculator.Box().m_Text; }) == Text &&
               m_Calculator.BoxIcon() == kErrorIcon && m_Calculator.Answers(Text, "OK") &&
               m_Calculator.HasNoDialog();
    }

    cCalculator  m_Calculator;
    cGraphWindow m_Graph;
};

}  // namespace

TEST_CASE("a bitmap file has the size and the depth that were entered")
{
    cExportRig     Rig;
    const cPicture Before = Rig.m_Graph.Photograph();
    Rig.Start(IDM_CREATE_BMP);
    CHECK(Rig.m_Calculator.Box().m_Caption == "Create .BMP File");
    CHECK(Rig.m_Graph.Text(IDC_IMAGE_WIDTH) == "640");
    CHECK(Rig.m_Graph.Text(IDC_IMAGE_HEIGHT) == "480");
    CHECK(Rig.m_Graph.Text(IDC_IMAGE_DEPTH) == "24  (millions of colors)");
    CHECK(Rig.m_Graph.Items(IDC_IMAGE_DEPTH) ==
          "1   (monochrome) 4   (16 colors) 8   (256 colors) 16  (thousands of colors) "
          "24  (millions of colors) ");
    Rig.m_Graph.Fill(IDC_IMAGE_WIDTH, "300");
    Rig.m_Graph.Fill(IDC_IMAGE_HEIGHT, "200");
    Rig.m_Graph.PhotographDialog("create-bmp");
    Rig.m_Calculator.Click("OK");
    Rig.m_Calculator.GiveFileName(Rig.m_Calculator.Path("line.bmp"));
    CHECK(Rig.m_Calculator.HasNoDialog());

    const std::string Bmp = Rig.m_Calculator.Folder().Read("line.bmp");
    REQUIRE(Bmp.size() == 54 + 300 * 3 * 200);
    CHECK(Bmp.substr(0, 2) == "BM");
    CHECK(Word(Bmp, 18) == 300);
    CHECK(Word(Bmp, 22) == 200);
    CHECK(Word(Bmp, 28) == 24);
    CHECK(Rig.m_Graph.Photograph() == Before);

    Rig.Start(IDM_CREATE_BMP);
    CHECK(Rig.m_Graph.Text(IDC_IMAGE_WIDTH) == "300");
    Rig.m_Graph.Escape();
}

TEST_CASE("a GIF file is written; its depth cannot be chosen")
{
    cExportRig Rig;
    Rig.Start(IDM_CREATE_BMP);
    Rig.SetDepth("1");
    Rig.m_Calculator.Click("OK");
    Rig.m_Calculator.CloseDialogWith(VK_ESCAPE);

    Rig.Start(IDM_CREATE_GIF);
    CHECK(Rig.m_Calculator.Box().m_Caption == "Create .GIF File");
    CHECK_FALSE(IsWindowEnabled(Rig.m_Graph.Field(IDC_IMAGE_DEPTH)));
    CHECK(Rig.m_Graph.Text(IDC_IMAGE_DEPTH) == "24  (millions of colors)");
    Rig.m_Graph.PhotographDialog("create-gif");
    Rig.m_Calculator.Click("OK");
    Rig.m_Calculator.GiveFileName(Rig.m_Calculator.Path("line"));
    CHECK(Rig.m_Calculator.HasNoDialog());

    const std::string Gif = Rig.m_Calculator.Folder().Read("line.gif");
    CHECK(Gif.substr(0, 4) == "GIF8");
    CHECK(Word(Gif, 6) == 640);
    CHECK(Word(Gif, 8) == 480);
    CHECK(Gif.back() == ';');
}

TEST_CASE("a size that is no number or out of range is refused field by field")
{
    static const struct
    {
        const char *szWidth;
        const char *szHeight;
        const char *szText;
    } s_Rows[] = {
        {"x", "y", "ERROR: your \"Width\" value produced an error"},
        {"-1", "200", "ERROR: your \"Width\" value produced an error"},
        {"1601", "x", "ERROR: your \"Width\" value was out of range"},
        {"1600", "x", "ERROR: your \"Height\" value produced an error"},
        {"1600", "1601", "ERROR: your \"Height\" value was out of range"},
    };
    cExportRig Rig;
    for (const unsigned nCommand : {IDM_CREATE_GIF, IDM_CREATE_BMP})
    {
        CAPTURE(nCommand);
        Rig.Start(nCommand);
        for (const auto &Row : s_Rows)
        {
            CAPTURE(Row.szText);
            Rig.m_Graph.Fill(IDC_IMAGE_WIDTH, Row.szWidth);
            Rig.m_Graph.Fill(IDC_IMAGE_HEIGHT, Row.szHeight);
            CHECK(Rig.m_Graph.Refuses(Row.szText));
        }
        Rig.m_Graph.Escape();
    }
}

TEST_CASE("a depth that is not in the list is refused, and the largest picture is written")
{
    cExportRig Rig;
    Rig.Start(IDM_CREATE_BMP);
    Rig.m_Graph.Fill(IDC_IMAGE_WIDTH, "1600");
    Rig.m_Graph.Fill(IDC_IMAGE_HEIGHT, "200");
    Rig.SetDepth("7 of them");
    CHECK(Rig.m_Graph.Refuses("ERROR: your \"Bits Per Pixel\" value produced an error"));
    Rig.SetDepth("8");
    Rig.m_Graph.Fill(IDC_IMAGE_HEIGHT, "1600");
    Rig.m_Calculator.Click("OK");
    Rig.m_Calculator.GiveFileName(Rig.m_Calculator.Path("large.bmp"));
    CHECK(Rig.m_Calculator.HasNoDialog());
    CHECK(Rig.m_Calculator.Folder().Read("large.bmp").size() == 54 + 1024 + 1600 * 1600);
}

TEST_CASE("a picture without pixels is not written")
{
    cExportRig Rig;
    for (const char *const szHeight : {"0", "-5"})
    {
        CAPTURE(szHeight);
        Rig.Start(IDM_CREATE_GIF);
        Rig.m_Graph.Fill(IDC_IMAGE_HEIGHT, szHeight);
        Rig.m_Calculator.Click("OK");
        CHECK(Rig.m_Calculator.Answers(
            "Could not write the file:\n " + Rig.m_Calculator.Path("line"), "OK"));
        CHECK(Rig.m_Calculator.HasNoDialog());

        Rig.Start(IDM_CREATE_GIF);
        CHECK(Rig.m_Graph.Text(IDC_IMAGE_HEIGHT) == szHeight);
        Rig.m_Graph.Escape();
    }
}

TEST_CASE("a cancelled export leaves no file, and the window as it was")
{
    cExportRig     Rig;
    const size_t   nFiles = Rig.m_Calculator.Folder().Count();
    const cPicture Before = Rig.m_Graph.Photograph();
    for (const unsigned nCommand : {IDM_CREATE_BMP, IDM_CREATE_GIF})
    {
        CAPTURE(nCommand);
        Rig.Start(nCommand);
        Rig.m_Graph.Escape();
        Rig.Start(nCommand);
        Rig.m_Calculator.Click("OK");
        REQUIRE(Rig.m_Calculator.Dialog());
        Rig.m_Calculator.CloseDialogWith(VK_ESCAPE);
        CHECK(Rig.m_Calculator.HasNoDialog());
        CHECK(Rig.m_Calculator.Folder().Count() == nFiles);
    }
    CHECK(Rig.m_Graph.Photograph() == Before);
}

TEST_CASE("a full disk is reported; an incomplete GIF is deleted, an incomplete BMP stays")
{
    cExportRig     Rig;
    const cPicture Before = Rig.m_Graph.Photograph();
    for (const char *const szKind : {"bmp", "gif"})
    {
        CAPTURE(szKind);
        const unsigned    nCommand = szKind[0] == 'b' ? IDM_CREATE_BMP : IDM_CREATE_GIF;
        const std::string Whole    = std::string("whole.") + szKind;
        const std::string Half     = std::string("half.") + szKind;
        cProbeLink::Current()->Ask(pbDiskRoom, kMuchRoom);
        Rig.Create(nCommand, Whole);
        CHECK(Rig.m_Calculator.HasNoDialog());
        const size_t nSize = Rig.m_Calculator.Folder().Read(Whole).size();

        cProbeLink::Current()->Ask(pbDiskRoom, static_cast<UINT>(nSize - 1));
        Rig.Create(nCommand, Half);
        CHECK(Rig.FailsToWrite(Half));
    }
    CHECK(Rig.m_Calculator.Folder().Read("half.bmp").size() == 54);
    CHECK_FALSE(Rig.m_Calculator.Folder().Has("half.gif"));
    CHECK(Rig.m_Graph.Photograph() == Before);
}

TEST_CASE("a full disk leaves the picture that was there")
{
    cExportRig Rig;
    for (const unsigned nCommand : {IDM_CREATE_BMP, IDM_CREATE_GIF})
    {
        CAPTURE(nCommand);
        const std::string File = nCommand == IDM_CREATE_BMP ? "old.bmp" : "old.gif";
        Rig.m_Calculator.Folder().Write(File, "the old picture");
        const size_t nFiles = Rig.m_Calculator.Folder().Count();
        cProbeLink::Current()->Ask(pbDiskRoom, 500);
        Rig.Create(nCommand, File);
        Rig.m_Calculator.Click("Yes");
        CHECK(Rig.FailsToWrite(File));
        CHECK(Rig.m_Calculator.Folder().Read(File) == "the old picture");
        CHECK(Rig.m_Calculator.Folder().Count() == nFiles);
    }
}

TEST_CASE("in a read-only folder no picture and no data file is created, and none changes")
{
    cExportRig        Rig;
    const size_t      nFiles = Rig.m_Calculator.Folder().Count();
    const cPicture    Before = Rig.m_Graph.Photograph();
    const std::string Status = Rig.m_Graph.StatusText();
    cProbeLink::Current()->Ask(pbReadOnly);

    Rig.Create(IDM_CREATE_BMP, "new.bmp");
    CHECK(Rig.FailsToWrite("new.bmp"));
    Rig.Create(IDM_CREATE_GIF, "new.gif");
    CHECK(Rig.FailsToWrite("new.gif"));
    Rig.m_Graph.Choose(gmFile, IDM_GRAPH_SAVE_AS);
    Rig.m_Calculator.GiveFileName(Rig.m_Calculator.Path("new.txt"));
    CHECK(Rig.m_Calculator.Answers(
        "Could not write the file:\n " + Rig.m_Calculator.Path("new.txt"), "OK"));
    CHECK(Rig.m_Graph.StatusText() == Status);
    CHECK(Rig.m_Graph.Photograph() == Before);
    CHECK(Rig.m_Calculator.Folder().Count() == nFiles);
}

TEST_CASE("a file that another program has open is reported and stays as it is")
{
    cExportRig Rig;
    for (const unsigned nCommand : {IDM_CREATE_BMP, IDM_CREATE_GIF})
    {
        CAPTURE(nCommand);
        const std::string File = nCommand == IDM_CREATE_BMP ? "held.bmp" : "held.gif";
        Rig.m_Calculator.Folder().Write(File, "old");
        const HANDLE hFile =
            CreateFileA(Rig.m_Calculator.Path(File).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
        REQUIRE(hFile != INVALID_HANDLE_VALUE);
        Rig.Create(nCommand, File);
        Rig.m_Calculator.Click("Yes");
        CHECK(Rig.FailsToWrite(File));
        CloseHandle(hFile);
        CHECK(Rig.m_Calculator.Folder().Read(File) == "old");
    }
}

TEST_CASE("in a folder that was deleted no picture is created, and the window stays as it was")
{
    cExportRig        Rig;
    const std::string Folder = Rig.m_Calculator.Path("gone");
    REQUIRE(CreateDirectoryA(Folder.c_str(), nullptr));
    Rig.m_Graph.Open("gone/line.txt", "0\n1\n4\n");
    const cPicture Before = Rig.m_Graph.Photograph();
    std::filesystem::remove_all(Folder);
    for (const unsigned nCommand : {IDM_CREATE_BMP, IDM_CREATE_GIF})
    {
        CAPTURE(nCommand);
        Rig.Start(nCommand);
        Rig.m_Calculator.Click("OK");
        Rig.m_Calculator.GiveFileName(Folder + "\\line");
        Rig.m_Calculator.Click("OK");  // the report of the platform
        Rig.m_Calculator.CloseDialogWith(VK_ESCAPE);
        CHECK(Rig.m_Calculator.HasNoDialog());
    }
    CHECK_FALSE(std::filesystem::exists(Folder));
    CHECK(Rig.m_Graph.Photograph() == Before);
}

TEST_CASE("a screen without device-independent bitmaps is reported before any dialog")
{
    cExportRig Rig;
    cProbeLink::Current()->Ask(pbNoDibs);
    for (const unsigned nCommand : {IDM_CREATE_BMP, IDM_CREATE_GIF})
    {
        CAPTURE(nCommand);
        Rig.Start(nCommand);
        CHECK(Rig.m_Calculator.Answers("Sorry, your video hardware does not support this option.",
                                       "OK", "ERROR"));
        Rig.m_Calculator.Settle();
        CHECK_FALSE(Rig.m_Calculator.HasDialog());
    }
}

TEST_CASE("when memory is short Retry tries again, and Cancel ends the program")
{
    const std::string Text   = "ERROR: insufficient memory.\n"
                               "Close other running applications\n"
                               "and then hit 'Retry'";
    const UINT        kRoom  = 1500;  // columns, more than the window has
    const UINT        kAsked = 1501;
    cExportRig        Rig;
    cProbeLink::Current()->Ask(pbBitmapRoom, kRoom);
    Rig.Start(IDM_CREATE_GIF);
    Rig.m_Graph.Fill(IDC_IMAGE_WIDTH, std::to_string(kAsked));
    Rig.m_Calculator.Click("OK");

    SUBCASE("Retry")
    {
        CHECK(Rig.m_Calculator.Answers(Text, "Retry"));
        CHECK(Eventually(Text, [&] { return Rig.m_Calculator.Box().m_Text; }) == Text);
        cProbeLink::Current()->Ask(pbBitmapRoom, kAsked);
        CHECK(Rig.m_Calculator.Answers(Text, "Retry"));
        Rig.m_Calculator.GiveFileName(Rig.m_Calculator.Path("line.gif"));
        CHECK(Rig.m_Calculator.HasNoDialog());
        CHECK(Word(Rig.m_Calculator.Folder().Read("line.gif"), 6) == kAsked);
    }
    SUBCASE("Cancel")
    {
        CHECK((Rig.m_Calculator.Box().m_Buttons == std::vector<std::string>{"Retry", "Cancel"}));
        CHECK(Rig.m_Calculator.BoxIcon() == kErrorIcon);
        CHECK(Rig.m_Calculator.Answers(Text, "Cancel"));
        CHECK(Eventually(0, [&] { return Rig.m_Calculator.IsRunning(); }) == 0);
    }
}
