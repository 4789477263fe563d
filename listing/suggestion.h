// suggestion.h - what a word that the loader rejects was probably meant to be.

#ifndef LISTING_SUGGESTION_H
#define LISTING_SUGGESTION_H

#include <string>
#include <string_view>

struct cInstruction;

// For the first word of a line, neither a mnemonic nor a number: "ENTER" for
// "enter", "sqrt" for "sqr", "STO 5" for "sto5", "x<>y" for "swap", "1.5" for "1,5".
// Empty if nothing is near, or for a word with control characters.
std::string SuggestWord(std::string_view Word);

// For two words that are one on the keys: "ClearREG" for "CL" and "REG", "STO+" for
// "STO" and "+". Empty for others.
std::string SuggestForPair(std::string_view First, std::string_view Second);

// For an operand that the instruction does not take: ".5" for register 15, "5"
// for "05". Empty if nothing is near.
std::string SuggestOperand(const cInstruction &Instruction, std::string_view Operand);

// "STO takes a register, 0 to 9 or .0 to .10, or i", for messages.
std::string WhatItTakes(const cInstruction &Instruction);

#endif
