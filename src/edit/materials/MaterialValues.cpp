#include "edit/materials/MaterialValues.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <system_error>

namespace korvane {

namespace {

// double: the product with a float is exact, so truncation cannot amplify a rounding error
constexpr double byteScale = 255.0;
// single precision, like the model's opacity: rounding the product makes up for the error of a
// float hundredth, which truncation would turn into a whole step
constexpr float opacityScale = static_cast<float>(lastOpacityPosition);

/// The product truncated and clamped to 0 and the scale.
template <class Number>
std::int32_t cut(float value, Number scale) {
    const Number product = Number{value} * scale;
    return product > 0 ? static_cast<std::int32_t>(std::min(product, scale)) : 0;
}

} // namespace

ColorRGB modelColor(Rgba8 color) {
    const auto channel = [](std::uint8_t byte) {
        return static_cast<float>(byte * (1.0 / byteScale));
    };
    return {channel(color.red), channel(color.green), channel(color.blue)};
}

Rgba8 shownColor(const ColorRGB& color) {
    const auto byte = [](float channel) {
        return static_cast<std::uint8_t>(cut(channel, byteScale));
    };
    return {byte(color.red), byte(color.green), byte(color.blue), 255};
}

float opacityAt(std::int32_t position) {
    return static_cast<float>(position * 0.01);
}

std::int32_t opacityPosition(float opacity) {
    return cut(opacity, opacityScale);
}

std::string powerText(float power) {
    std::array<char, 32> text{};
    const auto result =
        std::to_chars(text.data(), text.data() + text.size(), power, std::chars_format::general);
    return {text.data(), result.ptr};
}

std::optional<float> powerOf(std::string_view text) {
    constexpr std::string_view blanks = " \t";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return std::nullopt;
    }
    text = text.substr(first, text.find_last_not_of(blanks) - first + 1);
    // from_chars accepts no plus sign; do not turn "+-1" into a number
    text.remove_prefix(text.size() > 1 && text[0] == '+' && text[1] != '-' ? 1 : 0);
    double number = 0.0;
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    constexpr double most = std::numeric_limits<float>::max();
    if (result.ec != std::errc() || result.ptr != end || !(number >= 0 && number <= most)) {
        return std::nullopt;
    }
    return static_cast<float>(number);
}

} // namespace korvane
