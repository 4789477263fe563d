// utf8.h - characters in texts whose encoding nobody has promised.

#ifndef TOOLKIT_UTF8_H
#define TOOLKIT_UTF8_H

#include <cstddef>
#include <string_view>

// What stands in the place of a byte that is no part of a character: U+FFFD.
const char *const kReplacementCharacter = "\xEF\xBF\xBD";

// The bytes of the character that Text begins with: 1 for ASCII, 2 to 4 for a
// valid sequence. 0 where none begins, and for an empty text. Overlong forms,
// surrogates and codes beyond U+10FFFF are not valid.
size_t Utf8Length(std::string_view Text);

#endif
