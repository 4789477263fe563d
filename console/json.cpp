#include "console/json.h"

#include <charconv>
#include <cmath>
#include <cstdio>

static const char *const kReplacement = "\xEF\xBF\xBD";  // U+FFFD

static unsigned ByteAt(std::string_view Text, size_t nAt)
{
    return nAt < Text.size() ? static_cast<unsigned char>(Text[nAt]) : 0;
}

// Lead bytes of UTF-8 and what may follow them. The first continuation byte is
// narrower where it would spell an overlong form, a surrogate or a code beyond
// U+10FFFF.
static const struct
{
    unsigned m_nLeadMin;
    unsigned m_nLeadMax;
    unsigned m_nNextMin;
    unsigned m_nNextMax;
    size_t   m_nLength;
} s_Sequences[] = {
    {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3}, {0xE1, 0xEC, 0x80, 0xBF, 3},
    {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3}, {0xF0, 0xF0, 0x90, 0xBF, 4},
    {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
};

// Length of the valid sequence of several bytes at nAt, 0 if there is none.
static size_t SequenceLength(std::string_view Text, size_t nAt)
{
    const unsigned nLead = ByteAt(Text, nAt);
    for (const auto &Row : s_Sequences)
    {
        if (nLead < Row.m_nLeadMin || nLead > Row.m_nLeadMax)
            continue;
        const unsigned nNext = ByteAt(Text, nAt + 1);
        if (nNext < Row.m_nNextMin || nNext > Row.m_nNextMax)
            return 0;
        for (size_t i = 2; i < Row.m_nLength; i++)
            if ((ByteAt(Text, nAt + i) & 0xC0) != 0x80)
                return 0;
        return Row.m_nLength;
    }
    return 0;
}

static void AppendAscii(std::string *pJson, char c)
{
    if (c == '"' || c == '\\')
    {
        pJson->push_back('\\');
        pJson->push_back(c);
    }
    else if (c == '\n')
        pJson->append("\\n");
    else if (static_cast<unsigned char>(c) >= 0x20)
        pJson->push_back(c);
    else
    {
        char szEscape[8];
        snprintf(szEscape, sizeof szEscape, "\\u%04x", static_cast<unsigned>(c));
        pJson->append(szEscape);
    }
}

void AppendJsonText(std::string *pJson, std::string_view Text)
{
    pJson->push_back('"');
    for (size_t nAt = 0; nAt < Text.size();)
    {
        const size_t nLength = SequenceLength(Text, nAt);
        if (nLength)
            pJson->append(Text.substr(nAt, nLength));
        else if (ByteAt(Text, nAt) < 0x80)
            AppendAscii(pJson, Text[nAt]);
        else
            pJson->append(kReplacement);
        nAt += nLength ? nLength : 1;
    }
    pJson->push_back('"');
}

template <class cNumber> static void AppendNumber(std::string *pJson, cNumber Value)
{
    if (std::isnan(Value))
        pJson->append("\"nan\"");
    else if (std::isinf(Value))
        pJson->append(Value > 0 ? "\"inf\"" : "\"-inf\"");
    else if (Value == 0 && std::signbit(Value))
        pJson->append("-0.0");
    else
    {
        char szNumber[40];
        pJson->append(szNumber, std::to_chars(szNumber, szNumber + sizeof szNumber, Value).ptr);
    }
}

void AppendJsonNumber(std::string *pJson, double dValue)
{
    AppendNumber(pJson, dValue);
}

void AppendJsonNumber(std::string *pJson, float fValue)
{
    AppendNumber(pJson, fValue);
}

cJsonList::cJsonList(std::string *pJson, char cOpen, char cClose)
    : m_pJson(pJson), m_cClose(cClose), m_bFirst(1)
{
    m_pJson->push_back(cOpen);
}

cJsonList::~cJsonList()
{
    m_pJson->push_back(m_cClose);
}

std::string *cJsonList::Next()
{
    if (!m_bFirst)
        m_pJson->push_back(',');
    m_bFirst = 0;
    return m_pJson;
}

std::string *cJsonList::Key(std::string_view Name)
{
    AppendJsonText(Next(), Name);
    m_pJson->push_back(':');
    return m_pJson;
}

void cJsonList::Text(std::string_view Name, std::string_view Value)
{
    AppendJsonText(Key(Name), Value);
}

void cJsonList::Number(std::string_view Name, double dValue)
{
    AppendJsonNumber(Key(Name), dValue);
}
