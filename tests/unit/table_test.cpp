#include "tables/table.h"

#include <string>
#include <vector>

#include "graph/ascii_data_file.h"
#include "tests/unit/calculator_rig.h"
#include "tests/unit/recording_boxes.h"
#include "tests/unit/table_rig.h"

static std::string PointsOf(const std::string &Content, const cTableFormat &Format = {})
{
    return cTableRig({Content}, Format).Points();
}

static std::string FindingsOf(const std::string &Content, const cTableFormat &Format = {})
{
    return cTableRig({Content}, Format).Findings();
}

static std::string TextOf(const std::string &Content, const cTableFormat &Format = {})
{
    return cTableRig({Content}, Format).OnlyText();
}

static cTableFormat Separated(char cSeparator)
{
    cTableFormat Format;
    Format.m_cSeparator = cSeparator;
    return Format;
}

static cTableFormat Chosen(const std::vector<unsigned> &Columns, char cSeparator = '\0')
{
    cTableFormat Format;
    Format.m_Columns    = Columns;
    Format.m_cSeparator = cSeparator;
    return Format;
}

TEST_CASE("each column is a data line over the number of the row")
{
    CHECK(PointsOf("5\n6\n") == "0:0,5 0:1,6");
    CHECK(PointsOf("5 7\n6\t8\n") == "0:0,5 1:0,7 0:1,6 1:1,8");
    CHECK(PointsOf("5,7\n6 , 8\n") == "0:0,5 1:0,7 0:1,6 1:1,8");
    CHECK(PointsOf("5;7;\n6 ; 8\n") == "0:0,5 1:0,7 0:1,6 1:1,8");
    CHECK(FindingsOf("5;7;\n6;8\n") == "");
}

TEST_CASE("with ExplicitX the first column is the x of all")
{
    cTableRig Rig({"ExplicitX\nTitle \"Fall\"\nHorzAxisLabel \"s\"\nSetLabels \"h\" , \"v\"\n"
                   "0 , 100 , 0\n.5 , 98.75 , 5\n"});

    CHECK(Rig.Points() == "0:0,100 1:0,0 0:0.5,98.75 1:0.5,5");
    CHECK(Rig.Findings() == "");
    CHECK(Rig.m_Points.Lines() == 2);
    CHECK(Rig.m_Points.Title() == "Fall");
    CHECK(Rig.m_Points.XLabel() == "s");
    CHECK(Rig.m_Points.LineLabel(0) == "h");
    CHECK(Rig.m_Points.LineLabel(1) == "v");
}

TEST_CASE("a table has the data lines of the graph's reader")
{
    static const char *const s_Contents[] = {
        "1\n2\n3\n",
        "ImplicitX\n1 , 2\n3 , 4\n",
        "ExplicitX\nTitle no quotes\n1 2 3\n4 5 6\n",
        "// a comment\n; another\n\n  1,2\n  3,4\n",
        "Title \"t\"\nSetLabels \"a\" junk \"b\"\n1 2\n",
        "1 2 3\n4 5\n6 7 8\n",
        "1,5 3,8\n2,5 4,8\n",
        "1.5e3x\n2\n",
        "1-2\n3-4\n",
        "1,,2\n3,,4\n",
        "SetLabels \"\" , \"b\n1 2\n",
    };
    for (const char *const szContent : s_Contents)
    {
        CAPTURE(szContent);
        cTableRig       Rig({szContent});
        cRecordingBoxes Boxes;
        cAsciiDataFile  File(&Boxes);
        REQUIRE(File.ReadFromFile(Rig.m_Folder.Name("d.txt").c_str()) == 1);

        cPointText Expected;
        for (uint32_t nRow = 0; nRow < File.RowCount(); nRow++)
            for (uint32_t nSet = 1; nSet <= File.SetCount(); nSet++)
                Expected.Take(nSet - 1,
                              File.XValues() ? static_cast<double>(File.XValues()[nRow]) : nRow,
                              static_cast<double>(File.YValues(nSet)[nRow]));

        CHECK_TEXT(Rig.Points(), Expected.m_Text);
        CHECK_TEXT(Rig.m_Points.Title(), File.Title());
        for (uint32_t nSet = 1; nSet <= File.SetCount(); nSet++)
        {
            const char *const szLabel = File.Label(nSet);
            CHECK_TEXT(Rig.m_Points.LineLabel(nSet - 1), szLabel ? szLabel : "");
        }
    }
}

