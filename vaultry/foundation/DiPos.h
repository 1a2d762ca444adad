// SPDX-License-Identifier: MIT
// A position or size on an integer grid.
#pragma once

#include <cstdint>

/// A grid position or a grid size.
///
/// As a position, x is the column (west to east), y the row (row 0 is the northern edge) and z a
/// level or height. As a size, x is the width, y the height, z the vertical extent. [cells]
///
/// In the world a cell lies at x times the size of a tile to the east, and at y times that size to
/// the south, which is towards negative y there.
///
/// @code
/// const DiPos place(3, 1, 0); // fourth column, second row
/// const auto elmt = layout.GetElmt(static_cast<std::uint32_t>(place.y), // the row comes first
///                                  static_cast<std::uint32_t>(place.x));
/// @endcode
struct DiPos {
    std::int32_t x = 0; ///< column, or width
    std::int32_t y = 0; ///< row, or height
    std::int32_t z = 0; ///< level, or vertical extent

    /// The north-western cell, or a size of nothing.
    constexpr DiPos() = default;
    /// The position with these components.
    constexpr DiPos(std::int32_t px, std::int32_t py, std::int32_t pz) : x(px), y(py), z(pz) {}

    /// Replaces all components.
    constexpr void set(std::int32_t px, std::int32_t py, std::int32_t pz) {
        x = px;
        y = py;
        z = pz;
    }

    /// Adds component by component; a sum out of range is not caught.
    constexpr DiPos& operator+=(const DiPos& other) {
        x += other.x;
        y += other.y;
        z += other.z;
        return *this;
    }

    /// Subtracts component by component; a difference out of range is not caught.
    constexpr DiPos& operator-=(const DiPos& other) {
        x -= other.x;
        y -= other.y;
        z -= other.z;
        return *this;
    }

    /// True when all three components are 0.
    constexpr bool isZero() const { return x == 0 && y == 0 && z == 0; }

    /// Equality of all components.
    constexpr bool operator==(const DiPos&) const = default;
};

/// The sum, component by component. A step to a neighbour, or the place of a cell of a nested
/// layout in the outer one.
constexpr DiPos operator+(DiPos a, const DiPos& b) {
    return a += b;
}
