#include "graph/ascii_data_file.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <new>
#include <utility>

#include "graph/extent.h"
#include "graph/float_scan.h"
#include "graph/retry_arrays.h"
#include "toolkit/blanks.h"
#include "toolkit/replacement_file.h"
#include "toolkit/retry_alloc.h"

// The blank belongs to the keyword: a "Title" that a tab follows is data.
static const char kImplicitX[]     = "ImplicitX";
static const char kExplicitX[]     = "ExplicitX";
static const char kTitle[]         = "Title ";
static const char kHorzAxisLabel[] = "HorzAxisLabel ";
static const char kSetLabels[]     = "SetLabels ";

static const char kSeparator[] = " , ";  // between numbers and between labels

static const uint32_t kMostRows  = UINT32_MAX;
static const uint32_t kFirstSets = 8;  // room made by the first AddSet

// "-340282346638528859811704183484516925440.000000"
static const int kNumberText = 47;

static const int kAbortText = 128;

static int Begins(const char *szText, const char *szStart)
{
    while (*szStart && *szText == *szStart)
    {
        szText++;
        szStart++;
    }
    return !*szStart;
}

// Between two numbers: blanks, at most one comma, blanks.
static const char *SkipSeparator(const char *pText)
{
    pText = SkipBlanks(pText);
    return *pText == ',' ? SkipBlanks(pText + 1) : pText;
}

// The next line that is not a comment, without its leading blanks. Never empty,
// except at the end of the file.
static const char *NextLine(cShortLineReader *pReader)
{
    while (pReader->Next())
    {
        const char *pText = SkipBlanks(pReader->Text());
        if (*pText != '\0' && *pText != ';' && !Begins(pText, "//"))
            return pText;
    }
    return "";
}

// The end of the text that follows an opening quote.
static const char *QuotedEnd(const char *pText)
{
    return pText + strcspn(pText, "\"");
}

// Stores the quoted text that pText begins with. Without a quote nothing.
static void ReadQuoted(const char *pText, char (&szText)[kDataFileText])
{
    pText = SkipBlanks(pText);
    if (*pText != '"')
        return;
    pText++;
    const int nLength = static_cast<int>(QuotedEnd(pText) - pText);
    snprintf(szText, sizeof szText, "%.*s", nLength, pText);
}

static uint32_t CountNumbers(const char *pText)
{
    uint32_t nNumbers = 0;
    while ((pText = SkipFloat(pText)) != nullptr)
    {
        nNumbers++;
        pText = SkipSeparator(pText);
    }
    return nNumbers;
}

// The digits of "%f", with a point in every locale.
static void WriteNumber(FILE *pFile, float fValue)
{
    char       szText[kNumberText];
    const auto Result = std::to_chars(szText, szText + sizeof szText, static_cast<double>(fValue),
                                      std::chars_format::fixed, 6);
    fwrite(szText, 1, static_cast<size_t>(Result.ptr - szText), pFile);
}

static void EndLine(FILE *pFile)
{
    fputs(kDataFileLineEnd, pFile);
}

cAsciiDataFile::cAsciiDataFile(cMessageBoxes *pBoxes) : m_pBoxes(pBoxes), m_bStopped(0)
{
    Clear();
}

int cAsciiDataFile::ReadFromFile(const char *szFile, cReadingWatch *pWatch)
{
    Clear();
    cShortLineReader Reader;
    Reader.SetWatch(pWatch);
    const int bRead = Reader.Open(szFile) && Read(&Reader) && !Reader.Stopped();
    m_bStopped      = Reader.Stopped();
    if (bRead)
        return 1;
    Clear();
    return 0;
}

int cAsciiDataFile::WriteToFile(const char *szFile) const
{
    cReplacementFile File;
    if (!File.Open(szFile, "wb"))
        return 0;
    WriteHeader(File.Stream());
    for (uint32_t nRow = 0; nRow < m_nRows; nRow++)
        WriteRow(File.Stream(), nRow);
    return File.Commit();
}

void cAsciiDataFile::SetTitle(const char *szTitle)
{
    snprintf(m_szTitle, sizeof m_szTitle, "%s", szTitle);
}

void cAsciiDataFile::SetHorzLabel(const char *szLabel)
{
    snprintf(m_szHorzLabel, sizeof m_szHorzLabel, "%s", szLabel);
}

int cAsciiDataFile::Accepts(uint32_t nPoints, const float *pX, const float *pY) const
{
    const int bHasX = pX != nullptr;
    if (!pY || bHasX != (m_bExplicitX != 0))
        return 0;
    if (m_nSets == 0)
        return 1;
    return nPoints == m_nRows && (!pX || std::equal(pX, pX + nPoints, m_pX.get()));
}

