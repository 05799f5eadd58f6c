#pragma once

#include <QString>

#include <memory>
#include <optional>

class QFile;
class QLockFile;

namespace korvane {

/// Locks a file against other programs while the object lives. However the program ends, the system
/// releases the lock.
class FileLock {
  public:
    /// Makes the file if it is missing. Returns nothing if another program holds it or it cannot be
    /// opened.
    static std::optional<FileLock> take(const QString& fileName);
    FileLock(FileLock&& other) noexcept;
    FileLock& operator=(FileLock&& other) noexcept;
    ~FileLock();

    /// False after moving from the object.
    [[nodiscard]] bool held() const { return handle_ != nullptr; }
    /// Removes the file but keeps the lock: nobody else can find it any more.
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
