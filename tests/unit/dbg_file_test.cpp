#include "toolkit/dbg_file.h"

#include <filesystem>
#include <string>

#include <doctest/doctest.h>

#include "tests/unit/recording_boxes.h"
#include "tests/unit/scratch_folder.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

// As the C library's text mode writes a line.
static std::string Line(const std::string &Text)
{
    return Text + kLineEnd;
}

// A file of exactly nBytes, written through the log in full messages.
static void WriteBytes(cDbgFile *pLog, size_t nBytes)
{
    const size_t      nMost = 500;
    const std::string Piece(nMost, 'x');
    for (; nBytes > nMost; nBytes -= nMost)
        pLog->printf("%s", Piece.c_str());
    pLog->printf("%s", Piece.substr(0, nBytes).c_str());
}

// A name that cannot be opened, because it is a folder.
static std::string BlockedName(const cScratchFolder &Folder)
{
    std::filesystem::create_directory(Folder.Name("folder.txt"));
    return Folder.Name("folder.txt");
}

TEST_CASE("a log's formatted texts are in the file as they were written")
{
    cScratchFolder  Folder;
    cRecordingBoxes Boxes;

    {
        cDbgFile Log(Folder.Name("tracelog.txt").c_str(), 1, &Boxes);
        CHECK(Log.printf("%02u %s\n", 1U, "PI") == 1);
        CHECK(Log.printf("no line end") == 1);
    }

    CHECK(Folder.Read("tracelog.txt") == Line("01 PI") + "no line end");
    CHECK(Boxes.m_Boxes.empty());
    CHECK(Boxes.m_QuitCodes.empty());
}

TEST_CASE("starting a log copies the old one and starts empty")
{
    cScratchFolder  Folder;
    cRecordingBoxes Boxes;
    Folder.Write("tracelog.txt", "former run\r\n");
    Folder.Write("tracelog_older.txt", "a much longer text of the run before\r\n");

    cDbgFile Log(Folder.Name("tracelog.txt").c_str(), 1, &Boxes);

    CHECK(Folder.Read("tracelog_older.txt") == "former run\r\n");
    CHECK(Folder.Read("tracelog.txt") == "");
}

TEST_CASE("a log that did not exist leaves no backup")
{
    cScratchFolder  Folder;
    cRecordingBoxes Boxes;

    cDbgFile Log(Folder.Name("tracelog.txt").c_str(), 1, &Boxes);

    CHECK(Folder.Has("tracelog.txt"));
    CHECK_FALSE(Folder.Has("tracelog_older.txt"));
    CHECK(Boxes.m_Boxes.empty());
}

TEST_CASE("the backup's name has _older before .txt or at its end")
{
    // clang-format off
    static const struct
    {
        const char *szName;
        const char *szBackup;
    } s_Rows[] =
    {
        { "tracelog.txt",  "tracelog_older.txt"  },
        { "trace",         "trace_older"         },
        { "trace.log",     "trace.log_older"     },
        { "trace.txt.log", "trace.txt.log_older" },
        { "trace.txt.txt", "trace.txt_older.txt" },
        { "txt",           "txt_older"           },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.szName);
        cScratchFolder  Folder;
        cRecordingBoxes Boxes;
        Folder.Write(Row.szName, "former run");

        cDbgFile Log(Folder.Name(Row.szName).c_str(), 1, &Boxes);

        REQUIRE(Folder.Has(Row.szBackup));
        CHECK(Folder.Read(Row.szBackup) == "former run");
    }
}

TEST_CASE("the name of a backup is cut so that its suffix fits into 259 characters")
{
    cScratchFolder  Folder;
    cRecordingBoxes Boxes;
    // Superfluous slashes make a name long without making the file's name long.
    const std::string Padded = Folder.Name("") + std::string(200, '/');
    const std::string Name   = Padded + std::string(256 - Padded.size(), 'n');
    const std::string Backup = Name.substr(0, 253) + "_older";
    REQUIRE(Name.size() == 256);
    REQUIRE(Backup.size() == 259);
    Folder.Write(Name.substr(Padded.size()), "former run");

    cDbgFile Log(Name.c_str(), 1, &Boxes);

    CHECK(Folder.Read(Backup.substr(Padded.size())) == "former run");
    CHECK(Boxes.m_Boxes.empty());
}

