#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace korvane {

/// Reads lines, numbers and single characters from the bytes of a text, with the results that
/// formatted stream extraction in the classic locale would give: numbers and characters skip the
/// white space before them, a number is the longest text that could be one, and the first
/// extraction that fails ends the text, so that all later ones fail too. (Unlike a stream a line
/// may be of any length, and CR LF counts as one line end.)
class TextScanner {
  public:
    explicit TextScanner(std::span<const char> bytes)
        : next_(bytes.data()), end_(bytes.data() + bytes.size()) {}

    /// Whether nothing is left, or an extraction failed.
    [[nodiscard]] bool ended() const { return next_ == end_; }
    /// How many bytes are left: no list that follows can have more elements.
    [[nodiscard]] std::size_t remaining() const { return static_cast<std::size_t>(end_ - next_); }

    /// Up to the next line end, which is consumed and not returned; nothing at the end.
    std::optional<std::string_view> line();
    /// Up to the next `mark`, which is consumed and not returned; nothing (and the end of the text)
    /// when there is none.
    std::optional<std::string_view> until(char mark);

    /// Consumes one character, whatever it is; false at the end of the text.
    bool separator();
    /// Extracts a decimal integer. False, and the end of the text, when there is none or 32 bits do
    /// not hold it; `value` is then unchanged.
    bool integer(std::int32_t& value);
    /// Extracts a decimal number, rounded to the nearest float; tiny ones become 0 or a subnormal.
    /// False, and the end of the text, when there is none or it is too large for a float; `value`
    /// is then unchanged. "inf", "nan" and hexadecimal notation are no numbers.
    bool real(float& value);

  private:
    void skipSpace();
    /// Steps over a plus sign that a digit or, in reals, a point follows.
    [[nodiscard]] const char* afterPlus() const;
    bool fail();

    const char* next_;
    const char* end_;
};

} // namespace korvane
