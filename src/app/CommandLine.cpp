#include "app/CommandLine.h"

#include <string_view>

namespace korvane {

std::optional<QString> commandLineAnswer(std::span<char*> arguments) {
    if (arguments.size() != 1) {
        return std::nullopt;
    }
    const std::string_view argument(arguments.front());
    if (argument == "--version") {
        return QStringLiteral("Korvane II Model Editor " KORVANE_VERSION "\n");
    }
    if (argument == "--help") {
        return QStringLiteral("Usage: korvane-editor [MODEL...]\n"
                              "       korvane-editor --help | --version\n\n"
                              "Opens each MODEL whose name ends in .xsi or .x in a window of its\n"
                              "own; other arguments are ignored.\n");
    }
    return std::nullopt;
}

} // namespace korvane
