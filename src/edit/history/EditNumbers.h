#pragma once

#include "edit/history/EditAction.h"
#include "model/records/FramePath.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>

namespace korvane {

// The numbers that an entry keeps in `index` and `path`. A struct beside each kind's step names
// those that follow the frame's path.

/// Converts a count for an entry.
inline std::int32_t count32(std::size_t size) {
    return static_cast<std::int32_t>(size);
}

/// Makes an entry about a material, by its number in the table.
EditAction materialAction(EditKind kind, std::size_t material);

/// Makes an entry about the frame at the child numbers, or about its children. `numbers` holds what
/// the kind needs.
EditAction frameAction(EditKind kind, std::span<const std::int32_t> frame,
                       std::span<const std::int32_t> numbers = {});
EditAction frameAction(EditKind kind, const FramePath& frame,
                       std::span<const std::int32_t> numbers = {});

/// The child numbers of the frame in an entry of a frame kind.
inline std::span<const std::int32_t> frameNumbers(const EditAction& action) {
    return std::span(action.path).first(action.index);
}

/// What an entry of a frame kind keeps after those.
inline std::span<const std::int32_t> kindNumbers(const EditAction& action) {
    return std::span(action.path).subspan(action.index + 1);
}
inline std::span<std::int32_t> kindNumbers(EditAction& action) {
    return std::span(action.path).subspan(action.index + 1);
}

/// Converts a struct of std::int32_t alone to the plain numbers of an entry.
template <class Named>
std::array<std::int32_t, sizeof(Named) / sizeof(std::int32_t)> plainNumbers(const Named& named) {
    return std::bit_cast<std::array<std::int32_t, sizeof(Named) / sizeof(std::int32_t)>>(named);
}

/// Converts back. Members without a number keep their default values.
template <class Named>
Named namedNumbers(std::span<const std::int32_t> numbers) {
    auto plain = plainNumbers(Named{});
    std::copy_n(numbers.begin(), std::min(numbers.size(), plain.size()), plain.begin());
    return std::bit_cast<Named>(plain);
}

} // namespace korvane
