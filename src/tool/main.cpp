#include "formats/xsi/XsiWriter.h"
#include "tool/Commands.h"
#include "tool/FileName.h"

#include <QGuiApplication>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <memory>
#include <new>
#include <string>

namespace {

using namespace korvane::tool;

QStringList wordsOf(int argc, char** argv) {
    QStringList words;
    for (int i = 1; i < argc; ++i) {
        words.push_back(nameFromBytes(argv[i]));
    }
    return words;
}

std::string aboutProgram() {
    std::string text = "Reads, checks, saves and draws models as the editor does, without a window."
                       "\n\nCommands:\n";
    for (const Command* command : commands) {
        text += std::string("  ") + command->name;
        text.append(10 - std::string(command->name).size(), ' ').append(command->summary) += '\n';
    }
    return text + "\n\"korvane-tool COMMAND --help\" describes a command. The exit status is 0 on\n"
                  "success, 1 if an input was refused or an output failed, 2 if the call is wrong.";
}

ExitStatus runCommand(const Command& command, const QStringList& words) {
    CommandLine line(command.usage, command.about);
    command.addOptions(line);
    line.parse(words);
    return line.answered() ? ExitStatus::Done : command.run(line);
}

/// Reports a wrong call and where to find help.
ExitStatus reportWrongCall(const WrongCall& fault, const char* command) {
    std::fprintf(stderr, "korvane-tool: %s. Try 'korvane-tool %s%s--help'.\n",
                 printable(fault.reason).c_str(), command, *command == '\0' ? "" : " ");
    return ExitStatus::Usage;
}

ExitStatus run(const QStringList& words) {
    const char* command = "";
    try {
        CommandLine program("Usage: korvane-tool [OPTION...] COMMAND ...", aboutProgram().c_str(),
                            true);
        program.parse(words);
        if (program.answered()) {
            return ExitStatus::Done;
        }
        const QStringList operands = program.operands();
        if (operands.isEmpty()) {
            throw WrongCall(QStringLiteral("no command given"));
        }
        const std::string name = nameBytes(operands.first());
        const auto known = std::find_if(commands.begin(), commands.end(),
                                        [&](const Command* row) { return row->name == name; });
        if (known == commands.end()) {
            throw WrongCall(QStringLiteral("unknown command \"%1\"").arg(operands.first()));
        }
        command = (*known)->name;
        return runCommand(**known, operands.mid(1));
    } catch (const WrongCall& fault) {
        return reportWrongCall(fault, command);
    } catch (const Refusal& refusal) {
        reportRefusal(refusal.file, refusal.reason);
        return ExitStatus::Refused;
    }
}

/// Only drawing with OpenGL needs a display. Without one, Qt would end the program: let it fall
/// back to a platform that needs none, and has no OpenGL.
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
    return std::make_unique<QGuiApplication>(argc, argv);
}

ExitStatus runAndFinish(const QStringList& words) {
    try {
        const ExitStatus status = run(words);
        finishOutput();
        return status;
    } catch (const OutputFailure& failure) {
        if (!failure.closed) {
            reportRefusal(QStringLiteral("standard output"),
                          QString::fromLatin1(korvane::saveFailureCaption));
        }
    } catch (const std::bad_alloc&) {
        reportRefusal(QStringLiteral("korvane-tool"), QStringLiteral("Not enough memory"));
    } catch (const std::exception& error) {
        reportRefusal(QStringLiteral("korvane-tool"), QString::fromLocal8Bit(error.what()));
    }
    return ExitStatus::Refused;
}

} // namespace

int main(int argc, char** argv) {
    guardStandardStreams();
    // Silences the toolkit and its decoders: refusals already report the reason.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const QStringList words = wordsOf(argc, argv);
    argc = std::min(argc, 1); // the toolkit would take file names for its own options
    const std::unique_ptr<QCoreApplication> application = makeApplication(argc, argv, words);
    return static_cast<int>(runAndFinish(words));
}
