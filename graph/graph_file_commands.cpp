#include "graph/graph_file_commands.h"

#include <cstdio>

#include "graph/ascii_data_file.h"
#include "graph/read_back.h"

static const int kMessageText = 4608;  // a file name and the words around it

// Red, green, blue, yellow, magenta, cyan, light grey, black, and again.
// clang-format off
static const uint32_t kSetColours[] =
{
    MakeColour(255, 0, 0),
    MakeColour(0, 255, 0),
    MakeColour(0, 0, 255),
    MakeColour(255, 255, 0),
    MakeColour(255, 0, 255),
    MakeColour(0, 255, 255),
    MakeColour(192, 192, 192),
    MakeColour(0, 0, 0),
};
// clang-format on
static const uint32_t kColours = sizeof kSetColours / sizeof kSetColours[0];

static int ReadOrReport(cAsciiDataFile *pFile, cMessageBoxes *pBoxes, const char *szFile,
                        cReadingWatch *pWatch)
{
    if (pFile->ReadFromFile(szFile, pWatch))
        return 1;
    if (pFile->IsStopped())
        return 0;
    char szText[kMessageText];
    snprintf(szText, sizeof szText, "Could not read the file:\n %s", szFile);
    pBoxes->Ask(szText, nullptr, bnOk, icNone);
    return 0;
}

static int AddSets(cVantorPlot *pPlot, const cAsciiDataFile &File)
{
    for (uint32_t nSet = 1; nSet <= File.SetCount(); nSet++)
    {
        cVantorLineFormat Format;
        Format.m_crColor  = kSetColours[(nSet - 1) % kColours];
        Format.m_pszLabel = File.Label(nSet);
        if (!pPlot->AddDataSet(File.RowCount(), File.XValues(), File.YValues(nSet), &Format))
            return 0;
    }
    return 1;
}

// Returns 0 if memory ran out and the user gave up.
static int CollectSets(cAsciiDataFile *pFile, const cVantorPlot &Plot)
{
    const cVantorDataSet *pSet = Plot.DataSet(1);
    pFile->SetTitle(Plot.Settings().m_szTitle);
    pFile->SetHorzLabel(Plot.Settings().m_szHorzLabel);
    pFile->SetExplicitX(pSet->m_pX != nullptr);
    for (; pSet; pSet = pSet->m_pNext)
    {
        const float *pX = pSet->m_pX.get();
        const float *pY = pSet->m_pY.get();
        if (pFile->Accepts(pSet->m_nPoints, pX, pY) &&
            !pFile->AddSet(pSet->m_nPoints, pX, pY, pSet->m_pszLabel.get()))
            return 0;
    }
    return 1;
}

static void ReportIncompatible(cMessageBoxes *pBoxes, uint32_t nWritten, uint32_t nSets,
                               const char *szFile)
{
    char szText[kMessageText];
    snprintf(szText, sizeof szText,
             "%u of the %u data sets were written to the file:\n"
             "  %s\n"
             "\n"
             "Data sets must have compatible x axis\n"
             "values to share an ASCII data file.",
             static_cast<unsigned>(nWritten), static_cast<unsigned>(nSets), szFile);
    pBoxes->Ask(szText, nullptr, bnOk, icNone);
}

static void ReportUnreadable(cMessageBoxes *pBoxes, const char *szProblem, const char *szFile)
{
    char szText[kMessageText];
    snprintf(szText, sizeof szText,
             "The file was written:\n"
             "  %s\n"
             "\n"
             "When it is opened, it will differ from the\n"
             "graph: %s.",
             szFile, szProblem);
    pBoxes->Ask(szText, nullptr, bnOk, icNone);
}

int OpenGraphFile(cVantorPlot *pPlot, cMessageBoxes *pBoxes, const char *szFile,
                  cReadingWatch *pWatch)
{
    cAsciiDataFile File(pBoxes);
    if (!ReadOrReport(&File, pBoxes, szFile, pWatch))
        return 0;
    pPlot->ClearAll();
    pPlot->SetTitle(File.Title());
    pPlot->SetHorzLabel(File.HorzLabel());
    return AddSets(pPlot, File);
}

int AppendGraphFile(cVantorPlot *pPlot, cMessageBoxes *pBoxes, const char *szFile,
                    cReadingWatch *pWatch)
{
    cAsciiDataFile File(pBoxes);
    return ReadOrReport(&File, pBoxes, szFile, pWatch) && AddSets(pPlot, File);
}

int SaveGraphFile(const cVantorPlot &Plot, cMessageBoxes *pBoxes, const char *szFile)
{
    if (Plot.Count() == 0)
    {
        pBoxes->Ask("There is no data to save", nullptr, bnOk, icNone);
        return 0;
    }
    cAsciiDataFile File(pBoxes);
    if (!CollectSets(&File, Plot))
        return 0;
    if (!File.WriteToFile(szFile))
    {
        char szText[kMessageText];
        snprintf(szText, sizeof szText, "Could not write the file:\n %s", szFile);
        pBoxes->Ask(szText, nullptr, bnOk, icNone);
        return 0;
    }
    if (File.SetCount() < Plot.Count())
        ReportIncompatible(pBoxes, File.SetCount(), Plot.Count(), szFile);
    if (const char *const szProblem = ReadBackProblem(File))
        ReportUnreadable(pBoxes, szProblem, szFile);
    return 1;
}
