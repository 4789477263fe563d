#include "toolkit/finding.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "toolkit/utf8.h"

static const size_t kQuotedCharacters = 24;

static const char *const kTooManyName   = "too-many";
static const char *const kTooManyErrors = "Error: too many errors; the rest is not read";
static const char *const kTooManyAlike  = "too many warnings like this one; more are not reported";

static std::string Filled(const char *szText, std::initializer_list<std::string> Values)
{
    std::string Text;
    for (const char *pText = szText; *pText; pText++)
    {
        const size_t nValue = *pText == '%' ? static_cast<size_t>(pText[1] - '1') : Values.size();
        if (nValue >= Values.size())
            Text.push_back(*pText);
        else
        {
            Text += Values.begin()[nValue];
            pText++;
        }
    }
    return Text;
}

// The bytes of the first character; a byte that is not part of one is one itself.
static size_t CharacterLength(std::string_view Text)
{
    return std::max<size_t>(Utf8Length(Text), 1);
}

static unsigned ColumnOf(std::string_view LineText, std::string_view Place)
{
    std::string_view Before =
        LineText.substr(0, static_cast<size_t>(Place.data() - LineText.data()));
    unsigned nColumn = 1;
    for (; !Before.empty(); nColumn++)
        Before.remove_prefix(CharacterLength(Before));
    return nColumn;
}

cFindingList::cFindingList(std::span<const cWarningRow> Warnings)
    : m_Rows(Warnings), m_nErrors(0), m_Warnings(Warnings.size())
{
}

void cFindingList::AddError(unsigned nLine, std::string_view LineText, std::string_view Place,
                            const char *szName, const std::string &Text,
                            const std::string &Suggestion)
{
    if (IsFull())
        return;
    m_List.push_back({svError, szName, nLine, ColumnOf(LineText, Place), Text, Suggestion});
    if (++m_nErrors > kMostFindings)
        m_List.back() = {svError, kTooManyName, nLine, 1, kTooManyErrors, ""};
}

void cFindingList::Warn(size_t nWarning, unsigned nLine, std::string_view LineText,
                        std::string_view Place, std::initializer_list<std::string> Values)
{
    const cWarningRow &Row = m_Rows[nWarning];
    if (m_Warnings[nWarning] > kMostFindings)
        return;
    const int bOneMore = ++m_Warnings[nWarning] > kMostFindings;
    m_List.push_back({svWarning, Row.m_szName, nLine, ColumnOf(LineText, Place),
                      bOneMore ? kTooManyAlike : Filled(Row.m_szText, Values), ""});
}

static int IsBefore(const cFinding *pOne, const cFinding *pTwo)
{
    if (pOne->m_nLine != pTwo->m_nLine)
        return pOne->m_nLine < pTwo->m_nLine;
    if (pOne->m_nSeverity != pTwo->m_nSeverity)
        return pOne->m_nSeverity < pTwo->m_nSeverity;
    return pOne < pTwo;
}

// Pointers are sorted, and each finding is moved once: a sort that moves findings,
// with two texts in each, would be one of the largest functions of the program.
void cFindingList::Sort()
{
    std::vector<cFinding *> Order;
    Order.reserve(m_List.size());
    for (cFinding &Finding : m_List)
        Order.push_back(&Finding);
    std::sort(Order.begin(), Order.end(), IsBefore);

    std::vector<cFinding> Sorted;
    Sorted.reserve(m_List.size());
    for (cFinding *const pFinding : Order)
        Sorted.push_back(std::move(*pFinding));
    m_List.swap(Sorted);
}

static unsigned CodePoint(std::string_view Character)
{
    const unsigned nLead = static_cast<unsigned char>(Character[0]);
    if (Character.size() == 1)
        return nLead;
    unsigned nCode = nLead & (0x7Fu >> Character.size());
    for (const char c : Character.substr(1))
        nCode = nCode << 6 | (static_cast<unsigned char>(c) & 0x3F);
    return nCode;
}

std::string CharacterCode(std::string_view Character)
{
    char szCode[16];
    snprintf(szCode, sizeof szCode, Utf8Length(Character) ? "U+%04X" : "byte %02X",
             CodePoint(Character));
    return szCode;
}

// Control characters, blanks other than the space, marks without a width and
// those that reverse the direction of text.
static int IsInvisible(unsigned nCode)
{
    static const struct
    {
        unsigned m_nFirst;
        unsigned m_nLast;
    } s_Ranges[] = {
        {0x00, 0x1F},     {0x7F, 0xA0},     {0xAD, 0xAD},     {0x2000, 0x200F},
        {0x2028, 0x202F}, {0x205F, 0x206F}, {0x3000, 0x3000}, {0xFEFF, 0xFEFF},
    };
    return std::any_of(std::begin(s_Ranges), std::end(s_Ranges), [nCode](const auto &Range) {
        return nCode >= Range.m_nFirst && nCode <= Range.m_nLast;
    });
}

std::string QuotedWord(std::string_view Word)
{
    std::string Quoted = "\"";
    for (size_t nCount = 0; !Word.empty(); nCount++)
    {
        if (nCount == kQuotedCharacters)
        {
            Quoted += "...";
            break;
        }
        const std::string_view Character = Word.substr(0, CharacterLength(Word));
        if (!Utf8Length(Word) || IsInvisible(CodePoint(Character)))
            Quoted += "<" + CharacterCode(Character) + ">";
        else
            Quoted += Character;
        Word.remove_prefix(Character.size());
    }
    return Quoted + "\"";
}
