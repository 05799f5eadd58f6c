#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>

namespace korvane::tool {

/// A name for standard input in messages, other names as they are.
QString inputLabel(const QString& file);

/// The folder that a file stands in.
QString parentFolder(const QString& file);

enum class InputState { Opened, Missing, CannotOpen };

/// Opens a file, whatever bytes its name has. A folder cannot be read, and a pipe or a device might
/// never end: they are refused.
InputState openInput(QFile& file, const QString& name);

/// All of standard input. Throws Refusal where it cannot be read to its end.
std::string readStandardInput();

/// A folder under a name that the toolkit can use, whatever bytes its own name has.
class FolderAlias {
  public:
    /// An empty name is the current folder.
    explicit FolderAlias(const QString& folder);
    ~FolderAlias();
    FolderAlias(const FolderAlias&) = delete;
    FolderAlias& operator=(const FolderAlias&) = delete;

    [[nodiscard]] const QString& path() const { return path_; }
    /// Whether that is the folder's own name.
    [[nodiscard]] bool isReal() const { return descriptor_ < 0; }
    /// The name of a file under its real folder.
    [[nodiscard]] QString realName(const QString& file) const;

  private:
    QString real_;
    QString path_;
    int descriptor_ = -1;
};

/// Knows which files are read, so that none is written.
class InputFiles {
  public:
    explicit InputFiles(const QStringList& inputs);
    /// Throws Refusal where an output, by whatever spelling or link, is one of the inputs.
    void keepFrom(const QString& out) const;
    /// The same, but lets a file be saved onto itself.
    void keepFrom(const QString& out, const QString& own) const;

  private:
    using FileId = std::pair<std::uint64_t, std::uint64_t>;
    static std::optional<FileId> idOf(const QString& name, int standardStream);

    std::set<FileId> ids_;
};

} // namespace korvane::tool
