// listing_parser.h - the grammar of a program listing, line by line. Whether
// an instruction takes its operand is not judged here.
// Pure but for the table of mnemonics.

#ifndef ENGINE_LISTING_PARSER_H
#define ENGINE_LISTING_PARSER_H

#include <cstddef>

#include "engine/vorstek_state.h"

class cMnemonicMap;

const int kFileLineText = 512;  // a file line of 511 bytes, line end included

enum eListingLine
{
    llComment,  // blank, or beginning with ';'
    llInstruction,
    llNumber,
    llBadMnemonic,  // neither a mnemonic nor a number
    llBadNumber,    // something else behind a number
    llBadOperand    // no operand, or something behind it
};

struct cListingLine
{
    eListingLine m_nKind;
    char         m_szText[kMnemonicText];        // mnemonic ("STO i") or number
    char         m_szOperandText[kOperandText];  // its first two characters; "" for none
    unsigned     m_nOperand;                     // ".3" is 13
};

// Parses a line without its line end. Blanks are spaces and tabs.
void ParseListingLine(const char *szLine, const cMnemonicMap &Mnemonics, cListingLine *pLine);

// Copies the next line of pText, up to pEnd, without its line end: "\n" or
// "\r\n". A line longer than 511 bytes, line end included, comes in pieces; a
// NUL byte hides the rest of its piece. Returns where to go on, null when
// there was nothing left.
const char *NextFileLine(const char *pText, const char *pEnd, char (&szLine)[kFileLineText]);

#endif
