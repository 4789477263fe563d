// option_table.h - the options of a command as a table, from which its arguments
// are read and help, manual page and completions are made.

#ifndef CONSOLE_OPTION_TABLE_H
#define CONSOLE_OPTION_TABLE_H

#include <span>
#include <string>
#include <string_view>
#include <vector>

// Stores an option's value in the command's own options; 0 if it is invalid.
// *pError stays empty if the row's m_szWanted says enough.
typedef int (*cTakeValue)(void *pOptions, const std::string &Value, std::string *pError);

struct cOptionRow
{
    const char *m_szName;    // "--x"
    const char *m_szValue;   // "V", as help names it; null if the option has none
    const char *m_szWanted;  // "a number", for messages; null if the option has no value
    cTakeValue  m_pTake;
    const char *m_szHelp;  // one line, or several that end in "\n" but for the last
};

// Words after this one are not options.
const char *const kEndOfOptions = "--";

// Reads "--x 5", "--x=5" and "--json"; the words that do not begin with "--", and
// all after kEndOfOptions, go to *pWords. 0, with a one-line error, if an option is
// unknown or its value is missing or invalid. *pUnknown (null: not wanted) becomes the
// name of an unknown option.
int ReadOptions(std::span<const cOptionRow> Rows, const std::vector<std::string> &Arguments,
                void *pOptions, std::vector<std::string> *pWords, std::string *pError,
                std::string *pUnknown = nullptr);

// ", did you mean run?" for the word of Words that Word resembles; "" if there is
// none.
std::string DidYouMean(std::string_view Word, const std::vector<std::string_view> &Words);

// For the rows of a command whose options are a cOptions.
template <class cOptions, int (*pTake)(cOptions *, const std::string &)>
int Take(void *pOptions, const std::string &Value, std::string *)
{
    return pTake(static_cast<cOptions *>(pOptions), Value);
}

template <class cOptions, int (*pTake)(cOptions *, const std::string &, std::string *)>
int Take(void *pOptions, const std::string &Value, std::string *pError)
{
    return pTake(static_cast<cOptions *>(pOptions), Value, pError);
}

template <class cOptions, std::string cOptions::*pText>
int TakeText(void *pOptions, const std::string &Value, std::string *)
{
    static_cast<cOptions *>(pOptions)->*pText = Value;
    return 1;
}

template <class cOptions, int cOptions::*pFlag, int nValue = 1>
int SetFlag(void *pOptions, const std::string &, std::string *)
{
    static_cast<cOptions *>(pOptions)->*pFlag = nValue;
    return 1;
}

#endif
