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

// The numbers that an entry keeps in `index` and `path`. What those behind a frame's path mean is
// told by a struct of each kind, which stands beside the kind's step.

/// A count as an entry keeps it.
inline std::int32_t count32(std::size_t size) {
    return static_cast<std::int32_t>(size);
}

/// An entry about a material, by its number in the table.
EditAction materialAction(EditKind kind, std::size_t material);

/// An entry about the frame that the child numbers lead to, or about children of it. `numbers` is
/// what the kind needs.
EditAction frameAction(EditKind kind, std::span<const std::int32_t> frame,
                       std::span<const std::int32_t> numbers = {});
EditAction frameAction(EditKind kind, const FramePath& frame,
                       std::span<const std::int32_t> numbers = {});

/// The child numbers of the frame that an entry of a frame kind is about.
inline std::span<const std::int32_t> frameNumbers(const EditAction& action) {
    return std::span(action.path).first(action.index);
}

/// What the entry of a frame kind keeps behind them.
inline std::span<const std::int32_t> kindNumbers(const EditAction& action) {
    return std::span(action.path).subspan(action.index + 1);
}
inline std::span<std::int32_t> kindNumbers(EditAction& action) {
    return std::span(action.path).subspan(action.index + 1);
}

/// A struct of nothing but std::int32_t as the plain numbers of an entry.
template <class Named>
std::array<std::int32_t, sizeof(Named) / sizeof(std::int32_t)> plainNumbers(const Named& named) {
    return std::bit_cast<std::array<std::int32_t, sizeof(Named) / sizeof(std::int32_t)>>(named);
}

/// The same way back. Members for which there are no numbers are those of a new struct.
template <class Named>
Named namedNumbers(std::span<const std::int32_t> numbers) {
    auto plain = plainNumbers(Named{});
    std::copy_n(numbers.begin(), std::min(numbers.size(), plain.size()), plain.begin());
    return std::bit_cast<Named>(plain);
}

} // namespace korvane
