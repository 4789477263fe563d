#include "console/stack_text.h"

#include <ostream>

#include "engine/vorstek_state.h"

std::string LevelText(const char *szText)
{
    std::string Text = szText;
    if (Text.starts_with('+'))
        Text[0] = ' ';
    return Text;
}

void PrintStack(const cVorstekState &State, std::ostream *pOut)
{
    *pOut << "T  " << LevelText(State.m_szT) << "\n"
          << "Z  " << LevelText(State.m_szZ) << "\n"
          << "Y  " << LevelText(State.m_szY) << "\n"
          << "X  " << LevelText(State.m_szX) << "\n";
}
