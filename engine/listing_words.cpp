#include "engine/listing_words.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cstdio>
#include <cstring>

#include "engine/decimal.h"
#include "engine/instruction.h"
#include "engine/mnemonic_map.h"
#include "toolkit/blanks.h"

static const size_t kLongestToken      = kMnemonicText - 1;
static const size_t kOperandCharacters = 2;

static const char kCommentMark  = ' ';
static const char kRejectedMark = '-';

static const char *const kTokenEnds = " \t;";

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

// The value of an operand's text: digits, or a point and digits.
static int ParseOperand(const char *pText, const char *pEnd, unsigned *pnOperand)
{
    if (*pText != '.')
        return ParseDigits(pText, pEnd, pnOperand);
    if (!ParseDigits(pText + 1, pEnd, pnOperand) || *pnOperand > UINT_MAX - kFirstDottedRegister)
        return 0;
    *pnOperand += kFirstDottedRegister;
    return 1;
}

// Takes an operand token, nLength at least 1; 0 if it is not one.
static int ParseOperandToken(const char *pToken, size_t nLength, const cMnemonicMap &Mnemonics,
                             cListingLine *pLine)
{
    if (nLength == 1 && *pToken == 'i')
    {
        const size_t nMnemonic = strlen(pLine->m_szText);
        snprintf(pLine->m_szText + nMnemonic, sizeof pLine->m_szText - nMnemonic, " i");
        pLine->m_pInstruction = Mnemonics.Find(pLine->m_szText);
        return pLine->m_pInstruction != nullptr;
    }
    CopyToken(pToken, nLength, kOperandCharacters, pLine->m_szOperandText);
    return ParseOperand(pToken, pToken + nLength, &pLine->m_nOperand);
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
    pLine->m_pInstruction = Mnemonics.Find(pLine->m_szText);
    double dValue;
    if (nLength > kLongestToken)
        pLine->m_nKind = llBadMnemonic;
    else if (pLine->m_pInstruction)
        pLine->m_nKind = ParseRestOfInstruction(pToken + nLength, Mnemonics, pLine);
    else if (!ParseDecimal(pLine->m_szText, &dValue))
        pLine->m_nKind = llBadMnemonic;
    else
        pLine->m_nKind = IsEndOrComment(*SkipBlanks(pToken + nLength)) ? llNumber : llBadNumber;
}

int TakesOperand(const cInstruction &Instruction, const char *szOperand, unsigned nOperand)
{
    if (Instruction.m_nOperand == opNone)
        return szOperand[0] == 0;
    if (Instruction.m_nOperand == opRegister && szOperand[0] == '.')
        return nOperand <= kLargestRegister;
    return strlen(szOperand) == 1 && nOperand <= 9;
}

