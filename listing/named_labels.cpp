#include "listing/named_labels.h"

#include <algorithm>

#include "toolkit/spelling.h"

static const std::string_view kDigits  = "0123456789";
static const std::string_view kLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";

namespace
{

// Takes the words, numbers and signs of a comment one by one.
class cLabelNames
{
public:
    void TakeNumber(std::string_view Number);
    void TakeWord(std::string_view Word);
    void TakeDash() { m_bRange = 1; }

    std::bitset<kLabels> m_Labels;

private:
    int m_bNamed  = 0;   // a number that follows is a label
    int m_nFormer = -1;  // the label before it
    int m_bRange  = 0;   // those between the two are named too
};

}  // namespace

void cLabelNames::TakeNumber(std::string_view Number)
{
    m_bNamed = m_bNamed && Number.size() == 1;
    if (!m_bNamed)
        return;
    const int nLabel = Number[0] - '0';
    const int nFirst = m_bRange && m_nFormer >= 0 ? std::min(m_nFormer, nLabel) : nLabel;
    for (int i = nFirst; i <= nLabel; i++)
        m_Labels.set(static_cast<size_t>(i));
    m_nFormer = nLabel;
    m_bRange  = 0;
}

static int IsOneOf(std::initializer_list<std::string_view> Words, std::string_view Word)
{
    return std::any_of(Words.begin(), Words.end(),
                       [Word](std::string_view One) { return EqualIgnoringCase(One, Word); });
}

void cLabelNames::TakeWord(std::string_view Word)
{
    if (IsOneOf({"GSB", "GTO", "LBL", "label", "labels"}, Word))
    {
        m_bNamed  = 1;
        m_nFormer = -1;
    }
    else if (!IsOneOf({"and", "or", "to"}, Word))
        m_bNamed = 0;
    m_bRange = EqualIgnoringCase(Word, "to");
}

std::bitset<kLabels> NamedLabels(std::string_view Comment)
{
    cLabelNames Names;
    while (!Comment.empty())
    {
        const size_t nDigits  = std::min(Comment.find_first_not_of(kDigits), Comment.size());
        const size_t nLetters = std::min(Comment.find_first_not_of(kLetters), Comment.size());
        if (nDigits)
            Names.TakeNumber(Comment.substr(0, nDigits));
        else if (nLetters)
            Names.TakeWord(Comment.substr(0, nLetters));
        else if (Comment[0] == '-')
            Names.TakeDash();
        Comment.remove_prefix(std::max<size_t>({nDigits, nLetters, 1}));
    }
    return Names.m_Labels;
}
