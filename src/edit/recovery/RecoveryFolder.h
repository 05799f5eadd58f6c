#pragma once

#include "edit/recovery/FileLock.h"
#include "edit/recovery/RecoveryCopy.h"

#include <QString>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace korvane {

/// The place of one copy, claimed by this program: while the object lives, no other program offers
/// or removes the copy.
class ClaimedCopy {
  public:
    /// Returns nothing if another program has claimed it.
    static std::optional<ClaimedCopy> claim(const QString& fileName);
    ClaimedCopy(ClaimedCopy&& other) noexcept = default;
    ClaimedCopy& operator=(ClaimedCopy&& other) noexcept;
    /// Leaves the copy for the next program.
    ~ClaimedCopy();

    [[nodiscard]] const QString& fileName() const { return fileName_; }
    /// Whether the place is still claimed: somebody may have removed the folder.
    [[nodiscard]] bool isClaimed() const;
    /// Whether the place is still claimed and has a copy.
    [[nodiscard]] bool holdsCopy() const;
    /// Replaces the copy atomically. If this fails, returns false and leaves the old copy.
    bool write(const ModelDocument& document);
    [[nodiscard]] CopyHead head() const;
    /// Reads the model; returns nothing if the copy is damaged.
    [[nodiscard]] std::optional<ModelDocument> read(const TextureSource& textures) const;
    /// Removes the copy.
    void remove();

  private:
    ClaimedCopy(QString fileName, FileLock lock);

    QString fileName_;
    FileLock lock_;
};

/// A copy whose program has ended.
struct LeftCopy {
    ClaimedCopy place;
    CopyHead head;
};

/// Limits for the copies of programs that have ended.
struct RecoveryLimits {
    std::size_t copies = 100;
    std::uint64_t bytes = 1U << 30U;
    std::chrono::seconds age = std::chrono::hours(24 * 30);
};

/// The folder of the recovery copies, private to its user.
class RecoveryFolder {
  public:
    explicit RecoveryFolder(QString path, const RecoveryLimits& limits = {});
    /// The folder of this user: below XDG_STATE_HOME, by default .local/state in the home, or
    /// wherever the platform keeps such data.
    static RecoveryFolder ofUser();

    [[nodiscard]] const QString& path() const { return path_; }
    /// Claims a place for a new copy and makes the folder if needed. Returns nothing on failure.
    [[nodiscard]] std::optional<ClaimedCopy> claimNewPlace() const;
    /// Claims the copies whose programs have ended, newest first, and removes unfinished ones.
    [[nodiscard]] std::vector<LeftCopy> claimLeft() const;

    // Both remove only readable copies that nobody has claimed. Another version, or a person, may
    // be able to read the others.

    /// Removes the oldest copies until the rest fits the limits. The newest stays whatever its
    /// size.
    void makeRoom() const;
    /// Removes copies past the age limit. Offer them to the user first.
    void removeOld() const;

  private:
    [[nodiscard]] bool prepare() const;

    QString path_;
    RecoveryLimits limits_;
};

} // namespace korvane
