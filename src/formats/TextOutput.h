#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace korvane {

/// Takes the next piece of a text; false stops the writing.
using TextSink = std::function<bool(std::string_view)>;

/// Builds a text in large pieces and hands each to a sink, with numbers formatted as a text stream
/// in the classic locale would by default.
class TextOutput {
  public:
    explicit TextOutput(const TextSink& sink) : sink_(sink) { buffer_.reserve(pieceSize + slack); }

    TextOutput& text(std::string_view text) {
        buffer_ += text;
        return *this;
    }
    /// Ends the line; only here is a finished piece handed on.
    TextOutput& line(std::string_view text = {});
    /// Indents by so many units of three blanks.
    TextOutput& indent(std::size_t units) {
        buffer_.append(3 * units, ' ');
        return *this;
    }
    TextOutput& integer(std::int64_t value);
    TextOutput& count(std::size_t value) { return integer(static_cast<std::int64_t>(value)); }
    /// Six significant digits at the most, in general notation, without trailing zeros.
    TextOutput& real(float value);

    /// Hands on the rest; false when the sink stopped the writing.
    bool finish();
    /// Whether the sink stopped the writing: what follows is dropped.
    [[nodiscard]] bool stopped() const { return stopped_; }

  private:
    static constexpr std::size_t pieceSize = 1U << 18U;
    static constexpr std::size_t slack = 1U << 12U;

    void flush();

    const TextSink& sink_;
    std::string buffer_;
    bool stopped_ = false;
};

} // namespace korvane
