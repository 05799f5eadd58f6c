#include "model/FramePath.h"

#include "model/FrameRecord.h"

#include <utility>

namespace korvane {

const FrameRecord* frameAt(const FrameRecord& root, std::span<const std::int32_t> childNumbers) {
    const FrameRecord* frame = &root;
    for (const std::int32_t number : childNumbers) {
        if (number < 1 || static_cast<std::size_t>(number) > frame->Children.size()) {
            return nullptr;
        }
        frame = &frame->Children[static_cast<std::size_t>(number) - 1];
    }
    return frame;
}

FrameRecord* frameAt(FrameRecord& root, std::span<const std::int32_t> childNumbers) {
    return const_cast<FrameRecord*>(frameAt(std::as_const(root), childNumbers));
}

} // namespace korvane
