#pragma once

#include "support/TestFiles.h"

#include <QFileInfo>
#include <QProcess>

#include <string>

namespace korvane::test {

/// Runs the companion program in the test's own folder.
class ToolRun : public TestFiles {
  protected:
    struct Outcome {
        int status;
        std::string output;
        std::string errors;
    };

    void SetUp() override {
        using namespace std::string_literals;
        write("good.x", "xof 0302txt 0032\nframe frm-a {\nmesh {\n1;\n1;2;3;;\n1;\n3;0,0,0;;\n"
                        "MeshNormals {\n1;\n0;0;1;;\n0;\n}\n}\n}\n");
        write("bad.x", "nothing");
        write("a.tga", "\0\0\2\0\0\0\0\0\0\0\0\0\2\0\1\0\30\0\1\2\3\4\5\6"s);
        write("a.msh", "");
    }
    /// Runs it with words separated by blanks.
    [[nodiscard]] Outcome run(const std::string& words) const {
        return start(QStringLiteral(KORVANE_TOOL),
                     QString::fromStdString(words).split(u' ', Qt::SkipEmptyParts));
    }
    /// Runs a shell script in which $T is the program.
    [[nodiscard]] Outcome shell(const std::string& script) const {
        write("script", script); // as an argument it would have to be valid UTF-8
        return start(QStringLiteral("/bin/sh"), {QStringLiteral("script")});
    }

  private:
    [[nodiscard]] Outcome start(const QString& program, const QStringList& words) const {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("de_DE.UTF-8")); // has commas
        environment.insert(QStringLiteral("LOCPATH"),
                           QFileInfo(qEnvironmentVariable("LOCPATH")).absoluteFilePath());
        environment.insert(QStringLiteral("T"), QStringLiteral(KORVANE_TOOL));
        process.setProcessEnvironment(environment); // the same on every machine: no OpenGL
        process.setWorkingDirectory(folder());
        process.start(program, words);
        EXPECT_TRUE(process.waitForFinished());
        return {process.exitCode(), process.readAllStandardOutput().toStdString(),
                process.readAllStandardError().toStdString()};
    }
};

} // namespace korvane::test
