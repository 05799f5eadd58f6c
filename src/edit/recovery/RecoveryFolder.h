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

/// The place of one copy, claimed by this program: until the object is gone no other program offers
/// or removes what is there.
class ClaimedCopy {
  public:
    /// Nothing where another program has claimed it.
    static std::optional<ClaimedCopy> claim(const QString& fileName);
    ClaimedCopy(ClaimedCopy&& other) noexcept = default;
    ClaimedCopy& operator=(ClaimedCopy&& other) noexcept;
    /// What was written stays for the next program.
    ~ClaimedCopy();

    [[nodiscard]] const QString& fileName() const { return fileName_; }
    /// Whether what is written here would still be claimed: somebody may have removed the folder.
    [[nodiscard]] bool isThere() const;
    /// Whether there is a copy here, still claimed.
    [[nodiscard]] bool holdsCopy() const;
    /// Writes the model in one step; false leaves what was there.
    bool write(const ModelDocument& document);
    [[nodiscard]] CopyHead head() const;
    /// The model; nothing where the copy is damaged.
    [[nodiscard]] std::optional<ModelDocument> read(const TextureSource& textures) const;
    /// Removes what is there.
    void remove();

  private:
    ClaimedCopy(QString fileName, FileLock lock);

    QString fileName_;
    FileLock lock_;
};

/// A copy whose program has ended, with what it tells of itself.
struct LeftCopy {
    ClaimedCopy place;
    CopyHead head;
};

/// How much the folder may hold of programs that have ended.
struct RecoveryLimits {
    std::size_t copies = 100;
    std::uint64_t bytes = 1U << 30U;
    std::chrono::seconds age = std::chrono::hours(24 * 30);
};

/// The folder of the recovery copies, which is its user's alone.
class RecoveryFolder {
  public:
    explicit RecoveryFolder(QString path, const RecoveryLimits& limits = {});
    /// The one of this user: in XDG_STATE_HOME, which is .local/state of the home unless the
    /// environment says otherwise, or where the platform has such data.
    static RecoveryFolder ofUser();

    [[nodiscard]] const QString& path() const { return path_; }
    /// A place for a new copy; makes the folder if need be. Nothing where that cannot be.
    [[nodiscard]] std::optional<ClaimedCopy> newPlace() const;
    /// Claims the copies whose programs have ended, the newest first, and removes what programs
    /// have left unfinished.
    [[nodiscard]] std::vector<LeftCopy> claimLeft() const;

    // Both remove readable copies alone, and none that is claimed. What this version cannot read,
    // another one may, or a person.

    /// Removes the oldest copies until the limits allow what is left. The newest stays whatever its
    /// size.
    void makeRoom() const;
    /// Removes copies that are past their time. The user must have been offered them.
    void removeOld() const;

  private:
    [[nodiscard]] bool prepare() const;

    QString path_;
    RecoveryLimits limits_;
};

} // namespace korvane
