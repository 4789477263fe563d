#include "console/session/instruction_help.h"

#include <string>
#include <utility>

// Names as the manual writes them, and HTML of its paragraphs.
static const struct
{
    const char *szNames;
    const char *szHtml;
} s_Rows[] = {
#include "console/session/instruction_help.inc"
};

static void ReplaceAll(std::string *pText, const std::string &From, const std::string &To)
{
    for (size_t nAt = 0; (nAt = pText->find(From, nAt)) != std::string::npos; nAt += To.size())
        pText->replace(nAt, From.size(), To);
}

// The text of an error, which begins its paragraph, comes into quotes.
static void QuoteErrors(std::string *pHtml)
{
    static const std::string s_Start = "<p class=\"error\"><code>";
    static const std::string s_End   = "</code>";
    for (size_t nAt = 0; (nAt = pHtml->find(s_Start, nAt)) != std::string::npos;)
    {
        pHtml->replace(nAt, s_Start.size(), "\"");
        pHtml->replace(pHtml->find(s_End, nAt), s_End.size(), "\"");
    }
}

// Keys, which a frame shows there, are set apart; "CL_REG" is one key. A superscript
// keeps its meaning as "10^x".
static std::string PlainText(const std::string &Html)
{
    static const std::pair<const char *, const char *> s_Elements[]   = {{"\u2003", "   "},
                                                                         {"<sup>", "^"}};
    static const std::pair<const char *, const char *> s_Characters[] = {
        {"&lt;", "<"}, {"&gt;", ">"}, {"&nbsp;", " "}, {"&amp;", "&"}, {"_", " "}};
    std::string Text = Html;
    QuoteErrors(&Text);
    for (const auto &[szFrom, szTo] : s_Elements)
        ReplaceAll(&Text, szFrom, szTo);
    for (size_t nStart = 0; (nStart = Text.find('<', nStart)) != std::string::npos;)
        Text.erase(nStart, Text.find('>', nStart) - nStart + 1);
    for (const auto &[szFrom, szTo] : s_Characters)
        ReplaceAll(&Text, szFrom, szTo);
    return Text;
}

std::string InstructionHelp(std::string_view Mnemonic)
{
    for (const auto &Row : s_Rows)
        if (Mnemonic == PlainText(Row.szNames))
            return PlainText(Row.szHtml) + "\n";
    return "";
}
