// script_command.cpp - vorstek-cli script: reads one command per line, writes
// JSON Lines.

#include <istream>
#include <limits>
#include <memory>
#include <ostream>
#include <sstream>

#include "console/arguments.h"
#include "console/commands.h"
#include "console/input_text.h"
#include "console/json.h"
#include "console/key_words.h"
#include "console/script_host.h"
#include "console/state_report.h"
#include "console/typed_words.h"
#include "console/vocabulary.h"
#include "engine/key_codes.h"
#include "engine/vorstek_state.h"
#include "graph/graph_file_commands.h"
#include "toolkit/disk_file.h"
#include "toolkit/finding.h"

class cScript
{
public:
    explicit cScript(const cStreams &Streams);

    // The commands with what they do.
    static std::vector<cHelpRow> HelpRows();

    // Executes a line; 0 if it is not a command.
    int Perform(const std::string &Line);

    // What is wrong with a word of the last line, for a person; "" if the event says all.
    const std::string &Why() const { return m_Why; }

    void ReportBad(unsigned nLine, const std::string &Text);

private:
    typedef std::vector<std::string> cWords;
    struct cCommand
    {
        const char *m_szName;
        const char *m_szArguments;  // "N", as help names them; "" for none
        const char *m_szSummary;
        int (cScript::*m_pPerform)(const std::string &Rest);
    };
    static const cCommand s_Commands[];

    int OnDown(const std::string &Rest);
    int OnUp(const std::string &Rest);
    int OnKey(const std::string &Rest);
    int OnText(const std::string &Rest);
    int OnAnswer(const std::string &Rest);
    int OnOpen(const std::string &Rest);
    int OnSave(const std::string &Rest);
    int OnOption(const std::string &Rest);
    int OnLimit(const std::string &Rest);
    int OnAt(const std::string &Rest);
    int OnGraph(const std::string &Rest);
    int OnReset(const std::string &Rest);
    int OnState(const std::string &Rest);
    int OnPress(const std::string &Rest);
    int OnDo(const std::string &Rest);

    void Press(const std::vector<unsigned> &Keys);
    int  DeliverNow(const std::string &Command);
    void Restart();

    const cVocabulary                    m_Vocabulary;
    const cStreams                       m_Streams;
    std::string                          m_Why;
    std::unique_ptr<cScriptHost>         m_pHost;
    std::unique_ptr<cHeadlessCalculator> m_pCalculator;
};

// clang-format off
const cScript::cCommand cScript::s_Commands[] =
{
    { "down",   "N",              "press key N, 1 to 32", &cScript::OnDown },
    { "up",     "N",              "release it",                                       &cScript::OnUp },
    { "key",    "N...",           "press and release each key",                       &cScript::OnKey },
    { "text",   "CHARS",          "type on the PC keyboard; \\r Enter, \\e Escape", &cScript::OnText },
    { "answer", "NAME...",        "answer the next boxes: ok cancel yes no retry",    &cScript::OnAnswer },
    { "open",   "FILE",           "load a listing",                                   &cScript::OnOpen },
    { "save",   "FILE",           "save the listing",                                 &cScript::OnSave },
    { "option", "NAME on|off",    "sound, trace, keep-listing or keep-registers",     &cScript::OnOption },
    { "limit",  "N",              "press key 30 when a run has executed N lines",     &cScript::OnLimit },
    { "at",     "N EVENT",        "down, up or text after N lines of the next run",   &cScript::OnAt },
    { "graph",  "open|append|save FILE", "a data file of the graph",                  &cScript::OnGraph },
    { "reset",  "",               "start with a new calculator",                      &cScript::OnReset },
    { "state",  "[PART...]",      "write the state, or parts such as x and reg.5",    &cScript::OnState },
    { "press",  "NAME...",        "press the keys for what is printed on them",       &cScript::OnPress },
    { "do",     "WORDS",          "perform instructions and numbers as eval does",    &cScript::OnDo },
};
// clang-format on

std::vector<cHelpRow> cScript::HelpRows()
{
    std::vector<cHelpRow> Rows;
    for (const cCommand &Row : s_Commands)
        Rows.push_back({Row.m_szName, Row.m_szArguments, Row.m_szSummary});
    return Rows;
}

