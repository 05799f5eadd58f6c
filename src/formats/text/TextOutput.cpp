#include "formats/text/TextOutput.h"

#include <algorithm>
#include <limits>
#include <string>

namespace korvane {

TextOutput& TextOutput::indent(std::size_t units) {
    constexpr std::string_view blanks = "                                                ";
    for (std::size_t left = 3 * units; left > 0;) {
        const std::size_t some = std::min(left, blanks.size());
        text(blanks.substr(0, some));
        left -= some;
    }
    return *this;
}

TextOutput& TextOutput::count(std::size_t value) {
    const bool small = value <= static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max());
    return small ? integer(static_cast<std::int32_t>(value)) : text(std::to_string(value));
}

bool TextOutput::finish() {
    flush();
    return !stopped_;
}

void TextOutput::longText(std::string_view text) {
    while (!text.empty()) {
        if (room() == 0) {
            flush();
        }
        const std::size_t some = std::min(text.size(), room());
        std::copy_n(text.begin(), some, next());
        used_ += some;
        text.remove_prefix(some);
    }
}

void TextOutput::flush() {
    stopped_ = stopped_ || !sink_({buffer_.data(), used_});
    used_ = 0;
}

} // namespace korvane
