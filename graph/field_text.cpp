#include "graph/field_text.h"

#include <charconv>
#include <cstring>
#include <system_error>

#include "graph/float_scan.h"

int ReadUnsignedField(const char *szText, uint32_t nLeast, uint32_t nMost, uint32_t *pValue)
{
    const char *pDigits = szText + strspn(szText, " \t");
    if (*pDigits == '+')
        pDigits++;
    const char *pEnd   = pDigits + strlen(pDigits);
    uint32_t    nValue = 0;
    const auto  Read   = std::from_chars(pDigits, pEnd, nValue);
    if (Read.ec != std::errc() || Read.ptr != pEnd || nValue < nLeast || nValue > nMost)
        return 0;
    *pValue = nValue;
    return 1;
}

int ReadSignedField(const char *szText, int32_t *pValue)
{
    const char *pDigits = szText + strspn(szText, " \t");
    if (*pDigits == '+' && pDigits[1] != '-')
        pDigits++;
    const char *pEnd   = pDigits + strlen(pDigits);
    int32_t     nValue = 0;
    const auto  Read   = std::from_chars(pDigits, pEnd, nValue);
    if (Read.ec != std::errc() || Read.ptr != pEnd)
        return 0;
    *pValue = nValue;
    return 1;
}

uint32_t ReadLeadingInteger(const char *szText)
{
    const char *pDigits = szText + strspn(szText, " \t");
    uint32_t    nValue  = 0;
    std::from_chars(pDigits, pDigits + strlen(pDigits), nValue);
    return nValue;
}

int ReadNumberField(const char *szText, float *pValue)
{
    float       fValue = 0.0F;
    const char *pEnd   = ReadFloat(szText, &fValue);
    if (!pEnd || *pEnd != '\0')
        return 0;
    *pValue = fValue;
    return 1;
}
