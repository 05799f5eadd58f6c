#pragma once

#include "formats/check/Finding.h"

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// A byte offset in a text. A line end belongs to the line before it.
using TextPlace = std::size_t;
inline constexpr TextPlace nowhere = static_cast<TextPlace>(-1);

/// Collects the findings in a text, a limited number of each kind, and sorts them by place.
class FindingList {
  public:
    /// The bytes must outlive the list.
    explicit FindingList(std::string_view bytes) : bytes_(bytes) {}

    void add(FindingId id, TextPlace place, std::string text);
    /// Returns true if further findings of this kind are only counted.
    [[nodiscard]] bool isFull(FindingId id) const {
        return counts_[static_cast<std::size_t>(id)] >= maxPerKind;
    }
    [[nodiscard]] bool has(FindingId id) const { return counts_[static_cast<std::size_t>(id)] > 0; }
    /// Returns the findings in line order, those without a line last.
    [[nodiscard]] std::vector<Finding> finish();

    /// Further findings of the same kind are only counted.
    static constexpr std::size_t maxPerKind = 10;

  private:
    struct Entry {
        TextPlace place = nowhere;
        Finding finding;
    };

    std::string_view bytes_;
    std::vector<Entry> entries_;
    std::array<std::size_t, findingKinds> counts_ = {}; ///< by id
    std::array<TextPlace, findingKinds> more_ = {}; ///< by id, place of the first one only counted
};

/// Returns a name as findings show it: in quotation marks, shortened if it is long.
[[nodiscard]] std::string quoted(std::string_view name);
/// Returns what follows the first of several: " (and 2 more)" for three, nothing for one.
[[nodiscard]] std::string andMore(std::size_t count);

} // namespace korvane
