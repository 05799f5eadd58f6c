#pragma once

#include "formats/text/ReadNotes.h"
#include "formats/text/TextScanner.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace korvane {

/// Converts the letters A to Z to lower case, and no others.
void foldCase(std::string& text);

/// Changes `depth` by the braces of a line, counting at most one closing and one opening brace.
void countBraces(std::string_view line, int& depth);

/// Reads a model line by line. The buffer holds the current line in lower case, and the readers of
/// all block kinds test it for keywords in turn. Numbers are extracted from the scanner, which
/// continues right after the current line. At the end of the text the buffer is empty.
class LineReader {
  public:
    /// `notes`, if given, receives the notes of the readers; it must outlive this reader.
    explicit LineReader(const TextScanner& text, ReadNotes* notes = nullptr)
        : scanner_(text), notes_(notes) {}

    [[nodiscard]] TextScanner& numbers() { return scanner_; }

    /// Returns true if notes are wanted.
    [[nodiscard]] bool wantsNotes() const { return notes_ != nullptr; }
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

    /// Counts the buffer's braces inside a block that is read. At depth 1, an opening brace begins
    /// a nested block that is not read, which is noted.
    void countUnread(int& depth) {
        if (depth == 1 && wantsNotes() && holds('{')) {
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

/// Returns how many elements to reserve: as many as the file announces, but no more than its
/// remaining bytes could hold, as the count cannot be trusted.
inline std::size_t credible(std::int32_t announced, std::size_t possible) {
    return std::min(static_cast<std::size_t>(std::max(announced, 0)), possible);
}

} // namespace korvane
