#include "console/headless_host.h"

#include <new>

#include <limits>

#include "graph/vantor_data_set.h"

cHeadlessHost::cHeadlessHost()
    : m_Plot(this), m_nGraphsCleared(0), m_bListingShown(0), m_bRegistersShown(0), m_bGraphShown(0)
{
}

// There is no main loop to end. A box has said what failed, such as a trace log that
// cannot be opened, and the calculator goes on without it.
eAnswer cHeadlessHost::AnswerOf(eButtons nButtons)
{
    if (nButtons == bnRetryCancel)
        throw std::bad_alloc();
    return nButtons == bnOk ? anOk : anCancel;
}

void cHeadlessHost::PostQuit(int) {}

void cHeadlessHost::StartSound(unsigned) {}

void cHeadlessHost::DrawDisplay(const cDisplay &) {}

void cHeadlessHost::BlankDisplay() {}

// Nothing ever waits here.
unsigned cHeadlessHost::DrainMessages(unsigned)
{
    return std::numeric_limits<unsigned>::max();
}

void cHeadlessHost::Pause(unsigned) {}

int cHeadlessHost::AskFileName(eFileDialog, char *, size_t)
{
    return 0;
}

void cHeadlessHost::SetStatusText(const char *) {}

void cHeadlessHost::EnableCommand(unsigned, int) {}

void cHeadlessHost::ShowListing(int bShow)
{
    m_bListingShown = bShow;
}

void cHeadlessHost::ShowRegisters(int bShow)
{
    m_bRegistersShown = bShow;
}

void cHeadlessHost::ShowGraph()
{
    m_bGraphShown = 1;
}

void cHeadlessHost::ClearGraph()
{
    m_Plot.ClearAll();
    m_nGraphsCleared++;
}

unsigned cHeadlessHost::CountDataSets()
{
    return m_Plot.Count();
}

int cHeadlessHost::AddGraphPoint(unsigned nLine, double dX, double dY)
{
    return m_Plot.AddPoint(nLine, NarrowToFloat(dX), NarrowToFloat(dY));
}

cHeadlessCalculator::cHeadlessCalculator(cHeadlessHost *pHost)
    : m_Engine(pHost, &m_Listing, &m_Registers)
{
    m_Engine.Start();
}
