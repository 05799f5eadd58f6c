#include "formats/TextScanner.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <limits>
#include <system_error>

namespace korvane {

namespace {

bool isSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The value of a number text that std::from_chars found to be out of range: 0 with its sign when
/// it is too small, nothing when it is too large.
std::optional<float> outOfRangeValue(std::string_view text) {
    const bool negative = text.front() == '-';
    const std::size_t exponentMark = text.find_first_of("eE");
    std::int64_t exponent = 0;
    if (exponentMark != std::string_view::npos) {
        const char* first = text.data() + exponentMark + 1;
        first += *first == '+' ? 1 : 0;
        const auto parsed = std::from_chars(first, text.data() + text.size(), exponent);
        if (parsed.ec == std::errc::result_out_of_range) {
            exponent = *first == '-' ? std::numeric_limits<std::int64_t>::min() / 2
                                     : std::numeric_limits<std::int64_t>::max() / 2;
        }
    }
    // the power of ten of the first digit that is not 0 decides: no such number is near 1
    std::int64_t power = exponent;
    const std::string_view digits = text.substr(0, exponentMark);
    const std::size_t point = std::min(digits.find('.'), digits.size());
    const std::size_t first = digits.find_first_of("123456789");
    power += static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
    if (power > 0) {
        return std::nullopt;
    }
    return negative ? -0.0F : 0.0F;
}

} // namespace

std::optional<std::string_view> TextScanner::line() {
    if (ended()) {
        return std::nullopt;
    }
    const char* begin = next_;
    const auto* lineEnd = static_cast<const char*>(std::memchr(begin, '\n', remaining()));
    if (lineEnd == nullptr) {
        next_ = end_;
        return std::string_view(begin, static_cast<std::size_t>(end_ - begin));
    }
    next_ = lineEnd + 1;
    if (lineEnd > begin && lineEnd[-1] == '\r') {
        --lineEnd;
    }
    return std::string_view(begin, static_cast<std::size_t>(lineEnd - begin));
}

std::optional<std::string_view> TextScanner::until(char mark) {
    const char* begin = next_;
    const void* found = ended() ? nullptr : std::memchr(begin, mark, remaining());
    if (found == nullptr) {
        next_ = end_;
        return std::nullopt;
    }
    const auto* at = static_cast<const char*>(found);
    next_ = at + 1;
    return std::string_view(begin, static_cast<std::size_t>(at - begin));
}

bool TextScanner::separator() {
    skipSpace();
    if (ended()) {
        return false;
    }
    ++next_;
    return true;
}

bool TextScanner::integer(std::int32_t& value) {
    skipSpace();
    const auto [stop, error] = std::from_chars(afterPlus(), end_, value);
    if (error != std::errc()) {
        return fail();
    }
    next_ = stop;
    return true;
}

bool TextScanner::real(float& value) {
    skipSpace();
    const char* begin = afterPlus();
    const char* digits = begin < end_ && *begin == '-' ? begin + 1 : begin;
    if (digits == end_ || !(isDigit(*digits) || *digits == '.')) {
        return fail(); // keeps "inf" and "nan" out
    }
    float parsed = 0.0F;
    const auto [stop, error] = std::from_chars(begin, end_, parsed);
    if (error == std::errc::invalid_argument) {
        return fail();
    }
    if (stop < end_ && (*stop == 'e' || *stop == 'E') &&
        std::string_view(begin, stop).find_first_of("eE") == std::string_view::npos) {
        return fail(); // an exponent that was begun and has no digits
    }
    if (error == std::errc::result_out_of_range) {
        const auto inRange = outOfRangeValue({begin, stop});
        if (!inRange) {
            return fail();
        }
        parsed = *inRange;
    }
    value = parsed;
    next_ = stop;
    return true;
}

void TextScanner::skipSpace() {
    while (next_ != end_ && isSpace(*next_)) {
        ++next_;
    }
}

const char* TextScanner::afterPlus() const {
    const bool plus = next_ != end_ && *next_ == '+' && next_ + 1 != end_ && next_[1] != '-';
    return plus ? next_ + 1 : next_;
}

bool TextScanner::fail() {
    next_ = end_;
    return false;
}

} // namespace korvane
