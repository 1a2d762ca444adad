// SPDX-License-Identifier: MIT
// Small arithmetic that must come out the same everywhere.
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

/// -1, 0 or 1.
constexpr std::int32_t SignOf(std::int32_t value) {
    return (value > 0) - (value < 0);
}

/// Adds in double and rounds the sum to single precision, as every step of a placement does.
constexpr void Add(float& value, double amount) {
    value = static_cast<float>(value + amount);
}

/// Degrees to radians, for the rotations of references.
inline constexpr double kRadiansPerDegree = 0.017453292519943295;

} // namespace Tarnex
