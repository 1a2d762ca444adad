// SPDX-License-Identifier: MIT
// What must hold whatever the input is.
#pragma once

#include <cstdlib>

namespace Tarnex::Fuzz {

/// Ends the process when it does not hold, so that the fuzzer keeps the input.
inline void Require(bool truth) {
    if (!truth) {
        std::abort();
    }
}

} // namespace Tarnex::Fuzz
