// undo_history.h - the states of a calculator, to go back to and forward again.

#ifndef CONSOLE_SESSION_UNDO_HISTORY_H
#define CONSOLE_SESSION_UNDO_HISTORY_H

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "console/session/graph_history.h"
#include "engine/snapshot.h"

class cHeadlessCalculator;
class cHeadlessHost;

const size_t kMostUndo = 10000;  // steps back; older ones are forgotten

class cUndoHistory
{
public:
    // Both must outlive this. Begins with their present state.
    cUndoHistory(cHeadlessCalculator *pCalculator, cHeadlessHost *pHost);

    // Keeps the present state as the next step, unless nothing has changed. What had
    // been undone is forgotten. nTag is the caller's own note on this state.
    void Keep(unsigned nTag = 0);

    // What Keep() was told with the present step; 0 for the first.
    unsigned Tag() const { return m_nAt ? m_Steps[m_nAt - 1].m_nTag : 0; }

    // The present state becomes the first.
    void Forget();

    // How many steps back leave the last one with a tag behind; 0 if none has one.
    size_t StepsToTag() const;

    // Back to the present step, without what has been done since Keep().
    void Revert();

    // One step back or forward. 0 if there is none.
    int Undo();
    int Redo();

private:
    // A word of the state that differs between two steps; the exclusive or of both
    // values, which leads from either to the other.
    struct cChange
    {
        uint32_t m_nWord;
        uint64_t m_nDifference;
    };
    typedef std::shared_ptr<const std::string> cListing;  // shared by steps

    struct cStep
    {
        std::vector<cChange> m_Changes;
        cGraphChange         m_Graph;
        cListing             m_pBefore;
        cListing             m_pAfter;
        unsigned             m_nTag;
    };

    void     TakeSnapshot();
    cListing TakeListing() const;
    void     Travel(const cStep &Step, const cListing &pTarget);
    void     Restore(const char *szListing);

    static const size_t kWords = sizeof(cSnapshot) / sizeof(uint64_t);

    cHeadlessCalculator *const       m_pCalculator;
    const std::unique_ptr<cSnapshot> m_pSnapshot;
    uint64_t                         m_Words[kWords];  // of the present step
    cListing                         m_pListing;       // the same
    cGraphHistory                    m_Graph;          // the same
    std::deque<cStep>                m_Steps;
    size_t                           m_nAt;  // steps that can be undone
};

#endif