std::vector<cHelpRow> ScriptHelpRows()
{
    return cScript::HelpRows();
}

// The first word, and what follows it after one blank.
static void SplitCommand(const std::string &Line, std::string *pWord, std::string *pRest)
{
    const size_t nBlank = Line.find(' ');
    *pWord              = Line.substr(0, nBlank);
    *pRest              = nBlank == std::string::npos ? "" : Line.substr(nBlank + 1);
}

// Every key code is passed on; one beyond 32 bits as the largest.
static int ParseKeyCode(const std::string &Text, unsigned *pnKeyCode)
{
    uint64_t nValue;
    if (!ParseWholeNumber(Text, &nValue))
        return 0;
    const uint64_t kMost = std::numeric_limits<unsigned>::max();
    *pnKeyCode           = static_cast<unsigned>(nValue < kMost ? nValue : kMost);
    return 1;
}

// The rest of a line. File names contain no NUL; the text before one would name
// another file.
static int ParseFileName(const std::string &Rest, std::string *pName)
{
    *pName = TrimBlanks(Rest);
    return !pName->empty() && pName->find('\0') == std::string::npos;
}

// "\r" is Enter, "\e" is Escape.
static std::string UnescapeText(const std::string &Text)
{
    std::string Plain;
    for (size_t nAt = 0; nAt < Text.size(); nAt++)
    {
        const char cNext = Text[nAt] == '\\' && nAt + 1 < Text.size() ? Text[nAt + 1] : '\0';
        if (cNext == 'r' || cNext == 'e')
        {
            Plain.push_back(cNext == 'r' ? '\r' : '\033');
            nAt++;
        }
        else
            Plain.push_back(Text[nAt]);
    }
    return Plain;
}

