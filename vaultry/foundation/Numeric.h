// SPDX-License-Identifier: MIT
// Small arithmetic that must come out the same everywhere.
#pragma once

#include <cstdint>
#include <limits>

namespace Tarnex {

/// The whole part of `value`, toward zero. Not-a-number gives 0; a value out of range saturates.
///
/// Numbers of a configuration may be anything, and what C++ does with one that an integer does not
/// hold differs between processors: so that a dungeon is the same on all of them, every conversion
/// goes through here. Grid places are cut toward zero as well: -0.5 cells is cell 0.
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

/// -1, 0 or 1. Which way to go, on one axis of a grid: 0 when one is there.
constexpr std::int32_t SignOf(std::int32_t value) {
    return (value > 0) - (value < 0);
}

/// Adds in double and rounds the sum to single precision, as every step of a placement does. The
/// places of pieces and contents are sums of several terms: with another rounding in between, the
/// last bits of the plug-in would differ.
constexpr void Add(float& value, double amount) {
    value = static_cast<float>(value + amount);
}

/// Degrees to radians, for the rotations of references. A 180th of pi, to the last digit that a
/// double holds. Configurations turn things by whole degrees, the game's files hold radians.
inline constexpr double kRadiansPerDegree = 0.017453292519943295;

} // namespace Tarnex
