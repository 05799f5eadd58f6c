#pragma once

#include "model/records/FrameRecord.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace korvane {

/// Visits a frame tree once in pre-order, the root first, in constant time a frame:
///
///     for (FrameWalk walk(root); !walk.done(); walk.next()) { use(walk.frame()); }
///
/// `Frame` is FrameRecord or const FrameRecord. The tree must not change while it is walked.
template <class Frame>
class FrameWalk {
  public:
    explicit FrameWalk(Frame& root) : trail_{&root} {}

    [[nodiscard]] bool done() const { return trail_.empty(); }
    [[nodiscard]] Frame& frame() const { return *trail_.back(); }
    /// The parent of the frame; the frame must not be the root.
    [[nodiscard]] Frame& parent() const { return *trail_[trail_.size() - 2]; }
    /// The frame's level below the root.
    [[nodiscard]] std::size_t depth() const { return childNumbers_.size(); }
    /// The child numbers from the root to the frame.
    [[nodiscard]] std::span<const std::int32_t> childNumbers() const { return childNumbers_; }

    void next() {
        if (!trail_.back()->Children.empty()) {
            enterChild(1);
            return;
        }
        while (!childNumbers_.empty()) {
            const std::int32_t sibling = childNumbers_.back() + 1;
            trail_.pop_back();
            childNumbers_.pop_back();
            if (static_cast<std::size_t>(sibling) <= trail_.back()->Children.size()) {
                enterChild(sibling);
                return;
            }
        }
        trail_.clear();
    }

  private:
    void enterChild(std::int32_t number) {
        trail_.push_back(&trail_.back()->Children[static_cast<std::size_t>(number) - 1]);
        childNumbers_.push_back(number);
    }

    std::vector<Frame*> trail_; ///< from the root to the frame
    std::vector<std::int32_t> childNumbers_;
};

} // namespace korvane
