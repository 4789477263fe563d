#include "toolkit/spelling.h"

#include <algorithm>
#include <utility>
#include <vector>

static char LowerCase(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

static int IsSameLetter(char c, char cOther)
{
    return LowerCase(c) == LowerCase(cOther);
}

int EqualIgnoringCase(std::string_view Text, std::string_view Other)
{
    return std::equal(Text.begin(), Text.end(), Other.begin(), Other.end(), IsSameLetter);
}

namespace
{

// Rows of the table of distances: cell n is the distance from the characters of
// one text so far to the first n of the other.
struct cDistanceRows
{
    std::vector<size_t> m_BeforeLast;
    std::vector<size_t> m_Last;
    std::vector<size_t> m_Row;
};

}  // namespace

// Row nAt + 1, from the two rows before it.
static void FillRow(std::string_view Text, std::string_view Other, size_t nAt, cDistanceRows *pRows)
{
    pRows->m_Row[0] = nAt + 1;
    for (size_t i = 0; i < Other.size(); i++)
    {
        const size_t nChanged = pRows->m_Last[i] + !IsSameLetter(Text[nAt], Other[i]);
        size_t       nBest    = std::min({nChanged, pRows->m_Last[i + 1] + 1, pRows->m_Row[i] + 1});
        if (nAt > 0 && i > 0 && IsSameLetter(Text[nAt], Other[i - 1]) &&
            IsSameLetter(Text[nAt - 1], Other[i]))
            nBest = std::min(nBest, pRows->m_BeforeLast[i - 1] + 1);
        pRows->m_Row[i + 1] = nBest;
    }
}

size_t SpellingDistance(std::string_view Text, std::string_view Other, size_t nMost)
{
    if (std::max(Text.size(), Other.size()) - std::min(Text.size(), Other.size()) > nMost)
        return nMost + 1;
    const std::vector<size_t> Empty(Other.size() + 1);
    cDistanceRows             Rows = {Empty, Empty, Empty};
    for (size_t i = 0; i <= Other.size(); i++)
        Rows.m_Last[i] = i;
    for (size_t nAt = 0; nAt < Text.size(); nAt++)
    {
        FillRow(Text, Other, nAt, &Rows);
        std::swap(Rows.m_BeforeLast, Rows.m_Last);
        std::swap(Rows.m_Last, Rows.m_Row);
    }
    return std::min(Rows.m_Last.back(), nMost + 1);
}

int NearestWord(std::string_view Word, std::span<const std::string_view> Words)
{
    size_t nNear    = std::min<size_t>((Word.size() + 1) / 3, 3);
    int    nNearest = -1;
    int    bSeveral = 0;
    for (size_t i = 0; i < Words.size(); i++)
    {
        const size_t nDistance = SpellingDistance(Word, Words[i], nNear);
        if (nDistance > nNear)
            continue;
        bSeveral = nNearest >= 0 && nDistance == nNear;
        nNearest = static_cast<int>(i);
        nNear    = nDistance;
    }
    return bSeveral ? -1 : nNearest;
}
