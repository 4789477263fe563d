#include "listing/program_flow.h"

#include "engine/program_line.h"
#include "listing/source_program.h"
#include "tests/unit/calculator_rig.h"

static cSourceProgram Program(const std::string &Text)
{
    cSourceProgram Program;
    cSourceReader  Reader(Text);
    cSourceLine    Line;
    while (Reader.Next(&Line))
        Program.Add(Line);
    Program.Finish();
    return Program;
}

// The lines that can follow line 1, as the calculator does it. Registers and
// stack make each test hold and fail.
static cLineSet LinesAfter(const std::string &Listing)
{
    cLineSet After;
    for (const double dValue : {-1.0, 0.0, 1.0})
        for (const double dOther : {0.0, 2.0})
        {
            cCalculatorRig Rig;
            Rig.Load(Listing.c_str());
            Rig.Set(dValue, dOther);
            Rig.SetReg(0, dValue);
            Rig.m_Engine.SingleStep();
            After.set(Rig.State().m_nCurLine);
        }
    return After;
}

TEST_CASE("every instruction goes where the calculator goes")
{
    for (const cInstruction &Instruction : Instructions())
    {
        const std::string Mnemonic = Instruction.m_szMnemonic;
        const std::string Listing =
            Mnemonic + (Instruction.m_nOperand == opNone ? "" : " 1") + "\n2\n3\nLBL 1\n5\n";
        CAPTURE(Mnemonic);
        const cProgramFlow &Flow = Program(Listing).Flow();

        // Wherever a single step leads, a run can go; only RTN would end one.
        const cLineSet Reached = Flow.Reach(cLineSet().set(1));
        const cLineSet After   = LinesAfter(Listing);
        if (Flow.IsIndirect() || Flow.Line(1).m_nFlow == flReturn)
            continue;
        CHECK((After & ~Reached).none());
        CHECK((Flow.Line(1).m_nFlow == flSkip) == (After[2] && After[3]));
        CHECK((Flow.Line(1).m_nTarget == 4) == (After.count() == 1 && After[4]));
    }
}

TEST_CASE("jumps, calls, returns, stops and tests are told apart")
{
    // clang-format off
    static const struct { const char *szLine; eFlow nFlow; } s_Rows[] =
    {
        { "GTO 1", flGoto         },
        { "GTO i", flGotoIndirect },
        { "GSB 1", flCall         },
        { "GSB i", flCallIndirect },
        { "RTN",   flReturn       },
        { "R/S",   flStop         },
        { "DSZ",   flSkip         },
        { "ISZ",   flSkip         },
        { "x<=y",  flSkip         },
        { "x!=0",  flSkip         },
        { "PAUSE", flNext         },
        { "LBL 1", flNext         },
        { "RCL i", flNext         },
        { "5",     flNext         },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szLine);
        CHECK(Program(Row.szLine).Flow().Line(1).m_nFlow == Row.nFlow);
    }
    CHECK(cProgramFlow().Line(kLastLine).m_nFlow == flStop);
}
