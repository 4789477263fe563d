#include "figure/clean_text.h"

#include "toolkit/utf8.h"

static const char *const kEllipsis = "\xE2\x80\xA6";

static int IsForbidden(std::string_view Character)
{
    const auto nLead    = static_cast<unsigned char>(Character[0]);
    const int  bControl = Character.size() == 1 && (nLead < ' ' || nLead == 0x7F);
    const int  bControl1 =
        Character.size() == 2 && nLead == 0xC2 && static_cast<unsigned char>(Character[1]) < 0xA0;
    return bControl || bControl1 || Character == "\xEF\xBF\xBE" || Character == "\xEF\xBF\xBF";
}

std::string CleanText(std::string_view Text)
{
    std::string Cleaned;
    while (!Text.empty())
    {
        const size_t           nValid    = Utf8Length(Text);
        const size_t           nUsed     = nValid > 0 ? nValid : 1;
        const std::string_view Character = Text.substr(0, nUsed);
        if (Character == "\t")
            Cleaned += ' ';
        else if (nValid == 0 || IsForbidden(Character))
            Cleaned += kReplacementCharacter;
        else
            Cleaned += Character;
        Text.remove_prefix(nUsed);
    }
    return Cleaned;
}

std::string Elided(std::string_view CleanedText, size_t nCharacters)
{
    size_t nBytes = 0;
    for (size_t n = 0; n < nCharacters && nBytes < CleanedText.size(); n++)
        nBytes += Utf8Length(CleanedText.substr(nBytes));
    while (nBytes > 0 && CleanedText[nBytes - 1] == ' ')
        nBytes--;
    return std::string(CleanedText.substr(0, nBytes)) + kEllipsis;
}

size_t LengthInCharacters(std::string_view CleanedText)
{
    size_t nCount = 0;
    for (; !CleanedText.empty(); nCount++)
        CleanedText.remove_prefix(Utf8Length(CleanedText));
    return nCount;
}
