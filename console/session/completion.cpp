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

// "CL REG"; "STO i" is a word with its operand.
static int IsPair(const std::string &Word)
{
    return Word.find(' ') != std::string::npos && !Word.ends_with(" i");
}

// Pairs, or other words, that begin with Start.
static std::vector<std::string> WordsLike(const std::string &Start, int bPairs,
                                          const std::vector<std::string> &Words)
{
    std::vector<std::string> Found;
    std::copy_if(Words.begin(), Words.end(), std::back_inserter(Found),
                 [&Start, bPairs](const std::string &Word) {
                     return IsPair(Word) == bPairs && StartsLike(Word, Start);
                 });
    return Found;
}

// Where the last two words of the line begin, if there is one blank between them; else
// npos.
static size_t StartOfPair(const std::string &Line, size_t nLast)
{
    if (nLast < 2 || Line[nLast - 1] != ' ' || Line[nLast - 2] == ' ')
        return std::string::npos;
    return Line.find_last_of(" \t", nLast - 2) + 1;
}

// What all choices add to Start.
static std::string InsertOf(const std::vector<std::string> &Choices, const std::string &Start)
{
    std::string Common = Choices.front();
    for (const std::string &Choice : Choices)
        Common.erase(
            std::mismatch(Common.begin(), Common.end(), Choice.begin(), Choice.end()).first,
            Common.end());
    std::string Insert = Common.size() > Start.size() ? Common.substr(Start.size()) : "";
    if (Choices.size() == 1 && !Common.ends_with('/'))
        Insert += " ";
    return Insert;
}

cCompletion FindCompletion(const std::string &Line, const std::vector<std::string> &Words)
{
    size_t       nStart = Line.find_last_of(" \t") + 1;  // npos + 1 is 0
    const size_t nPair  = StartOfPair(Line, nStart);
    const int    bFile  = IsFileExpected(Line);
    cCompletion  Found;
    if (!bFile && nPair != std::string::npos)
        Found.m_Choices = WordsLike(Line.substr(nPair), 1, Words);
    if (!Found.m_Choices.empty())
        nStart = nPair;
    const std::string Start = Line.substr(nStart);
    if (Found.m_Choices.empty())
        Found.m_Choices = bFile ? FilesLike(Start) : WordsLike(Start, 0, Words);
    std::sort(Found.m_Choices.begin(), Found.m_Choices.end());
    if (!Found.m_Choices.empty() && !Start.empty())
        Found.m_Insert = InsertOf(Found.m_Choices, Start);
    return Found;
}
