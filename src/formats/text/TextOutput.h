#pragma once

#include "formats/text/NumberText.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace korvane {

/// Takes the next piece of a text; returning false stops the writing.
using TextSink = std::function<bool(std::string_view)>;

/// Collects a text and passes it in large pieces to the sink, which must outlive it. Numbers are
/// formatted as a text stream does by default in the classic locale.
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
    /// Appends some text and ends the line.
    TextOutput& line(std::string_view last = {}) { return text(last).text("\n"); }
    /// Indents by this many units of three blanks.
    TextOutput& indent(std::size_t units);
    TextOutput& integer(std::int32_t value) {
        makeRoom();
        used_ = static_cast<std::size_t>(writeInteger(next(), value) - buffer_.data());
        return *this;
    }
    TextOutput& count(std::size_t value);
    /// Writes at most six significant digits, in general notation, without trailing zeros.
    TextOutput& real(float value) {
        makeRoom();
        used_ = static_cast<std::size_t>(writeReal(next(), value) - buffer_.data());
        return *this;
    }

    /// Passes on the rest; false if the sink stopped the writing.
    bool finish();
    /// Returns true if the sink stopped the writing; all further text is dropped.
    [[nodiscard]] bool stopped() const { return stopped_; }

  private:
    static constexpr std::size_t pieceSize = 1U << 18U;

    [[nodiscard]] char* next() { return buffer_.data() + used_; }
    [[nodiscard]] std::size_t room() const { return buffer_.size() - used_; }
    /// Makes room for one number.
    void makeRoom() {
        if (room() < maxNumberLength) {
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
