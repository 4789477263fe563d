#include "graph/ascii_data_file.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <doctest/doctest.h>

#include "tests/unit/failing_memory.h"
#include "tests/unit/recording_boxes.h"
#include "tests/unit/scratch_folder.h"

namespace
{

typedef std::vector<float>       cFloats;
typedef std::vector<std::string> cTexts;

}  // namespace

namespace
{

struct cFileRig
{
    explicit cFileRig(const std::vector<eAnswer> &Answers = {}) : m_Boxes(Answers), m_File(&m_Boxes)
    {
    }

    // Each time from a new file: a file that is written again and again goes to
    // the disk each time, which takes thousands of reads far too long.
    int Read(const std::string &Content)
    {
        const std::string Name = "read-" + std::to_string(m_nReads++) + ".txt";
        m_Folder.Write(Name, Content);
        const int bRead = m_File.ReadFromFile(m_Folder.Name(Name).c_str());
        std::filesystem::remove(m_Folder.Name(Name));
        return bRead;
    }

    // The written file, each line end as "\n".
    std::string Written()
    {
        REQUIRE(m_File.WriteToFile(m_Folder.Name("written.txt").c_str()) == 1);
        std::string Content = m_Folder.Read("written.txt");
        for (size_t n = 0;
             kLineEnd == "\r\n" && (n = Content.find(kLineEnd, n)) != std::string::npos;)
            Content.erase(n, 1);
        return Content;
    }

    int Add(const cFloats &Y, const char *szLabel = nullptr)
    {
        return m_File.AddSet(static_cast<uint32_t>(Y.size()), nullptr, Y.data(), szLabel);
    }

    int AddXY(const cFloats &X, const cFloats &Y, const char *szLabel = nullptr)
    {
        return m_File.AddSet(static_cast<uint32_t>(Y.size()), X.data(), Y.data(), szLabel);
    }

    cFloats X() const { return cFloats(m_File.XValues(), m_File.XValues() + m_File.RowCount()); }

    cFloats Y(uint32_t nSet) const
    {
        return cFloats(m_File.YValues(nSet), m_File.YValues(nSet) + m_File.RowCount());
    }

    // The values of all sets in a row, counted from 0.
    cFloats Row(uint32_t nRow) const
    {
        cFloats Values;
        for (uint32_t nSet = 1; nSet <= m_File.SetCount(); nSet++)
            Values.push_back(m_File.YValues(nSet)[nRow]);
        return Values;
    }

    // "-" stands for no label.
    cTexts Labels() const
    {
        cTexts Labels;
        for (uint32_t nSet = 1; nSet <= m_File.SetCount(); nSet++)
            Labels.push_back(m_File.Label(nSet) ? m_File.Label(nSet) : "-");
        return Labels;
    }

    void CheckEmpty() const
    {
        CHECK(m_File.SetCount() == 0);
        CHECK(m_File.RowCount() == 0);
        CHECK(m_File.ExplicitX() == 0);
        CHECK(!m_File.XValues());
        CHECK(std::string(m_File.Title()) == "");
        CHECK(std::string(m_File.HorzLabel()) == "");
    }

    cScratchFolder  m_Folder;
    cRecordingBoxes m_Boxes;
    cAsciiDataFile  m_File;
    int             m_nReads = 0;
};

}  // namespace

// ---- reading: numbers and columns

TEST_CASE("a file of one number per line is one data set without x values")
{
    cFileRig Rig;

    CHECK(Rig.Read("1.5\n-2\n3e2\n") == 1);

    CHECK(Rig.m_File.ExplicitX() == 0);
    CHECK(Rig.m_File.SetCount() == 1);
    CHECK(Rig.m_File.RowCount() == 3);
    CHECK(!Rig.m_File.XValues());
    CHECK(Rig.Y(1) == cFloats{1.5F, -2.0F, 300.0F});
    CHECK(Rig.Labels() == cTexts{"-"});
    CHECK(std::string(Rig.m_File.Title()) == "");
    CHECK(std::string(Rig.m_File.HorzLabel()) == "");
    CHECK(Rig.m_Boxes.m_Boxes.empty());
}

TEST_CASE("numbers in a row are separated by blanks and at most one comma")
{
    // clang-format off
    static const struct { const char *szLine; cFloats Values; } s_Rows[] =
    {
        { "1 2",            { 1, 2 }        },
        { "1,2",            { 1, 2 }        },
        { "1 , 2",          { 1, 2 }        },
        { "1\t,\t2",        { 1, 2 }        },
        { "1, 2 ,3",        { 1, 2, 3 }     },
        { "1-2",            { 1, -2 }       },
        { "1+2",            { 1, 2 }        },
        { "1.5.5",          { 1.5, 0.5 }    },
        { "  1 2",          { 1, 2 }        },
        { "\t1",            { 1 }           },
        { "1 2 ",           { 1, 2 }        },
        { "1 2 ,",          { 1, 2 }        },
        { "1,,2",           { 1 }           },
        { "1 , , 2",        { 1 }           },
        { "1;2",            { 1 }           },
        { "1 x 2",          { 1 }           },
        { "1 // 2",         { 1 }           },
        { "1 \"2\"",        { 1 }           },
        { "1,5 3,8",        { 1, 5, 3, 8 }  },
        { "1 2e",           { 1, 2 }        },
        { "1e 2",           { 1 }           },
        { "0x10 2",         { 0 }           },
        { "1 inf",          { 1 }           },
        { "1 -nan",         { 1 }           },
        { "1\r2",           { 1, 2 }        },
        { "1,\v2",          { 1, 2 }        },
        { "1e999 -1e999",   { FLT_MAX, -FLT_MAX } },
        { "1e-999 2",       { 0, 2 }        },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.szLine);
        cFileRig Rig;

        CHECK(Rig.Read(Row.szLine) == 1);

        REQUIRE(Rig.m_File.RowCount() == 1);
        CHECK(Rig.Row(0) == Row.Values);
    }
}