// A character of several bytes is one keystroke.
static int IsContinuationByte(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

// "down N", "up N" or "text CHARS".
static int ParseEvents(const std::string &Command, std::vector<cScriptEvent> *pEvents)
{
    std::string Word;
    std::string Rest;
    SplitCommand(Command, &Word, &Rest);
    if (Word == "text")
    {
        for (const char c : UnescapeText(Rest))
            if (!IsContinuationByte(c))
                pEvents->push_back({cScriptEvent::evChar, 0, c});
        return !Rest.empty();
    }
    const auto Words    = SplitWords(Rest);
    unsigned   nKeyCode = 0;
    if ((Word != "down" && Word != "up") || Words.size() != 1 || !ParseKeyCode(Words[0], &nKeyCode))
        return 0;
    pEvents->push_back({Word == "down" ? cScriptEvent::evDown : cScriptEvent::evUp, nKeyCode, 0});
    return 1;
}

cScript::cScript(const cStreams &Streams) : m_Streams(Streams)
{
    Restart();
}

// The calculator is destroyed before the host that it uses.
void cScript::Restart()
{
    m_pCalculator.reset();
    m_pHost            = std::make_unique<cScriptHost>(m_Streams.m_pOut);
    m_pCalculator      = std::make_unique<cHeadlessCalculator>(m_pHost.get());
    m_pHost->m_pEngine = &m_pCalculator->m_Engine;
}

int cScript::Perform(const std::string &Line)
{
    std::string Word;
    std::string Rest;
    m_Why.clear();
    SplitCommand(Line, &Word, &Rest);
    for (const cCommand &Row : s_Commands)
        if (Word == Row.m_szName)
            return (this->*Row.m_pPerform)(Rest);
    return 0;
}

void cScript::ReportBad(unsigned nLine, const std::string &Text)
{
    std::string Json;
    {
        cJsonList Object(&Json, '{', '}');
        Object.Text("event", "bad");
        Object.Number("line", nLine);
        Object.Text("text", Text);
    }
    m_pHost->WriteLine(Json);
}

int cScript::DeliverNow(const std::string &Command)
{
    std::vector<cScriptEvent> Events;
    if (!ParseEvents(Command, &Events))
        return 0;
    for (const cScriptEvent &Event : Events)
        m_pHost->Deliver(Event);
    return 1;
}

int cScript::OnDown(const std::string &Rest)
{
    return DeliverNow("down " + Rest);
}

int cScript::OnUp(const std::string &Rest)
{
    return DeliverNow("up " + Rest);
}

int cScript::OnKey(const std::string &Rest)
{
    std::vector<unsigned> Codes;
    for (const std::string &Word : SplitWords(Rest))
    {
        Codes.push_back(0);
        if (!ParseKeyCode(Word, &Codes.back()))
            return 0;
    }
    Press(Codes);
    return !Codes.empty();
}

void cScript::Press(const std::vector<unsigned> &Keys)
{
    for (const unsigned nKeyCode : Keys)
    {
        m_pHost->Deliver({cScriptEvent::evDown, nKeyCode, 0});
        m_pHost->Deliver({cScriptEvent::evUp, nKeyCode, 0});
    }
}

int cScript::OnPress(const std::string &Rest)
{
    std::vector<unsigned> Keys;
    if (!FindKeysOfLine(m_Vocabulary, Rest, &Keys, &m_Why))
        return 0;
    Press(Keys);
    return !Keys.empty();
}

// All or none of the words; an error ends them, as it ends a program.
int cScript::OnDo(const std::string &Rest)
{
    std::vector<cListingLine> Steps;
    cTypedWords               Words(m_Vocabulary, Rest);
    cTypedStep                Step;
    while (Words.Next(&Step))
    {
        if (Step.m_Parsed.m_nKind != llInstruction && Step.m_Parsed.m_nKind != llNumber)
        {
            m_Why = QuotedWord(Step.m_Word) + ": " + WhyRefused(m_Vocabulary, Step);
            return 0;
        }
        Steps.push_back(Step.m_Parsed);
    }
    m_pHost->Perform(Steps);
    return !Steps.empty();
}

int cScript::OnText(const std::string &Rest)
{
    return DeliverNow("text " + Rest);
}

int cScript::OnAnswer(const std::string &Rest)
{
    static const struct
    {
        const char *m_szName;
        eAnswer     m_nAnswer;
    } s_Answers[] = {
        {"ok", anOk}, {"cancel", anCancel}, {"yes", anYes}, {"no", anNo}, {"retry", anRetry}};

    std::vector<eAnswer> Answers;
    for (const std::string &Word : SplitWords(Rest))
    {
        const size_t nBefore = Answers.size();
        for (const auto &Row : s_Answers)
            if (Word == Row.m_szName)
                Answers.push_back(Row.m_nAnswer);
        if (Answers.size() == nBefore)
            return 0;
    }
    for (const eAnswer nAnswer : Answers)
        m_pHost->QueueAnswer(nAnswer);
    return !Answers.empty();
}

int cScript::OnOpen(const std::string &Rest)
{
    std::string Name;
    if (!ParseFileName(Rest, &Name))
        return 0;
    if (m_pCalculator->m_Engine.LoadProgram(Name.c_str()))
        m_pCalculator->m_Engine.TakeLoadedProgram(Name.c_str());
    else if (const eFileKind nKind = KindOfFile(Name.c_str()); nKind == fkPipe || nKind == fkDevice)
        static_cast<void>(IsRegularInput(Name, m_Streams));  // the box does not say why
    return 1;
}

int cScript::OnSave(const std::string &Rest)
{
    std::string Name;
    if (!ParseFileName(Rest, &Name))
        return 0;
    m_pCalculator->m_Engine.SaveUnderName(Name.c_str());
    return 1;
}

int cScript::OnOption(const std::string &Rest)
{
    static const struct
    {
        const char *m_szName;
        int cOptions::*m_pOption;
        int            m_bOn;  // value for "on"
    } s_Options[] = {{"sound", &cOptions::m_bSoundOff, 0},
                     {"trace", &cOptions::m_bTrace, 1},
                     {"keep-listing", &cOptions::m_bKeepListingOpen, 1},
                     {"keep-registers", &cOptions::m_bKeepRegistersOpen, 1}};

    const auto Words = SplitWords(Rest);
    if (Words.size() != 2 || (Words[1] != "on" && Words[1] != "off"))
        return 0;
    const cVorstekState &State = m_pCalculator->m_Engine.State();
    cOptions Options = {State.m_bKeepListingOpen, State.m_bKeepRegistersOpen, State.m_bTrace,
                        State.m_bSoundOff};
    for (const auto &Row : s_Options)
        if (Words[0] == Row.m_szName)
        {
            Options.*Row.m_pOption = (Words[1] == "on") == Row.m_bOn;
            m_pCalculator->m_Engine.ApplyOptions(Options);
            return 1;
        }
    return 0;
}

int cScript::OnLimit(const std::string &Rest)
{
    const auto Words = SplitWords(Rest);
    uint64_t   nLines;
    if (Words.size() != 1 || !ParseWholeNumber(Words[0], &nLines))
        return 0;
    m_pHost->SetLimit(nLines);
    return 1;
}

int cScript::OnAt(const std::string &Rest)
{
    std::string               Line;
    std::string               Command;
    uint64_t                  nLine;
    std::vector<cScriptEvent> Events;
    SplitCommand(Rest, &Line, &Command);
    if (!ParseWholeNumber(Line, &nLine) || !ParseEvents(Command, &Events))
        return 0;
    for (const cScriptEvent &Event : Events)
        m_pHost->DeliverAfter(nLine, Event);
    return 1;
}

int cScript::OnGraph(const std::string &Rest)
{
    std::string Word;
    std::string FileName;
    std::string Name;
    SplitCommand(Rest, &Word, &FileName);
    if (!ParseFileName(FileName, &Name))
        return 0;
    if (Word == "open")
        OpenGraphFile(&m_pHost->m_Plot, m_pHost.get(), Name.c_str());
    else if (Word == "append")
        AppendGraphFile(&m_pHost->m_Plot, m_pHost.get(), Name.c_str());
    else if (Word == "save")
        SaveGraphFile(m_pHost->m_Plot, m_pHost.get(), Name.c_str());
    else
        return 0;
    return 1;
}

int cScript::OnReset(const std::string &Rest)
{
    if (!TrimBlanks(Rest).empty())
        return 0;
    Restart();
    return 1;
}

int cScript::OnState(const std::string &Rest)
{
    const auto  Parts = SplitWords(Rest);
    std::string Json;
    {
        cJsonList Object(&Json, '{', '}');
        Object.Text("event", "state");
        if (Parts.empty())
            ReportState(m_pCalculator.get(), *m_pHost, &Object);
        for (const std::string &Part : Parts)
            if (!ReportStatePart(Part, m_pCalculator.get(), *m_pHost, &Object))
                return 0;
    }
    m_pHost->WriteLine(Json);
    return 1;
}

// Continues while output can be written; InputName is for the message.
static int RunScript(std::istream *pIn, const std::string &InputName, const cStreams &Streams)
{
    cScript     Script(Streams);
    int         nExitCode = kExitDone;
    std::string Line;
    for (unsigned nLine = 1; *Streams.m_pOut && std::getline(*pIn, Line); nLine++)
    {
        if (Line.ends_with('\r'))
            Line.pop_back();
        if (Line.starts_with('#') || TrimBlanks(Line).empty() || Script.Perform(Line))
            continue;
        Script.ReportBad(nLine, Line);
        if (!Script.Why().empty())
            *Streams.m_pErr << "line " << nLine << ": " << Script.Why() << "\n";
        nExitCode = kExitUsage;
    }
    if (pIn->bad())
        return ReportUsage(Streams, "cannot read " + InputName);
    return nExitCode;
}

int ScriptCommand(const std::vector<std::string> &Arguments, const cStreams &Streams)
{
    std::vector<std::string> Names;
    std::string              Error;
    if (!ReadOptions({}, Arguments, nullptr, &Names, &Error))
        return ReportUsage(Streams, Error);
    if (Names.size() > 1)
        return ReportUsage(Streams, "script takes at most one file");
    if (Names.empty() || Names[0] == kStandardInput)
        return RunScript(Streams.m_pIn, "standard input", Streams);
    std::string Text;
    if (!ReadInput(Names.front(), Streams, &Text))
        return kExitUsage;
    std::istringstream File(Text);
    return RunScript(&File, "'" + Names.front() + "'", Streams);
}
