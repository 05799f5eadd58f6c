#include "model/records/FramePath.h"

#include "model/records/FrameRecord.h"

namespace korvane {

FramePath::FramePath(std::span<const std::int32_t> childNumbers) {
    for (const std::int32_t number : childNumbers) {
        *this = child(number);
    }
}

FramePath FramePath::child(std::int32_t number) const {
    FramePath path;
    path.last_ = std::make_shared<const Step>(Step{last_, depth() + 1, number});
    return path;
}

FramePath FramePath::parent() const {
    FramePath path;
    path.last_ = last_ != nullptr ? last_->before : nullptr;
    return path;
}

std::vector<std::int32_t> FramePath::childNumbers() const {
    std::vector<std::int32_t> numbers(depth());
    for (const Step* step = last_.get(); step != nullptr; step = step->before.get()) {
        numbers[step->depth - 1] = step->childNumber;
    }
    return numbers;
}

bool FramePath::operator==(const FramePath& other) const {
    return childNumbers() == other.childNumbers();
}

namespace {

template <class Frame>
Frame* descend(Frame* frame, std::span<const std::int32_t> childNumbers) {
    for (const std::int32_t number : childNumbers) {
        if (number < 1 || static_cast<std::size_t>(number) > frame->Children.size()) {
            return nullptr;
        }
        frame = &frame->Children[static_cast<std::size_t>(number) - 1];
    }
    return frame;
}

} // namespace

FrameRecord* frameAt(FrameRecord& root, std::span<const std::int32_t> childNumbers) {
    return descend(&root, childNumbers);
}

const FrameRecord* frameAt(const FrameRecord& root, std::span<const std::int32_t> childNumbers) {
    return descend(&root, childNumbers);
}

FrameRecord* frameAt(FrameRecord& root, const FramePath& path) {
    return descend(&root, path.childNumbers());
}

const FrameRecord* frameAt(const FrameRecord& root, const FramePath& path) {
    return descend(&root, path.childNumbers());
}

} // namespace korvane
