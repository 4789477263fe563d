#include "console/json.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <exception>

#include "toolkit/utf8.h"

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
        const size_t nLength = Utf8Length(Text.substr(nAt));
        if (nLength == 1)
            AppendAscii(pJson, Text[nAt]);
        else if (nLength > 1)
            pJson->append(Text.substr(nAt, nLength));
        else
            pJson->append(kReplacementCharacter);
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
    : m_pJson(pJson), m_cClose(cClose), m_bFirst(1), m_nExceptions(std::uncaught_exceptions())
{
    m_pJson->push_back(cOpen);
}

cJsonList::~cJsonList() noexcept(false)
{
    if (std::uncaught_exceptions() == m_nExceptions)
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
