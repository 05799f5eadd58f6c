#pragma once

#include "formats/check/FindingList.h"

#include <string>
#include <string_view>

namespace korvane {

/// A line of a text, without its end, and where it stands.
struct TextLine {
    std::string_view text;
    TextPlace place = 0;
};

/// The line that ends before `end`, which is the beginning of the next one or the end of the text.
[[nodiscard]] TextLine lineBefore(std::string_view bytes, TextPlace end);
/// The next line above that is not blank; empty if there is none.
[[nodiscard]] TextLine lineAbove(std::string_view bytes, const TextLine& line);
/// Where the block that the line opens ends: the end of its last line. The line itself may
/// close the block.
[[nodiscard]] TextPlace blockEnd(std::string_view bytes, const TextLine& line);

/// The first word of a line, without the braces and separators before it.
[[nodiscard]] std::string_view firstWord(std::string_view line);
/// The line without the blanks at both ends.
[[nodiscard]] std::string_view trimmed(std::string_view line);
/// The text with small letters.
[[nodiscard]] std::string folded(std::string_view text);

} // namespace korvane
