#include "console/typed_line.h"

#include "console/state_report.h"
#include "console/typed_words.h"
#include "engine/vorstek_engine.h"
#include "toolkit/finding.h"

std::string cTypedError::Message() const
{
    return "column " + std::to_string(m_nColumn) + ": " + m_Word + ": " + m_Text;
}

cTypedLines::cTypedLines(cVorstekEngine *pEngine) : m_pEngine(pEngine), m_nSteps(0) {}

static int IsUnknown(const cTypedStep &Step)
{
    return Step.m_Parsed.m_nKind == llBadMnemonic;
}

static int IsAccepted(const cTypedStep &Step)
{
    return Step.m_Parsed.m_nKind == llInstruction || Step.m_Parsed.m_nKind == llNumber;
}

// The word may be anything that was typed.
static std::string Shown(const std::string &Word)
{
    const std::string Quoted = QuotedWord(Word);
    return Quoted.substr(1, Quoted.size() - 2);
}

int cTypedLines::Perform(std::string_view Line, cTypedError *pError)
{
    cTypedWords Words(m_Vocabulary, Line);
    cTypedStep  Step;
    for (m_nSteps = 0; Words.Next(&Step); m_nSteps++)
    {
        const int bAccepted = IsAccepted(Step);
        if (bAccepted && m_pEngine->Perform(Step.m_Parsed))
            continue;
        *pError = {bAccepted ? DisplayedText(m_pEngine) : WhyRefused(m_Vocabulary, Step),
                   Shown(Step.m_Word), Step.m_nColumn, IsUnknown(Step)};
        return 0;
    }
    return 1;
}