TEST_CASE("a line without a number in front fails without a box")
{
    for (const char *szLine :
         {"x", ",1", ".", "-", "inf", "nan", "1\nx\n2", "\"1\"", "/1", "1\n\v\n", "1\n\r"})
    {
        CAPTURE(szLine);
        cFileRig Rig;

        CHECK(Rig.Read(szLine) == 0);

        Rig.CheckEmpty();
        CHECK(Rig.m_Boxes.m_Boxes.empty());
    }
}

TEST_CASE("the line with the fewest numbers gives the number of sets")
{
    cFileRig Rig;

    CHECK(Rig.Read("1 2 3\n4 5\n6 7 8 9\n") == 1);

    CHECK(Rig.m_File.SetCount() == 2);
    CHECK(Rig.Y(1) == cFloats{1, 4, 6});
    CHECK(Rig.Y(2) == cFloats{2, 5, 7});
}

TEST_CASE("with ExplicitX the first column is the x of all sets")
{
    cFileRig Rig;

    CHECK(Rig.Read("ExplicitX\n0.5 1 -4\n-2 3 9\n1 2 0\n") == 1);

    CHECK(Rig.m_File.ExplicitX() == 1);
    CHECK(Rig.m_File.SetCount() == 2);
    CHECK(Rig.X() == cFloats{0.5F, -2, 1});
    CHECK(Rig.Y(1) == cFloats{1, 3, 2});
    CHECK(Rig.Y(2) == cFloats{-4, 9, 0});
    CHECK(Rig.m_File.XMin() == -2.0F);
    CHECK(Rig.m_File.XMax() == 1.0F);
    CHECK(Rig.m_File.YMin() == -4.0F);
    CHECK(Rig.m_File.YMax() == 9.0F);
}

TEST_CASE("without an x column the x extent is 0 to rows - 1")
{
    cFileRig Rig;

    CHECK(Rig.Read("ImplicitX\n5 100\n6 -100\n7 50\n") == 1);

    CHECK(Rig.m_File.XMin() == 0.0F);
    CHECK(Rig.m_File.XMax() == 2.0F);
    CHECK(Rig.m_File.YMin() == -100.0F);
    CHECK(Rig.m_File.YMax() == 100.0F);
}

TEST_CASE("ExplicitX with one number on a line fails without a box")
{
    cFileRig Rig;

    CHECK(Rig.Read("ExplicitX\n1\n2\n") == 0);
    CHECK(Rig.Read("ExplicitX\n1 2\n2\n3 4\n") == 0);

    Rig.CheckEmpty();
    CHECK(Rig.m_Boxes.m_Boxes.empty());
}

TEST_CASE("a file without data lines fails without a box")
{
    for (const char *szContent :
         {"", "\n", "; nothing\n", "ImplicitX\n", "ExplicitX\nTitle \"t\"\nHorzAxisLabel \"h\"\n",
          "SetLabels \"a\"\n", "Title \"t\""})
    {
        CAPTURE(szContent);
        cFileRig Rig;

        CHECK(Rig.Read(szContent) == 0);

        Rig.CheckEmpty();
        CHECK(Rig.m_Boxes.m_Boxes.empty());
    }
}

TEST_CASE("a second read replaces what the first one left")
{
    cFileRig Rig;
    REQUIRE(Rig.Read("ExplicitX\nTitle \"t\"\nHorzAxisLabel \"h\"\n1 2 3\n") == 1);

    CHECK(Rig.Read("7\n8\n") == 1);

    CHECK(Rig.m_File.ExplicitX() == 0);
    CHECK(!Rig.m_File.XValues());
    CHECK(std::string(Rig.m_File.Title()) == "");
    CHECK(std::string(Rig.m_File.HorzLabel()) == "");
    CHECK(Rig.m_File.SetCount() == 1);
    CHECK(Rig.Y(1) == cFloats{7, 8});
    CHECK(Rig.m_File.YMin() == 7.0F);

    CHECK(Rig.Read("x") == 0);
    Rig.CheckEmpty();
}

// ---- reading: header

