#include "formats/XsiWriter.h"
#include "tool/Commands.h"

#include <QCoreApplication>

#include <array>
#include <cstdio>
#include <exception>
#include <string>
#include <string_view>
#include <utility>

namespace {

using namespace korvane::tool;

constexpr std::array<std::pair<std::string_view, Command>, 4> commands = {{
    {"info", info},
    {"convert", convert},
    {"render", render},
    {"texture", texture},
}};

ExitStatus run(const QStringList& words) {
    if (words.isEmpty()) {
        return usage(QStringLiteral("no command given"));
    }
    const std::string name = words.first().toStdString();
    for (const auto& [known, command] : commands) {
        if (known == name) {
            return command(words.mid(1));
        }
    }
    return usage(QStringLiteral("unknown command \"%1\"").arg(words.first()));
}

} // namespace

int main(int argc, char** argv) {
    try {
        const QCoreApplication application(argc, argv);
        ExitStatus status = run(QCoreApplication::arguments().mid(1));
        // an earlier failure need not show again when the rest is flushed
        if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
            status = refuse(QStringLiteral("standard output"),
                            QString::fromLatin1(korvane::saveFailureCaption));
        }
        return static_cast<int>(status);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "korvane-tool: %s\n", error.what());
        return static_cast<int>(ExitStatus::Refused);
    }
}