TEST_CASE("a log name is cut to 259 characters")
{
    cScratchFolder    Folder;
    cRecordingBoxes   Boxes;
    const std::string Padded = Folder.Name("") + std::string(200, '/');
    const std::string Name   = Padded + std::string(270 - Padded.size(), 'n');

    cDbgFile Log(Name.c_str(), 1, &Boxes);

    CHECK(Log.FileName() == Name.substr(0, 259));
    CHECK(Folder.Has(Name.substr(Padded.size(), 259 - Padded.size())));
}

TEST_CASE("a cap above 100 megabytes is reduced to 100")
{
    // clang-format off
    static const struct
    {
        uint32_t nAsked;
        uint32_t nMegabytes;
    } s_Rows[] =
    {
        { 0,           0   },
        { 1,           1   },
        { 100,         100 },
        { 101,         100 },
        { 0xffffffffu, 100 },
    };
    // clang-format on
    cScratchFolder  Folder;
    cRecordingBoxes Boxes;
    for (const auto &Row : s_Rows)
    {
        const cDbgFile Log(Folder.Name("tracelog.txt").c_str(), Row.nAsked, &Boxes);
        CHECK(Log.MaxMegabytes() == Row.nMegabytes);
    }
}

TEST_CASE("a log of exactly 1,000,000 bytes takes another message")
{
    cScratchFolder  Folder;
    cRecordingBoxes Boxes;

    {
        cDbgFile Log(Folder.Name("tracelog.txt").c_str(), 1, &Boxes);
        WriteBytes(&Log, 1000000);
        Log.printf("last");
    }

    CHECK(Folder.Read("tracelog.txt").size() == 1000004);
    CHECK_FALSE(Folder.Has("tracelog_older.txt"));
}

TEST_CASE("a log above 1,000,000 bytes becomes the backup at the next message")
{
    cScratchFolder  Folder;
    cRecordingBoxes Boxes;
    Folder.Write("tracelog.txt", "former run");

    {
        cDbgFile Log(Folder.Name("tracelog.txt").c_str(), 1, &Boxes);
        WriteBytes(&Log, 1000001);
        Log.printf("first of the new file\n");
    }

    CHECK(Folder.Read("tracelog.txt") == Line("first of the new file"));
    CHECK(Folder.Read("tracelog_older.txt") == std::string(1000001, 'x'));
    CHECK(Folder.Count() == 2);
    CHECK(Boxes.m_Boxes.empty());
}

TEST_CASE("a log that is full for the second time has lost its oldest part")
{
    cScratchFolder  Folder;
    cRecordingBoxes Boxes;
    Folder.Write("tracelog.txt", "former run");
    cDbgFile Log(Folder.Name("tracelog.txt").c_str(), 0, &Boxes);
    Log.printf("one");

    Log.printf("two");
    CHECK(Log.Loss() == loNone);
    Log.printf("three");

    CHECK(Log.Loss() == loOldest);
    CHECK(Log.Close() == 1);
    CHECK(Folder.Read("tracelog_older.txt") == "two");
}

TEST_CASE("texts of any length fill a log as far as its real length allows")
{
    cScratchFolder  Folder;
    cRecordingBoxes Boxes;
    std::string     Log;
    std::string     Older;
    {
        cDbgFile File(Folder.Name("log.txt").c_str(), 1, &Boxes);
        for (unsigned i = 0; i < 9000; i++)
        {
            const std::string Text(i * 7919 % 400, static_cast<char>('a' + i % 26));
            const std::string Written = i % 3 ? Line(Text) : Text;
            if (Log.size() > 1000000)
            {
                Older = Log;
                Log   = "";
            }
            Log += Written;
            REQUIRE(File.Write((i % 3 ? Text + "\n" : Text).c_str(), Text.size() + (i % 3 > 0)) ==
                    1);
        }
    }

    CHECK(Folder.Read("log_older.txt") == Older);
    CHECK(Folder.Read("log.txt") == Log);
    CHECK(Older.size() > 1000000);
}

TEST_CASE("a backup that was longer is cut to the length of the new one")
{
    cScratchFolder  Folder;
    cRecordingBoxes Boxes;
    Folder.Write("log_older.txt", std::string(3000000, 'o'));

    {
        cDbgFile Log(Folder.Name("log.txt").c_str(), 1, &Boxes);
        WriteBytes(&Log, 1000001);
        Log.printf("next");
    }

    CHECK(Folder.Read("log_older.txt") == std::string(1000001, 'x'));
    CHECK(Folder.Read("log.txt") == "next");
}

