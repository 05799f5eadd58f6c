#include "formats/text/LineReader.h"

#include <cstddef>

namespace korvane {

bool LineReader::next() {
    const auto line = scanner_.line();
    fold(line.value_or(std::string_view()));
    return line.has_value();
}

void LineReader::blankClosingBrace() {
    const std::size_t brace = line_.find('}');
    if (brace != std::string::npos) {
        line_[brace] = ' ';
    }
}

void LineReader::skipBlock() {
    int depth = 1;
    std::string_view last;
    while (depth > 0) {
        const auto line = scanner_.line();
        last = line.value_or(std::string_view());
        if (!line) {
            break;
        }
        countBraces(last, depth);
    }
    fold(last);
}

void LineReader::skipToClosingBrace() {
    while (next() && !holds('}')) {
    }
}

void LineReader::noteFailure() {
    if (notes_ != nullptr && scanner_.failure()) {
        notes_->push_back(
            {NoteKind::EndedEarly, scanner_.failure()->left, scanner_.failure()->wanted});
    }
}

void LineReader::fold(std::string_view line) {
    line_ = line;
    foldCase(line_);
}

void countBraces(std::string_view line, int& depth) {
    depth -= line.find('}') != std::string_view::npos ? 1 : 0;
    depth += line.find('{') != std::string_view::npos ? 1 : 0;
}

void foldCase(std::string& text) {
    for (char& c : text) {
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
}

} // namespace korvane
