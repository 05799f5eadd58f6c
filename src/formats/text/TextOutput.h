#pragma once

#include "formats/text/NumberText.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace korvane {

/// Takes the next piece of a text; false stops the writing.
using TextSink = std::function<bool(std::string_view)>;

/// Builds a text in large pieces and hands each to a sink, with numbers formatted as a text stream
/// in the classic locale would by default.
class TextOutput {
  public:
    explicit TextOutput(const TextSink& sink) : sink_(sink), buffer_(pieceSize) {}

    TextOutput& text(std::string_view text) {
        if (text.size() > room()) {
            longText(text);
        } else {
            std::copy(text.begin(), text.end(), next());
            used_ += text.size();
        }
        return *this;
    }
    /// Ends the line behind some more text.
    TextOutput& line(std::string_view last = {}) { return text(last).text("\n"); }
    /// Indents by so many units of three blanks.
    TextOutput& indent(std::size_t units);
    TextOutput& integer(std::int32_t value) {
        makeRoom();
        used_ = static_cast<std::size_t>(writeInteger(next(), value) - buffer_.data());
        return *this;
    }
    TextOutput& count(std::size_t value);
    /// Six significant digits at the most, in general notation, without trailing zeros.
    TextOutput& real(float value) {
        makeRoom();
        used_ = static_cast<std::size_t>(writeReal(next(), value) - buffer_.data());
        return *this;
    }

    /// Hands on the rest; false when the sink stopped the writing.
    bool finish();
    /// Whether the sink stopped the writing: what follows is dropped.
    [[nodiscard]] bool stopped() const { return stopped_; }

  private:
    static constexpr std::size_t pieceSize = 1U << 18U;

    [[nodiscard]] char* next() { return buffer_.data() + used_; }
    [[nodiscard]] std::size_t room() const { return buffer_.size() - used_; }
    /// Makes room for one number.
    void makeRoom() {
        if (room() < mostNumberLength) {
            flush();
        }
    }
    void longText(std::string_view text);
    void flush();

    const TextSink& sink_;
    std::vector<char> buffer_;
    std::size_t used_ = 0;
    bool stopped_ = false;
};

} // namespace korvane
