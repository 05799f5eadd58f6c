#pragma once

#include "formats/check/FindingList.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace korvane {

/// Something that is told once, with how often it was met.
struct Repeated {
    TextPlace first = nowhere;
    std::size_t count = 0;
    std::string name; ///< of the first

    void meet(TextPlace place, std::string_view what) {
        if (count++ == 0) {
            first = place;
            name = what;
        }
    }
    /// " (and 2 more)" where it was met three times.
    [[nodiscard]] std::string more() const {
        return count > 1 ? " (and " + std::to_string(count - 1) + " more)" : std::string();
    }
};

} // namespace korvane
