#include "console/debug/quantity.h"

#include <charconv>
#include <cstdint>
#include <utility>

#include "console/arguments.h"
#include "engine/vorstek_state.h"

cQuantity::cQuantity(std::string Name, cLevel pLevel, unsigned nRegister)
    : m_Name(std::move(Name)), m_pLevel(pLevel), m_nRegister(nRegister)
{
}

static std::string InLowerCase(std::string_view Text)
{
    std::string Lower(Text);
    for (char &c : Lower)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return Lower;
}

std::optional<cQuantity> cQuantity::ParseRegister(std::string_view Digits)
{
    uint64_t nRegister;
    if (!ParseWholeNumber(Digits, &nRegister) || nRegister >= kRegisters)
        return {};
    return cQuantity("r" + std::to_string(nRegister), nullptr, static_cast<unsigned>(nRegister));
}

std::optional<cQuantity> cQuantity::Parse(std::string_view Name)
{
    // clang-format off
    static const struct { const char *m_szName; cLevel m_pLevel; } s_Levels[] =
    {
        { "x",     &cVorstekState::m_dX     },
        { "y",     &cVorstekState::m_dY     },
        { "z",     &cVorstekState::m_dZ     },
        { "t",     &cVorstekState::m_dT     },
        { "lastx", &cVorstekState::m_dLastX },
    };
    // clang-format on
    const std::string Lower = InLowerCase(Name);
    for (const auto &Row : s_Levels)
        if (Lower == Row.m_szName)
            return cQuantity(Lower, Row.m_pLevel, 0);
    if (Lower == "i")
        return ParseRegister("0");
    for (const std::string_view Prefix : {"reg.", "r"})
        if (Lower.starts_with(Prefix))
            return ParseRegister(std::string_view(Lower).substr(Prefix.size()));
    return {};
}

double cQuantity::In(const cVorstekState &State) const
{
    return m_pLevel ? State.*m_pLevel : State.m_dReg[m_nRegister];
}

std::string NumberText(double dValue)
{
    char       szText[32];
    const auto End = std::to_chars(szText, szText + sizeof szText, dValue);
    return {szText, End.ptr};
}