const char *RejectionText(eListingLine nKind)
{
    if (nKind == llBadNumber)
        return "Error: illegal number on line #";
    if (nKind == llBadOperand)
        return "Error: illegal operand on line ";  // without "#", on purpose
    return "Error: unrecognized instr mnemonic on line #";
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

static void PrintOperand(const cInstruction &Instruction, unsigned nOperand,
                         char (&szText)[kStepText])
{
    const int bDotted = Instruction.m_nOperand == opRegister && nOperand >= kFirstDottedRegister;
    szText[0]         = 0;
    if (Instruction.m_nOperand != opNone)
        snprintf(szText, sizeof szText, "%s%u", bDotted ? "." : "",
                 bDotted ? nOperand - kFirstDottedRegister : nOperand);
}

static void JoinWords(const char *szText, const char *szOperand, char (&szJoined)[kStepText])
{
    snprintf(szJoined, sizeof szJoined, "%s%s%s", szText, szOperand[0] ? " " : "", szOperand);
}

cStep RecordedStep(const cInstruction &Instruction, unsigned nOperand)
{
    char  szOperand[kStepText];
    cStep Step          = {};
    Step.m_pInstruction = &Instruction;
    snprintf(Step.m_szText, sizeof Step.m_szText, "%s", Instruction.m_szMnemonic);
    PrintOperand(Instruction, nOperand, szOperand);
    CopyToken(szOperand, strlen(szOperand), kOperandCharacters, Step.m_szOperandText);
    if (szOperand[0])
        ParseOperand(Step.m_szOperandText, Step.m_szOperandText + strlen(Step.m_szOperandText),
                     &Step.m_nOperand);
    return Step;
}

void PrintInstruction(const cInstruction &Instruction, unsigned nOperand, char (&szText)[kStepText])
{
    char szOperand[kStepText];
    PrintOperand(Instruction, nOperand, szOperand);
    JoinWords(Instruction.m_szMnemonic, szOperand, szText);
}

void PrintStep(const cStep &Step, char (&szText)[kStepText])
{
    JoinWords(Step.m_szText, Step.m_szOperandText, szText);
}

void PrintLineNumber(unsigned nLine, char (&szNumber)[kLineNumberText])
{
    for (int i = kLineDigits - 1; i >= 0; i--, nLine /= 10)
        szNumber[i] = static_cast<char>('0' + nLine % 10);
    szNumber[kLineDigits] = 0;
}

static void PrintNumbered(unsigned nLine, const char *szText, char (&szNumbered)[kListedText])
{
    char szNumber[kLineNumberText];
    PrintLineNumber(nLine, szNumber);
    snprintf(szNumbered, sizeof szNumbered, "%s %s", szNumber, szText);
}

void PrintNumberedStep(unsigned nLine, const cStep &Step, char (&szText)[kListedText])
{
    char szStep[kStepText];
    PrintStep(Step, szStep);
    PrintNumbered(nLine, szStep, szText);
}

void PrintTracedStep(unsigned nLine, const cStep &Step, char (&szText)[kListedText])
{
    char szStep[kStepText];
    char szValue[kStepText] = "";
    if (Step.m_szOperandText[0])
        snprintf(szValue, sizeof szValue, "%u", Step.m_nOperand);
    JoinWords(Step.m_szText, szValue, szStep);
    PrintNumbered(nLine, szStep, szText);
}

static size_t PrintListed(const char *szMark, const char *szText, char *szListed, size_t nSize)
{
    return static_cast<size_t>(snprintf(szListed, nSize, "%s%s\r\n", szMark, szText));
}

// A mark without a number.
static size_t PrintMarked(char cMark, const char *szText, char *szListed, size_t nSize)
{
    char szMark[kListingMark + 1];
    memset(szMark, cMark, kLineDigits);
    szMark[kLineDigits]  = ' ';
    szMark[kListingMark] = 0;
    return PrintListed(szMark, szText, szListed, nSize);
}

size_t PrintListedLine(unsigned nLine, const char *szText, char *szListed, size_t nSize)
{
    char szMark[kListingMark + 1];
    char szNumber[kLineNumberText];
    PrintLineNumber(nLine, szNumber);
    snprintf(szMark, sizeof szMark, "%s%s", szNumber, szText[0] ? " " : "");
    return PrintListed(szMark, szText, szListed, nSize);
}

size_t PrintListedComment(const char *szText, char *szListed, size_t nSize)
{
    return PrintMarked(kCommentMark, szText, szListed, nSize);
}

size_t PrintListedRejection(const char *szText, char *szListed, size_t nSize)
{
    return PrintMarked(kRejectedMark, szText, szListed, nSize);
}

int RenumberListedLine(unsigned nLine, char *pListed)
{
    for (int i = 0; i < kLineDigits; i++)
        if (pListed[i] < '0' || pListed[i] > '9')
            return 0;
    char szNumber[kLineNumberText];
    PrintLineNumber(nLine, szNumber);
    memcpy(pListed, szNumber, kLineDigits);
    return 1;
}
