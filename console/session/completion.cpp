#include "console/session/completion.h"

#include <algorithm>
#include <cctype>
#include <iterator>

#include "console/session/folder_names.h"

static int IsFileExpected(const std::string &Line)
{
    for (const char *const szCommand : {"load ", "save ", "save! ", "plot "})
        if (Line.starts_with(szCommand))
            return 1;
    return 0;
}

static int StartsLike(const std::string &Word, const std::string &Start)
{
    return Word.size() >= Start.size() &&
           std::equal(Start.begin(), Start.end(), Word.begin(),
                      [](unsigned char a, unsigned char b) { return tolower(a) == tolower(b); });
}

static std::vector<std::string> WordsLike(const std::string              &Start,
                                          const std::vector<std::string> &Words)
{
    std::vector<std::string> Found;
    std::copy_if(Words.begin(), Words.end(), std::back_inserter(Found),
                 [&Start](const std::string &Word) { return StartsLike(Word, Start); });
    return Found;
}

cCompletion FindCompletion(const std::string &Line, const std::vector<std::string> &Words)
{
    const size_t      nStart = Line.find_last_of(" \t") + 1;  // npos + 1 is 0
    const std::string Start  = Line.substr(nStart);
    const int         bFile  = IsFileExpected(Line);
    cCompletion       Found;
    Found.m_Choices = bFile ? FilesLike(Start) : WordsLike(Start, Words);
    std::sort(Found.m_Choices.begin(), Found.m_Choices.end());
    if (Found.m_Choices.empty() || Start.empty())
        return Found;

    std::string Common = Found.m_Choices.front();
    for (const std::string &Choice : Found.m_Choices)
        Common.erase(
            std::mismatch(Common.begin(), Common.end(), Choice.begin(), Choice.end()).first,
            Common.end());
    if (Common.size() > Start.size())
        Found.m_Insert = Common.substr(Start.size());
    if (Found.m_Choices.size() == 1 && !Common.ends_with('/'))
        Found.m_Insert += " ";
    return Found;
}
