// instruction_help.h - what the manual's reference says of an instruction.

#ifndef CONSOLE_SESSION_INSTRUCTION_HELP_H
#define CONSOLE_SESSION_INSTRUCTION_HELP_H

#include <string>
#include <string_view>

// What its keys do, and its errors, a line each. "" for anything but a mnemonic.
std::string InstructionHelp(std::string_view Mnemonic);

#endif
