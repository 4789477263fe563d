// strict_json.h - a judge of JSON text that accepts nothing but what the standard
// allows. Shares no code with the writer that it judges.

#ifndef TESTS_FUZZ_STRICT_JSON_H
#define TESTS_FUZZ_STRICT_JSON_H

#include <string_view>

// 1 if the text is valid UTF-8: no overlong forms, no surrogates, nothing beyond
// U+10FFFF.
int IsUtf8(std::string_view Text);

// 1 if the text is one JSON object without blanks around it, and valid UTF-8.
int IsJsonObject(std::string_view Text);

// Ends with a finding unless every line is such an object, and ends in "\n". Returns
// the number of lines.
size_t CheckJsonLines(std::string_view Text);

#endif
