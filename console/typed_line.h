// typed_line.h - performs lines of instructions and numbers on a calculator, as
// "vorstek-cli eval" and the interactive calculator do.

#ifndef CONSOLE_TYPED_LINE_H
#define CONSOLE_TYPED_LINE_H

#include <cstddef>
#include <string>
#include <string_view>

#include "console/vocabulary.h"

class cVorstekEngine;

// Where a line stopped.
struct cTypedError
{
    std::string m_Text;      // "Error: divide by 0", or why the word is not accepted
    std::string m_Word;      // as typed: "1/x"
    size_t      m_nColumn;   // of its first character, from 1
    int         m_bUnknown;  // neither an instruction nor a number

    // "column 7: 1/x: Error: divide by 0"
    std::string Message() const;
};

class cTypedLines
{
public:
    // The engine must outlive this.
    explicit cTypedLines(cVorstekEngine *pEngine);

    // Performs the steps of a line up to its end, or up to the first that is not
    // accepted or ends with an error; 0 then. What was done before it stays done.
    int Perform(std::string_view Line, cTypedError *pError);

    // The steps performed by the last call.
    unsigned CountSteps() const { return m_nSteps; }

private:
    const cVocabulary     m_Vocabulary;
    cVorstekEngine *const m_pEngine;
    unsigned              m_nSteps;
};

#endif
