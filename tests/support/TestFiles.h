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
    /// Writes a file, in a subfolder that is made if need be, and gives its path.
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

/// Makes a folder the one that names without a folder belong to, for as long as it lives.
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

/// The folder of real models and pictures that the environment names; empty if there is none.
inline QString corpusFolder() {
    return qEnvironmentVariable("KORVANE_CORPUS");
}

} // namespace korvane::test
