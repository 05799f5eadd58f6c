#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace korvane {

struct FrameRecord;

/// Where a frame stands: the 1-based child numbers that lead to it from the root, whose own path is
/// empty. Frames are held by value and move when a sibling list changes: a pointer to one does not
/// outlive an edit, a path does. Paths share what they have in common: every frame has one, and a
/// tree may be deep.
class FramePath {
  public:
    FramePath() = default;
    explicit FramePath(std::span<const std::int32_t> childNumbers);

    /// The path of a child of this path's frame, by its 1-based number.
    [[nodiscard]] FramePath child(std::int32_t number) const;

    /// The path of the parent; that of the root itself for the root.
    [[nodiscard]] FramePath parent() const;

    /// How far below the root: 0 for the root itself.
    [[nodiscard]] std::size_t depth() const { return last_ == nullptr ? 0 : last_->depth; }
    [[nodiscard]] std::vector<std::int32_t> childNumbers() const;

    bool operator==(const FramePath& other) const;

  private:
    struct Step {
        std::shared_ptr<const Step> before; ///< null for the first step
        std::size_t depth;
        std::int32_t childNumber;
    };

    std::shared_ptr<const Step> last_; ///< null for the root
};

/// The frame that the child numbers lead to from the root, or null where they lead to none. The
/// pointer is valid until the next structural edit.
FrameRecord* frameAt(FrameRecord& root, std::span<const std::int32_t> childNumbers);
const FrameRecord* frameAt(const FrameRecord& root, std::span<const std::int32_t> childNumbers);
FrameRecord* frameAt(FrameRecord& root, const FramePath& path);
const FrameRecord* frameAt(const FrameRecord& root, const FramePath& path);

} // namespace korvane
