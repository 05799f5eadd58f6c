#pragma once

#include "formats/text/NumberText.h"
#include "formats/text/TextWindow.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace korvane {

/// Reads lines, numbers and single characters from a text, with the results of formatted stream
/// extraction in the classic locale: numbers and characters skip the white space before them, a
/// number is the longest text that could be one, and the first extraction that fails ends the text,
/// so that all later ones fail too. (Unlike in a stream, a line may have any length, and CR LF
/// counts as one line end.)
class TextScanner {
  public:
    /// Scans bytes in memory, which must outlive the scanner.
    explicit TextScanner(std::span<const char> bytes)
        : next_(bytes.data()), end_(bytes.data() + bytes.size()) {}
    /// Scans a text through a window, which must outlive the scanner and serve no other. Of several
    /// copies of a scanner, only the one that has read furthest can continue.
    explicit TextScanner(TextWindow& window) : window_(&window) {}

    /// Returns true if nothing is left, or an extraction failed.
    [[nodiscard]] bool ended() { return next_ == end_ && !more(); }
    /// A failed extraction: the bytes left, the first of which did not fit, and the expected
    /// character, 0 for a number.
    struct Failure {
        std::size_t left = 0;
        char wanted = 0;
    };
    [[nodiscard]] const std::optional<Failure>& failure() const { return failure_; }
    /// The number of bytes left: no list that follows can have more elements.
    [[nodiscard]] std::size_t remaining() const {
        return buffered() + (window_ != nullptr ? window_->unread() : 0);
    }

    /// Returns the text up to the next line end, which is consumed; nullopt at the end of the text.
    /// Like the result of until(), it is valid until the next call.
    std::optional<std::string_view> line();
    /// Returns the text up to the next `mark`, which is consumed. Without one, returns nullopt and
    /// ends the text.
    std::optional<std::string_view> until(char mark);

    /// Consumes and returns the next `count` bytes, or all that are left. Valid as above.
    std::string_view take(std::size_t count);

    /// Skips white space and consumes one character of any kind; false at the end of the text.
    bool separator() {
        skipSpace();
        if (next_ == end_) {
            return false;
        }
        ++next_;
        return true;
    }
    /// Extracts a decimal integer. If there is none or 32 bits cannot hold it, returns false, ends
    /// the text and leaves `value` unchanged.
    bool integer(std::int32_t& value) {
        skipSpace();
        const char* stop = reach() ? quickInteger(next_, value) : nullptr;
        return advanceTo(stop != nullptr ? stop : exactNumber(value));
    }
    /// Extracts integers as unsigned numbers of the same bits. A separator follows each, except
    /// that the last may end the text. If there are fewer, returns false and ends the text.
    bool integers(std::span<std::uint32_t> values) {
        // usually only the separator stands between them
        const char* p = next_;
        for (std::uint32_t& value : values) {
            std::int32_t number = 0;
            const char* stop = end_ - p >= quickNumberReach ? quickInteger(p, number) : nullptr;
            if (stop != nullptr && !isBlank(*stop)) {
                p = stop + 1;
            } else {
                next_ = p;
                if (!integer(number)) {
                    return false;
                }
                separator();
                p = next_;
            }
            value = static_cast<std::uint32_t>(number);
        }
        next_ = p;
        return true;
    }
    /// Extracts a decimal number, rounded to the nearest float; tiny ones become 0 or a subnormal.
    /// If there is none or it is too large for a float, returns false, ends the text and leaves
    /// `value` unchanged. "inf", "nan" and hexadecimal notation are not numbers.
    bool real(float& value) {
        skipSpace();
        const char* stop = reach() ? quickReal(next_, value) : nullptr;
        return advanceTo(stop != nullptr ? stop : exactNumber(value));
    }

  private:
    /// Also true for other control characters, which skipSpaces() then leaves in place.
    static bool isBlank(char c) { return static_cast<unsigned char>(c) <= ' '; }
    [[nodiscard]] std::size_t buffered() const { return static_cast<std::size_t>(end_ - next_); }
    /// Returns true if the quick parsers can look ahead as far as they need.
    [[nodiscard]] bool reach() {
        return buffered() >= quickNumberReach || (more() && buffered() >= quickNumberReach);
    }

    void skipSpace() {
        if (next_ == end_ || isBlank(*next_)) {
            skipSpaces();
        }
    }
    void skipSpaces();

    /// Continues after a number, or ends the text if `stop` is null.
    bool advanceTo(const char* stop) {
        if (stop == nullptr) {
            fail(0);
            return false;
        }
        next_ = stop;
        return true;
    }

    std::optional<std::string_view> find(char mark);
    template <class Number>
    const char* exactNumber(Number& value);
    void showWholeNumber();
    /// Shows more of the text; false at its end.
    bool more();
    void fail(char wanted);

    const char* next_ = nullptr;
    const char* end_ = nullptr;
    TextWindow* window_ = nullptr;
    std::optional<Failure> failure_;
};

} // namespace korvane
