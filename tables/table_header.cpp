#include "tables/table_header.h"

#include <algorithm>
#include <iterator>

#include "tables/row_reader.h"

// The text that follows an opening quote, up to the next quote or the end.
static std::string_view InQuotes(std::string_view Text)
{
    return Text.substr(0, Text.find('"'));
}

// The quoted text that Text begins with.
static std::string ReadText(std::string_view Text, cTableFindings *pFindings)
{
    const std::string_view Quoted = WithoutBlanks(Text);
    if (!Quoted.empty() && Quoted[0] == '"')
        return std::string(InQuotes(Quoted.substr(1)));
    pFindings->Warn(twHeadingSkipped, Quoted, {"the text is not in quotes"});
    return "";
}

// What is between the quoted labels is skipped.
static std::vector<std::string> ReadSetLabels(std::string_view Text)
{
    std::vector<std::string> Labels;
    for (size_t nQuote = Text.find('"'); nQuote != std::string_view::npos; nQuote = Text.find('"'))
    {
        const std::string_view Label = InQuotes(Text.substr(nQuote + 1));
        Labels.emplace_back(Label);
        Text.remove_prefix(std::min(nQuote + Label.size() + 2, Text.size()));
    }
    return Labels;
}

int cTableHeader::Take(std::string_view Line, cTableFindings *pFindings)
{
    // The blank belongs to the keyword. The first two exclude each other.
    static const struct
    {
        std::string_view m_Word;
        size_t           m_nPassed;  // after it
    } s_Keywords[] = {
        {"ImplicitX", 2}, {"ExplicitX", 2}, {"Title ", 3}, {"HorzAxisLabel ", 4}, {"SetLabels ", 5},
    };
    for (size_t nKeyword = m_nPassed; nKeyword < std::size(s_Keywords); nKeyword++)
    {
        const std::string_view Word = s_Keywords[nKeyword].m_Word;
        if (Line.substr(0, Word.size()) != Word)
            continue;
        m_nPassed                   = s_Keywords[nKeyword].m_nPassed;
        const std::string_view Rest = Line.substr(Word.size());
        switch (nKeyword)
        {
        case 0:
            break;
        case 1:
            m_bExplicitX = 1;
            break;
        case 2:
            m_Title = ReadText(Rest, pFindings);
            break;
        case 3:
            m_XLabel = ReadText(Rest, pFindings);
            break;
        default:
            m_Labels = ReadSetLabels(Rest);
        }
        return 1;
    }
    return 0;
}
