#include "console/session/screen.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <ostream>
#include <sstream>

#include "console/session/session.h"
#include "console/session/terminal.h"
#include "console/stack_text.h"

static const char kBold[]  = "\x1b[1m";
static const char kFaint[] = "\x1b[2m";
static const char kRed[]   = "\x1b[31m";
static const char kPlain[] = "\x1b[0m";

static int AreColoursWanted()
{
    const char *const szNoColour = getenv("NO_COLOR");
    return !szNoColour || !*szNoColour;
}

cScreen::cScreen(const cStreams &Streams, int bRedraws)
    : m_Streams(Streams), m_bRedraws(bRedraws), m_bStyles(bRedraws && AreColoursWanted())
{
}

// 1 for the first byte of a character in UTF-8.
static int IsStart(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
}

// Rows of the terminal that a text takes, the end of its line included.
static unsigned RowsOf(const std::string &Text)
{
    const auto nLength    = static_cast<unsigned>(std::count_if(Text.begin(), Text.end(), IsStart));
    const unsigned nWidth = std::max(TerminalWidth(), 1u);
    return std::max((nLength + nWidth - 1) / nWidth, 1u);
}

// What fits into a row. Tabs and other control characters of a comment become blanks:
// they would move the rows below.
static std::string CutToRow(const std::string &Text)
{
    const unsigned nWidth = TerminalWidth();
    std::string    Row;
    unsigned       nLength = 0;
    for (const char c : Text)
    {
        nLength += static_cast<unsigned>(IsStart(c));
        if (nLength > nWidth)
            break;
        Row += iscntrl(static_cast<unsigned char>(c)) ? ' ' : c;
    }
    return Row;
}

void cScreen::PrintRow(const std::string &Text, const char *szStyle)
{
    *m_Streams.m_pOut << (m_bStyles ? szStyle : "") << Text << (m_bStyles ? kPlain : "") << "\n";
    m_Rows.push_back(Text);
}

// In one row where there is room.
static std::vector<std::string> ModeRows(cSession *pSession)
{
    const std::string LastX = "LASTx " + pSession->LastXText();
    const std::string Modes = pSession->ModesText();
    if (LastX.size() + Modes.size() + 2 <= TerminalWidth())
        return {LastX + "  " + Modes};
    return {LastX, Modes};
}

static std::vector<std::string> RowsIn(const std::string &Text)
{
    std::vector<std::string> Rows;
    std::istringstream       Lines(Text);
    for (std::string Row; std::getline(Lines, Row);)
        Rows.push_back(Row);
    return Rows;
}

static size_t CountRows(const std::vector<std::string> &Rows)
{
    size_t nCount = 0;
    for (const std::string &Row : Rows)
        nCount += RowsOf(Row);
    return nCount;
}

void cScreen::Show(cSession *pSession)
{
    m_Rows.clear();
    if (!m_bRedraws)
        return;
    WasStopped();  // whatever was written then is above
    std::ostringstream Text;
    PrintStack(pSession->State(), &Text);
    const std::vector<std::string> Stack  = RowsIn(Text.str());
    const std::vector<std::string> News   = pSession->News();
    const std::vector<std::string> Errors = RowsIn(pSession->Error());
    const std::vector<std::string> Modes  = ModeRows(pSession);

    // The line that is typed has a row as well.
    const size_t nBelow =
        CountRows(Modes) + CountRows(Stack) + CountRows(News) + CountRows(Errors) + 1;
    const size_t nHeight = TerminalHeight();
    for (const std::string &Row : pSession->Rows(nHeight > nBelow ? nHeight - nBelow : 0))
        PrintRow(CutToRow(Row), Row[0] == '>' ? kBold : "");
    for (const std::string &Row : Modes)
        PrintRow(Row, kFaint);
    for (const std::string &Row : Stack)
        PrintRow(Row, Row[0] == 'X' ? kBold : "");
    for (const std::string &Row : News)
        PrintRow(Row, "");
    for (const std::string &Row : Errors)
        PrintRow(Row, kRed);
}

void cScreen::Answer(cSession *pSession, const std::string &Typed)
{
    if (m_bRedraws)
    {
        // Windows that have become narrower since have broken long rows.
        unsigned nRows = RowsOf(Typed);
        for (const std::string &Row : m_Rows)
            nRows += RowsOf(Row);
        if (!pSession->HasPrinted() && !WasStopped())
            *m_Streams.m_pOut << "\x1b[" << nRows << "A\r\x1b[J";
        Show(pSession);
        return;
    }
    for (const std::string &Row : pSession->News())
        *m_Streams.m_pOut << Row << "\n";
    for (const std::string &Row : pSession->PlainRows())
        *m_Streams.m_pOut << Row << "\n";
    m_Streams.m_pOut->flush();
    if (!pSession->Error().empty())
        *m_Streams.m_pErr << pSession->Error() << std::endl;
    else if (pSession->HasAnswer())
        *m_Streams.m_pOut << pSession->XText() << "\n";
}
