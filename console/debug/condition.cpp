#include "console/debug/condition.h"

#include <cmath>
#include <utility>

#include "console/arguments.h"
#include "engine/range.h"

// clang-format off
const cCondition::cOperator cCondition::s_Operators[] =  // longer names first
{
    { "<=", [](double a, double b) { return int{a <= b}; } },
    { "<>", [](double a, double b) { return int{a != b}; } },
    { "!=", [](double a, double b) { return int{a != b}; } },
    { ">=", [](double a, double b) { return int{a >= b}; } },
    { "==", [](double a, double b) { return int{a == b}; } },
    { "<",  [](double a, double b) { return int{a < b};  } },
    { ">",  [](double a, double b) { return int{a > b};  } },
    { "=",  [](double a, double b) { return int{a == b}; } },
};
// clang-format on

cCondition::cCondition(cOperand Left, const cOperator *pOperator, cOperand Right)
    : m_Left(std::move(Left)), m_pOperator(pOperator), m_Right(std::move(Right))
{
}

std::optional<cCondition::cOperand> cCondition::cOperand::Parse(std::string_view Text)
{
    cOperand Operand = {cQuantity::Parse(Text), 0.0};
    if (Operand.m_Quantity)
        return Operand;
    if (ParseNumber(std::string(Text), &Operand.m_dNumber) &&
        std::fabs(Operand.m_dNumber) <= kLargest)
        return Operand;
    return {};
}

double cCondition::cOperand::In(const cVorstekState &State) const
{
    return m_Quantity ? m_Quantity->In(State) : m_dNumber;
}

std::string cCondition::cOperand::Text() const
{
    return m_Quantity ? m_Quantity->Name() : NumberText(m_dNumber);
}

std::optional<cCondition> cCondition::Parse(std::string_view Text)
{
    const size_t nOperator = Text.find_first_of("<=>!");
    if (nOperator == std::string_view::npos)
        return {};
    for (const cOperator &Operator : s_Operators)
    {
        const std::string_view Name = Operator.m_szName;
        if (Text.substr(nOperator, Name.size()) != Name)
            continue;
        const auto Left  = cOperand::Parse(TrimBlanks(Text.substr(0, nOperator)));
        const auto Right = cOperand::Parse(TrimBlanks(Text.substr(nOperator + Name.size())));
        if (Left && Right)
            return cCondition(*Left, &Operator, *Right);
        break;
    }
    return {};
}

int cCondition::Holds(const cVorstekState &State) const
{
    return m_pOperator->m_pHolds(m_Left.In(State), m_Right.In(State));
}

std::string cCondition::Text() const
{
    return m_Left.Text() + m_pOperator->m_szName + m_Right.Text();
}
