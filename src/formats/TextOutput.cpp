#include "formats/TextOutput.h"

#include <array>
#include <charconv>

namespace korvane {

TextOutput& TextOutput::line(std::string_view text) {
    buffer_ += text;
    buffer_ += '\n';
    if (buffer_.size() >= pieceSize) {
        flush();
    }
    return *this;
}

TextOutput& TextOutput::integer(std::int64_t value) {
    std::array<char, 24> digits{};
    const auto result = std::to_chars(digits.begin(), digits.end(), value);
    buffer_.append(digits.begin(), result.ptr);
    return *this;
}

TextOutput& TextOutput::real(float value) {
    std::array<char, 24> digits{};
    const auto result =
        std::to_chars(digits.begin(), digits.end(), value, std::chars_format::general, 6);
    buffer_.append(digits.begin(), result.ptr);
    return *this;
}

bool TextOutput::finish() {
    flush();
    return !stopped_;
}

void TextOutput::flush() {
    stopped_ = stopped_ || !sink_(buffer_);
    buffer_.clear();
}

} // namespace korvane
