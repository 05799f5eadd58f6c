#pragma once

#include "formats/xsi/XsiWriter.h"

#include <string>
#include <string_view>

namespace korvane::test {

/// Returns the bytes that saving the model writes.
inline std::string writeText(const ModelDocument& document) {
    std::string text;
    writeXsi(document, [&text](std::string_view piece) {
        text += piece;
        return true;
    });
    return text;
}

} // namespace korvane::test
