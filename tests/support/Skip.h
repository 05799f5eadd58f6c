#pragma once

#include <QtGlobal>

#include <gtest/gtest.h>

/// Skips a test because the machine lacks something. If KORVANE_NO_SKIP is set, the machine must
/// have it: then the test fails, so that a broken set-up does not look like success.
#define KORVANE_SKIP(reason)                                                                       \
    do {                                                                                           \
        if (qEnvironmentVariableIsSet("KORVANE_NO_SKIP")) {                                        \
            FAIL() << (reason);                                                                    \
        }                                                                                          \
        GTEST_SKIP() << (reason);                                                                  \
    } while (false)
