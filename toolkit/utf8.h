// utf8.h - characters in texts that may not be valid UTF-8.

#ifndef TOOLKIT_UTF8_H
#define TOOLKIT_UTF8_H

#include <cstddef>
#include <string_view>

// Replaces a byte that is not part of a valid character: U+FFFD.
const char *const kReplacementCharacter = "\xEF\xBF\xBD";

// The bytes of the character that Text begins with: 1 for ASCII, 2 to 4 for a
// valid sequence. 0 if there is none, and for an empty text. Overlong forms,
// surrogates and codes beyond U+10FFFF are not valid.
size_t Utf8Length(std::string_view Text);

#endif
