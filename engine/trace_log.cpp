#include "engine/trace_log.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <new>

#include "engine/calculator.h"
#include "engine/listing_words.h"
#include "toolkit/dbg_file.h"
#include "toolkit/retry_alloc.h"

static const unsigned kTraceMegabytes  = 1;
static const unsigned kCodeReturnDepth = 118;

static const int kInstructionWidth = 21;
static const int kNumberWidth      = 18;

// The log cuts its messages; a path of more than 511 characters takes two.
int cTraceLog::Open(cCalculator &c)
{
    m_pFile = AllocateWithRetry(c.m_pHost, [this, &c] {
        return new (std::nothrow) cDbgFile(m_szName, kTraceMegabytes, c.m_pHost);
    });
    if (!m_pFile)
        return 0;
    const time_t nNow = time(nullptr);
    m_pFile->printf("Program from file '");
    for (size_t nAt = 0; nAt < strlen(c.m_szFileName); nAt += kDbgMessage - 1)
        m_pFile->printf("%s", c.m_szFileName + nAt);
    m_pFile->printf("'\nrun on %s\n", asctime(localtime(&nNow)));
    m_pFile->printf(" Instruction          X                 Y                 Reg[0]       "
                    "Subr Return Addr\n");
    return 1;
}

void cTraceLog::Close()
{
    if (m_pFile && !m_pFile->Close())
        m_bLost = 1;
    delete m_pFile;
    m_pFile = nullptr;
}

// Newest first; a level that is not in use shows "--".
static void FormatReturns(const unsigned *pReturns, unsigned nDepth, char *szText, size_t nSize)
{
    size_t nLength = 0;
    for (unsigned i = 0; i < kReturnLevels; i++)
    {
        char szLine[kListingMark];
        memset(szLine, '-', kLineDigits);
        szLine[kLineDigits] = 0;
        if (i < nDepth)
            PrintLineNumber(pReturns[nDepth - 1 - i], szLine);
        snprintf(szText + nLength, nSize - nLength, "%s%s", i ? "  " : "", szLine);
        nLength += strlen(szText + nLength);
    }
}

void cTraceLog::WriteLine(cCalculator &c, unsigned nLine)
{
    char szInstruction[kListedText];
    PrintTracedStep(nLine, c.m_Program[nLine], szInstruction);

    if (c.m_nReturnDepth > kReturnLevels)
        c.ShowProgramError(kCodeReturnDepth);
    char szReturns[kReturnLevels * (kLineDigits + 2) + 1];
    FormatReturns(c.m_nReturnAddr, std::min(c.m_nReturnDepth, kReturnLevels), szReturns,
                  sizeof szReturns);

    char szRegister[kStackText];
    c.SettleTexts();
    c.FormatNumber(c.m_dReg[0], szRegister);
    m_pFile->printf("%-*s%-*s%-*s%-*s%s\n", kInstructionWidth, szInstruction, kNumberWidth, c.m_szX,
                    kNumberWidth, c.m_szY, kNumberWidth, szRegister, szReturns);
}
