#include "formats/text/TextScanner.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstring>
#include <limits>
#include <system_error>

namespace korvane {

namespace {

/// Skips a plus sign, unless a minus follows.
const char* afterPlus(const char* next, const char* end) {
    const bool plus = next != end && *next == '+' && next + 1 != end && next[1] != '-';
    return plus ? next + 1 : next;
}

/// Returns the value of a number that std::from_chars found to be out of range: 0 with its sign if
/// it is too small, nullopt if it is too large.
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
    // the power of ten of the first nonzero digit decides, as no such number is near 1
    const std::string_view digits = text.substr(0, exponentMark);
    const std::size_t point = std::min(digits.find('.'), digits.size());
    const std::size_t first = digits.find_first_of("123456789");
    const std::int64_t power =
        exponent + static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
    if (power > 0) {
        return std::nullopt;
    }
    return negative ? -0.0F : 0.0F;
}

/// Returns the position after the number, or null.
const char* parse(const char* next, const char* end, std::int32_t& value) {
    const auto [stop, error] = std::from_chars(afterPlus(next, end), end, value);
    return error == std::errc() ? stop : nullptr;
}

const char* parse(const char* next, const char* end, float& value) {
    const char* begin = afterPlus(next, end);
    const char* digits = begin < end && *begin == '-' ? begin + 1 : begin;
    if (digits == end || !(isDigit(*digits) || *digits == '.')) {
        return nullptr; // keeps "inf" and "nan" out
    }
    float parsed = 0.0F;
    const auto [stop, error] = std::from_chars(begin, end, parsed);
    if (error == std::errc::invalid_argument) {
        return nullptr;
    }
    if (stop < end && (*stop == 'e' || *stop == 'E') &&
        std::string_view(begin, stop).find_first_of("eE") == std::string_view::npos) {
        return nullptr; // an exponent without digits
    }
    if (error == std::errc::result_out_of_range) {
        const auto inRange = outOfRangeValue({begin, stop});
        if (!inRange) {
            return nullptr;
        }
        parsed = *inRange;
    }
    value = parsed;
    return stop;
}

} // namespace

std::optional<std::string_view> TextScanner::line() {
    if (ended()) {
        return std::nullopt;
    }
    auto line = find('\n');
    if (!line) {
        // the last line has no line end
        line = std::string_view(next_, buffered());
        next_ = end_;
    } else if (line->ends_with('\r')) {
        line->remove_suffix(1);
    }
    return line;
}

std::optional<std::string_view> TextScanner::until(char mark) {
    const auto text = find(mark);
    if (!text) {
        fail(mark);
    }
    return text;
}

/// As until(), but consumes nothing if there is no mark.
std::optional<std::string_view> TextScanner::find(char mark) {
    std::size_t searched = 0;
    do {
        const char* found = std::find(next_ + searched, end_, mark);
        if (found != end_) {
            const std::string_view text(next_, found);
            next_ = found + 1;
            return text;
        }
        searched = buffered();
    } while (more());
    return std::nullopt;
}

std::string_view TextScanner::take(std::size_t count) {
    while (buffered() < count && more()) {
    }
    const std::string_view text(next_, std::min(count, buffered()));
    next_ += text.size();
    return text;
}

void TextScanner::skipSpaces() {
    constexpr std::uint64_t eightBlanks = 0x2020202020202020U;
    do {
        const char* p = next_;
        while (p != end_) {
            if (*p == ' ' && end_ - p >= 8) {
                // lists are indented by many blanks
                std::uint64_t word = 0;
                std::memcpy(&word, p, sizeof word);
                if (word == eightBlanks) {
                    p += 8;
                } else {
                    p += std::countr_zero(word ^ eightBlanks) / 8;
                }
            } else if (*p == ' ' || (*p >= '\t' && *p <= '\r')) {
                ++p;
            } else {
                next_ = p;
                return;
            }
        }
        next_ = p;
    } while (more());
}

/// The general case of number extraction.
template <class Number>
const char* TextScanner::exactNumber(Number& value) {
    showWholeNumber();
    return parse(next_, end_, value);
}

template const char* TextScanner::exactNumber(std::int32_t& value);
template const char* TextScanner::exactNumber(float& value);

/// Shows enough of the text that no number beginning here is cut off.
void TextScanner::showWholeNumber() {
    std::size_t length = 0;
    do {
        const auto* stop = std::find_if_not(next_ + length, end_, [](char c) {
            return isDigit(c) || c == '.' || c == '-' || c == '+' || c == 'e' || c == 'E';
        });
        if (stop != end_) {
            return;
        }
        length = buffered();
    } while (more());
}

bool TextScanner::more() {
    if (window_ == nullptr || window_->atEnd()) {
        return false;
    }
    const std::size_t before = buffered();
    const auto shown = window_->readMore({next_, before});
    next_ = shown.data();
    end_ = shown.data() + shown.size();
    return buffered() > before;
}

void TextScanner::fail(char wanted) {
    if (!failure_) {
        failure_ = {remaining(), wanted};
    }
    next_ = end_;
    if (window_ != nullptr) {
        window_->close();
    }
}

} // namespace korvane