int cAsciiDataFile::AddSet(uint32_t nPoints, const float *pX, const float *pY, const char *szLabel)
{
    if (!Accepts(nPoints, pX, pY))
        return 0;
    if (m_nSets == m_nSetCapacity && !ResizeSets(m_nSets > 0 ? 2 * m_nSets : kFirstSets))
        return 0;
    cSet Set;
    Set.m_pY = CopyFloats(m_pBoxes, pY, nPoints, nPoints);
    if (!Set.m_pY)
        return 0;
    if (szLabel && szLabel[0] != '\0')
    {
        Set.m_pszLabel = CopyText(m_pBoxes, szLabel);
        if (!Set.m_pszLabel)
            return 0;
    }
    if (m_nSets == 0 && pX)
    {
        m_pX = CopyFloats(m_pBoxes, pX, nPoints, nPoints);
        if (!m_pX)
            return 0;
    }
    m_nRows            = nPoints;
    m_pSets[m_nSets++] = std::move(Set);
    return 1;
}

void cAsciiDataFile::Clear()
{
    m_bExplicitX     = 0;
    m_szTitle[0]     = '\0';
    m_szHorzLabel[0] = '\0';
    m_nSets          = 0;
    m_nSetCapacity   = 0;
    m_pSets.reset();
    m_nRows = 0;
    m_pX.reset();
    m_fXMin = m_fYMin = kExtentMinStart;
    m_fXMax = m_fYMax = kExtentMaxStart;
}

// Two passes: the first finds out how many rows and columns there are, so that
// the arrays have their size before the second stores the values.
int cAsciiDataFile::Read(cShortLineReader *pReader)
{
    cLayout     Layout;
    const char *pText = ReadHeader(pReader, &Layout);
    if (!CountData(pReader, pText) || !AllocateArrays() || !pReader->GoBack(Layout.m_Start))
        return 0;
    if (Layout.m_bLabels)
    {
        pText = NextLine(pReader);
        if (!Begins(pText, kSetLabels))
            return Abort(*pReader);
        if (!ReadLabels(pText + strlen(kSetLabels)))
            return 0;
    }
    for (uint32_t nRow = 0; nRow < m_nRows; nRow++)
        if (!ReadRow(NextLine(pReader), nRow))
            return Abort(*pReader);
    if (!m_bExplicitX)
    {
        m_fXMin = 0.0F;
        m_fXMax = static_cast<float>(m_nRows - 1);
    }
    return 1;
}

// Returns the first line after the header.
const char *cAsciiDataFile::ReadHeader(cShortLineReader *pReader, cLayout *pLayout)
{
    const char *pText = NextLine(pReader);
    if (Begins(pText, kImplicitX) || Begins(pText, kExplicitX))
    {
        m_bExplicitX = Begins(pText, kExplicitX);
        pText        = NextLine(pReader);
    }
    if (Begins(pText, kTitle))
    {
        ReadQuoted(pText + strlen(kTitle), m_szTitle);
        pText = NextLine(pReader);
    }
    if (Begins(pText, kHorzAxisLabel))
    {
        ReadQuoted(pText + strlen(kHorzAxisLabel), m_szHorzLabel);
        pText = NextLine(pReader);
    }
    pLayout->m_Start   = pReader->LineStart();
    pLayout->m_bLabels = Begins(pText, kSetLabels);
    return pLayout->m_bLabels ? NextLine(pReader) : pText;
}

// The first pass; pText is the first row.
int cAsciiDataFile::CountData(cShortLineReader *pReader, const char *pText)
{
    const uint32_t nFewest  = m_bExplicitX ? 2 : 1;
    uint32_t       nColumns = UINT32_MAX;
    for (; *pText != '\0'; pText = NextLine(pReader))
    {
        nColumns = std::min(nColumns, CountNumbers(pText));
        if (nColumns < nFewest || m_nRows == kMostRows)
            return 0;
        m_nRows++;
    }
    if (m_nRows == 0 || pReader->Failed() || pReader->Stopped())
        return 0;
    m_nSets = nColumns - (m_bExplicitX ? 1 : 0);
    return 1;
}

int cAsciiDataFile::AllocateArrays()
{
    if (!ResizeSets(m_nSets))
        return 0;
    if (m_bExplicitX)
    {
        m_pX = AllocateFloats(m_pBoxes, m_nRows);
        if (!m_pX)
            return 0;
    }
    for (uint32_t nSet = 0; nSet < m_nSets; nSet++)
    {
        m_pSets[nSet].m_pY = AllocateFloats(m_pBoxes, m_nRows);
        if (!m_pSets[nSet].m_pY)
            return 0;
    }
    return 1;
}

