#pragma once

#include "tool/CommandLine.h"

#include <array>

namespace korvane::tool {

/// A subcommand of the program.
struct Command {
    const char* name;
    const char* summary; ///< one line, for the help of the program
    const char* usage;   ///< how it is called, one line for each way
    const char* about;   ///< what it does, for its own help
    void (*addOptions)(CommandLine& line);
    /// Does the work of a call that asks for it. Throws WrongCall, Refusal or OutputFailure.
    ExitStatus (*run)(const CommandLine& line);
};

extern const Command infoCommand;
extern const Command checkCommand;
extern const Command convertCommand;
extern const Command renderCommand;
extern const Command textureCommand;

/// All of them, in the order of the help.
inline constexpr std::array commands = {&infoCommand, &checkCommand, &convertCommand,
                                        &renderCommand, &textureCommand};

} // namespace korvane::tool
