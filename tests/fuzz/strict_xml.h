// strict_xml.h - a judge of XML that shares no code with its writer.

#ifndef TESTS_FUZZ_STRICT_XML_H
#define TESTS_FUZZ_STRICT_XML_H

#include <string_view>

// Ends with a finding unless the text is UTF-8 and expat accepts it.
void CheckXml(std::string_view Text);

#endif