// Assigns the labels to the sets in turn and skips whatever is between them.
// Returns 0 when the user gives up because memory is short.
int cAsciiDataFile::ReadLabels(const char *pText)
{
    uint32_t nSet = 0;
    while (nSet < m_nSets)
    {
        pText = SkipBlanks(pText);
        if (*pText == '\0' || *pText == '\r')
            break;
        if (*pText++ != '"')
            continue;
        const char *pEnd = QuotedEnd(pText);
        if (!StoreLabel(&m_pSets[nSet++], pText, pEnd))
            return 0;
        pText = *pEnd == '"' ? pEnd + 1 : pEnd;
    }
    return 1;
}

// Empty quotes mean that the set has no label.
int cAsciiDataFile::StoreLabel(cSet *pSet, const char *pText, const char *pEnd)
{
    if (pText == pEnd)
        return 1;
    char szLabel[kShortLine];
    snprintf(szLabel, sizeof szLabel, "%.*s", static_cast<int>(pEnd - pText), pText);
    pSet->m_pszLabel = CopyText(m_pBoxes, szLabel);
    return pSet->m_pszLabel != nullptr;
}

// Returns 0 when the line has too few numbers.
int cAsciiDataFile::ReadRow(const char *pText, uint32_t nRow)
{
    if (m_bExplicitX)
    {
        pText = ReadFloat(pText, &m_pX[nRow]);
        if (!pText)
            return 0;
        WidenExtent(m_pX[nRow], &m_fXMin, &m_fXMax);
        pText = SkipSeparator(pText);
    }
    for (uint32_t nSet = 0; nSet < m_nSets; nSet++)
    {
        float &fY = m_pSets[nSet].m_pY[nRow];
        pText     = ReadFloat(pText, &fY);
        if (!pText)
            return 0;
        WidenExtent(fY, &m_fYMin, &m_fYMax);
        pText = SkipSeparator(pText);
    }
    return 1;
}

// The file has become another one between the passes, unless the user has had enough.
// Returns 0.
int cAsciiDataFile::Abort(const cShortLineReader &Reader)
{
    if (Reader.Stopped())
        return 0;
    char szText[kAbortText];
    snprintf(szText, sizeof szText,
             "ERROR: line %u of the ASCII data file\n"
             "caused cAsciiDataFile::ReadFromFile()\n"
             "to abort.",
             static_cast<unsigned>(Reader.LineNumber()));
    m_pBoxes->Ask(szText, nullptr, bnOk, icError);
    return 0;
}

void cAsciiDataFile::WriteHeader(FILE *pFile) const
{
    fputs(m_bExplicitX ? kExplicitX : kImplicitX, pFile);
    EndLine(pFile);
    if (m_szTitle[0] != '\0')
    {
        fprintf(pFile, "%s\"%s\"", kTitle, m_szTitle);
        EndLine(pFile);
    }
    if (m_szHorzLabel[0] != '\0')
    {
        fprintf(pFile, "%s\"%s\"", kHorzAxisLabel, m_szHorzLabel);
        EndLine(pFile);
    }
    if (HasLabels())
        WriteLabels(pFile);
}

void cAsciiDataFile::WriteLabels(FILE *pFile) const
{
    const char *szBefore = kSetLabels;
    for (uint32_t nSet = 1; nSet <= m_nSets; nSet++)
    {
        fprintf(pFile, "%s\"%s\"", szBefore, Label(nSet) ? Label(nSet) : "");
        szBefore = kSeparator;
    }
    EndLine(pFile);
}

void cAsciiDataFile::WriteRow(FILE *pFile, uint32_t nRow) const
{
    if (m_bExplicitX)
    {
        WriteNumber(pFile, m_pX[nRow]);
        fputs(kSeparator, pFile);
    }
    for (uint32_t nSet = 1; nSet <= m_nSets; nSet++)
    {
        if (nSet > 1)
            fputs(kSeparator, pFile);
        WriteNumber(pFile, YValues(nSet)[nRow]);
    }
    EndLine(pFile);
}

int cAsciiDataFile::HasLabels() const
{
    for (uint32_t nSet = 1; nSet <= m_nSets; nSet++)
        if (Label(nSet))
            return 1;
    return 0;
}

// Room for nCapacity sets, which is at least their number so far.
int cAsciiDataFile::ResizeSets(uint32_t nCapacity)
{
    auto pSets = AllocateWithRetry(m_pBoxes, [nCapacity] {
        return std::unique_ptr<cSet[]>(new (std::nothrow) cSet[nCapacity]);
    });
    if (!pSets)
        return 0;
    std::move(m_pSets.get(), m_pSets.get() + m_nSetCapacity, pSets.get());
    m_pSets        = std::move(pSets);
    m_nSetCapacity = nCapacity;
    return 1;
}
