// figure_options.h - the options about a picture of data lines, for all commands
// that draw one.

#ifndef CONSOLE_FIGURE_OPTIONS_H
#define CONSOLE_FIGURE_OPTIONS_H

#include <optional>
#include <string>
#include <vector>

#include "console/console.h"
#include "console/option_table.h"
#include "figure/figure.h"
#include "figure/figure_file.h"
#include "graph/vantor_plot.h"

// Coordinates of drawn points fit the 16 bits of the platform's drawing
// functions; no picture is larger.
const int kMostPictureSize = 16383;

// One for a single data line.
struct cLineOption
{
    size_t      m_nLine;  // from 0
    std::string m_Text;   // "--style 2:dash"
};

struct cFigureOptions
{
    cFigure                       m_Figure;
    double                        m_dScale = 1.0;
    std::optional<ePictureFormat> m_nFormat;      // default: by the file's name
    int                           m_bWindow = 0;  // as a window draws it
    int                           m_bNice   = 0;  // and round ticks nevertheless
    std::string                   m_FirstOption;  // of these that was given; "" for none
    std::vector<cLineOption>      m_LineOptions;  // in their order
};

// Takes an option's value for the figure of a command's options.
typedef int (*cTakeFigureValue)(cFigureOptions *pOptions, const std::string &Value);

struct cFigureOptionRow
{
    const char      *m_szName;  // as in cOptionRow
    const char      *m_szValue;
    const char      *m_szWanted;
    cTakeFigureValue m_pTake;
    const char      *m_szHelp;
};

const int                     kFigureOptions = 22;
extern const cFigureOptionRow kFigureRows[kFigureOptions];

// As the row's m_pTake.
int TakeFigureOption(const cFigureOptionRow &Row, const std::string &Value,
                     cFigureOptions *pOptions);

template <class cOptions, int nRow>
int TakeFigureValue(void *pOptions, const std::string &Value, std::string *)
{
    return TakeFigureOption(kFigureRows[nRow], Value,
                            &static_cast<cOptions *>(pOptions)->m_Picture);
}

// Appends the options' rows for a command whose options have a cFigureOptions
// m_Picture.
template <class cOptions, int nRow = 0> void AppendFigureRows(std::vector<cOptionRow> *pRows)
{
    if constexpr (nRow < kFigureOptions)
    {
        const cFigureOptionRow &Row = kFigureRows[nRow];
        pRows->push_back({Row.m_szName, Row.m_szValue, Row.m_szWanted,
                          TakeFigureValue<cOptions, nRow>, Row.m_szHelp});
        AppendFigureRows<cOptions, nRow + 1>(pRows);
    }
}

// What the options and a file's name say about the file. 0, with a one-line error,
// if they say nothing or contradict each other, and for a picture that cannot be
// drawn.
int ChoosePicture(const cFigureOptions &Options, const std::string &Name, cPictureFile *pFile,
                  std::string *pError);

// Calls the figure after the files that its points come from, without their folders.
void NameFigure(const std::vector<std::string> &Sources, cFigureOptions *pOptions);

// Warns, on standard error, of options for a data line that is not one of nLines.
// Returns 1 if there are any.
int ReportMissingLines(const cFigureOptions &Options, size_t nLines, const cStreams &Streams);

// Saves the figure; returns the exit code. An error and what the user should know go
// to standard error. Without --window only.
int SaveFigurePicture(const cFigureOptions &Options, const cPictureFile &File,
                      cPointSource *pSource, const cStreams &Streams);

// The same with --window. The plot's range and looks become those of the options.
int SaveWindowPicture(const cFigureOptions &Options, const cPictureFile &File, cVantorPlot *pPlot,
                      const cStreams &Streams);

#endif
