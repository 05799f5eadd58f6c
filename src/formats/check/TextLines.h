#pragma once

#include "formats/check/FindingList.h"

#include <string>
#include <string_view>

namespace korvane {

/// A line of a text, without its line end, and its offset.
struct TextLine {
    std::string_view text;
    TextPlace place = 0;
};

/// Returns the line before `end`, which is the beginning of a line or the end of the text.
[[nodiscard]] TextLine lineBefore(std::string_view bytes, TextPlace end);
/// Returns the nearest line above that is not blank; empty if there is none.
[[nodiscard]] TextLine lineAbove(std::string_view bytes, const TextLine& line);
/// Returns the end of the last line of the block that `line` opens. That line may itself close the
/// block.
[[nodiscard]] TextPlace blockEnd(std::string_view bytes, const TextLine& line);

/// Returns the first word of a line, after any blanks, closing braces and separators.
[[nodiscard]] std::string_view firstWord(std::string_view line);
/// Returns the line without the blanks at both ends.
[[nodiscard]] std::string_view trimmed(std::string_view line);
/// Returns the text in lower case.
[[nodiscard]] std::string folded(std::string_view text);

} // namespace korvane
