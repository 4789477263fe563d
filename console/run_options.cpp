#include "console/run_options.h"

#include "console/arguments.h"
#include "engine/vorstek_state.h"
#include "toolkit/dbg_file.h"

// Each stores an option's value; 0 if the value is invalid.
typedef int (*cTakeRunValue)(cRunOptions *, const std::string &);

template <unsigned nLevel> static int TakeLevel(cRunOptions *pOptions, const std::string &Value)
{
    double dValue;
    if (!ParseNumber(Value, &dValue))
        return 0;
    pOptions->m_Levels.emplace_back(nLevel, dValue);
    return 1;
}

static int TakeRegister(cRunOptions *pOptions, const std::string &Value)
{
    const size_t nEqual = Value.find('=');
    uint64_t     nRegister;
    double       dValue;
    if (nEqual == std::string::npos || !ParseWholeNumber(Value.substr(0, nEqual), &nRegister) ||
        nRegister >= kRegisters || !ParseNumber(Value.substr(nEqual + 1), &dValue))
        return 0;
    pOptions->m_Registers.emplace_back(static_cast<unsigned>(nRegister), dValue);
    return 1;
}

static int TakeLabel(cRunOptions *pOptions, const std::string &Value)
{
    uint64_t nLabel;
    if (!ParseWholeNumber(Value, &nLabel) || nLabel > 9)
        return 0;
    pOptions->m_nLabel = static_cast<int>(nLabel);
    return 1;
}

static int TakeMaxLines(cRunOptions *pOptions, const std::string &Value)
{
    return ParseWholeNumber(Value, &pOptions->m_nMaxLines) && pOptions->m_nMaxLines > 0;
}

static int TakeTraceFile(cRunOptions *pOptions, const std::string &Value)
{
    pOptions->m_TraceFile = Value;
    return !Value.empty() && Value.size() < kDbgFileName;
}

static int TakeGraphFile(cRunOptions *pOptions, const std::string &Value)
{
    pOptions->m_GraphFile    = Value;
    pOptions->m_bGraphAsData = Value.ends_with(".txt") || Value.ends_with(".TXT");
    return pOptions->m_bGraphAsData || Value.ends_with(".svg") || Value.ends_with(".SVG");
}

// clang-format off
static const struct
{
    const char *m_szName;
    cTakeRunValue  m_pTake;
    const char *m_szWanted;
} s_RunOptions[] =
{
    { "--x",         TakeLevel<0>,  "a number"                          },
    { "--y",         TakeLevel<1>,  "a number"                          },
    { "--z",         TakeLevel<2>,  "a number"                          },
    { "--t",         TakeLevel<3>,  "a number"                          },
    { "--reg",       TakeRegister,  "N=V with a register N from 0 to 29" },
    { "--label",     TakeLabel,     "a label from 0 to 9"               },
    { "--trace",     TakeTraceFile, "a file name of up to 259 characters"                       },
    { "--graph",     TakeGraphFile, "a file name that ends in .txt or .svg"},
    { "--max-lines", TakeMaxLines,  "a number of lines above 0"         },
};

static const struct
{
    const char      *m_szName;
    int cRunOptions::*m_pFlag;
} s_Flags[] =
{
    { "--registers", &cRunOptions::m_bRegisters },
    { "--json",      &cRunOptions::m_bJson      },
    { "--realtime",  &cRunOptions::m_bRealtime  },
};
// clang-format on

static int TakeFlag(const std::string &Name, cRunOptions *pOptions)
{
    for (const auto &Row : s_Flags)
        if (Name == Row.m_szName)
        {
            pOptions->*Row.m_pFlag = 1;
            return 1;
        }
    return 0;
}

// Stores the option at *pnAt and its value; advances *pnAt to the value.
static int TakeOption(const std::vector<std::string> &Arguments, size_t *pnAt,
                      cRunOptions *pOptions, std::string *pError)
{
    const std::string &Name = Arguments[*pnAt];
    for (const auto &Row : s_RunOptions)
    {
        if (Name != Row.m_szName)
            continue;
        if (++*pnAt < Arguments.size() && Row.m_pTake(pOptions, Arguments[*pnAt]))
            return 1;
        *pError = Name + " needs " + Row.m_szWanted;
        return 0;
    }
    *pError = UnknownOption(Name);
    return 0;
}

int ParseRunOptions(const std::vector<std::string> &Arguments, cRunOptions *pOptions,
                    std::string *pError)
{
    int bOptions = 1;
    for (size_t nAt = 0; nAt < Arguments.size(); nAt++)
    {
        const std::string &Word = Arguments[nAt];
        if (bOptions && Word == kEndOfOptions)
            bOptions = 0;
        else if (bOptions && Word.starts_with("--"))
        {
            if (!TakeFlag(Word, pOptions) && !TakeOption(Arguments, &nAt, pOptions, pError))
                return 0;
        }
        else if (pOptions->m_Program.empty())
            pOptions->m_Program = Word;
        else
        {
            *pError = "unexpected argument '" + Word + "': run takes one program";
            return 0;
        }
    }
    if (!pOptions->m_Program.empty())
        return 1;
    *pError = "run needs the file name of a program";
    return 0;
}
