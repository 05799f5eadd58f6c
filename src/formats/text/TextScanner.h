#pragma once

#include "formats/text/NumberText.h"
#include "formats/text/TextWindow.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace korvane {

/// Reads lines, numbers and single characters from a text, with the results that formatted stream
/// extraction in the classic locale would give: numbers and characters skip the white space before
/// them, a number is the longest text that could be one, and the first extraction that fails ends
/// the text, so that all later ones fail too. (Unlike a stream a line may be of any length, and
/// CR LF counts as one line end.)
class TextScanner {
  public:
    /// Scans bytes in memory, which must outlive the scanner.
    explicit TextScanner(std::span<const char> bytes)
        : next_(bytes.data()), end_(bytes.data() + bytes.size()) {}
    /// Scans what passes by in a window, which must outlive the scanner and serve no other. Of
    /// several copies of a scanner only the one that went furthest can go on.
    explicit TextScanner(TextWindow& window) : window_(&window) {}

    /// Whether nothing is left, or an extraction failed.
    [[nodiscard]] bool ended() { return next_ == end_ && !more(); }
    /// The extraction that failed, if one did: how many bytes were left, of which the first could
    /// not be used, and the character looked for, 0 for a number.
    struct Failure {
        std::size_t left = 0;
        char wanted = 0;
    };
    [[nodiscard]] const std::optional<Failure>& failure() const { return failure_; }
    /// How many bytes are left: no list that follows can have more elements.
    [[nodiscard]] std::size_t remaining() const {
        return inSight() + (window_ != nullptr ? window_->unread() : 0);
    }

    /// Up to the next line end, which is consumed and not returned; nothing at the end. Valid until
    /// the next call, as is what until() gives.
    std::optional<std::string_view> line();
    /// Up to the next `mark`, which is consumed and not returned; nothing (and the end of the text)
    /// when there is none.
    std::optional<std::string_view> until(char mark);

    /// Consumes and gives the next `count` bytes, or as many as there are. Valid as above.
    std::string_view take(std::size_t count);

    /// Consumes one character, whatever it is; false at the end of the text.
    bool separator() {
        skipSpace();
        if (next_ == end_) {
            return false;
        }
        ++next_;
        return true;
    }
    /// Extracts a decimal integer. False, and the end of the text, when there is none or 32 bits do
    /// not hold it; `value` is then unchanged.
    bool integer(std::int32_t& value) {
        skipSpace();
        const char* stop = reach() ? quickInteger(next_, value) : nullptr;
        return goOn(stop != nullptr ? stop : exactNumber(value));
    }
    /// Extracts integers, each with a separator behind it (the very end of the text may take the
    /// last one's place), as unsigned numbers of the same bits. False, and the end of the text,
    /// when there are fewer.
    bool integers(std::span<std::uint32_t> values) {
        // most stand close together, with just the separator between them
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
    /// False, and the end of the text, when there is none or it is too large for a float; `value`
    /// is then unchanged. "inf", "nan" and hexadecimal notation are no numbers.
    bool real(float& value) {
        skipSpace();
        const char* stop = reach() ? quickReal(next_, value) : nullptr;
        return goOn(stop != nullptr ? stop : exactNumber(value));
    }

  private:
    /// True for all white space (and for other control characters, rightly or not).
    static bool isBlank(char c) { return static_cast<unsigned char>(c) <= ' '; }
    [[nodiscard]] std::size_t inSight() const { return static_cast<std::size_t>(end_ - next_); }
    /// Whether the quick parsers can look ahead as far as they need.
    [[nodiscard]] bool reach() {
        return inSight() >= quickNumberReach || (more() && inSight() >= quickNumberReach);
    }

    void skipSpace() {
        if (next_ == end_ || isBlank(*next_)) {
            skipSpaces();
        }
    }
    void skipSpaces();

    /// Goes on behind a number, or to the end of the text where there was none.
    bool goOn(const char* stop) {
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
    /// Brings more of the text into sight; false at its end.
    bool more();
    void fail(char wanted);

    const char* next_ = nullptr;
    const char* end_ = nullptr;
    TextWindow* window_ = nullptr;
    std::optional<Failure> failure_;
};

} // namespace korvane
