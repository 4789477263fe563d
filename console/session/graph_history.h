// graph_history.h - what a calculator's graph has gained or lost between two moments.
// A program adds one point at a time: a change holds only what has come.

#ifndef CONSOLE_SESSION_GRAPH_HISTORY_H
#define CONSOLE_SESSION_GRAPH_HISTORY_H

#include <string>
#include <utility>
#include <vector>

class cHeadlessHost;

typedef std::vector<std::pair<float, float>> cGraphPoints;
typedef std::vector<cGraphPoints>            cGraphLines;  // data lines, in their order

struct cGraphTexts
{
    std::string m_Title;
    std::string m_HorzLabel;
};

struct cGraphChange
{
    int IsEmpty() const { return !m_bCleared && m_Added.empty(); }

    int         m_bCleared = 0;
    cGraphLines m_Cleared;  // all that there was before
    cGraphTexts m_TextsBefore;
    cGraphTexts m_TextsAfter;  // none, unless another history has drawn the graph again
    cGraphLines m_Added;       // to the end of each line, after the clearing
};

class cGraphHistory
{
public:
    // The host must outlive this. Begins with its present graph.
    explicit cGraphHistory(cHeadlessHost *pHost);

    // What has changed since the last call.
    cGraphChange TakeChange();

    // Back to before the change that came last, or forward by the one that is next.
    void Undo(const cGraphChange &Change);
    void Redo(const cGraphChange &Change);

    // Draws the graph as the last of these calls has left it.
    void Revert();

private:
    void Append(const cGraphLines &Added);

    cHeadlessHost *const m_pHost;
    cGraphLines          m_Lines;
    cGraphTexts          m_Texts;
    unsigned             m_nCleared;  // the host's count
};

#endif
