#include "formats/check/TextLines.h"

#include "formats/text/LineReader.h"

#include <algorithm>

namespace korvane {

namespace {

constexpr std::string_view blanks = " \t\v\f\r";

} // namespace

TextLine lineBefore(std::string_view bytes, TextPlace end) {
    end = std::min(end, bytes.size());
    if (end > 0 && bytes[end - 1] == '\n') {
        --end;
    }
    const std::size_t before = end == 0 ? std::string_view::npos : bytes.rfind('\n', end - 1);
    const std::size_t begin = before == std::string_view::npos ? 0 : before + 1;
    std::string_view text = bytes.substr(begin, end - begin);
    if (text.ends_with('\r')) {
        text.remove_suffix(1);
    }
    return {text, begin};
}

TextLine lineAbove(std::string_view bytes, const TextLine& line) {
    TextPlace end = line.place;
    while (end > 0) {
        const TextLine above = lineBefore(bytes, end);
        if (above.text.find_first_not_of(blanks) != std::string_view::npos) {
            return above;
        }
        end = above.place;
    }
    return {};
}

TextPlace blockEnd(std::string_view bytes, const TextLine& line) {
    int depth = 1;
    TextPlace next = std::min(bytes.find('\n', line.place), bytes.size());
    const std::size_t open = line.text.find('{');
    if (open != std::string_view::npos && line.text.find('}', open) != std::string_view::npos) {
        return next;
    }
    while (depth > 0 && next < bytes.size()) {
        const std::size_t begin = next + 1;
        next = std::min(bytes.find('\n', begin), bytes.size());
        const std::string_view text = bytes.substr(begin, next - begin);
        countBraces(text, depth);
    }
    return next;
}

std::string_view firstWord(std::string_view line) {
    line.remove_prefix(std::min(line.find_first_not_of(" \t\v\f\r};,"), line.size()));
    return line.substr(0, line.find_first_of(" \t\v\f\r{"));
}

std::string_view trimmed(std::string_view line) {
    line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
    return line.substr(0, line.find_last_not_of(blanks) + 1);
}

std::string folded(std::string_view text) {
    std::string result(text);
    foldCase(result);
    return result;
}

} // namespace korvane
