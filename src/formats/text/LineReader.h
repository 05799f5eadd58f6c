#pragma once

#include "formats/text/ReadNotes.h"
#include "formats/text/TextScanner.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace korvane {

/// Turns the letters A to Z into small ones, and nothing else.
void foldCase(std::string& text);

/// Counts the braces of a line: a closing one, then an opening one, at most one of each.
void countBraces(std::string_view line, int& depth);

/// The line-wise side of model reading: one buffer with the current line, folded to lower case,
/// which the readers of all block kinds test for keywords in turn. Numbers are extracted from the
/// scanner, right behind the current line. At the end of the text the buffer is empty.
class LineReader {
  public:
    /// `notes`, if given, is told what the readers note; it must outlive the reader.
    explicit LineReader(const TextScanner& text, ReadNotes* notes = nullptr)
        : scanner_(text), notes_(notes) {}

    [[nodiscard]] TextScanner& numbers() { return scanner_; }

    /// Whether somebody wants to know what is noted.
    [[nodiscard]] bool noting() const { return notes_ != nullptr; }
    /// Notes something about the current line.
    void note(NoteKind kind, std::int32_t value = 0) {
        if (notes_ != nullptr) {
            notes_->push_back({kind, scanner_.remaining(), value});
        }
    }
    /// Notes where an extraction failed, if one did.
    void noteFailure();

    /// Reads the next line into the buffer; false at the end of the text.
    bool next();
    [[nodiscard]] const std::string& line() const { return line_; }
    [[nodiscard]] bool holds(std::string_view keyword) const {
        return line_.find(keyword) != std::string::npos;
    }
    [[nodiscard]] bool holds(char brace) const { return line_.find(brace) != std::string::npos; }
    /// Empties the buffer, so that no test finds anything in it.
    void clear() { line_.clear(); }
    /// Blanks out the first closing brace of the buffer, so that no outer block sees it.
    void blankClosingBrace();

    /// Counts the buffer's braces within a block that is read: at its own depth, 1, an opening
    /// brace begins a block of which nothing is read, and is noted.
    void countUnread(int& depth) {
        if (depth == 1 && noting() && holds('{')) {
            note(NoteKind::LeftOut);
        }
        countBraces(line_, depth);
    }
    /// Reads on until the block that the current line opened is closed.
    void skipBlock();
    /// Reads on until a line holds a closing brace.
    void skipToClosingBrace();

  private:
    void fold(std::string_view line);

    TextScanner scanner_;
    ReadNotes* notes_;
    std::string line_;
};

/// How many elements to make room for: as many as a file announces, but never more than its
/// remaining bytes could hold, since the count alone is not to be trusted.
inline std::size_t credible(std::int32_t announced, std::size_t possible) {
    return std::min(static_cast<std::size_t>(std::max(announced, 0)), possible);
}

} // namespace korvane
