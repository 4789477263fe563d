// condition.h - a comparison that a breakpoint waits for: "x<0", "r5 >= y".

#ifndef CONSOLE_DEBUG_CONDITION_H
#define CONSOLE_DEBUG_CONDITION_H

#include <optional>
#include <string>
#include <string_view>

#include "console/debug/quantity.h"

class cCondition
{
public:
    // Two quantities, or a quantity and a number, with <, <=, =, <>, >= or > between
    // them, blanks or not; == and != too. Nothing for other texts, and for numbers that
    // no quantity can have: beyond +-9.999999999e99.
    static std::optional<cCondition> Parse(std::string_view Text);

    int Holds(const cVorstekState &State) const;

    // "x<0"
    std::string Text() const;

private:
    struct cOperator
    {
        const char *m_szName;
        int (*m_pHolds)(double dLeft, double dRight);
    };

    // A quantity or a number.
    struct cOperand
    {
        static std::optional<cOperand> Parse(std::string_view Text);

        double      In(const cVorstekState &State) const;
        std::string Text() const;

        std::optional<cQuantity> m_Quantity;
        double                   m_dNumber;
    };

    static const cOperator s_Operators[];

    cCondition(cOperand Left, const cOperator *pOperator, cOperand Right);

    cOperand         m_Left;
    const cOperator *m_pOperator;
    cOperand         m_Right;
};

#endif
