#include "formats/check/ListCheck.h"

#include "formats/text/LineReader.h"
#include "model/document/ModelCounts.h"

#include <algorithm>

namespace korvane {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isWordPart(char c) {
    return isDigit(c) || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80U;
}

/// Returns true if the text holds a number. Digits in words, quotation marks and remarks do not
/// count.
bool holdsNumber(std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isDigit(text[i])) {
            return true;
        }
        if (text[i] == '"') {
            i = text.find('"', i + 1);
        } else if (text[i] == '#' || text.substr(i, 2) == "//") {
            i = text.find('\n', i);
        } else if (isWordPart(text[i])) {
            const auto* end = std::find_if_not(text.begin() + static_cast<std::ptrdiff_t>(i),
                                               text.end(), isWordPart);
            i = static_cast<std::size_t>(end - text.begin()) - 1;
        }
        i = std::min(i, text.size() - 1); // no closing mark follows
    }
    return false;
}

} // namespace

bool ListCheck::takeOpening(const TextLine& line) {
    opening_ = line;
    const std::size_t brace = line.text.find('{');
    reported_ = brace != std::string_view::npos && holdsNumber(line.text.substr(brace + 1));
    if (!reported_) {
        return false;
    }
    findings_.add(FindingId::NumbersBehindBrace, line.place,
                  "Numbers after the brace of " + quoted(trimmed(line.text)) + " are ignored");
    return true;
}

/// Checks the text up to the next brace. If that opens a block, the block's keyword and name do not
/// count as numbers.
bool ListCheck::takeEnd(TextPlace end) {
    std::string_view text = bytes_.substr(std::min(end, bytes_.size()));
    const std::size_t brace = std::min(text.find_first_of("{}"), text.size());
    const bool opens = brace < text.size() && text[brace] == '{';
    text = text.substr(0, brace);
    if (opens) {
        text = text.substr(0, text.find_last_of(";,\n") + 1);
    }
    if (reported_ || !holdsNumber(text)) {
        return false;
    }
    findings_.add(FindingId::CountWrong, opening_.place,
                  quoted(trimmed(opening_.text)) +
                      " has more numbers than expected; the rest is ignored");
    return true;
}

bool ListCheck::takeMaterialsEnd(TextPlace behind, TextPlace opening) {
    std::size_t materials = 0;
    int depth = 1;
    for (TextPlace next = behind; depth > 0 && next < bytes_.size();) {
        const std::size_t end = std::min(bytes_.find('\n', next), bytes_.size());
        const std::string_view line = bytes_.substr(next, end - next);
        if (depth == 1 && line.find('{') != std::string_view::npos &&
            folded(firstWord(line)).find("material") != std::string::npos) {
            ++materials;
        }
        countBraces(line, depth);
        next = end + 1;
    }
    if (materials > 0) {
        findings_.add(FindingId::CountWrong, opening,
                      "The list has more materials than its count; " +
                          counted(materials, "material is", "materials are") + " ignored");
    }
    return materials > 0;
}

} // namespace korvane
