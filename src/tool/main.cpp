#include "formats/files/FileNames.h"
#include "formats/xsi/XsiWriter.h"
#include "tool/Commands.h"

#include <QGuiApplication>

#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <memory>
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

/// Says what is wrong with the command, and how the commands are called.
ExitStatus showUsage(const QString& reason) {
    std::fprintf(
        stderr,
        "korvane-tool: %s\n"
        "usage: korvane-tool info FILE...            what the models hold\n"
        "       korvane-tool convert IN OUT.xsi [--repeat N]\n"
        "                                            save a model as dotXSI; N times, with the\n"
        "                                            median times of loading and saving\n"
        "       korvane-tool render IN OUT.png [--mode wireframe|flat|smooth] [--view "
        "3d|xy|xz|zy]\n"
        "                    [--api software|opengl] [--size WxH] [--pitch R] [--yaw R]\n"
        "                    [--distance D] [--center X,Y,Z] [--no-transparent]\n"
        "                    [--no-hidden-transparent] [--repeat N] [--format png]\n"
        "                                            a picture of the model; N times, with the\n"
        "                                            median time and the pixels drawn\n"
        "       korvane-tool texture IN OUT.png [--format png]\n"
        "                                            a texture as the editor decodes it\n"
        "A picture needs a name that ends in .png, or any name with --format png; \"-\" is\n"
        "standard output.\n",
        printable(reason).c_str());
    return ExitStatus::Usage;
}

ExitStatus run(const QStringList& words) {
    if (words.isEmpty()) {
        return showUsage(QStringLiteral("no command given"));
    }
    const std::string name = words.first().toStdString();
    for (const auto& [known, command] : commands) {
        if (known == name) {
            return command(words.mid(1));
        }
    }
    return showUsage(QStringLiteral("unknown command \"%1\"").arg(words.first()));
}

/// Drawing with OpenGL needs the connection to the display, nothing else does. Where there is no
/// display Qt would end the program: it gets a platform that needs none, which has no OpenGL.
std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv,
                                                  const QStringList& words) {
    const auto isOpenGl = [](const QString& word) {
        return word == QLatin1String("opengl") || word == QLatin1String("--api=opengl");
    };
    if (std::none_of(words.begin(), words.end(), isOpenGl)) {
        return std::make_unique<QCoreApplication>(argc, argv);
    }
    QByteArray platforms = qgetenv("QT_QPA_PLATFORM");
    if (platforms.isEmpty() && !qEnvironmentVariableIsEmpty("DISPLAY")) {
        platforms = "xcb";
    }
    if (platforms.isEmpty() && !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) {
        platforms = "wayland";
    }
    qputenv("QT_QPA_PLATFORM", platforms.isEmpty() ? "offscreen" : platforms + ";offscreen");
    // what Qt has to say about a display that is not there is no news
    const QtMessageHandler usual =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    auto application = std::make_unique<QGuiApplication>(argc, argv);
    qInstallMessageHandler(usual);
    return application;
}

} // namespace

int main(int argc, char** argv) {
    try {
        const QStringList words = korvane::commandLineWords(argc, argv);
        argc = std::min(argc, 1); // the toolkit would take a file's name for one of its options
        const std::unique_ptr<QCoreApplication> application = makeApplication(argc, argv, words);
        ExitStatus status = run(words);
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
