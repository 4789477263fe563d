// wide_name.h - file names as the system keeps them, of any length.

#ifndef TOOLKIT_WIN32_WIDE_NAME_H
#define TOOLKIT_WIN32_WIDE_NAME_H

#include <string>

// A name in the user's code page as Unicode; "" for one that cannot be converted. The C
// library's own functions would read it in the same way, but know no names of more than
// 260 characters.
std::wstring WideName(const char *szName);

// The name from the root of its drive.
std::wstring WholeWideName(const char *szName);

#endif
