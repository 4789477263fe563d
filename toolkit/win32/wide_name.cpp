#include "toolkit/win32/wide_name.h"

#include <windows.h>

static const int kLongestName = 32768;  // characters, terminating zero included

std::wstring WideName(const char *szName)
{
    std::wstring Name(kLongestName, L'\0');
    const int    nLength =
        MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, szName, -1, Name.data(), kLongestName);
    Name.resize(nLength > 0 ? static_cast<size_t>(nLength) - 1 : 0);
    return Name;
}

std::wstring WholeWideName(const char *szName)
{
    std::wstring Whole(kLongestName, L'\0');
    Whole.resize(GetFullPathNameW(WideName(szName).c_str(), kLongestName, Whole.data(), nullptr));
    return Whole;
}
