#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace korvane::test {

/// A test with a folder of its own for files.
class TestFiles : public testing::Test {
  protected:
    [[nodiscard]] QString folder() const { return folder_.path(); }
    [[nodiscard]] QString path(const char* name) const {
        return folder_.filePath(QString::fromLatin1(name));
    }
    /// Writes a file, in a new subfolder if needed, and returns its path.
    QString write(const char* name, std::string_view content) const {
        QString file = path(name);
        QDir().mkpath(QFileInfo(file).path());
        QFile out(file);
        EXPECT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(content.data(), static_cast<qint64>(content.size()));
        return file;
    }
    static std::string content(const QString& name) {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "(none)";
    }
    [[nodiscard]] qsizetype filesInFolder() const {
        return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden | QDir::System).size();
    }

  private:
    QTemporaryDir folder_;
};

/// Makes a folder the current one while it exists.
class WorkingFolder {
  public:
    explicit WorkingFolder(const QString& folder) : before_(QDir::currentPath()) {
        EXPECT_TRUE(QDir::setCurrent(folder));
    }
    ~WorkingFolder() { QDir::setCurrent(before_); }
    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;

  private:
    QString before_;
};

/// Returns the folder of real models and pictures named by the environment; empty if none is.
inline QString corpusFolder() {
    return qEnvironmentVariable("KORVANE_CORPUS");
}

} // namespace korvane::test
