#pragma once

#include "formats/check/ModelCheck.h"
#include "support/TextModel.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace korvane::test {

/// Returns the findings, one per line: "LINE ID: text".
inline std::string findingLines(const std::vector<Finding>& findings) {
    std::string text;
    for (const Finding& finding : findings) {
        text += std::to_string(finding.line) + ' ' + std::string(findingRow(finding.id).name) +
                ": " + finding.text + '\n';
    }
    return text;
}

/// Returns the findings about a dotXSI file; line 1 is the header.
inline std::string checked(std::string_view body, bool hazards = true) {
    const std::string text = std::string(xsiHeader) + std::string(body);
    ModelCheck check = checkModel(text, {.hazards = hazards});
    EXPECT_EQ(check.status, ReadStatus::Done);
    return findingLines(check.findings);
}

/// The text of a model without its header, and its expected findings.
struct CheckedText {
    std::string body;
    const char* expected;
};

/// Expects the findings of each text.
template <std::size_t count>
void expectFindings(const CheckedText (&rows)[count], bool hazards = true) {
    for (const CheckedText& row : rows) {
        EXPECT_EQ(checked(row.body, hazards), row.expected) << row.body;
    }
}

} // namespace korvane::test
