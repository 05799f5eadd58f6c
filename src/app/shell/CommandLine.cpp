#include "app/shell/CommandLine.h"

namespace korvane {

std::optional<QString> commandLineAnswer(const QStringList& words) {
    for (const QString& word : words) {
        if (word == QLatin1String("--")) {
            break;
        }
        if (word == QLatin1String("--version")) {
            return QStringLiteral("Korvane II Model Editor " KORVANE_VERSION "\n");
        }
        if (word == QLatin1String("--help") || word == QLatin1String("-h")) {
            return QStringLiteral("Usage: korvane-editor [MODEL...]\n"
                                  "       korvane-editor --help | -h | --version\n\n"
                                  "Opens each MODEL whose name ends in .xsi or .x in a window of\n"
                                  "its own; other arguments are ignored.\n");
        }
    }
    return std::nullopt;
}

} // namespace korvane
