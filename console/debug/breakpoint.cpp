#include "console/debug/breakpoint.h"

#include "console/arguments.h"
#include "engine/instruction.h"
#include "engine/run_lines.h"
#include "engine/vorstek_state.h"
#include "toolkit/spelling.h"

static const std::string_view kIf = " if ";

static int IsWordLabel(const std::string &Word)
{
    return EqualIgnoringCase(Word, "LBL") || EqualIgnoringCase(Word, "label");
}

std::optional<cPlace> cPlace::Parse(std::string_view Text)
{
    const std::vector<std::string> Words  = SplitWords(Text);
    const int                      bLabel = Words.size() == 2 && IsWordLabel(Words[0]);
    uint64_t                       nNumber;
    if (Words.empty() || Words.size() != (bLabel ? 2U : 1U) ||
        !ParseWholeNumber(Words.back(), &nNumber))
        return {};
    if (bLabel ? nNumber >= kLabels : nNumber < 1 || nNumber > kLastLine)
        return {};
    return cPlace(bLabel, static_cast<unsigned>(nNumber));
}

int cPlace::IsAt(unsigned nLine, const cVorstekState &State) const
{
    if (!m_bLabel)
        return nLine == m_nNumber;
    const ProgramLine &Line = State.m_Program[nLine];
    return Line.m_pInstruction && Line.m_pInstruction->m_nRole == rlLabel &&
           Line.m_nOperand == m_nNumber;
}

std::string cPlace::Text() const
{
    return (m_bLabel ? "LBL " : "") + std::to_string(m_nNumber);
}

// Between a place and its condition; npos if there is none.
static size_t FindIf(std::string_view Text)
{
    size_t nAt = 0;
    while (nAt + kIf.size() <= Text.size() && !EqualIgnoringCase(Text.substr(nAt, kIf.size()), kIf))
        nAt++;
    return nAt + kIf.size() <= Text.size() ? nAt : std::string_view::npos;
}

std::string cBreakpoint::WhyNot(std::string_view Text)
{
    const size_t nIf = FindIf(Text);
    if (nIf == std::string_view::npos || !cPlace::Parse(Text.substr(0, nIf)))
        return "'" + std::string(Text) + "' is no place such as 12, LBL 3 or 12 if x<0";
    return "'" + std::string(Text.substr(nIf + kIf.size())) +
           "' is no condition such as x<0 or r5>=y";
}

std::optional<cBreakpoint> cBreakpoint::Parse(std::string_view Text)
{
    const size_t nIf   = FindIf(Text);
    const auto   Place = cPlace::Parse(Text.substr(0, nIf));
    if (!Place)
        return {};
    if (nIf == std::string_view::npos)
        return cBreakpoint{*Place, {}};
    auto Condition = cCondition::Parse(Text.substr(nIf + kIf.size()));
    if (!Condition)
        return {};
    return cBreakpoint{*Place, std::move(Condition)};
}

int cBreakpoint::Stops(unsigned nLine, const cVorstekState &State) const
{
    return m_Place.IsAt(nLine, State) && (!m_Condition || m_Condition->Holds(State));
}

std::string cBreakpoint::Text() const
{
    return m_Place.Text() + (m_Condition ? " if " + m_Condition->Text() : "");
}
