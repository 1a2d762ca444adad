// SPDX-License-Identifier: MIT
// What must hold whatever the input is.
#pragma once

#include <cstdlib>
#include <ctime>

namespace Tarnex::Fuzz {

/// Ends the process when it does not hold, so that the fuzzer keeps the input.
inline void Require(bool truth) {
    if (!truth) {
        std::abort();
    }
}

/// Ends the process when one input, from here to the end of the scope, takes more than 15 seconds
/// of processor time: several times what the limits of the library allow in these slow programs,
/// which take any shorter input in thousandths. A loaded machine changes nothing about it.
class Brief {
public:
    Brief() = default;
    Brief(const Brief&) = delete;
    Brief& operator=(const Brief&) = delete;
    ~Brief() { Require(std::clock() - start < kMostSeconds * CLOCKS_PER_SEC); }

private:
    static constexpr std::clock_t kMostSeconds = 15;
    std::clock_t start = std::clock();
};

} // namespace Tarnex::Fuzz
