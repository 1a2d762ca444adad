// SPDX-License-Identifier: MIT
// Tests that a system cannot run.
#pragma once

#include <gtest/gtest.h>

/// Stands where tests of `suite` are left out on Windows, so that their absence is reported.
#define VAULTRY_LEFT_OUT_ON_WINDOWS(suite, why)                                                    \
    TEST(suite##OnPosix, IsLeftOut) {                                                              \
        GTEST_SKIP() << why;                                                                       \
    }