TEST_CASE("header lines are optional, in order, and matched exactly")
{
    // clang-format off
    static const struct
    {
        const char *szHeader; int bRead; int bExplicitX; const char *szTitle; const char *szLabel;
    } s_Rows[] =
    {
        { "",                                                   1, 0, "",     ""  },
        { "ImplicitX\n",                                        1, 0, "",     ""  },
        { "ExplicitX\n",                                        1, 1, "",     ""  },
        { "ExplicitX\nTitle \"t\"\nHorzAxisLabel \"h\"\n",      1, 1, "t",    "h" },
        { "Title \"t\"\n",                                      1, 0, "t",    ""  },
        { "HorzAxisLabel \"h\"\n",                              1, 0, "",     "h" },
        { "Title \"t\"\nHorzAxisLabel \"h\"\n",                 1, 0, "t",    "h" },
        { "ExplicitX\nHorzAxisLabel \"h\"\n",                   1, 1, "",     "h" },
        { " \tExplicitX\n\tTitle \"t\"\n",                      1, 1, "t",    ""  },
        { "ExplicitX\r\nTitle \"t\"\r\n",                       1, 1, "t",    ""  },
        { "; c\nExplicitX\n\n// c\nTitle \"t\"\n;\n",           1, 1, "t",    ""  },
        { "ImplicitXYZ\n",                                      1, 0, "",     ""  },
        { "ExplicitX 1 2 3\n",                                  1, 1, "",     ""  },
        { "Title My plot\n",                                    1, 0, "",     ""  },
        { "Title \n",                                           1, 0, "",     ""  },
        { "Title \"\"\n",                                       1, 0, "",     ""  },
        { "HorzAxisLabel \"\"\n",                               1, 0, "",     ""  },
        { "HorzAxisLabel seconds\n",                            1, 0, "",     ""  },
        { "Title  \t \"t\"\n",                                  1, 0, "t",    ""  },
        { "Title \"t\" and more\n",                             1, 0, "t",    ""  },
        { "Title \"to the end\n",                               1, 0, "to the end", "" },
        { "Title \"; // , \xE9\"\n",                            1, 0, "; // , \xE9", "" },
        { "Title \" t \"\n",                                    1, 0, " t ",  ""  },
        { "Title\t\"t\"\n",                                     0, 0, "",     ""  },
        { "Title\n",                                            0, 0, "",     ""  },
        { "Title\"t\"\n",                                       0, 0, "",     ""  },
        { "title \"t\"\n",                                      0, 0, "",     ""  },
        { "EXPLICITX\n",                                        0, 0, "",     ""  },
        { "HorzAxisLabel\t\"h\"\n",                             0, 0, "",     ""  },
        { "SetLabels\t\"a\"\n",                                 0, 0, "",     ""  },
        { "Title \"t\"\nTitle \"t\"\n",                         0, 0, "",     ""  },
        { "Title \"t\"\nExplicitX\n",                           0, 0, "",     ""  },
        { "ImplicitX\nExplicitX\n",                             0, 0, "",     ""  },
        { "HorzAxisLabel \"h\"\nTitle \"t\"\n",                 0, 0, "",     ""  },
        { "SetLabels \"a\"\nTitle \"t\"\n",                     0, 0, "",     ""  },
        { "SetLabels \"a\"\nSetLabels \"a\"\n",                 0, 0, "",     ""  },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.szHeader);
        cFileRig Rig;

        CHECK(Rig.Read(std::string(Row.szHeader) + "1 2\n3 4\n") == Row.bRead);

        CHECK(Rig.m_File.RowCount() == (Row.bRead ? 2 : 0));
        CHECK(Rig.m_File.ExplicitX() == Row.bExplicitX);
        CHECK(std::string(Rig.m_File.Title()) == Row.szTitle);
        CHECK(std::string(Rig.m_File.HorzLabel()) == Row.szLabel);
        CHECK(Rig.m_Boxes.m_Boxes.empty());
    }
}

TEST_CASE("comments and empty lines may be anywhere")
{
    cFileRig Rig;

    CHECK(Rig.Read("// a\n;b\n\nImplicitX\n  ; c\n1\n\t// d\n \t \n2\n;\n//\n3\n\n") == 1);

    CHECK(Rig.Y(1) == cFloats{1, 2, 3});
}