TEST_CASE("what was flushed can be read while the log is open")
{
    cScratchFolder  Folder;
    cRecordingBoxes Boxes;
    cDbgFile        Log(Folder.Name("log.txt").c_str(), 1, &Boxes);
    Log.printf("one\n");

    Log.Flush();

    CHECK(Folder.Read("log.txt") == Line("one"));
    CHECK(Log.Close() == 1);
    Log.Flush();
}

TEST_CASE("a message is cut to 511 characters")
{
    cScratchFolder    Folder;
    cRecordingBoxes   Boxes;
    const std::string Long(2000, 'y');

    {
        cDbgFile Log(Folder.Name("tracelog.txt").c_str(), 1, &Boxes);
        CHECK(Log.printf("%s\n", Long.c_str()) == 1);
    }

    CHECK(Folder.Read("tracelog.txt") == std::string(511, 'y'));
}

#ifdef _WIN32

TEST_CASE("a log that cannot be opened goes to the default log file")
{
    const char *const szDefault = "C:\\windows\\temp\\dfltlog.txt";
    cScratchFolder    Folder;
    cRecordingBoxes   Boxes;

    {
        cDbgFile Log(BlockedName(Folder).c_str(), 1, &Boxes);
        CHECK(Log.FileName() == std::string(szDefault));
        CHECK(Log.printf("rescued") == 1);
    }

    FILE *const pFile = fopen(szDefault, "rb");
    REQUIRE(pFile);
    char szContent[16] = "";
    CHECK(fgets(szContent, sizeof szContent, pFile));
    fclose(pFile);
    remove(szDefault);
    CHECK(szContent == std::string("rescued"));
    CHECK(Boxes.m_Boxes.empty());
}

TEST_CASE("a log that can be opened nowhere says so, quits and writes nothing")
{
    const char *const szDefault = "C:\\windows\\temp\\dfltlog.txt";
    cScratchFolder    Folder;
    cRecordingBoxes   Boxes;
    std::filesystem::create_directory(szDefault);

    cDbgFile  Log(BlockedName(Folder).c_str(), 1, &Boxes);
    const int bWritten = Log.printf("lost");
    std::filesystem::remove(szDefault);

    CHECK(bWritten == 0);
    REQUIRE(Boxes.m_Boxes.size() == 1);
    CHECK(Boxes.m_Boxes[0].m_Text == "couldn't fopen() the output file named:\n"
                                     "C:\\windows\\temp\\dfltlog.txt");
    CHECK(Boxes.m_Boxes[0].m_Caption == "FATAL ERROR in cDbgFile ctor");
    CHECK(Boxes.m_Boxes[0].m_nButtons == bnOk);
    CHECK(Boxes.m_Boxes[0].m_nIcon == icError);
    CHECK(Boxes.m_Boxes[0].m_bUnowned == 1);
    CHECK(Boxes.m_QuitCodes == std::vector<int>{0});
}

#else

TEST_CASE("a log that cannot be opened says so, quits, and leaves no other file")
{
    cScratchFolder    Folder;
    cRecordingBoxes   Boxes;
    const std::string Name = BlockedName(Folder);

    cDbgFile  Log(Name.c_str(), 1, &Boxes);
    const int bWritten = Log.printf("lost");

    CHECK(bWritten == 0);
    CHECK(Log.Close() == 0);
    CHECK(Log.FileName() == Name);
    REQUIRE(Boxes.m_Boxes.size() == 1);
    CHECK(Boxes.m_Boxes[0].m_Text == "couldn't fopen() the output file named:\n" + Name);
    CHECK(Boxes.m_Boxes[0].m_Caption == "FATAL ERROR in cDbgFile ctor");
    CHECK(Boxes.m_Boxes[0].m_nButtons == bnOk);
    CHECK(Boxes.m_Boxes[0].m_nIcon == icError);
    CHECK(Boxes.m_Boxes[0].m_bUnowned == 1);
    CHECK(Boxes.m_QuitCodes == std::vector<int>{0});
    CHECK_FALSE(std::filesystem::exists("C:\\windows\\temp\\dfltlog.txt"));
}

#endif

