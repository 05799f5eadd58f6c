#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace korvane {

struct FrameRecord;

/// Where a frame stands: the 1-based child numbers that lead to it from the root, whose own path is
/// empty. Frames are held by value and move when a sibling list changes, so this is the only way to
/// refer to one across an edit.
class FramePath {
  public:
    FramePath() = default;
    explicit FramePath(std::span<const std::int32_t> childNumbers)
        : childNumbers_(childNumbers.begin(), childNumbers.end()) {}

    /// How far below the root: 0 for the root itself.
    [[nodiscard]] std::size_t depth() const { return childNumbers_.size(); }
    [[nodiscard]] std::span<const std::int32_t> childNumbers() const { return childNumbers_; }

    bool operator==(const FramePath&) const = default;

  private:
    std::vector<std::int32_t> childNumbers_;
};

/// The frame that the child numbers lead to from the root, or null where they lead to none. The
/// pointer is valid until the next structural edit.
FrameRecord* frameAt(FrameRecord& root, std::span<const std::int32_t> childNumbers);
const FrameRecord* frameAt(const FrameRecord& root, std::span<const std::int32_t> childNumbers);

} // namespace korvane
