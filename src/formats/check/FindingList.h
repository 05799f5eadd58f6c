#pragma once

#include "formats/check/Finding.h"

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// A place in a text, in bytes from its beginning; the end of a line belongs to it.
using TextPlace = std::size_t;
inline constexpr TextPlace nowhere = static_cast<TextPlace>(-1);

/// Collects what is found in a text, of each kind only so many, and brings it into the text's
/// order.
class FindingList {
  public:
    /// The bytes must outlive the list.
    explicit FindingList(std::string_view bytes) : bytes_(bytes) {}

    void add(FindingId id, TextPlace place, std::string text);
    /// Whether further findings of this kind are only counted.
    [[nodiscard]] bool isFull(FindingId id) const {
        return counts_[static_cast<std::size_t>(id)] >= mostOfAKind;
    }
    [[nodiscard]] bool has(FindingId id) const { return counts_[static_cast<std::size_t>(id)] > 0; }
    /// What was found, in the order of the lines; what is about no line comes last.
    [[nodiscard]] std::vector<Finding> finish();

    /// How many findings of one kind are told one by one.
    static constexpr std::size_t mostOfAKind = 10;

  private:
    struct Entry {
        TextPlace place = nowhere;
        Finding finding;
    };

    std::string_view bytes_;
    std::vector<Entry> entries_;
    std::array<std::size_t, findingKinds> counts_ = {}; ///< by id
    std::array<TextPlace, findingKinds> more_ =
        {}; ///< by id, where the first one stands that is not told
};

/// A name as a finding shows it: in quotation marks, long ones cut.
[[nodiscard]] std::string quoted(std::string_view name);
/// What follows the first of several: " (and 2 more)" of three, nothing of one.
[[nodiscard]] std::string andMore(std::size_t count);

} // namespace korvane