TEST_CASE("a full log that cannot be reopened says so, quits and writes nothing more")
{
    cScratchFolder    Folder;
    cRecordingBoxes   Boxes;
    const std::string Name = Folder.Name("logs/tracelog.txt");
    std::filesystem::create_directory(Folder.Name("logs"));
    cDbgFile Log(Name.c_str(), 0, &Boxes);
    REQUIRE(Log.printf("fills the log") == 1);
    std::filesystem::rename(Folder.Name("logs"), Folder.Name("moved"));

    CHECK(Log.printf("lost") == 0);
    CHECK(Log.printf("lost as well") == 0);

    REQUIRE(Boxes.m_Boxes.size() == 1);
    CHECK(Boxes.m_Boxes[0].m_Text == "couldn't fopen() the output file named:\n" + Name);
    CHECK(Boxes.m_Boxes[0].m_Caption == "FATAL ERROR in cDbgFile::printf()");
    CHECK(Boxes.m_Boxes[0].m_nButtons == bnOk);
    CHECK(Boxes.m_Boxes[0].m_nIcon == icError);
    CHECK(Boxes.m_Boxes[0].m_bUnowned == 1);
    CHECK(Boxes.m_QuitCodes == std::vector<int>{0});
    CHECK(Folder.Read("moved/tracelog.txt") == "fills the log");
}

TEST_CASE("a log closes once, says that all was written, and takes nothing more")
{
    cScratchFolder    Folder;
    cRecordingBoxes   Boxes;
    const std::string Name = Folder.Name("log.txt");
    cDbgFile          Log(Name.c_str(), 1, &Boxes);
    Log.printf("one\n");

    CHECK(Log.Close() == 1);
    CHECK(Log.Close() == 1);
    CHECK(Log.printf("two\n") == 0);

    CHECK(Folder.Read("log.txt") == Line("one"));
}

#ifndef _WIN32

TEST_CASE("a log on a full disk reports the loss when it is closed")
{
    cRecordingBoxes Boxes;
    cDbgFile        Log("/dev/full", 1, &Boxes);

    Log.printf("one\n");

    CHECK(Log.Close() == 0);
}

TEST_CASE("a log on a full disk reports the loss that a flush met")
{
    cRecordingBoxes Boxes;
    cDbgFile        Log("/dev/full", 1, &Boxes);
    Log.printf("one\n");

    Log.Flush();

    CHECK(Log.Close() == 0);
}

TEST_CASE("a log whose backup cannot be written reports the loss")
{
    cScratchFolder  Folder;
    cRecordingBoxes Boxes;
    std::filesystem::create_symlink("/dev/full", Folder.Name("log_older.txt"));
    cDbgFile Log(Folder.Name("log.txt").c_str(), 1, &Boxes);
    WriteBytes(&Log, 1000001);
    REQUIRE(Log.Loss() == loNone);

    CHECK(Log.printf("next") == 1);

    CHECK(Log.Loss() == loBackup);
    CHECK(Log.Close() == 0);
    CHECK(Folder.Read("log.txt") == "next");
}

TEST_CASE("a former log that cannot be backed up is a loss too")
{
    cScratchFolder  Folder;
    cRecordingBoxes Boxes;
    Folder.Write("log.txt", "former run");
    std::filesystem::create_directory(Folder.Name("log_older.txt"));

    cDbgFile Log(Folder.Name("log.txt").c_str(), 1, &Boxes);

    CHECK(Log.Loss() == loBackup);
}

TEST_CASE("a log does not wait for a pipe without a reader")
{
    cScratchFolder    Folder;
    cRecordingBoxes   Boxes;
    const std::string Name = Folder.Name("pipe.txt");
    REQUIRE(mkfifo(Name.c_str(), 0600) == 0);

    cDbgFile Log(Name.c_str(), 1, &Boxes);

    CHECK(Log.FileName() == Name);
    CHECK(Boxes.m_Boxes.size() == 1);
}

TEST_CASE("a log that goes to a device leaves no backup")
{
    cScratchFolder  Folder;
    cRecordingBoxes Boxes;
    std::filesystem::create_symlink("/dev/null", Folder.Name("tracelog.txt"));

    cDbgFile Log(Folder.Name("tracelog.txt").c_str(), 1, &Boxes);

    CHECK(Log.printf("gone") == 1);
    CHECK(Folder.Count() == 1);
    CHECK(Boxes.m_Boxes.empty());
}

#endif
