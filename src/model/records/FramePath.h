#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace korvane {

struct FrameRecord;

/// The position of a frame: the 1-based child numbers from the root, whose own path is empty.
/// Frames are held by value and move when a sibling list changes, so a path outlives an edit and a
/// pointer does not. As every frame has a path and trees may be deep, paths share their common
/// part.
class FramePath {
  public:
    FramePath() = default;
    explicit FramePath(std::span<const std::int32_t> childNumbers);

    /// The path of a child of this path's frame, by its 1-based number.
    [[nodiscard]] FramePath child(std::int32_t number) const;

    /// The parent's path; the root returns its own.
    [[nodiscard]] FramePath parent() const;

    /// The number of levels below the root.
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

/// The frame at the end of the child numbers from the root, or null if there is none. Valid until
/// the next structural edit.
FrameRecord* frameAt(FrameRecord& root, std::span<const std::int32_t> childNumbers);
const FrameRecord* frameAt(const FrameRecord& root, std::span<const std::int32_t> childNumbers);
FrameRecord* frameAt(FrameRecord& root, const FramePath& path);
const FrameRecord* frameAt(const FrameRecord& root, const FramePath& path);

} // namespace korvane
