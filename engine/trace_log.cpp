// trace_log.cpp - one line of text for each line that a run executes: the
// instruction, X, Y, Reg[0] and the return addresses, newest first.

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <new>

#include "engine/vorstek_engine.h"
#include "toolkit/dbg_file.h"
#include "toolkit/retry_alloc.h"

static const unsigned kTraceMegabytes  = 1;
static const unsigned kCodeReturnDepth = 118;

static const int kInstructionWidth = 21;
static const int kNumberWidth      = 18;

// The log cuts its messages; a path of more than 511 characters takes two.
// Returns 0 when memory is short and the user gave up.
int cVorstekEngine::OpenTrace()
{
    if (!m_bTrace)
        return 1;
    m_pTraceFile = AllocateWithRetry(m_pHost, [this] {
        return new (std::nothrow) cDbgFile(m_szTraceFileName, kTraceMegabytes, m_pHost);
    });
    if (!m_pTraceFile)
        return 0;
    const time_t nNow = time(nullptr);
    m_pTraceFile->printf("Program from file '");
    for (size_t nAt = 0; nAt < strlen(m_szFileName); nAt += kDbgMessage - 1)
        m_pTraceFile->printf("%s", m_szFileName + nAt);
    m_pTraceFile->printf("'\nrun on %s\n", asctime(localtime(&nNow)));
    m_pTraceFile->printf(" Instruction          X                 Y                 Reg[0]       "
                         "Subr Return Addr\n");
    return 1;
}

void cVorstekEngine::CloseTrace()
{
    if (m_pTraceFile && !m_pTraceFile->Close())
        m_bTraceLost = 1;
    delete m_pTraceFile;
    m_pTraceFile = nullptr;
}

// Newest first; a level that is not in use shows "--".
static void FormatReturns(const unsigned *pReturns, unsigned nDepth, char *szText, size_t nSize)
{
    size_t nLength = 0;
    for (unsigned i = 0; i < kReturnLevels; i++)
    {
        const char *const szGap = i ? "  " : "";
        if (i < nDepth)
            snprintf(szText + nLength, nSize - nLength, "%s%02u", szGap, pReturns[nDepth - 1 - i]);
        else
            snprintf(szText + nLength, nSize - nLength, "%s--", szGap);
        nLength += strlen(szText + nLength);
    }
}

void cVorstekEngine::WriteTraceLine(unsigned nLine)
{
    const ProgramLine &Line = m_Program[nLine];
    char               szInstruction[40];
    if (Line.m_szOperandText[0])
        snprintf(szInstruction, sizeof szInstruction, "%02u %s %u", nLine, Line.m_szText,
                 Line.m_nOperand);
    else
        snprintf(szInstruction, sizeof szInstruction, "%02u %s", nLine, Line.m_szText);

    if (m_nReturnDepth > kReturnLevels)
        ShowProgramError(kCodeReturnDepth);
    char szReturns[24];
    FormatReturns(m_nReturnAddr, std::min(m_nReturnDepth, kReturnLevels), szReturns,
                  sizeof szReturns);

    char szRegister[kStackText];
    SettleTexts();
    FormatNumber(m_dReg[0], szRegister);
    m_pTraceFile->printf("%-*s%-*s%-*s%-*s%s\n", kInstructionWidth, szInstruction, kNumberWidth,
                         m_szX, kNumberWidth, m_szY, kNumberWidth, szRegister, szReturns);
}
