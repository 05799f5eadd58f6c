#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <vector>

namespace korvane {

/// Puts the next bytes of a text into a buffer and tells how many; 0 at the end. Throws where they
/// cannot be read.
using ByteSource = std::function<std::size_t(std::span<char>)>;

/// A text that passes by in a window: only what is being looked at is in memory, and it stays in
/// the processor's cache.
class TextWindow {
  public:
    /// `size` is how many bytes the source is expected to give, `capacity` how many the window
    /// holds to begin with.
    TextWindow(ByteSource source, std::size_t size, std::size_t capacity = 1U << 18U);

    /// Moves the window so that it begins with `rest`, the end of what it shows now, and shows more
    /// behind it; at the end of the text it shows just the rest. Views of it become invalid.
    std::span<const char> moreThan(std::span<const char> rest);
    /// Ends the text here.
    void close();
    [[nodiscard]] bool atEnd() const { return atEnd_; }
    /// How many bytes are expected beyond those shown.
    [[nodiscard]] std::size_t unread() const { return unread_; }

  private:
    ByteSource source_;
    std::size_t unread_;
    bool atEnd_ = false;
    std::vector<char> buffer_;
};

} // namespace korvane
