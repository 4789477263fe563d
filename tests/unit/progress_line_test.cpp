#include "console/progress_line.h"

#include <cstdint>
#include <sstream>
#include <string>

#include <doctest/doctest.h>

namespace
{

// A line whose clock is set by the test.
class cTimedLine : public cProgressLine
{
public:
    explicit cTimedLine(int bShown = 1) : cProgressLine(&m_Terminal, bShown) {}

    void AdvanceAt(double dSeconds, uint64_t nBytes)
    {
        m_dSeconds = dSeconds;
        Advance(nBytes);
    }

    // What has been written since the last call, the line's erasing as "<".
    std::string Written()
    {
        std::string Text = m_Terminal.str();
        m_Terminal.str("");
        for (size_t nAt; (nAt = Text.find("\r\033[K")) != std::string::npos;)
            Text.replace(nAt, 4, "<");
        return Text;
    }

    double m_dSeconds = 100.0;

private:
    double Seconds() const override { return m_dSeconds; }

    std::ostringstream m_Terminal;
};

}  // namespace

TEST_CASE("a progress line appears after a second and changes five times a second")
{
    cTimedLine Line;
    Line.Expect(1000);
    Line.Expect(1000);
    Line.Begin();
    Line.AdvanceAt(100.9, 100);
    CHECK(Line.Written().empty());
    Line.AdvanceAt(101.0, 100);
    CHECK(Line.Written() == "<reading: 10 %");
    Line.AdvanceAt(101.1, 100);
    CHECK(Line.Written().empty());
    Line.AdvanceAt(101.3, 100);
    CHECK(Line.Written() == "<reading: 20 %");
    Line.End();
    CHECK(Line.Written() == "<");
}

TEST_CASE("a progress line of a later pass begins at 0 and appears at once")
{
    cTimedLine Line;
    Line.Expect(1000);
    Line.Begin();
    Line.AdvanceAt(100.5, 1000);
    Line.End();
    CHECK(Line.Written().empty());
    Line.Begin();
    Line.AdvanceAt(101.2, 30);
    CHECK(Line.Written() == "<reading: 3 %");
    Line.AdvanceAt(103.0, 2000);
    CHECK(Line.Written() == "<reading: 100 %");
}

TEST_CASE("a progress line counts megabytes where no length is known")
{
    cTimedLine Line;
    Line.Begin();
    Line.AdvanceAt(102.0, 2999999);
    CHECK(Line.Written() == "<reading: 2 MB");
}

TEST_CASE("a progress line that is not shown writes nothing")
{
    cTimedLine Line(0);
    Line.Begin();
    Line.AdvanceAt(102.0, 10);
    Line.End();
    CHECK(Line.Written().empty());
}
