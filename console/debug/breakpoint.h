// breakpoint.h - where a debugger stops a program.

#ifndef CONSOLE_DEBUG_BREAKPOINT_H
#define CONSOLE_DEBUG_BREAKPOINT_H

#include <optional>
#include <string>
#include <string_view>

#include "console/debug/condition.h"

// A program line, or every line with this label.
class cPlace
{
public:
    // "12", 1 to 98, or "LBL 3", in upper or lower case; nothing for other texts.
    static std::optional<cPlace> Parse(std::string_view Text);

    // 1 if this is the line.
    int IsAt(unsigned nLine, const cVorstekState &State) const;

    // "12", "LBL 3"
    std::string Text() const;

    bool operator==(const cPlace &) const = default;

private:
    cPlace(int bLabel, unsigned nNumber) : m_bLabel(bLabel), m_nNumber(nNumber) {}

    int      m_bLabel;
    unsigned m_nNumber;  // of the line or of the label
};

struct cBreakpoint
{
    // A place, "12", or a place and a condition: "LBL 3 if x<0".
    static std::optional<cBreakpoint> Parse(std::string_view Text);

    // What is wrong with a text that is none: "'x' is no condition such as x<0".
    static std::string WhyNot(std::string_view Text);

    // 1 if a run that comes to this line stops before it.
    int Stops(unsigned nLine, const cVorstekState &State) const;

    // "12 if x<0"
    std::string Text() const;

    cPlace                    m_Place;
    std::optional<cCondition> m_Condition;
};

#endif
