#include "tables/row_reader.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "tables/double_scan.h"

static const double kGapValue = std::numeric_limits<double>::quiet_NaN();

// What has separated numbers, as bits of m_nBetween.
static const unsigned kBetweenNothing    = 0;
static const unsigned kBetweenBlanks     = 1;
static const unsigned kBetweenCommas     = 2;
static const unsigned kBetweenSemicolons = 4;

static const char kAnyBlank = '\0';  // as a separator: none of the blanks is one

static int IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\v' || c == '\f';
}

static std::string_view TrimmedFront(std::string_view Text, char cSeparator)
{
    size_t nBlanks = 0;
    while (nBlanks < Text.size() && IsBlank(Text[nBlanks]) && Text[nBlanks] != cSeparator)
        nBlanks++;
    return Text.substr(nBlanks);
}

static std::string_view TrimmedBack(std::string_view Text)
{
    while (!Text.empty() && IsBlank(Text.back()))
        Text.remove_suffix(1);
    return Text;
}

std::string_view WithoutBlanks(std::string_view Text)
{
    return TrimmedFront(Text, kAnyBlank);
}

static const char *AfterBlanks(const char *pText, const char *pEnd)
{
    while (pText < pEnd && IsBlank(*pText))
        pText++;
    return pText;
}

// The first field of Text with the blanks around it. A separator in quotes is part of
// the field.
static std::string_view FirstField(std::string_view Text, char cSeparator)
{
    const std::string_view Field = TrimmedFront(Text, cSeparator);
    size_t                 nFrom = Text.size() - Field.size();
    const size_t           nQuote =
        !Field.empty() && Field[0] == '"' ? Field.find('"', 1) : std::string_view::npos;
    if (nQuote != std::string_view::npos)
        nFrom += nQuote;
    return Text.substr(0, Text.find(cSeparator, nFrom));
}

static std::string_view Bare(std::string_view Field, char cSeparator)
{
    Field = TrimmedBack(TrimmedFront(Field, cSeparator));
    if (Field.size() < 2 || Field.front() != '"' || Field.back() != '"')
        return Field;
    return Field.substr(1, Field.size() - 2);
}

static size_t LastColumn(const std::vector<unsigned> &Columns)
{
    return Columns.empty() ? 0 : *std::max_element(Columns.begin(), Columns.end());
}

cRowReader::cRowReader(const cTableFormat &Format)
    : m_Format(Format), m_cPoint(Format.m_bDecimalComma ? ',' : '.'),
      m_nLastColumn(LastColumn(Format.m_Columns)), m_Wanted(m_nLastColumn, 0), m_pValues(nullptr),
      m_nRoom(0), m_pFindings(nullptr), m_Count{0, 0}, m_nBetween(kBetweenNothing)
{
    for (const unsigned nColumn : Format.m_Columns)
        if (nColumn > 0)
            m_Wanted[nColumn - 1] = 1;
}

int cRowReader::IsComment(std::string_view Line) const
{
    const std::string_view Text = TrimmedFront(Line, m_Format.m_cSeparator);
    if (Text.empty() || Text[0] == '#' || Text.substr(0, 2) == "//")
        return 1;
    return Text[0] == ';' && m_Format.m_cSeparator != ';';
}

cRowReader::cCount cRowReader::Read(std::string_view Line, double *pValues, size_t nRoom,
                                    cTableFindings *pFindings)
{
    m_pValues   = pValues;
    m_nRoom     = nRoom;
    m_pFindings = pFindings;
    m_Count     = {0, 0};
    m_nBetween  = kBetweenNothing;
    if (m_Format.m_cSeparator)
        ReadFields(Line);
    else
        ReadNumbers(Line);
    return m_Count;
}

// 1 if the present column is drawn.
int cRowReader::IsWanted() const
{
    return m_nLastColumn == 0 || m_Wanted[m_Count.m_nColumns];
}

int cRowReader::IsListening(eTableWarning nWarning) const
{
    return m_pFindings && m_pFindings->Wants(nWarning);
}

void cRowReader::Store(double dValue)
{
    if (m_Count.m_nColumns < m_nRoom)
        m_pValues[m_Count.m_nColumns] = dValue;
    m_Count.m_nColumns++;
}

// The value of the present column: a number or a word for a gap. Null if there is
// neither, or if it should be all of the text and is not.
const char *cRowReader::ReadNumber(const char *pText, const char *pEnd, int bAll)
{
    double      dValue = kGapValue;
    const char *pAfter = ReadDouble(pText, pEnd, m_cPoint, &dValue);
    const int   bWord  = !pAfter;
    if (bWord)
        pAfter = SkipGapWord(pText, pEnd);
    if (!pAfter || (bAll && pAfter < pEnd))
        return nullptr;
    const int bWanted = IsWanted();
    if (!std::isfinite(dValue))
    {
        const eTableWarning    nWarning = bWord ? twGapWord : twNumberRange;
        const std::string_view Word(pText, static_cast<size_t>(pAfter - pText));
        if (bWanted && IsListening(nWarning))
            m_pFindings->Warn(nWarning, Word, {QuotedWord(Word)});
        dValue = kGapValue;
    }
    m_Count.m_nNumbers += static_cast<size_t>(bWanted);
    Store(dValue);
    return pAfter;
}

