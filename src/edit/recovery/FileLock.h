#pragma once

#include <QString>

#include <memory>
#include <optional>

class QFile;
class QLockFile;

namespace korvane {

/// A file that this program holds for itself as long as the object lives. However the program ends,
/// the system lets go of it.
class FileLock {
  public:
    /// Makes the file if it is not there. Nothing where somebody else holds it, or it cannot be
    /// had.
    static std::optional<FileLock> take(const QString& fileName);
    FileLock(FileLock&& other) noexcept;
    FileLock& operator=(FileLock&& other) noexcept;
    ~FileLock();

    /// False once it has been moved from.
    [[nodiscard]] bool held() const { return handle_ != nullptr; }
    /// Removes the file, which stays held: nobody else finds it any more.
    void remove();

  private:
#ifdef Q_OS_UNIX
    using Handle = QFile;
#else
    using Handle = QLockFile;
#endif
    explicit FileLock(std::unique_ptr<Handle> handle);

    std::unique_ptr<Handle> handle_;
};

} // namespace korvane
