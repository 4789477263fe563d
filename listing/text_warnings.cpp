#include "listing/text_warnings.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "listing/findings.h"
#include "listing/source_lines.h"
#include "toolkit/utf8.h"

// A no-break space in UTF-8, and in the code pages of Windows.
static const char *const kNoBreakSpace       = "\u00A0";
static const char *const kNarrowNoBreakSpace = "\u202F";
static const char *const kNoBreakByte        = "\xA0";

// clang-format off
static const struct
{
    const char *m_szBytes;
    const char *m_szMeaning;
} s_Marks[] =
{
    { "\xEF\xBB\xBF", "a byte order mark"             },
    { "\xFF\xFE",     "the byte order mark of UTF-16" },
    { "\xFE\xFF",     "the byte order mark of UTF-16" },
};
// clang-format on

// Returns the length of the mark.
static size_t FindMark(const cSourceLine &Line, cFindings *pFindings)
{
    if (Line.m_nLine != 1)
        return 0;
    for (const auto &Mark : s_Marks)
        if (Line.m_Text.starts_with(Mark.m_szBytes))
        {
            pFindings->Warn(wnByteOrderMark, Line, Line.m_Text, {Mark.m_szMeaning});
            return std::string_view(Mark.m_szBytes).size();
        }
    return 0;
}

static int IsNoBreakSpace(std::string_view Character)
{
    return Character == kNoBreakSpace || Character == kNarrowNoBreakSpace ||
           Character == kNoBreakByte;
}

// "\u03A3" (U+03A3), or the code alone of what cannot be shown.
static std::string CharacterName(std::string_view Character)
{
    const std::string Code   = CharacterCode(Character);
    const std::string Quoted = QuotedWord(Character);
    return Quoted.find(Code) == std::string::npos ? Quoted + " (" + Code + ")" : Code;
}

// The first character of each kind; the code of a line is ASCII otherwise.
static void FindCharacters(const cSourceLine &Line, std::string_view Code, cFindings *pFindings)
{
    int bSpaceFound = 0;
    int bOtherFound = 0;
    while (!Code.empty())
    {
        const std::string_view Character = Code.substr(0, std::max<size_t>(Utf8Length(Code), 1));
        if (IsNoBreakSpace(Character) && !bSpaceFound++)
            pFindings->Warn(wnNoBreakSpace, Line, Character, {CharacterCode(Character)});
        else if (!IsNoBreakSpace(Character) && static_cast<unsigned char>(Character[0]) >= 0x80 &&
                 !bOtherFound++)
            pFindings->Warn(wnNonAscii, Line, Character, {CharacterName(Character)});
        Code.remove_prefix(Character.size());
    }
}

void FindTextWarnings(const cSourceLine &Line, int bStartsLine, cFindings *pFindings)
{
    const size_t           nMark = FindMark(Line, pFindings);
    const std::string_view Code  = CodeOf(Line.m_Text);
    FindCharacters(Line, Code.substr(std::min(nMark, Code.size())), pFindings);
    const size_t nNul = Line.m_Text.find('\0');
    if (nNul != std::string_view::npos)
        pFindings->Warn(wnNulByte, Line, Line.m_Text.substr(nNul));
    if (Line.m_bSplit && bStartsLine)
        pFindings->Warn(wnLongLine, Line, Line.m_Text.substr(Line.m_Text.size() - 1));
}
