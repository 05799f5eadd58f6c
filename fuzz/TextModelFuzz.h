#pragma once

#include "formats/check/ModelCheck.h"
#include "model/document/StructureTree.h"
#include "support/WriteText.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>

namespace korvane::fuzz {

/// Reads a text with this header at once and through a small window, which must yield the same
/// model; checks it, builds its tree and saves it.
inline void readModel(std::string_view header, const std::uint8_t* data, std::size_t size) {
    std::string text(header);
    text.append(reinterpret_cast<const char*>(data), size);

    ModelCheck check = checkModel(text);
    ModelDocument& document = check.document;
    const StructureTree tree(document);
    const auto lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
    for (const Finding& finding : check.findings) {
        if (finding.line > lines || finding.text.empty()) {
            std::abort();
        }
    }

    std::string_view left = text;
    const ByteSource source = [&left](std::span<char> space) {
        const std::size_t some = std::min({space.size(), left.size(), std::size_t{7}});
        left.copy(space.data(), some);
        left.remove_prefix(some);
        return some;
    };
    TextWindow window(source, text.size(), 16);
    ModelDocument again;
    readXsi(TextScanner(window), again);
    if (test::writeText(document) != test::writeText(again)) {
        std::abort();
    }
}

} // namespace korvane::fuzz