TEST_CASE("a row of any length is one row")
{
    std::string Row = "0.123456";
    for (int i = 0; i < 30; i++)
        Row += " , 0.123456";

    cTableRig Rig({Row + "\n" + Row + "\n"});

    CHECK(Rig.m_Points.Lines() == 31);
    CHECK(Rig.m_Points.Tables()[0]->Rows() == 2);
}

TEST_CASE("comments and empty lines are skipped")
{
    CHECK(PointsOf("# a\n\n1 # one\n  // b\n; c\n \t\n2 // two\n") == "0:0,1 0:1,2");
    CHECK(FindingsOf("# a\n\n1 # one\n  // b\n; c\n \t\n2 // two\n") == "");
    CHECK(FindingsOf("-1.#IND\n") == "1:4 text-ignored");
}

TEST_CASE("a heading of names gives the labels")
{
    cTableRig Commas({"time (s),height,speed\n0,1,2\n3,4,5\n"}, Chosen({1, 2, 3}));
    CHECK(Commas.Findings() == "");
    CHECK(Commas.m_Points.XLabel() == "time (s)");
    CHECK(Commas.m_Points.LineLabel(0) == "height");
    CHECK(Commas.m_Points.LineLabel(1) == "speed");

    cTableRig Blanks({"ExplicitX\nt \"two words\"\n0 1\n"});
    CHECK(Blanks.Findings() == "");
    CHECK(Blanks.m_Points.XLabel() == "t");
    CHECK(Blanks.m_Points.LineLabel(0) == "two words");

    cTableRig Fields({"\"a;b\";;c\n1;2;3\n"}, Separated(';'));
    CHECK(Fields.Findings() == "");
    CHECK(Fields.m_Points.LineLabel(0) == "a;b");
    CHECK(Fields.m_Points.LineLabel(1) == "");
    CHECK(Fields.m_Points.LineLabel(2) == "c");

    cTableRig Far({"a\tb\tc\td\n1\t2\t3\t4\n"}, Chosen({0, 3}));
    CHECK(Far.m_Points.LineLabel(0) == "c");
    CHECK(Far.m_Points.XLabel() == "");
}

TEST_CASE("the label that a saved plot gives to a line without one is none")
{
    cTableRig Rig({"ExplicitX\nSetLabels \"data line # 1\" \"data line # 1\" \"\"\n1 2 3 4\n"});
    CHECK(Rig.m_Points.LineLabel(0) == "");
    CHECK(Rig.m_Points.LineLabel(1) == "data line # 1");
    CHECK(Rig.m_Points.LineLabel(2) == "");
}

TEST_CASE("a heading that names no columns is skipped with a warning")
{
    CHECK(FindingsOf("Some text\nmore text here\n1 2\n") ==
          "1:1 heading-skipped; 2:1 heading-skipped");
    CHECK_TEXT(TextOf("more text here\n1 2\n"), "heading skipped: 3 names for 2 columns");
    CHECK_TEXT(TextOf("Measured in May\na b\n1 2\n"), "heading skipped: \"Measured in May\"");
    CHECK_TEXT(TextOf("Title My plot\n1 2\n"), "heading skipped: the text is not in quotes");
}

TEST_CASE("the row with the fewest numbers says how many data lines there are")
{
    CHECK(PointsOf("1 2 3\n4 5\n6\n") == "0:0,1 0:1,4 0:2,6");
    CHECK(FindingsOf("1 2 3\n 4 5\n6\n7 8 9 10\n") ==
          "2:2 fewer-numbers; 3:1 fewer-numbers; 4:1 more-numbers");
    CHECK_TEXT(TextOf("1 2 3\n6\n"), "1 number where the first row has 3; drawn as 1 data line");
    CHECK_TEXT(TextOf("ExplicitX\n1 2 3 4\n1 2 3\n"),
               "3 numbers where the first row has 4; drawn as 2 data lines");
    CHECK_TEXT(TextOf("1\n6 7\n"), "2 numbers where the first row has 1; the rest is ignored");
}

TEST_CASE("what separates numbers is said when it is odd")
{
    CHECK(PointsOf("1,5;2,5\n") == "0:0,1 1:0,5 2:0,2 3:0,5");
    CHECK(FindingsOf("1,5;2,5\n1,5;2,5\n") == "1:4 mixed-separators");
    CHECK(FindingsOf("1,5 3,8\n") == "1:4 mixed-separators");
    CHECK(FindingsOf("1 , 5 , 3\n1\t2\n") == "2:1 fewer-numbers");
    CHECK_TEXT(TextOf("2024-01-02\n"), "2 findings");
    CHECK(FindingsOf("2024-01-02\n") == "1:5 touching-numbers; 1:8 touching-numbers");
    CHECK_TEXT(TextOf("5 1.5.3\n"), "nothing separates \".3\" from the number before it");
}

