#include "formats/check/EarlyEnd.h"

#include "formats/check/TextLines.h"

#include <algorithm>

namespace korvane {

namespace {

/// Returns true if the text at `place` is a non-finite number as programs print it. Of "-1.#IND"
/// the part up to the "#" has already been read as a number.
bool isNotFinite(std::string_view bytes, TextPlace place) {
    std::string word = folded(bytes.substr(place, 4));
    const std::size_t sign = word.find_first_not_of("+-");
    word = sign < word.size() ? word.substr(sign, 3) : std::string();
    const bool afterHash = place > 0 && bytes[place - 1] == '#';
    return word == "nan" || word == "inf" ||
           (afterHash && (word == "ind" || word == "qna" || word == "sna"));
}

/// Returns true if the rejected word has the form of a number: it is then too large.
bool isNumber(std::string_view word) {
    const std::size_t first = word.find_first_not_of("+-.");
    return first < word.size() && word[first] >= '0' && word[first] <= '9' &&
           word.find_first_not_of("0123456789+-.eE") == std::string_view::npos &&
           word.back() >= '0' && word.back() <= '9';
}

} // namespace

void reportEarlyEnd(std::string_view bytes, TextPlace place, char wanted, FindingList& findings) {
    place = std::min(place, bytes.size());
    constexpr std::string_view blanks = " \t\v\f\r\n";
    const std::size_t first = bytes.find_first_not_of(blanks, place);
    const std::string rest = "; the rest of the file is ignored";
    if (wanted != 0) {
        findings.add(FindingId::EndedEarly, place,
                     std::string("Reading stops here: ") +
                         (wanted == '"' ? "no quotation mark" : "no closing brace") + " follows");
    } else if (first == std::string_view::npos) {
        // report the last line that is not blank
        const std::size_t last = bytes.find_last_not_of(blanks);
        findings.add(FindingId::EndedEarly, last == std::string_view::npos ? 0 : last,
                     "The file ends where a number is expected");
    } else {
        const std::string_view near = bytes.substr(first, 40);
        const std::size_t end = near.find_first_of(" \t\v\f\r\n;,");
        const std::string word = quoted(near.substr(0, std::max<std::size_t>(end, 1)));
        const std::string begin = "Reading stops here: " + word;
        if (isNotFinite(bytes, first)) {
            findings.add(FindingId::NotFinite, first, begin + " is not finite" + rest);
        } else if (bytes[first] == '{') {
            findings.add(FindingId::BraceOnNextLine, first,
                         "Reading stops here: the brace is on the line after its keyword" + rest);
        } else if (isNumber(std::string_view(word).substr(1, word.size() - 2))) {
            findings.add(FindingId::NotFinite, first, begin + " is too large" + rest);
        } else {
            findings.add(FindingId::EndedEarly, first, begin + " is not a number" + rest);
        }
    }
}

} // namespace korvane
