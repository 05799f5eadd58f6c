#pragma once

#include <QtGlobal>

#include <gtest/gtest.h>

#include <cstdio>
#include <optional>

namespace korvane::test {

/// Returns the exit status of a test program that need not or cannot start the toolkit: it only
/// lists its tests, or has no display.
inline std::optional<int> statusWithoutDisplay() {
    if (GTEST_FLAG_GET(list_tests)) {
        return RUN_ALL_TESTS();
    }
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (!qEnvironmentVariableIsEmpty(name)) {
            return std::nullopt;
        }
    }
    if (qEnvironmentVariableIsSet("KORVANE_NO_SKIP")) {
        std::puts("[  FAILED  ] no display here");
        return 1;
    }
    std::puts("[  SKIPPED ] no display here");
    return 0;
}

/// The main function of tests that need the toolkit and a display.
template <class Application>
int runTestsOnDisplay(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (const auto status = statusWithoutDisplay()) {
        return *status;
    }
    const Application application(argc, argv);
    return RUN_ALL_TESTS();
}

} // namespace korvane::test