TEST_CASE("text after the numbers is ignored with a warning")
{
    CHECK(PointsOf("1 2 abc 3\n4 5\n") == "0:0,1 1:0,2 0:1,4 1:1,5");
    CHECK_TEXT(TextOf("1 2 abc 3 \n"), "text after column 2 ignored: \"abc 3\"");
    CHECK(FindingsOf("1 2 \u00e9\u00e9, abc 3\n") == "1:5 text-ignored");
    CHECK(FindingsOf("1,,2\n") == "1:3 text-ignored");
    CHECK(FindingsOf("1 2 abc\n", Chosen({1, 2})) == "");
}

TEST_CASE("words for missing values are gaps with a warning")
{
    CHECK(PointsOf("1 nan\nNA 2\n-inf 3\n") == "0:0,1 1:0,- 0:1,- 1:1,2 0:2,- 1:2,3");
    CHECK(FindingsOf("1 nan\nNA 2\n-inf 3\n") == "1:3 gap-word; 2:1 gap-word; 3:1 gap-word");
    CHECK_TEXT(TextOf("1 NaN\n"), "\"NaN\" is a gap");
    CHECK(FindingsOf("1 nan 3\n", Chosen({1, 3})) == "");
    CHECK(PointsOf("ExplicitX\nnan 1\n2 3\n") == "0:-,1 0:2,3");
}

TEST_CASE("numbers are doubles, and what a double cannot hold is a gap")
{
    CHECK(PointsOf("1.00000000000001\n1e300\n") == "0:0,1.00000000000001 0:1,1e+300");
    CHECK(PointsOf("1\n1e400\n") == "0:0,1 0:1,-");
    CHECK_TEXT(TextOf("1\n-1e400\n"), "\"-1e400\" is too large for a number; the point is a gap");
    CHECK(FindingsOf("1e-400\n") == "");
}

TEST_CASE("columns are chosen: that of x, then one of each data line")
{
    CHECK(PointsOf("1 2 3\n4 5 6\n", Chosen({1, 3})) == "0:1,3 0:4,6");
    CHECK(PointsOf("1 2 3\n4 5 6\n", Chosen({3, 1, 1})) == "0:3,1 1:3,1 0:6,4 1:6,4");
    CHECK(PointsOf("1 2 3\n4 5 6\n", Chosen({0, 2})) == "0:0,2 0:1,5");
    CHECK(PointsOf("ExplicitX\nSetLabels \"a\" \"b\"\n1 2 3\n", Chosen({1, 3})) == "0:1,3");
    CHECK(cTableRig({"ExplicitX\nSetLabels \"a\" \"b\"\n1 2 3\n"}, Chosen({1, 3}))
              .m_Points.LineLabel(0) == "b");
}

TEST_CASE("a chosen column that a row lacks is a gap, one that the table lacks an error")
{
    CHECK(PointsOf("1 2 3\n4 5\n7 8 9\n", Chosen({1, 3})) == "0:1,3 0:4,- 0:7,9");
    CHECK_TEXT(TextOf("1 2 3\n4 5\n", Chosen({1, 3})),
               "2 numbers where column 3 is drawn; the point is a gap");
    cTableRig Rig({"1 2 3\n"}, Chosen({1, 9}));
    CHECK(Rig.m_bScanned == 0);
    CHECK_TEXT(Rig.OnlyText(), "Error: there is no column 9: the first row has 3");
}

TEST_CASE("with a separator, fields may be empty, in quotes or texts")
{
    CHECK(PointsOf("1;;3\n\"4\"; 5 ;x\n7;8\n", Separated(';')) ==
          "0:0,1 1:0,- 2:0,3 0:1,4 1:1,5 2:1,- 0:2,7 1:2,8 2:2,-");
    CHECK(FindingsOf("1;;3\n\"4\"; 5 ;x\n7;8\n", Separated(';')) ==
          "1:3 empty-field; 2:9 not-a-number; 3:4 missing-column");
    CHECK_TEXT(TextOf("1;;3\n", Separated(';')), "column 2 is empty; the point is a gap");
    CHECK_TEXT(TextOf("1;5 m\n", Separated(';')), "\"5 m\" is not a number; the point is a gap");
    CHECK(PointsOf("2024-05-06|5|1\nx|6|2\n", Chosen({3, 2}, '|')) == "0:1,5 0:2,6");
    CHECK(FindingsOf("2024-05-06|5|1\nx|6|2\n", Chosen({3, 2}, '|')) == "");
    CHECK(PointsOf("1\t\t3\n4\t 5\t6\n", Separated('\t')) == "0:0,1 1:0,- 2:0,3 0:1,4 1:1,5 2:1,6");
    CHECK(PointsOf("1;2;\n3;4; \n", Separated(';')) == "0:0,1 1:0,2 0:1,3 1:1,4");
    CHECK(PointsOf(";1\n;2\n", Separated(';')) == "0:0,- 1:0,1 0:1,- 1:1,2");
    CHECK(PointsOf("a,b,c\n1,2,\n3,4,5\n", Separated(',')) ==
          "0:0,1 1:0,2 2:0,- 0:1,3 1:1,4 2:1,5");
}

