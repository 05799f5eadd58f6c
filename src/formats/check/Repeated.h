#pragma once

#include "formats/check/FindingList.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace korvane {

/// Something that may occur several times and is reported once.
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
    /// Returns the name in quotation marks, and how many more there are.
    [[nodiscard]] std::string names() const { return quoted(name) + andMore(count); }
};

} // namespace korvane
