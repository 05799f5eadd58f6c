#pragma once

#include "tool/CommandLine.h"

#include <array>

namespace korvane::tool {

/// A subcommand of the program.
struct Command {
    const char* name;
    const char* summary; ///< one line, for the help of the program
    const char* usage;   ///< a line for each form of the call
    const char* about;   ///< what it does, for its own help
    void (*addOptions)(CommandLine& line);
    /// Runs a call that does not ask for help. Throws WrongCall, Refusal or OutputFailure.
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
