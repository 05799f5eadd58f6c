#pragma once

#include "formats/xsi/XsiWriter.h"

#include <string>
#include <string_view>

namespace korvane::test {

/// The bytes that saving the model gives.
inline std::string writeText(const ModelDocument& document) {
    std::string text;
    writeXsi(document, [&text](std::string_view piece) {
        text += piece;
        return true;
    });
    return text;
}

} // namespace korvane::test
