// listing_words.h - the words of program lines: line number, mnemonic, operand
// and number. Listing files, the listing box, recording, display and trace all
// read and print them here.
// Pure but for the table of mnemonics.

#ifndef ENGINE_LISTING_WORDS_H
#define ENGINE_LISTING_WORDS_H

#include <climits>
#include <cstddef>

#include "engine/program_line.h"

class cMnemonicMap;

// Registers from this one on are written with a point: ".3" is register 13.
const unsigned kFirstDottedRegister = 10;
const unsigned kLargestRegister     = 20;  // ".10"

// Listing lines begin with a mark: "05 ", "   " for a comment, "-- " for a
// rejected line. A line without text, as line 0 is, is its number alone: "00".
// All end in "\r\n".
const size_t kListingMark  = kLineDigits + 1;
const size_t kListingExtra = kListingMark + 2;  // characters besides the text

const int kLineNumberText = kLineDigits + 1;  // "05" with its end

// A mnemonic, a blank, and a point with any value: "STO .4294967285".
const int kStepText     = kMnemonicText + 1 + 1 + CountDigits(UINT_MAX);
const int kListedText   = kStepText + static_cast<int>(kListingExtra);
const int kFileLineText = 512;  // a file line of 511 bytes, line end included

// --- steps
// The instruction with its operand as a program line keeps it: the first two
// characters of the operand's text, and the value of these two. ".10" becomes
// ".1", register 11.
cStep RecordedStep(const cInstruction &Instruction, unsigned nOperand);

// --- printing
// "STO .3", with the complete operand: register 20 is ".10".
void PrintInstruction(const cInstruction &Instruction, unsigned nOperand,
                      char (&szText)[kStepText]);

// "STO .3", or the number, as the step keeps it.
void PrintStep(const cStep &Step, char (&szText)[kStepText]);

// "05", as in all texts that show a line number. nLine is 0 to kLastLine.
void PrintLineNumber(unsigned nLine, char (&szNumber)[kLineNumberText]);

// "05 STO .3", for the display.
void PrintNumberedStep(unsigned nLine, const cStep &Step, char (&szText)[kListedText]);

// "05 STO 13", the operand's value instead of its text, for the trace.
void PrintTracedStep(unsigned nLine, const cStep &Step, char (&szText)[kListedText]);

// A line of the listing: "05 STO .3\r\n". Cut to nSize - 1 characters; returns
// the length of the complete line.
size_t PrintListedLine(unsigned nLine, const char *szText, char *szListed, size_t nSize);
size_t PrintListedComment(const char *szText, char *szListed, size_t nSize);
size_t PrintListedRejection(const char *szText, char *szListed, size_t nSize);

// Overwrites the number of a listing line; 0 if the line begins with none.
int RenumberListedLine(unsigned nLine, char *pListed);

// --- reading
enum eListingLine
{
    llComment,  // blank, or beginning with ';'
    llInstruction,
    llNumber,
    llBadMnemonic,  // neither a mnemonic nor a number
    llBadNumber,    // text after a number
    llBadOperand    // not an operand, or text after it
};

struct cListingLine : cStep
{
    eListingLine m_nKind;
};

// Parses a line without its line end. Blanks are spaces and tabs. The first two
// characters of an operand are kept as its text, its value is that of all of
// it: ".10" is kept as ".1", register 20. Whether the instruction takes this
// operand is not judged here.
void ParseListingLine(const char *szLine, const cMnemonicMap &Mnemonics, cListingLine *pLine);

// Whether the instruction takes an operand of this text, "" for none, and value:
// "5" and ".3", 13, are registers, "12" is not.
int TakesOperand(const cInstruction &Instruction, const char *szOperand, unsigned nOperand);

// What the loader says of a line that is not accepted, up to the line's number:
// "Error: illegal number on line #".
const char *RejectionText(eListingLine nKind);

// What it says when a program line follows line kLastLine.
const char *const kOverflowText = "Program memory overflow";

// Copies the next line of pText, up to pEnd, without its line end: "\n" or
// "\r\n". A line longer than 511 bytes, line end included, comes in pieces; a
// NUL byte hides the rest of its piece. Returns where to continue, null when
// there was nothing left.
const char *NextFileLine(const char *pText, const char *pEnd, char (&szLine)[kFileLineText]);

#endif