TEST_CASE("a decimal comma is not a separator")
{
    cTableFormat Format    = Separated(';');
    Format.m_bDecimalComma = 1;
    CHECK(PointsOf("1,5;-2,25e1\n", Format) == "0:0,1.5 1:0,-22.5");
    Format.m_cSeparator = '\0';
    CHECK(PointsOf("1,5 2,5\n1,5;2,5\n", Format) == "0:0,1.5 1:0,2.5 0:1,1.5 1:1,2.5");
    CHECK(FindingsOf("1,5 2,5\n", Format) == "");
    CHECK(FindingsOf("1,5 , 2,5\n", Format) == "1:5 text-ignored");
    CHECK(FindingsOf("1.234,5\n", Format) == "1:2 text-ignored");
}

TEST_CASE("lines at the start are skipped on request")
{
    cTableFormat Format;
    Format.m_nSkip = 2;
    CHECK(PointsOf("99\nabc\n1\n2\n", Format) == "0:0,1 0:1,2");
    CHECK(FindingsOf("99\nabc\n1\n2\n", Format) == "");
}

TEST_CASE("marks and line ends of other systems are named")
{
    CHECK(PointsOf("\xEF\xBB\xBF"
                   "1 2\r\n3 4\r\n") == "0:0,1 1:0,2 0:1,3 1:1,4");
    CHECK(FindingsOf("\xEF\xBB\xBF"
                     "1\n2\n") == "1:1 byte-order-mark");
    CHECK(PointsOf("1\r2\r3\r") == "0:0,1 0:1,2 0:2,3");
    CHECK(FindingsOf("1\r2\r3\r") == "1:2 lone-cr");
    for (const std::string &Content : {std::string("\xFF\xFE"
                                                   "1\0\n\0",
                                                   6),
                                       std::string("\xFE\xFF\0"
                                                   "1\0\n",
                                                   6),
                                       std::string("1\0\n\0", 4),
                                       std::string("\0"
                                                   "1\0\n",
                                                   4)})
        CHECK_TEXT(TextOf(Content), "Error: this is UTF-16; save the file as UTF-8");
}

TEST_CASE("a file without a row, and a row without a number, are refused")
{
    CHECK_TEXT(TextOf(""), "Error: the file ends without a row of numbers");
    CHECK(FindingsOf("no numbers\nhere\n") == "2:1 no-data");
    CHECK_TEXT(TextOf("1 2\n  abc 3\n4 5\n"), "Error: no number in \"abc 3\"");
    CHECK(FindingsOf("1 2\n  abc 3\n4 5\n") == "2:3 no-number");
    CHECK_TEXT(TextOf("ExplicitX\n1\n"), "Error: 1 number where x and y are needed");
    CHECK(cTableRig({"1 2\nabc\n"}).m_bScanned == 0);
    CHECK_TEXT(TextOf("1\n" + std::string(kLongestTableLine + 1, ' ')),
               "Error: a line of more than 1 MB");
}

TEST_CASE("a table has at most 100000 columns")
{
    std::string Row;
    for (unsigned i = 0; i < kMostColumns; i++)
        Row += "1;";
    CHECK(cTableRig({Row}).m_Points.Lines() == kMostColumns);
    CHECK_TEXT(TextOf(Row + "1"), "Error: more than 100000 columns");
    const std::string Names(kMostColumns, ';');
    CHECK_TEXT(TextOf(Names + "a\n1\n", Separated(';')), "Error: more than 100000 columns");
}

TEST_CASE("a thousand findings of a kind are enough")
{
    std::string Content;
    for (int i = 0; i < 5000; i++)
        Content += "1 abc\n";

    cTableRig Rig({Content + "1 nan\n"});

    const std::vector<cFinding> &List = Rig.m_Points.Tables()[0]->Findings().m_List;
    REQUIRE(List.size() == 1003);
    CHECK_TEXT(List[1000].m_Text, "too many warnings like this one; more are not reported");
    CHECK_TEXT(List[1001].m_szName, "gap-word");
}
