#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <vector>

namespace korvane {

/// Puts the next bytes of a text into a buffer and returns how many; 0 at the end. Throws if they
/// cannot be read.
using ByteSource = std::function<std::size_t(std::span<char>)>;

/// A sliding window on a text: only the part being read is in memory, and it stays in the
/// processor's cache.
class TextWindow {
  public:
    /// `size` is the expected length of the text, `capacity` the initial size of the window, both
    /// in bytes.
    TextWindow(ByteSource source, std::size_t size, std::size_t capacity = 1U << 18U);

    /// Moves the window to begin with `rest`, the end of what it shows now, and shows more after
    /// it; at the end of the text, it shows only `rest`. Invalidates views of the window.
    std::span<const char> readMore(std::span<const char> rest);
    /// Ends the text here.
    void close();
    [[nodiscard]] bool atEnd() const { return atEnd_; }
    /// The number of bytes expected beyond those shown.
    [[nodiscard]] std::size_t unread() const { return unread_; }

  private:
    ByteSource source_;
    std::size_t unread_;
    bool atEnd_ = false;
    std::vector<char> buffer_;
};

} // namespace korvane
