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

/// Returns a name for messages: "standard input" for "-", other names as they are.
QString inputLabel(const QString& file);

/// Returns the folder of a file.
QString parentFolder(const QString& file);

enum class InputState { Opened, Missing, CannotOpen };

/// Opens a file, whatever bytes its name has. Refuses folders, which cannot be read, and pipes and
/// devices, which might never end.
InputState openInput(QFile& file, const QString& name);

/// Returns all of standard input. Throws Refusal if it cannot be read to its end.
std::string readStandardInput();

/// Gives a folder a name that the toolkit can use, whatever bytes its own name has.
class FolderAlias {
  public:
    /// An empty name means the current folder.
    explicit FolderAlias(const QString& folder);
    ~FolderAlias();
    FolderAlias(const FolderAlias&) = delete;
    FolderAlias& operator=(const FolderAlias&) = delete;

    /// Leads nowhere if the folder needs an alias but cannot be opened.
    [[nodiscard]] const QString& path() const { return path_; }
    /// Returns true if path() is the folder's own name.
    [[nodiscard]] bool isReal() const { return path_ == real_; }
    /// Converts the name of a file in path() to one in the real folder.
    [[nodiscard]] QString realName(const QString& file) const;

  private:
    QString real_;
    QString path_;
    int descriptor_ = -1;
};

/// Identifies the files that are read, so that none is overwritten.
class InputFiles {
  public:
    explicit InputFiles(const QStringList& inputs);
    /// Throws Refusal if an output, by whatever spelling or link, is one of the inputs.
    void refuseOverwriting(const QString& out) const;
    /// The same, but lets an input, `own`, be saved onto itself.
    void refuseOverwriting(const QString& out, const QString& own) const;

  private:
    using FileId = std::pair<std::uint64_t, std::uint64_t>;
    static std::optional<FileId> idOf(const QString& name, int standardStream);

    std::set<FileId> ids_;
};

} // namespace korvane::tool
