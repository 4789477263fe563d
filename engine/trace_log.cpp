#include "engine/trace_log.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <new>

#include "engine/calculator.h"
#include "engine/listing_words.h"
#include "toolkit/retry_alloc.h"

static const unsigned kCodeReturnDepth = 118;

static const int kInstructionWidth = 21;
static const int kNumberWidth      = 18;
static const int kBetweenReturns   = 2;
static const int kTracedLine =
    kListedText + 3 * kNumberWidth + kReturnLevels * (kLineDigits + kBetweenReturns);

// The log cuts its messages; a path of more than 511 characters takes two.
int cTraceLog::Open(cCalculator &c)
{
    m_pFile = AllocateWithRetry(c.m_pHost, [this, &c] {
        return m_pStream ? new (std::nothrow) cDbgFile(m_pStream, c.m_pHost)
                         : new (std::nothrow) cDbgFile(m_szName, m_nMegabytes, c.m_pHost);
    });
    if (!m_pFile)
        return 0;
    PrepareSteps(c.m_Program);
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
    if (m_pFile)
    {
        m_pFile->Close();
        m_nLoss = std::max(m_nLoss, m_pFile->Loss());
    }
    delete m_pFile;
    m_pFile = nullptr;
}

void cTraceLog::Flush()
{
    if (m_pFile)
        m_pFile->Flush();
}

// Fills a column of the line with a text and blanks; kNumberWidth is more than any
// number's text has. Returns where the next column begins.
static char *PutNumber(const char *szText, char *pColumn)
{
    memset(pColumn, ' ', kNumberWidth);
    std::copy(szText, szText + strlen(szText), pColumn);
    return pColumn + kNumberWidth;
}

// Newest first; a level that is not in use shows "--".
static char *PutReturns(const unsigned *pReturns, unsigned nDepth, char *pColumn)
{
    for (unsigned i = 0; i < kReturnLevels; i++)
    {
        char szLine[kLineNumberText];
        memset(szLine, '-', kLineDigits);
        if (i < nDepth)
            PrintLineNumber(pReturns[nDepth - 1 - i], szLine);
        if (i > 0)
            pColumn = static_cast<char *>(memset(pColumn, ' ', kBetweenReturns)) + kBetweenReturns;
        memcpy(pColumn, szLine, kLineDigits);
        pColumn += kLineDigits;
    }
    return pColumn;
}

// No line of the program changes during a run.
void cTraceLog::PrepareSteps(const ProgramLine (&Program)[kProgramLines])
{
    for (unsigned nLine = 0; nLine < kProgramLines; nLine++)
    {
        char szStep[kListedText];
        PrintTracedStep(nLine, Program[nLine], szStep);
        const int nLength        = snprintf(m_Steps[nLine].m_szText, sizeof m_Steps[nLine].m_szText,
                                            "%-*s", kInstructionWidth, szStep);
        m_Steps[nLine].m_nLength = static_cast<size_t>(nLength);
    }
}

void cTraceLog::WriteLine(cCalculator &c, unsigned nLine)
{
    if (c.m_nReturnDepth > kReturnLevels)
        c.ShowProgramError(kCodeReturnDepth);

    char szRegister[kStackText];
    c.SettleTexts();
    c.FormatNumber(c.m_dReg[0], szRegister);

    const cStepText &Step = m_Steps[nLine];
    char             szLine[kTracedLine];
    memcpy(szLine, Step.m_szText, Step.m_nLength);
    char *pEnd = PutNumber(c.m_szX, szLine + Step.m_nLength);
    pEnd       = PutNumber(c.m_szY, pEnd);
    pEnd       = PutNumber(szRegister, pEnd);
    pEnd       = PutReturns(c.m_nReturnAddr, std::min(c.m_nReturnDepth, kReturnLevels), pEnd);
    *pEnd++    = '\n';
    if (!m_pFile->Write(szLine, static_cast<size_t>(pEnd - szLine)))
        c.Interrupt();
}
