#include "tests/fuzz/strict_xml.h"

#include <expat.h>

#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/strict_json.h"

void CheckXml(std::string_view Text)
{
    FUZZ_CHECK(IsUtf8(Text));
    const XML_Parser pParser = XML_ParserCreate(nullptr);
    if (XML_Parse(pParser, Text.data(), static_cast<int>(Text.size()), 1) != XML_STATUS_OK)
        ReportFinding(__FILE__, __LINE__, XML_ErrorString(XML_GetErrorCode(pParser)));
    XML_ParserFree(pParser);
}
