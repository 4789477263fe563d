// eval_command.cpp - vorstek-cli eval: calculates a line of instructions and
// numbers, or each line of standard input.

#include <istream>
#include <ostream>

#include "console/commands.h"
#include "console/eval_options.h"
#include "console/headless_host.h"
#include "console/json.h"
#include "console/stack_text.h"
#include "console/state_report.h"
#include "console/typed_line.h"
#include "engine/vorstek_state.h"

namespace
{

// Boxes go to standard error; questions are answered with Cancel.
class cEvalHost : public cHeadlessHost
{
public:
    explicit cEvalHost(std::ostream *pErr) : m_pErr(pErr) {}

    eAnswer Ask(const char *szText, const char *, eButtons nButtons, eIcon) override
    {
        const eAnswer nAnswer = AnswerOf(nButtons);
        *m_pErr << szText << "\n";
        return nAnswer;
    }

private:
    std::ostream *const m_pErr;
};

class cEvaluator
{
public:
    cEvaluator(const cEvalOptions &Options, const cStreams &Streams)
        : m_Options(Options), m_Streams(Streams), m_Host(Streams.m_pErr), m_Calculator(&m_Host),
          m_Lines(&m_Calculator.m_Engine)
    {
        cTypedError None;
        for (const std::string &Instruction : Options.m_Setup)
            m_Lines.Perform(Instruction, &None);
    }

    int Evaluate(const std::string &Line, unsigned nLine);
    int EvaluateInput();

private:
    void PrintAnswer();
    void PrintJson(const cTypedError *pError);
    void PrintX();

    const cEvalOptions &m_Options;
    const cStreams      m_Streams;
    cEvalHost           m_Host;
    cHeadlessCalculator m_Calculator;
    cTypedLines         m_Lines;
};

}  // namespace

void cEvaluator::PrintX()
{
    *m_Streams.m_pOut << AnswerText(m_Calculator.m_Engine.State().m_szX) << "\n";
}

void cEvaluator::PrintJson(const cTypedError *pError)
{
    std::string Json;
    {
        cJsonList            Object(&Json, '{', '}');
        const cVorstekState &State = m_Calculator.m_Engine.State();
        ReportStack(State, &Object);
        Object.Number("lastx", State.m_dLastX);
        ReportModes(State, &Object);
        if (pError)
        {
            Object.Text("error", pError->m_Text);
            Object.Text("word", pError->m_Word);
            Object.Number("column", static_cast<double>(pError->m_nColumn));
        }
    }
    *m_Streams.m_pOut << Json << "\n";
}

void cEvaluator::PrintAnswer()
{
    if (m_Options.m_bJson)
        PrintJson(nullptr);
    else if (m_Options.m_bStack)
        PrintStack(m_Calculator.m_Engine.State(), m_Streams.m_pOut);
    else
        PrintX();
}

// nLine is the line's number in messages, 0 where there is one line only. 0 after an
// error. A line without instructions has no answer.
int cEvaluator::Evaluate(const std::string &Line, unsigned nLine)
{
    cTypedError Error;
    const int   bDone = m_Lines.Perform(Line, &Error);
    m_Calculator.m_Engine.RefreshViews();
    if (bDone && m_Lines.CountSteps() > 0)
        PrintAnswer();
    if (bDone)
        return 1;
    if (nLine)
        *m_Streams.m_pErr << "line " << nLine << ", ";
    *m_Streams.m_pErr << Error.Message() << "\n";
    if (m_Options.m_bJson)
        PrintJson(&Error);
    return 0;
}

// An answer is written before the next line is waited for.
int cEvaluator::EvaluateInput()
{
    int         nExitCode = kExitDone;
    std::string Line;
    for (unsigned nLine = 1; *m_Streams.m_pOut && std::getline(*m_Streams.m_pIn, Line); nLine++)
    {
        if (!Evaluate(Line, nLine))
            nExitCode = kExitError;
        if (m_Streams.m_pIn->rdbuf()->in_avail() <= 0)
            m_Streams.m_pOut->flush();
    }
    if (m_Streams.m_pIn->bad())
        return ReportUsage(m_Streams, "cannot read standard input");
    return nExitCode;
}

int EvalCommand(const std::vector<std::string> &Arguments, const cStreams &Streams)
{
    cEvalOptions Options;
    std::string  Error;
    if (!ParseEvalOptions(Arguments, &Options, &Error))
        return ReportUsage(Streams, Error);
    cEvaluator Evaluator(Options, Streams);
    if (Options.m_bInput)
        return Evaluator.EvaluateInput();
    return Evaluator.Evaluate(Options.m_Line, 0) ? kExitDone : kExitError;
}
