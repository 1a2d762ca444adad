// SPDX-License-Identifier: MIT
// Conversions from real to whole numbers that are defined for every input.
#pragma once

#include <cstdint>
#include <limits>

namespace Tarnex {

/// The whole part of `value`, toward zero. Not-a-number gives 0; a value out of range saturates.
constexpr std::int32_t TruncToInt(double value) {
    constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
    if (value != value) {
        return 0;
    }
    if (value <= static_cast<double>(kMin)) {
        return kMin;
    }
    if (value >= static_cast<double>(kMax)) {
        return kMax;
    }
    return static_cast<std::int32_t>(value);
}

/// Degrees to radians, for the rotations of references.
inline constexpr double kRadiansPerDegree = 0.017453292519943295;

} // namespace Tarnex
