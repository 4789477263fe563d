// source_lines.h - a listing as the loader reads it, line by line, with the
// places of the words, for tools that report on listings or rewrite them.

#ifndef LISTING_SOURCE_LINES_H
#define LISTING_SOURCE_LINES_H

#include <array>
#include <cstddef>
#include <string_view>

#include "engine/listing_words.h"

// A longer mnemonic or number is rejected.
const size_t kLongestWord = kMnemonicText - 1;

struct cSourceLine
{
    unsigned         m_nLine;         // as the loader counts, from 1
    std::string_view m_Text;          // without the line end, up to 511 bytes
    int              m_bSplit;        // the loader takes the rest for another line
    cListingLine     m_Parsed;        // llBadOperand also if the instruction rejects it
    unsigned         m_nProgramLine;  // 0 for a comment or a rejected line
    int              m_bOverflow;     // a program line beyond the last one
};

// The words of a line before its comment. What follows the third is ignored.
struct cLineWords
{
    std::array<std::string_view, 3> m_Words;
    size_t                          m_nWords;
};

// The part of a line that the loader reads: up to the comment, or to a NUL byte,
// which hides the rest.
std::string_view CodeOf(std::string_view Line);

// The comment from its semicolon on; empty if there is none.
std::string_view CommentOf(std::string_view Line);

cLineWords WordsOf(std::string_view Line);

// The loader's table of mnemonics.
const cMnemonicMap &Mnemonics();

// Gives the lines of a text, which must remain in place:
//
//     cSourceReader Reader(Text);
//     cSourceLine   Line;
//     while (Reader.Next(&Line))
//         ...
class cSourceReader
{
public:
    explicit cSourceReader(std::string_view Text);

    // 0 at the end, and after the line with which program memory overflowed.
    int Next(cSourceLine *pLine);

    // Where the next line begins.
    size_t Offset() const { return m_nOffset; }

private:
    void Classify(cSourceLine *pLine);

    std::string_view m_Source;
    size_t           m_nOffset;
    unsigned         m_nLine;
    unsigned         m_nProgramLines;
    int              m_bOverflow;
};

#endif
