// undo_history.h - the states of a calculator, to go back to and forward again.

#ifndef CONSOLE_SESSION_UNDO_HISTORY_H
#define CONSOLE_SESSION_UNDO_HISTORY_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

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
    // been undone is forgotten.
    void Keep();

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
    typedef std::vector<std::pair<float, float>> cPoints;

    // What is not in a snapshot. Steps share what does not change between them.
    struct cBeside
    {
        std::shared_ptr<const std::string>          m_pListing;
        std::shared_ptr<const std::vector<cPoints>> m_pGraph;  // by data line
    };
    struct cStep
    {
        std::vector<cChange> m_Changes;
        cBeside              m_Before;
        cBeside              m_After;
    };
    static const size_t           kWords = sizeof(cSnapshot) / sizeof(uint64_t);
    typedef std::vector<uint64_t> cWords;

    cWords  TakeWords();
    cBeside TakeBeside();
    void    Travel(const cStep &Step, const cBeside &Target);
    void    Restore(const char *szListing);
    void    DrawGraph(const std::vector<cPoints> &Graph);

    cHeadlessCalculator *const m_pCalculator;
    cHeadlessHost *const       m_pHost;
    cWords                     m_Words;   // of the present step
    cBeside                    m_Beside;  // the same
    std::vector<cStep>         m_Steps;
    size_t                     m_nAt;  // steps that can be undone
};

#endif
