#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "console/session/completion.h"
#include "console/session/instruction_help.h"
#include "engine/instruction.h"
#include "tests/unit/scratch_folder.h"

TEST_CASE("every instruction has help from the manual")
{
    for (const cInstruction &Instruction : Instructions())
    {
        CAPTURE(std::string(Instruction.m_szMnemonic));
        CHECK(InstructionHelp(Instruction.m_szMnemonic).size() > 10);
    }
    CHECK(InstructionHelp("sqrt") == "f √x   X ← square root of X; LASTx ← X\n"
                                     "\"Error: sqrt of x < 0\" X is negative.\n");
    CHECK(InstructionHelp("ClearREG") == "f CL REG   all thirty registers ← 0\n");
}

TEST_CASE("tab completes what is printed on the keys in two words")
{
    const std::vector<std::string> Words = {"CLX",  "ClearREG", "LASTx", "SetG", "CL G", "CL REG",
                                            "CL Σ", "LAST x",   "SET G", "STO",  "STO i"};

    CHECK(FindCompletion("2 CL R", Words).m_Insert == "EG ");
    CHECK(FindCompletion("cl se", Words).m_Choices == std::vector<std::string>{"SetG"});
    CHECK(FindCompletion("CL ", Words).m_Choices ==
          std::vector<std::string>{"CL G", "CL REG", "CL Σ"});
    CHECK(FindCompletion("CL ", Words).m_Insert.empty());
    CHECK(FindCompletion("CL", Words).m_Choices == std::vector<std::string>{"CLX", "ClearREG"});
    CHECK(FindCompletion("LAST", Words).m_Insert == "x ");
    CHECK(FindCompletion("set ", Words).m_Insert == "G ");
    CHECK(FindCompletion("STO", Words).m_Choices == std::vector<std::string>{"STO", "STO i"});
    CHECK(FindCompletion("STO i", Words).m_Choices.empty());
    CHECK(FindCompletion("set  ", Words).m_Choices.size() == 6);
    CHECK(FindCompletion(" ", Words).m_Choices.size() == 6);
    CHECK(FindCompletion("load CL R", Words).m_Choices.empty());
}

TEST_CASE("tab completes commands and instructions, and names of files")
{
    const std::vector<std::string> Words = {"run", "registers", "RCL", "RCLSum+", "sqrt", "sin"};
    const cScratchFolder           Folder;
    Folder.Write("square.txt", "");
    Folder.Write("squash.txt", "");

    CHECK(FindCompletion("2 3 sq", Words).m_Insert == "rt ");
    CHECK(FindCompletion("R", Words).m_Choices ==
          std::vector<std::string>{"RCL", "RCLSum+", "registers", "run"});
    CHECK(FindCompletion("R", Words).m_Insert.empty());
    CHECK(FindCompletion("RC", Words).m_Insert == "L");
    CHECK(FindCompletion("zz", Words).m_Choices.empty());
    CHECK(FindCompletion("load " + Folder.Name("squ"), Words).m_Insert == "a");
    CHECK(FindCompletion("load " + Folder.Name("squar"), Words).m_Insert == "e.txt ");
    CHECK(FindCompletion("load " + Folder.Name("").substr(0, Folder.Name("").size() - 1), Words)
              .m_Insert == "/");
}
