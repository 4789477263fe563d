// json.h - pieces of JSON text. Everything is appended to a string.

#ifndef CONSOLE_JSON_H
#define CONSOLE_JSON_H

#include <string>
#include <string_view>

// A quoted text in UTF-8; each byte that is not part of a valid sequence becomes
// U+FFFD.
void AppendJsonText(std::string *pJson, std::string_view Text);

// A number that reads back to the same value: 5, 0.1, -0.0, 1e+22. A NaN is
// the text "nan", infinities are "inf" and "-inf".
void AppendJsonNumber(std::string *pJson, double dValue);
void AppendJsonNumber(std::string *pJson, float fValue);

// Members of an object and elements of an array, with the commas between them.
//
//     cJsonList Object(&Json, '{', '}');
//     AppendJsonNumber(Object.Key("line"), 3.0);
class cJsonList
{
public:
    cJsonList(std::string *pJson, char cOpen, char cClose);

    // Appends the closing bracket. Throws std::bad_alloc if there is no memory for it,
    // but not while that already ends the enclosing block.
    ~cJsonList() noexcept(false);
    cJsonList(const cJsonList &)            = delete;
    cJsonList &operator=(const cJsonList &) = delete;

    // Starts the next element, or the next member; returns the string to which
    // its value is appended.
    std::string *Next();
    std::string *Key(std::string_view Name);

    // Complete members.
    void Text(std::string_view Name, std::string_view Value);
    void Number(std::string_view Name, double dValue);

private:
    std::string *m_pJson;
    char         m_cClose;
    int          m_bFirst;
    int          m_nExceptions;  // that were on their way when the list began
};

#endif
