// blanks.h - what separates words in the files that people write.

#ifndef TOOLKIT_BLANKS_H
#define TOOLKIT_BLANKS_H

#include <cstring>

// The first character of szText that is neither a space nor a tab.
inline const char *SkipBlanks(const char *szText)
{
    return szText + strspn(szText, " \t");
}

#endif
