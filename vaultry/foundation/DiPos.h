// SPDX-License-Identifier: MIT
// A position or size on an integer grid.
#pragma once

#include <cstdint>

/// A grid position or a grid size.
///
/// As a position, x is the column (west to east), y the row (row 0 is the northern edge) and z a
/// level or height. As a size, x is the width, y the height, z the vertical extent. [cells]
struct DiPos {
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t z = 0;

    constexpr DiPos() = default;
    constexpr DiPos(std::int32_t px, std::int32_t py, std::int32_t pz) : x(px), y(py), z(pz) {}

    constexpr void set(std::int32_t px, std::int32_t py, std::int32_t pz) {
        x = px;
        y = py;
        z = pz;
    }

    constexpr DiPos& operator+=(const DiPos& other) {
        x += other.x;
        y += other.y;
        z += other.z;
        return *this;
    }

    constexpr DiPos& operator-=(const DiPos& other) {
        x -= other.x;
        y -= other.y;
        z -= other.z;
        return *this;
    }

    /// True when all three components are 0.
    constexpr bool isZero() const { return x == 0 && y == 0 && z == 0; }

    constexpr bool operator==(const DiPos&) const = default;
};

constexpr DiPos operator+(DiPos a, const DiPos& b) {
    return a += b;
}
