// ascii_data_file.h - data sets as a text file. An optional header of keyword
// lines, then a line for each row of numbers with a column for each data set:
//
//     ExplicitX
//     Title "Free fall"
//     HorzAxisLabel "seconds"
//     SetLabels "height" , "speed"
//     0.000000 , 100.000000 , 0.000000
//     0.500000 , 98.774000 , 4.903000
//
// With ExplicitX the first column is the x of all sets; with ImplicitX, or
// neither, x is the number of the row, from 0. All sets have the same number of
// rows. Lines that begin with "//" or ";" and empty lines are comments.

#ifndef GRAPH_ASCII_DATA_FILE_H
#define GRAPH_ASCII_DATA_FILE_H

#include <cstdint>
#include <cstdio>
#include <memory>

#include "graph/short_line_reader.h"
#include "toolkit/message_box.h"
#include "toolkit/reading_watch.h"

// Title and axis label hold up to 100 characters. An empty text means that there is none.
const int kDataFileText = 101;

// Line ends of a written file. Both kinds are read on every platform.
#ifdef _WIN32
const char *const kDataFileLineEnd = "\r\n";
#else
const char *const kDataFileLineEnd = "\n";
#endif

// A container: reading a file fills it, and writing needs it filled.
class cAsciiDataFile
{
public:
    // pBoxes shows the errors; it outlives the object.
    explicit cAsciiDataFile(cMessageBoxes *pBoxes);

    // Replaces the content with that of the file. Returns 0 and leaves the object
    // empty when szFile is not a regular file or cannot be read, when it has no
    // data line or one without the least count of numbers (2 with ExplicitX,
    // else 1), and when memory runs out and the user gives up. A line has at most
    // 99 bytes; a longer one is read as two lines. "1,5 3,8" are four numbers.
    // The line with the fewest numbers gives the number of columns. pWatch may end
    // the reading, which then has failed, too; null: nothing does.
    int ReadFromFile(const char *szFile, cReadingWatch *pWatch = nullptr);

    // 1 if the watch has ended the last reading.
    int IsStopped() const { return m_bStopped; }

    // Returns 0 when the file could not be written; then what was there before
    // is unchanged. Numbers have six decimals: 0.0000004 is written as 0.000000.
    int WriteToFile(const char *szFile) const;

    void SetTitle(const char *szTitle);
    void SetHorzLabel(const char *szLabel);

    // 1: the file has an x column. Comes before the first AddSet.
    void SetExplicitX(int bExplicitX) { m_bExplicitX = bExplicitX; }

    // 1 when the set fits into the file: it has y values, x values exactly if
    // the file has an x column, and the rows and x values of the sets before it.
    int Accepts(uint32_t nPoints, const float *pX, const float *pY) const;

    // Appends copies of the set's values and label (null or empty: none).
    // Returns 0 for a set that the file does not accept, and when memory runs out
    // and the user gives up.
    int AddSet(uint32_t nPoints, const float *pX, const float *pY, const char *szLabel);

    const char *Title() const { return m_szTitle; }
    const char *HorzLabel() const { return m_szHorzLabel; }
    int         ExplicitX() const { return m_bExplicitX; }
    uint32_t    SetCount() const { return m_nSets; }
    uint32_t    RowCount() const { return m_nRows; }

    // RowCount() values; sets count from 1. XValues is null without an x
    // column, Label for a set without one.
    const float *XValues() const { return m_pX.get(); }
    const float *YValues(uint32_t nSet) const { return m_pSets[nSet - 1].m_pY.get(); }
    const char  *Label(uint32_t nSet) const { return m_pSets[nSet - 1].m_pszLabel.get(); }

    // Of the complete file that was read; 0 to rows - 1 without an x column.
    float XMin() const { return m_fXMin; }
    float XMax() const { return m_fXMax; }
    float YMin() const { return m_fYMin; }
    float YMax() const { return m_fYMax; }

private:
    struct cSet
    {
        std::unique_ptr<float[]> m_pY;
        std::unique_ptr<char[]>  m_pszLabel;  // null: none
    };

    // What the first pass through a file finds for the second.
    struct cLayout
    {
        cShortLineReader::cMark m_Start;    // the SetLabels line or the first row
        int                     m_bLabels;  // there is a SetLabels line
    };

    void        Clear();
    int         Read(cShortLineReader *pReader);
    const char *ReadHeader(cShortLineReader *pReader, cLayout *pLayout);
    int         CountData(cShortLineReader *pReader, const char *pText);
    int         AllocateArrays();
    int         ReadLabels(const char *pText);
    int         StoreLabel(cSet *pSet, const char *pText, const char *pEnd);
    int         ReadRow(const char *pText, uint32_t nRow);
    int         Abort(const cShortLineReader &Reader);

    void WriteHeader(FILE *pFile) const;
    void WriteLabels(FILE *pFile) const;
    void WriteRow(FILE *pFile, uint32_t nRow) const;
    int  HasLabels() const;

    int ResizeSets(uint32_t nCapacity);

    cMessageBoxes           *m_pBoxes;
    int                      m_bStopped;
    int                      m_bExplicitX;
    char                     m_szTitle[kDataFileText];
    char                     m_szHorzLabel[kDataFileText];
    uint32_t                 m_nSets;
    uint32_t                 m_nSetCapacity;
    std::unique_ptr<cSet[]>  m_pSets;
    uint32_t                 m_nRows;
    std::unique_ptr<float[]> m_pX;  // null without an x column
    float                    m_fXMin;
    float                    m_fXMax;
    float                    m_fYMin;
    float                    m_fYMax;
};

#endif
