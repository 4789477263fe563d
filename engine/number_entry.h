// number_entry.h - builds a number key by key. m_szEntry holds the mantissa
// with its sign, m_szExponent "e", a sign and two digits. In run mode the
// number grows in X, in program mode in a line of the program.

#ifndef ENGINE_NUMBER_ENTRY_H
#define ENGINE_NUMBER_ENTRY_H

class cCalculator;

// '0' to '9', '.' or 'e'. Always returns 1.
int EnterCharacter(cCalculator &c, char cKey);

// CHS while a number is being keyed in. Always returns 1.
int ChangeEntrySign(cCalculator &c);

#endif
