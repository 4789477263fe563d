// quantity.h - a number of the calculator that a debugger watches or compares: a
// level of the stack, LASTx or a register.

#ifndef CONSOLE_DEBUG_QUANTITY_H
#define CONSOLE_DEBUG_QUANTITY_H

#include <optional>
#include <string>
#include <string_view>

struct cVorstekState;

class cQuantity
{
public:
    // "x" to "t", "lastx", "i", "r0" to "r29" or "reg.0" to "reg.29", in upper or lower
    // case; nothing for other names.
    static std::optional<cQuantity> Parse(std::string_view Name);

    // In the first of these forms: "x", "r5".
    const std::string &Name() const { return m_Name; }

    double In(const cVorstekState &State) const;

private:
    typedef double cVorstekState::*cLevel;

    cQuantity(std::string Name, cLevel pLevel, unsigned nRegister);

    static std::optional<cQuantity> ParseRegister(std::string_view Digits);

    std::string m_Name;
    cLevel      m_pLevel;  // null: a register
    unsigned    m_nRegister;
};

inline bool operator==(const cQuantity &a, const cQuantity &b)
{
    return a.Name() == b.Name();
}

// Shortest text that reads back as the same number: "0.5", "1e+30".
std::string NumberText(double dValue);

#endif
