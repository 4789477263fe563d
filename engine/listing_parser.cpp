#include "engine/listing_parser.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>

#include "engine/decimal.h"
#include "engine/mnemonic_map.h"

static const size_t   kLongestToken        = kMnemonicText - 1;
static const size_t   kOperandCharacters   = 2;
static const unsigned kFirstDottedRegister = 10;

static const char *const kTokenEnds = " \t;";

static const char *SkipBlanks(const char *pText)
{
    return pText + strspn(pText, " \t");
}

static int IsEndOrComment(char c)
{
    return c == 0 || c == ';';
}

// Copies at most nMost characters of the token; szToken holds one more.
static void CopyToken(const char *pToken, size_t nLength, size_t nMost, char *szToken)
{
    if (nLength > nMost)
        nLength = nMost;
    memcpy(szToken, pToken, nLength);
    szToken[nLength] = 0;
}

// The value of a digit string; 0 if there is anything else in it or it needs
// more than 32 bits.
static int ParseDigits(const char *pText, const char *pEnd, unsigned *pnValue)
{
    const auto Result = std::from_chars(pText, pEnd, *pnValue);
    return pText < pEnd && Result.ec == std::errc() && Result.ptr == pEnd;
}

// Takes an operand token, nLength at least 1; 0 if it is none.
static int ParseOperandToken(const char *pToken, size_t nLength, const cMnemonicMap &Mnemonics,
                             cListingLine *pLine)
{
    const char *const pEnd = pToken + nLength;
    if (nLength == 1 && *pToken == 'i')
    {
        const size_t nMnemonic = strlen(pLine->m_szText);
        snprintf(pLine->m_szText + nMnemonic, sizeof pLine->m_szText - nMnemonic, " i");
        return Mnemonics.Contains(pLine->m_szText);
    }
    CopyToken(pToken, nLength, kOperandCharacters, pLine->m_szOperandText);
    if (*pToken != '.')
        return ParseDigits(pToken, pEnd, &pLine->m_nOperand);
    if (!ParseDigits(pToken + 1, pEnd, &pLine->m_nOperand) ||
        pLine->m_nOperand > UINT32_MAX - kFirstDottedRegister)
        return 0;
    pLine->m_nOperand += kFirstDottedRegister;
    return 1;
}

static eListingLine ParseRestOfInstruction(const char *pText, const cMnemonicMap &Mnemonics,
                                           cListingLine *pLine)
{
    pText = SkipBlanks(pText);
    if (IsEndOrComment(*pText))
        return llInstruction;
    const size_t nLength = strcspn(pText, kTokenEnds);
    if (!ParseOperandToken(pText, nLength, Mnemonics, pLine))
        return llBadOperand;
    pText = SkipBlanks(pText + nLength);
    return IsEndOrComment(*pText) ? llInstruction : llBadOperand;
}

void ParseListingLine(const char *szLine, const cMnemonicMap &Mnemonics, cListingLine *pLine)
{
    *pLine                   = cListingLine{};
    const char *const pToken = SkipBlanks(szLine);
    if (IsEndOrComment(*pToken))
    {
        pLine->m_nKind = llComment;
        return;
    }
    const size_t nLength = strcspn(pToken, kTokenEnds);
    CopyToken(pToken, nLength, kLongestToken, pLine->m_szText);
    double dValue;
    if (nLength > kLongestToken)
        pLine->m_nKind = llBadMnemonic;
    else if (Mnemonics.Contains(pLine->m_szText))
        pLine->m_nKind = ParseRestOfInstruction(pToken + nLength, Mnemonics, pLine);
    else if (!ParseDecimal(pLine->m_szText, &dValue))
        pLine->m_nKind = llBadMnemonic;
    else
        pLine->m_nKind = IsEndOrComment(*SkipBlanks(pToken + nLength)) ? llNumber : llBadNumber;
}

const char *NextFileLine(const char *pText, const char *pEnd, char (&szLine)[kFileLineText])
{
    if (pText == pEnd)
        return nullptr;
    const size_t nMost    = kFileLineText - 1;
    const size_t nLeft    = static_cast<size_t>(pEnd - pText);
    const void  *pLineEnd = memchr(pText, '\n', std::min(nLeft, nMost + 1));
    size_t       nTaken   = std::min(nLeft, nMost);
    size_t       nLength  = nTaken;
    if (pLineEnd)
    {
        const size_t nToEnd  = static_cast<size_t>(static_cast<const char *>(pLineEnd) - pText);
        const size_t nReturn = nToEnd > 0 && pText[nToEnd - 1] == '\r' ? 1 : 0;
        if (nToEnd - nReturn < nMost)
        {
            nTaken  = nToEnd + 1;
            nLength = nToEnd - nReturn;
        }
    }
    memcpy(szLine, pText, nLength);
    szLine[nLength] = 0;
    return pText + nTaken;
}
