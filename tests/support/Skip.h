#pragma once

#include <QtGlobal>

#include <gtest/gtest.h>

/// Skips a test for want of what the machine does not have. Where KORVANE_NO_SKIP is set, the
/// machine is meant to have it: a set-up that lost it must not look like success.
#define KORVANE_SKIP(reason)                                                                       \
    do {                                                                                           \
        if (qEnvironmentVariableIsSet("KORVANE_NO_SKIP")) {                                        \
            FAIL() << (reason);                                                                    \
        }                                                                                          \
        GTEST_SKIP() << (reason);                                                                  \
    } while (false)