// Numbers one after another, up to the first text.
void cRowReader::ReadNumbers(std::string_view Line)
{
    const char *const pEnd   = Line.data() + Line.size();
    const char       *pText  = AfterBlanks(Line.data(), pEnd);
    const char       *pAfter = Line.data();
    while (pText < pEnd)
    {
        const int         bTouches = pText == pAfter && m_Count.m_nColumns > 0;
        const char *const pNumber  = pText;
        pAfter                     = ReadNumber(pNumber, pEnd, 0);
        if (!pAfter)
            return WarnOfRest(std::string_view(pNumber, static_cast<size_t>(pEnd - pNumber)),
                              !bTouches);
        const std::string_view Number(pNumber, static_cast<size_t>(pAfter - pNumber));
        if (bTouches && IsListening(twTouchingNumbers))
            m_pFindings->Warn(twTouchingNumbers, Number, {QuotedWord(Number)});
        if (m_Count.m_nColumns == m_nLastColumn)
            return;
        pText = SkipBetween(pAfter, pEnd);
    }
}

// Blanks, at most one comma or semicolon, blanks.
const char *cRowReader::SkipBetween(const char *pText, const char *pEnd)
{
    const char *pNext    = AfterBlanks(pText, pEnd);
    unsigned    nBetween = pNext > pText ? kBetweenBlanks : kBetweenNothing;
    if (pNext < pEnd && (*pNext == ';' || (*pNext == ',' && m_cPoint != ',')))
    {
        nBetween = *pNext == ';' ? kBetweenSemicolons : kBetweenCommas;
        pNext    = AfterBlanks(pNext + 1, pEnd);
    }
    if (pNext < pEnd)
        m_nBetween |= nBetween;
    if ((m_nBetween & (m_nBetween - 1)) != 0 && IsListening(twMixedSeparators))
        m_pFindings->Warn(twMixedSeparators, std::string_view(pText, 0));
    return pNext;
}

// A comment after the numbers needs no warning.
void cRowReader::WarnOfRest(std::string_view Rest, int bAfterBlank)
{
    const int bComment = bAfterBlank && (Rest[0] == '#' || Rest.substr(0, 2) == "//");
    if (m_Count.m_nColumns == 0 || bComment || !IsListening(twTextIgnored))
        return;
    m_pFindings->Warn(twTextIgnored, Rest,
                      {std::to_string(m_Count.m_nColumns), QuotedWord(TrimmedBack(Rest))});
}

void cRowReader::ReadFields(std::string_view Line)
{
    const char cSeparator = m_Format.m_cSeparator;
    for (;;)
    {
        const std::string_view Field = FirstField(Line, cSeparator);
        const std::string_view Text  = Bare(Field, cSeparator);
        const int              bLast = Field.size() == Line.size();
        if (bLast && Text.empty() && m_Count.m_nColumns > 0)
            return;
        ReadField(Text);
        if (bLast || m_Count.m_nColumns == m_nLastColumn)
            return;
        Line.remove_prefix(Field.size() + 1);
    }
}

void cRowReader::ReadField(std::string_view Field)
{
    if (ReadNumber(Field.data(), Field.data() + Field.size(), 1))
        return;
    const eTableWarning nWarning = Field.empty() ? twEmptyField : twNotANumber;
    if (IsWanted() && IsListening(nWarning))
        m_pFindings->Warn(
            nWarning, Field,
            {Field.empty() ? std::to_string(m_Count.m_nColumns + 1) : QuotedWord(Field)});
    Store(kGapValue);
}

// The character that separates the names of a heading; '\0' for blanks.
static char NameSeparator(std::string_view Line)
{
    for (const char c : {';', ',', '\t'})
        if (Line.find(c) != std::string_view::npos)
            return c;
    return '\0';
}

// The length of the name that Text begins with, up to a blank outside quotes.
static size_t WordLength(std::string_view Text)
{
    const size_t nQuote = Text[0] == '"' ? Text.find('"', 1) : std::string_view::npos;
    if (nQuote != std::string_view::npos)
        return nQuote + 1;
    return static_cast<size_t>(std::find_if(Text.begin(), Text.end(), IsBlank) - Text.begin());
}

static std::vector<std::string> Words(std::string_view Text)
{
    std::vector<std::string> Words;
    for (Text = WithoutBlanks(Text); !Text.empty(); Text = WithoutBlanks(Text))
    {
        const size_t nLength = WordLength(Text);
        Words.emplace_back(Bare(Text.substr(0, nLength), kAnyBlank));
        Text.remove_prefix(nLength);
    }
    return Words;
}

std::vector<std::string> cRowReader::Names(std::string_view Line) const
{
    const char cSeparator = m_Format.m_cSeparator ? m_Format.m_cSeparator : NameSeparator(Line);
    if (cSeparator == '\0')
        return Words(Line);
    std::vector<std::string> Names;
    for (;;)
    {
        const std::string_view Field = FirstField(Line, cSeparator);
        const std::string_view Name  = Bare(Field, cSeparator);
        const int              bLast = Field.size() == Line.size();
        if (!bLast || !Name.empty())
            Names.emplace_back(Name);
        if (bLast)
            return Names;
        Line.remove_prefix(Field.size() + 1);
    }
}
