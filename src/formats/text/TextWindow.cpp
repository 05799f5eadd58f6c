#include "formats/text/TextWindow.h"

#include <algorithm>
#include <utility>

namespace korvane {

TextWindow::TextWindow(ByteSource source, std::size_t size, std::size_t capacity)
    : source_(std::move(source)), unread_(size), buffer_(std::min(capacity, size + 1)) {}

std::span<const char> TextWindow::readMore(std::span<const char> rest) {
    if (atEnd_) {
        return rest;
    }
    if (!rest.empty()) {
        std::copy(rest.begin(), rest.end(), buffer_.begin());
    }
    if (rest.size() > buffer_.size() / 2) {
        buffer_.resize(2 * buffer_.size());
    }
    const std::size_t got = source_(std::span(buffer_).subspan(rest.size()));
    atEnd_ = got == 0;
    unread_ = atEnd_ ? 0 : unread_ - std::min(unread_, got);
    return std::span<const char>(buffer_).first(rest.size() + got);
}

void TextWindow::close() {
    atEnd_ = true;
    unread_ = 0;
}

} // namespace korvane
