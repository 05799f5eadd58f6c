#include "edit/history/EditNumbers.h"

namespace korvane {

EditAction materialAction(EditKind kind, std::size_t material) {
    EditAction action;
    action.kind = kind;
    action.index = static_cast<std::uint32_t>(material);
    return action;
}

EditAction frameAction(EditKind kind, std::span<const std::int32_t> frame,
                       std::span<const std::int32_t> numbers) {
    EditAction action;
    action.kind = kind;
    action.index = static_cast<std::uint32_t>(frame.size());
    action.path.reserve(frame.size() + 1 + numbers.size());
    action.path.assign(frame.begin(), frame.end());
    action.path.push_back(0);
    action.path.insert(action.path.end(), numbers.begin(), numbers.end());
    return action;
}

EditAction frameAction(EditKind kind, const FramePath& frame,
                       std::span<const std::int32_t> numbers) {
    return frameAction(kind, frame.childNumbers(), numbers);
}

} // namespace korvane
