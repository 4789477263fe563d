#include "console/stack_text.h"

#include <cstring>
#include <ostream>

#include "console/state_report.h"
#include "engine/vorstek_state.h"

std::string LevelText(const char *szText)
{
    std::string Text = szText;
    if (Text.starts_with('+'))
        Text[0] = ' ';
    return Text;
}

const char *AnswerText(const char *szText)
{
    szText += *szText == '+';
    return szText + strspn(szText, " ");
}

void PrintRegisters(const cVorstekState &State, const cLineBox &Box, std::ostream *pOut)
{
    for (unsigned nRegister = 0; nRegister < kRegisters; nRegister++)
        if (State.m_dReg[nRegister] != 0.0)
            *pOut << BoxLine(Box, nRegister) << "\n";
}

void PrintStack(const cVorstekState &State, std::ostream *pOut)
{
    *pOut << "T  " << LevelText(State.m_szT) << "\n"
          << "Z  " << LevelText(State.m_szZ) << "\n"
          << "Y  " << LevelText(State.m_szY) << "\n"
          << "X  " << LevelText(State.m_szX) << "\n";
}