TEST_CASE("SetLabels gives its quoted texts to the sets in turn")
{
    // clang-format off
    static const struct { const char *szLine; cTexts Labels; } s_Rows[] =
    {
        { "SetLabels \"a\" , \"b\" , \"c\"",      { "a", "b", "c" }           },
        { "SetLabels \"a\",\"b\",\"c\"",          { "a", "b", "c" }           },
        { "SetLabels \"a\" \"b\"\t\"c\"",         { "a", "b", "c" }           },
        { "SetLabels \"a\"\"b\"\"c\"",            { "a", "b", "c" }           },
        { "SetLabels \"a\" , \"b\"",              { "a", "b", "-" }           },
        { "SetLabels ",                           { "-", "-", "-" }           },
        { "SetLabels \"\" , \"b\" , \"\"",        { "-", "b", "-" }           },
        { "SetLabels \"a\",,\"b\"",               { "a", "b", "-" }           },
        { "SetLabels x \"a\" y, z \"b\"",         { "a", "b", "-" }           },
        { "SetLabels a b c",                      { "-", "-", "-" }           },
        { "SetLabels , \"a\"",                    { "a", "-", "-" }           },
        { "SetLabels \"a\" , \"to the end , ",    { "a", "to the end , ", "-" } },
        { "SetLabels \"1\" , \"2\" , \"3\" , \"4\"", { "1", "2", "3" }        },
        { "SetLabels \"a\" \r \"b\"",             { "a", "-", "-" }           },
        { "SetLabels \" a \"",                    { " a ", "-", "-" }         },
        { "  SetLabels \"a\" ; \"b\"",            { "a", "b", "-" }           },
        { "SetLabels \"; a\" , \"// b\"",         { "; a", "// b", "-" }      },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
        for (const char *szLineEnd : {"\n", "\r\n"})
        {
            CAPTURE(Row.szLine);
            cFileRig Rig;

            CHECK(Rig.Read(std::string(Row.szLine) + szLineEnd + "1 2 3" + szLineEnd) == 1);

            CHECK(Rig.Labels() == Row.Labels);
            CHECK(Rig.Row(0) == cFloats{1, 2, 3});
        }
}

TEST_CASE("the x column takes no label")
{
    cFileRig Rig;

    CHECK(Rig.Read("ExplicitX\nSetLabels \"a\" , \"b\"\n1 2 3\n") == 1);

    CHECK(Rig.Labels() == cTexts{"a", "b"});
}

// ---- reading: the length of lines

TEST_CASE("a row of more than 99 bytes with its newline is read as two rows")
{
    cFileRig          Rig;
    const std::string Long = std::string(90, ' ') + "1 2 3 4 5 6 7";  // 103 characters

    CHECK(Rig.Read(Long + "\n" + "8 9 10\n") == 1);

    // "1 2 3 4 5" ends at the 99th character, "6 7" is left over.
    CHECK(Rig.m_File.RowCount() == 3);
    CHECK(Rig.Y(1) == cFloats{1, 6, 8});
    CHECK(Rig.Y(2) == cFloats{2, 7, 9});
}

TEST_CASE("a number is cut in two where its line is")
{
    cFileRig Rig;

    CHECK(Rig.Read(std::string(97, ' ') + "1234\n") == 1);

    CHECK(Rig.Y(1) == cFloats{12, 34});
}

TEST_CASE("a row of exactly 99 characters is one row, whatever its line end")
{
    for (const char *szLineEnd : {"\n", "\r\n"})
    {
        cFileRig Rig;

        CHECK(Rig.Read(std::string(98, ' ') + "1" + szLineEnd + "2" + szLineEnd) == 1);

        CHECK(Rig.Y(1) == cFloats{1, 2});
    }
}

TEST_CASE("a title that does not fit into its line fails as data")
{
    cFileRig          Rig;
    const std::string Fits(91, 't');  // Title and two quotes take up 8 of 99

    CHECK(Rig.Read("Title \"" + Fits + "\"\n1\n") == 1);
    CHECK(std::string(Rig.m_File.Title()) == Fits);

    CHECK(Rig.Read("Title \"" + Fits + "tt\"\n1\n") == 0);
    CHECK(Rig.m_Boxes.m_Boxes.empty());
}

TEST_CASE("labels beyond the 99th byte of their line fail as data")
{
    cFileRig    Rig;
    std::string Line = "SetLabels ";
    for (int i = 1; i <= 6; i++)
        Line += (i > 1 ? " , " : "") + ("\"data line # " + std::to_string(i) + "\"");

    CHECK(Rig.Read(Line + "\n1 2 3 4 5 6\n") == 0);
    CHECK(Rig.m_Boxes.m_Boxes.empty());
}

// ---- reading: odd files

TEST_CASE("a zero byte ends the text of its line")
{
    cFileRig Rig;

    CHECK(Rig.Read(std::string("1 2\0 3\n\0 x\n4 5 6\n", 17)) == 1);

    CHECK(Rig.Row(0) == cFloats{1, 2});
    CHECK(Rig.Row(1) == cFloats{4, 5});
}

TEST_CASE("a million numbers on one line are rows of 99 bytes")
{
    cFileRig    Rig;
    std::string Line;
    for (int i = 0; i < 1000000; i++)
        Line += "1 ";

    CHECK(Rig.Read(Line) == 1);

    CHECK(Rig.m_File.RowCount() == 20203);  // 2000000 / 99, and the rest
    CHECK(Rig.m_File.SetCount() == 1);
}

TEST_CASE("what is not a regular file fails without a box")
{
    cFileRig Rig;
    std::filesystem::create_directory(Rig.m_Folder.Name("folder"));

    CHECK(Rig.m_File.ReadFromFile(Rig.m_Folder.Name("missing.txt").c_str()) == 0);
    CHECK(Rig.m_File.ReadFromFile(Rig.m_Folder.Name("folder").c_str()) == 0);
    CHECK(Rig.m_File.ReadFromFile("") == 0);
#ifdef _WIN32
    CHECK(Rig.m_File.ReadFromFile("NUL") == 0);
#else
    CHECK(Rig.m_File.ReadFromFile("/dev/zero") == 0);
#endif
    CHECK(Rig.m_Boxes.m_Boxes.empty());
    Rig.CheckEmpty();
}

// The rows of a file without header, found with the C library's scanning.
static std::vector<cFloats> PlainRows(const std::string &Content)
{
    std::vector<cFloats> Rows;
    for (size_t nStart = 0; nStart < Content.size();)
    {
        size_t nEnd      = Content.find('\n', nStart);
        nEnd             = nEnd == std::string::npos ? Content.size() : nEnd;
        std::string Line = Content.substr(nStart, nEnd - nStart);
        nStart           = nEnd + 1;
        Line.erase(0, Line.find_first_not_of(" \t"));
        if (Line.empty() || Line[0] == ';')
            continue;
        cFloats     Row;
        const char *pText = Line.c_str();
        float       fValue;
        int         nUsed;
        while (sscanf(pText, "%f%n", &fValue, &nUsed) == 1)
        {
            Row.push_back(std::clamp(fValue, -FLT_MAX, FLT_MAX));
            pText += nUsed;
            pText += strspn(pText, " \t");
            pText += *pText == ',' ? 1 : 0;
            pText += strspn(pText, " \t");
        }
        Rows.push_back(Row);
    }
    return Rows;
}

TEST_CASE("random rows read as the C library's scanning reads them")
{
    // clang-format off
    static const char *const s_Pieces[] =
        { "1", "23", "4.5", ".25", "6.", "-7", "+8", "1e3", "-25E-2", " ", " ", "\t", ",", ",",
          "-", ".", "x", ";", "\n", "\n", "12345.67" };
    // clang-format on
    const size_t nPieces = sizeof s_Pieces / sizeof s_Pieces[0];
    std::mt19937 Random(1618);
    int          nRead = 0;
    cFileRig     Rig;
    for (int i = 0; i < 3000; i++)
    {
        std::string Content = "9";
        for (auto n = Random() % 30; n > 0; n--)
            Content += s_Pieces[Random() % nPieces];

        const int bRead = Rig.Read(Content);

        const std::vector<cFloats> Rows     = PlainRows(Content);
        size_t                     nColumns = Rows[0].size();
        for (const cFloats &Row : Rows)
            nColumns = std::min(nColumns, Row.size());
        CAPTURE(Content);
        REQUIRE(bRead == (nColumns > 0 ? 1 : 0));
        if (!bRead)
            continue;
        nRead++;
        REQUIRE(Rig.m_File.RowCount() == Rows.size());
        REQUIRE(Rig.m_File.SetCount() == nColumns);
        for (uint32_t nRow = 0; nRow < Rows.size(); nRow++)
            REQUIRE(Rig.Row(nRow) ==
                    cFloats(Rows[nRow].begin(), Rows[nRow].begin() + static_cast<int>(nColumns)));
    }
    CHECK(nRead > 500);
}

TEST_CASE("any bytes give finite values within the stated extents, or nothing")
{
    // clang-format off
    static const char *const s_Pieces[] =
        { "ExplicitX\n", "ImplicitX\n", "Title \"", "HorzAxisLabel ", "SetLabels ", "\"", "\"a\" ,",
          "1", "-2", ".", "e", "E+", "99999999999999999999", "e999", "e-999", "0x", "inf", "nan",
          "\r\n", "\n", "\r", " ", "\t", ",", ";", "//", "\xFF\xFE", "\x80" };
    // clang-format on
    const size_t nPieces = sizeof s_Pieces / sizeof s_Pieces[0];
    std::mt19937 Random(57721);
    int          nRead = 0;
    cFileRig     Rig;
    for (int i = 0; i < 3000; i++)
    {
        std::string Content;
        for (auto n = Random() % 40; n > 0; n--)
        {
            const size_t nPiece = Random() % (nPieces + 2);
            if (nPiece < nPieces)
                Content += s_Pieces[nPiece];
            else
                Content += std::string(nPiece == nPieces ? 1 : Random() % 120, '\0');
        }
        if (!Rig.Read(Content))
        {
            REQUIRE(Rig.m_File.SetCount() == 0);
            continue;
        }
        nRead++;
        REQUIRE(Rig.m_File.SetCount() > 0);
        REQUIRE(Rig.m_File.RowCount() > 0);
        for (uint32_t nSet = 1; nSet <= Rig.m_File.SetCount(); nSet++)
            for (const float fY : Rig.Y(nSet))
                REQUIRE((std::isfinite(fY) && fY >= Rig.m_File.YMin() && fY <= Rig.m_File.YMax()));
    }
    CHECK(nRead > 50);
    CHECK(Rig.m_Boxes.m_Boxes.empty());
}

// ---- reading: memory, and a file that changes meanwhile

TEST_CASE("the allocations of a read are repeated for as long as the user retries")
{
    // The sets, x, the y of two sets, two labels.
    for (int nSucceed = 0; nSucceed < 6; nSucceed++)
    {
        CAPTURE(nSucceed);
        cFileRig Rig({anRetry});
        Rig.m_Folder.Write("data.txt", "ExplicitX\nSetLabels \"a\" , \"b\"\n1 2 3\n4 5 6\n");
        cFailingMemory Memory(nSucceed, 1);

        CHECK(Rig.m_File.ReadFromFile(Rig.m_Folder.Name("data.txt").c_str()) == 1);

        CHECK(Memory.FailuresLeft() == 0);
        CHECK(Rig.m_Boxes.m_Boxes.size() == 1);
        CHECK(Rig.X() == cFloats{1, 4});
        CHECK(Rig.Y(2) == cFloats{3, 6});
        CHECK(Rig.Labels() == cTexts{"a", "b"});
    }
}

TEST_CASE("giving up on memory abandons the read and posts quit")
{
    for (int nSucceed = 0; nSucceed < 6; nSucceed++)
    {
        CAPTURE(nSucceed);
        cFileRig Rig({anCancel});
        Rig.m_Folder.Write("data.txt", "ExplicitX\nTitle \"t\"\nSetLabels \"a\" , \"b\"\n1 2 3\n");
        cFailingMemory Memory(nSucceed, 1);

        CHECK(Rig.m_File.ReadFromFile(Rig.m_Folder.Name("data.txt").c_str()) == 0);

        CHECK(Memory.FailuresLeft() == 0);
        Rig.CheckEmpty();
        REQUIRE(Rig.m_Boxes.m_Boxes.size() == 1);
        CHECK(Rig.m_Boxes.m_Boxes[0].m_Text == "ERROR: insufficient memory.\n"
                                               "Close other running applications\n"
                                               "and then hit 'Retry'");
        CHECK(Rig.m_Boxes.m_Boxes[0].m_nButtons == bnRetryCancel);
        CHECK(Rig.m_Boxes.m_QuitCodes == std::vector<int>{0});
    }
}

namespace
{

// While the memory box is up, another program writes the file.
class cMeddlingBoxes : public cRecordingBoxes
{
public:
    explicit cMeddlingBoxes(const std::function<void()> &Meddle)
        : cRecordingBoxes({anRetry}), m_Meddle(Meddle)
    {
    }

    eAnswer Ask(const char *szText, const char *szCaption, eButtons nButtons, eIcon nIcon) override
    {
        if (m_Boxes.empty())
            m_Meddle();
        return cRecordingBoxes::Ask(szText, szCaption, nButtons, nIcon);
    }

private:
    std::function<void()> m_Meddle;
};

}  // namespace

TEST_CASE("a file that changes between the passes aborts at the line that does not fit")
{
    const std::string Before =
        "; comment\nTitle \"t\"\nSetLabels \"a\"\n1 2\n; comment\n3 4\n5 6\n";
    // clang-format off
    static const struct { const char *szAfter; unsigned nLine; } s_Rows[] =
    {
        { "; comment\nTitle \"t\"\nSetLabels \"a\"\n1 2\n; comment\n3 x\n5 6\n", 6 },
        { "; comment\nTitle \"t\"\nSetLabels \"a\"\n1 2\n; comment\n3 4\n5\n",   7 },
        { "; comment\nTitle \"t\"\nSetLabels \"a\"\n1 2\n; comment\n3 4\n",      6 },
        { "; comment\nTitle \"t\"\nSetLabels \"a\"\n1 2\n; comment\n3 4\n;\n\n", 8 },
        { "; comment\nTitle \"t\"\nSetLabel\n",                                  3 },
        { "; comment\nTitle \"t\"\n9 9\n1 2\n; comment\n3 4\n5 6\n",            3 },
        { "; comment\nTitle \"t\"\n",                                            2 },
        { "",                                                                    2 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.szAfter);
        cScratchFolder Folder;
        Folder.Write("data.txt", Before);
        cMeddlingBoxes Boxes([&] { Folder.Write("data.txt", Row.szAfter); });
        cAsciiDataFile File(&Boxes);
        cFailingMemory Memory(0, 1);

        CHECK(File.ReadFromFile(Folder.Name("data.txt").c_str()) == 0);

        REQUIRE(Boxes.m_Boxes.size() == 2);
        CHECK(Boxes.m_Boxes[1].m_Text == "ERROR: line " + std::to_string(Row.nLine) +
                                             " of the ASCII data file\n"
                                             "caused cAsciiDataFile::ReadFromFile()\n"
                                             "to abort.");
        CHECK(Boxes.m_Boxes[1].m_Caption == "");
        CHECK(Boxes.m_Boxes[1].m_nButtons == bnOk);
        CHECK(Boxes.m_Boxes[1].m_nIcon == icError);
        CHECK(File.SetCount() == 0);
        CHECK(File.RowCount() == 0);
        CHECK(std::string(File.Title()) == "");
    }
}

TEST_CASE("the second pass reads what the file holds by then")
{
    cScratchFolder Folder;
    Folder.Write("data.txt", "1 2\n3 4\n");
    cMeddlingBoxes Boxes([&] { Folder.Write("data.txt", "5 6 7\n8 9\n10\n"); });
    cAsciiDataFile File(&Boxes);
    cFailingMemory Memory(0, 1);

    CHECK(File.ReadFromFile(Folder.Name("data.txt").c_str()) == 1);

    CHECK(File.RowCount() == 2);
    CHECK(File.YValues(1)[0] == 5.0F);
    CHECK(File.YValues(2)[1] == 9.0F);
    CHECK(Boxes.m_Boxes.size() == 1);
}

// ---- writing

TEST_CASE("a file with everything is written in its fixed layout")
{
    cFileRig Rig;
    Rig.m_File.SetExplicitX(1);
    Rig.m_File.SetTitle("Free fall");
    Rig.m_File.SetHorzLabel("seconds");
    REQUIRE(Rig.AddXY({0, 0.5}, {100, 98.774F}, "height") == 1);
    REQUIRE(Rig.AddXY({0, 0.5}, {0, -4.903F}, nullptr) == 1);
    REQUIRE(Rig.AddXY({0, 0.5}, {1, 2}, "n") == 1);

    REQUIRE(Rig.m_File.WriteToFile(Rig.m_Folder.Name("written.txt").c_str()) == 1);

    CHECK(Rig.m_Folder.Read("written.txt") ==
          "ExplicitX" + kLineEnd + "Title \"Free fall\"" + kLineEnd + "HorzAxisLabel \"seconds\"" +
              kLineEnd + "SetLabels \"height\" , \"\" , \"n\"" + kLineEnd +
              "0.000000 , 100.000000 , 0.000000 , 1.000000" + kLineEnd +
              "0.500000 , 98.774002 , -4.903000 , 2.000000" + kLineEnd);
}

TEST_CASE("what a file does not have is not written")
{
    cFileRig Rig;
    REQUIRE(Rig.Add({1, 2}) == 1);
    CHECK(Rig.Written() == "ImplicitX\n1.000000\n2.000000\n");

    Rig.m_File.SetHorzLabel("h");
    CHECK(Rig.Written() == "ImplicitX\nHorzAxisLabel \"h\"\n1.000000\n2.000000\n");

    REQUIRE(Rig.Add({3, 4}, "b") == 1);
    CHECK(Rig.Written() == "ImplicitX\nHorzAxisLabel \"h\"\nSetLabels \"\" , \"b\"\n"
                           "1.000000 , 3.000000\n2.000000 , 4.000000\n");
}

TEST_CASE("empty texts are none and are not written")
{
    cFileRig Rig;
    Rig.m_File.SetTitle("");
    Rig.m_File.SetHorzLabel("");
    REQUIRE(Rig.Add({1}, "") == 1);

    CHECK(Rig.Written() == "ImplicitX\n1.000000\n");
}

TEST_CASE("a file without rows ends after its header")
{
    cFileRig Rig;
    Rig.m_File.SetTitle("t");
    CHECK(Rig.Written() == "ImplicitX\nTitle \"t\"\n");

    Rig.m_File.SetExplicitX(1);
    REQUIRE(Rig.AddXY({}, {}, "a") == 0);  // an empty vector has no values at all
    const float fNone = 0.0F;
    REQUIRE(Rig.m_File.AddSet(0, &fNone, &fNone, "a") == 1);
    CHECK(Rig.Written() == "ExplicitX\nTitle \"t\"\nSetLabels \"a\"\n");
}

TEST_CASE("numbers are written with six decimals")
{
    // clang-format off
    static const struct { float fValue; const char *szText; } s_Rows[] =
    {
        { 0.0F,          "0.000000"              },
        { -0.0F,         "-0.000000"             },
        { 1.0F,          "1.000000"              },
        { -1.5F,         "-1.500000"             },
        { 0.1F,          "0.100000"              },
        { 0.0000004F,    "0.000000"              },
        { 0.0000006F,    "0.000001"              },
        { -0.0000004F,   "-0.000000"             },
        { 1.0000005F,    "1.000000"              },
        { 0.5000005F,    "0.500000"              },
        { 0.00048828125F, "0.000488"             },
        { 0.0078125F,    "0.007812"              },
        { 0.0234375F,    "0.023438"              },
        { 16777216.0F,   "16777216.000000"       },
        { 123456.789F,   "123456.789062"         },
        { FLT_TRUE_MIN,  "0.000000"              },
        { FLT_MAX,       "340282346638528859811704183484516925440.000000"  },
        { -FLT_MAX,      "-340282346638528859811704183484516925440.000000" },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        cFileRig Rig;
        REQUIRE(Rig.Add({Row.fValue}) == 1);
        CHECK(Rig.Written() == std::string("ImplicitX\n") + Row.szText + "\n");
    }
}

TEST_CASE("a set is accepted when it fits the file and the sets before it")
{
    const float          kNan = std::numeric_limits<float>::quiet_NaN();
    static const cFloats s_X  = {1, 2, 3};
    static const cFloats s_Y  = {7, 8, 9};
    // clang-format off
    const struct
    {
        const char *szWhat; int bExplicitX; int bFirst; cFloats X; cFloats Y; int bAccepted;
    } Rows[] =
    {
        { "the first without x",           0, true,  {},                { 7, 8, 9 },    1 },
        { "the first with x",              1, true,  { 1, 2, 3 },       { 7, 8, 9 },    1 },
        { "x in a file without",           0, true,  { 1, 2, 3 },       { 7, 8, 9 },    0 },
        { "no x in a file with",           1, true,  {},                { 7, 8, 9 },    0 },
        { "no y",                          0, true,  {},                {},             0 },
        { "another without x",             0, false, {},                { 4, 5, 6 },    1 },
        { "one row less",                  0, false, {},                { 4, 5 },       0 },
        { "one row more",                  0, false, {},                { 4, 5, 6, 7 }, 0 },
        { "x where the others have none",  0, false, { 1, 2, 3 },       { 4, 5, 6 },    0 },
        { "the same x",                    1, false, { 1, 2, 3 },       { 4, 5, 6 },    1 },
        { "one x a bit larger",            1, false, { 1, 2, 3.0000002F }, { 4, 5, 6 }, 0 },
        { "x is not a number",             1, false, { 1, 2, kNan },    { 4, 5, 6 },    0 },
        { "one row less with x",           1, false, { 1, 2 },          { 4, 5 },       0 },
        { "no x where the others have it", 1, false, {},                { 4, 5, 6 },    0 },
    };
    // clang-format on
    for (const auto &Row : Rows)
    {
        CAPTURE(Row.szWhat);
        cFileRig Rig;
        Rig.m_File.SetExplicitX(Row.bExplicitX);
        if (!Row.bFirst)
            REQUIRE((Row.bExplicitX ? Rig.AddXY(s_X, s_Y) : Rig.Add(s_Y)) == 1);
        const uint32_t nBefore = Rig.m_File.SetCount();
        const float   *pX      = Row.X.empty() ? nullptr : Row.X.data();
        const float   *pY      = Row.Y.empty() ? nullptr : Row.Y.data();
        const uint32_t nPoints = static_cast<uint32_t>(Row.Y.size());

        CHECK(Rig.m_File.Accepts(nPoints, pX, pY) == Row.bAccepted);
        CHECK(Rig.m_File.AddSet(nPoints, pX, pY, "l") == Row.bAccepted);

        CHECK(Rig.m_File.SetCount() == nBefore + static_cast<uint32_t>(Row.bAccepted));
    }
}

TEST_CASE("a zero and a negative zero are the same x")
{
    cFileRig Rig;
    Rig.m_File.SetExplicitX(1);
    REQUIRE(Rig.AddXY({0.0F}, {1}) == 1);

    CHECK(Rig.AddXY({-0.0F}, {2}) == 1);
    CHECK(Rig.Written() == "ExplicitX\n0.000000 , 1.000000 , 2.000000\n");
}

TEST_CASE("an added set is a copy")
{
    cFileRig    Rig;
    cFloats     X     = {1, 2};
    cFloats     Y     = {3, 4};
    std::string Label = "label";
    Rig.m_File.SetExplicitX(1);
    REQUIRE(Rig.AddXY(X, Y, Label.c_str()) == 1);
    X     = {0, 0};
    Y     = {0, 0};
    Label = "xxxxx";

    CHECK(Rig.X() == cFloats{1, 2});
    CHECK(Rig.Y(1) == cFloats{3, 4});
    CHECK(Rig.Labels() == cTexts{"label"});
}

TEST_CASE("hundreds of sets are written into one row")
{
    cFileRig    Rig;
    std::string Expected = "ImplicitX\n";
    for (int i = 0; i < 300; i++)
    {
        REQUIRE(Rig.Add({static_cast<float>(i)}) == 1);
        Expected += (i > 0 ? " , " : "") + std::to_string(i) + ".000000";
    }

    CHECK(Rig.m_File.SetCount() == 300);
    CHECK(Rig.Written() == Expected + "\n");
}

TEST_CASE("what is written with short rows reads back")
{
    cFileRig     Rig;
    std::mt19937 Random(14142);
    cFloats      X;
    cFloats      Y;
    for (int i = 0; i < 5000; i++)
    {
        X.push_back(static_cast<float>(i) / 8.0F);
        Y.push_back(static_cast<float>(Random() % 1000000) / 64.0F);
    }
    Rig.m_File.SetExplicitX(1);
    Rig.m_File.SetTitle("t");
    Rig.m_File.SetHorzLabel("h");
    REQUIRE(Rig.AddXY(X, Y, "a") == 1);
    REQUIRE(Rig.AddXY(X, X, nullptr) == 1);
    Rig.Written();

    CHECK(Rig.m_File.ReadFromFile(Rig.m_Folder.Name("written.txt").c_str()) == 1);

    CHECK(std::string(Rig.m_File.Title()) == "t");
    CHECK(std::string(Rig.m_File.HorzLabel()) == "h");
    CHECK(Rig.Labels() == cTexts{"a", "-"});
    CHECK(Rig.X() == X);
    CHECK(Rig.Y(1) == Y);
    CHECK(Rig.Y(2) == X);
}

TEST_CASE("a written row of more than 99 characters does not read back as it was")
{
    cFileRig Rig;
    for (int i = 0; i < 10; i++)
        REQUIRE(Rig.Add({1, 2}) == 1);  // 10 * 8 + 9 * 3 = 107 characters
    Rig.Written();

    CHECK(Rig.m_File.ReadFromFile(Rig.m_Folder.Name("written.txt").c_str()) == 1);

    CHECK(Rig.m_File.RowCount() == 4);
    CHECK(Rig.m_File.SetCount() == 1);
}

TEST_CASE("a file that cannot be written leaves the old one")
{
    cFileRig Rig;
    std::filesystem::create_directory(Rig.m_Folder.Name("folder"));
    Rig.m_Folder.Write("old.txt", "old");
    std::filesystem::permissions(Rig.m_Folder.Name("old.txt"), std::filesystem::perms::owner_read);
    REQUIRE(Rig.Add({1}) == 1);

    CHECK(Rig.m_File.WriteToFile(Rig.m_Folder.Name("folder").c_str()) == 0);
    CHECK(Rig.m_File.WriteToFile(Rig.m_Folder.Name("missing/data.txt").c_str()) == 0);
    CHECK(Rig.m_File.WriteToFile("") == 0);
    CHECK(Rig.m_File.WriteToFile(Rig.m_Folder.Name("old.txt").c_str()) == 0);

    CHECK(Rig.m_Folder.Read("old.txt") == "old");
    CHECK(Rig.m_Boxes.m_Boxes.empty());
    std::filesystem::permissions(Rig.m_Folder.Name("old.txt"), std::filesystem::perms::owner_all);
}

#ifdef __linux__

TEST_CASE("a device without room is a failed write")
{
    cFileRig Rig;
    REQUIRE(Rig.Add({1}) == 1);

    CHECK(Rig.m_File.WriteToFile("/dev/full") == 0);
}

#endif

TEST_CASE("giving up on memory leaves out the set")
{
    // Room for the sets, y, the label, x.
    for (int nSucceed = 0; nSucceed < 4; nSucceed++)
    {
        CAPTURE(nSucceed);
        cFileRig Rig({anCancel});
        Rig.m_File.SetExplicitX(1);
        {
            cFailingMemory Memory(nSucceed, 1);
            CHECK(Rig.AddXY({1}, {2}, "a") == 0);
            CHECK(Memory.FailuresLeft() == 0);
        }
        CHECK(Rig.m_File.SetCount() == 0);
        CHECK(Rig.m_File.RowCount() == 0);
        CHECK(Rig.m_Boxes.m_QuitCodes == std::vector<int>{0});
        CHECK(Rig.AddXY({3}, {4}, "b") == 1);
        CHECK(Rig.X() == cFloats{3});
        CHECK(Rig.Labels() == cTexts{"b"});
    }
}
