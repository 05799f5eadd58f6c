#pragma once

#include <sstream>
#include <string>
#include <vector>

namespace korvane::test {

/// Returns the words of a text.
inline std::vector<std::string> words(const std::string& text) {
    std::istringstream in(text);
    std::vector<std::string> found;
    for (std::string word; in >> word;) {
        found.push_back(word);
    }
    return found;
}

} // namespace korvane::test
