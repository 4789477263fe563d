#include "tests/fuzz/strict_json.h"

#include <cctype>
#include <string>

#include "tests/fuzz/fuzz_target.h"

namespace
{

// Reads values of a text; each function advances m_nAt past what it accepts, or
// returns 0.
class cJsonReader
{
public:
    explicit cJsonReader(std::string_view Text) : m_Text(Text), m_nAt(0) {}

    int Object() { return Sequence('{', '}', &cJsonReader::Member); }
    int IsAtEnd() const { return m_nAt == m_Text.size(); }

private:
    unsigned Peek() const { return ByteAt(m_Text, m_nAt); }
    int      Take(char c);
    int      TakeWord(std::string_view Word);
    int      TakeDigits();
    int      Sequence(char cOpen, char cClose, int (cJsonReader::*pElement)());
    int      Member() { return Text() && Take(':') && Value(); }
    int      Value();
    int      Text();
    int      Escape();
    int      Number();

    std::string_view m_Text;
    size_t           m_nAt;
};

}  // namespace

int cJsonReader::Take(char c)
{
    const int bThere = m_nAt < m_Text.size() && m_Text[m_nAt] == c;
    m_nAt += static_cast<size_t>(bThere);
    return bThere;
}

int cJsonReader::TakeWord(std::string_view Word)
{
    const int bThere = m_Text.substr(m_nAt).starts_with(Word);
    if (bThere)
        m_nAt += Word.size();
    return bThere;
}

int cJsonReader::TakeDigits()
{
    const size_t nFormer = m_nAt;
    while (Peek() >= '0' && Peek() <= '9')
        m_nAt++;
    return m_nAt > nFormer;
}

int cJsonReader::Sequence(char cOpen, char cClose, int (cJsonReader::*pElement)())
{
    if (!Take(cOpen))
        return 0;
    if (Take(cClose))
        return 1;
    do
        if (!(this->*pElement)())
            return 0;
    while (Take(','));
    return Take(cClose);
}

int cJsonReader::Value()
{
    switch (Peek())
    {
    case '{':
        return Object();
    case '[':
        return Sequence('[', ']', &cJsonReader::Value);
    case '"':
        return Text();
    default:
        return TakeWord("true") || TakeWord("false") || TakeWord("null") || Number();
    }
}

int cJsonReader::Escape()
{
    const unsigned c = Peek();
    m_nAt++;
    if (c != 'u')
        return std::string_view("\"\\/bfnrt").find(static_cast<char>(c)) != std::string_view::npos;
    for (int i = 0; i < 4; i++, m_nAt++)
        if (m_nAt >= m_Text.size() || !isxdigit(static_cast<int>(Peek())))
            return 0;
    return 1;
}

int cJsonReader::Text()
{
    if (!Take('"'))
        return 0;
    while (!IsAtEnd() && Peek() >= 0x20)
    {
        if (Take('"'))
            return 1;
        if (!Take('\\'))
            m_nAt++;
        else if (!Escape())
            return 0;
    }
    return 0;
}

int cJsonReader::Number()
{
    Take('-');
    if (!Take('0') && !TakeDigits())
        return 0;
    if (Take('.') && !TakeDigits())
        return 0;
    if (!Take('e') && !Take('E'))
        return 1;
    if (!Take('+'))
        Take('-');
    return TakeDigits();
}

// Decodes each character and compares its length with the shortest form.
int IsUtf8(std::string_view Text)
{
    for (size_t nAt = 0; nAt < Text.size();)
    {
        const unsigned nFirst  = ByteAt(Text, nAt);
        const size_t   nLength = nFirst < 0x80       ? 1
                                 : nFirst >> 5 == 6  ? 2
                                 : nFirst >> 4 == 14 ? 3
                                 : nFirst >> 3 == 30 ? 4
                                                     : 0;
        if (nLength == 0 || nAt + nLength > Text.size())
            return 0;
        unsigned nCode = nLength == 1 ? nFirst : nFirst & (0x7F >> nLength);
        for (size_t i = 1; i < nLength; i++)
        {
            if (ByteAt(Text, nAt + i) >> 6 != 2)
                return 0;
            nCode = nCode << 6 | (ByteAt(Text, nAt + i) & 0x3F);
        }
        const size_t nShortest = nCode < 0x80 ? 1 : nCode < 0x800 ? 2 : nCode < 0x10000 ? 3 : 4;
        if (nLength != nShortest || nCode > 0x10FFFF || (nCode >= 0xD800 && nCode < 0xE000))
            return 0;
        nAt += nLength;
    }
    return 1;
}

int IsJsonObject(std::string_view Text)
{
    cJsonReader Reader(Text);
    return IsUtf8(Text) && Reader.Object() && Reader.IsAtEnd();
}

size_t CheckJsonLines(std::string_view Text)
{
    size_t nLines = 0;
    for (; !Text.empty(); nLines++)
    {
        const size_t nEnd = Text.find('\n');
        FUZZ_CHECK(nEnd != std::string_view::npos);
        if (!IsJsonObject(Text.substr(0, nEnd)))
            ReportFinding(__FILE__, __LINE__,
                          "no JSON object: " + std::string(Text.substr(0, nEnd)));
        Text.remove_prefix(nEnd + 1);
    }
    return nLines;
}
