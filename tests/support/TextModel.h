#pragma once

#include "formats/xsi/XsiReader.h"
#include "support/WriteText.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace korvane::test {

inline constexpr std::string_view xsiHeader = "xsi 0101txt 0032\n";

/// Reads a whole text, header included, and expects it to be a model.
inline ModelDocument readText(std::string_view text) {
    ModelDocument document;
    EXPECT_EQ(readXsi(TextScanner(text), document), ReadStatus::Done);
    return document;
}

/// Reads the text of a dotXSI file without its header.
inline ModelDocument readXsiBody(std::string_view body) {
    return readText(std::string(xsiHeader) + std::string(body));
}

/// Reads the body of a mesh in the top-level frame.
inline ModelDocument readMeshBody(std::string_view body) {
    return readXsiBody("frame frm-a {\nmesh a {\n" + std::string(body) + "}\n}\n");
}

} // namespace korvane::test
