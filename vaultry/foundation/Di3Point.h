// SPDX-License-Identifier: MIT
// A point, offset or rotation in the game's world.
#pragma once

/// Three single-precision numbers: a position or offset [world units, +x east, +y north] or a
/// rotation about the three axes [radians].
///
/// The offsets of layouts are the exception: they count cells, and their y grows to the south, as
/// rows do. A rotation about the z axis is clockwise seen from above. A plain value: any number is
/// taken, and copies are free to go to other threads.
struct Di3Point {
    float x = 0.0F; ///< towards the east, or about the x axis
    float y = 0.0F; ///< towards the north, or about the y axis
    float z = 0.0F; ///< upwards, or about the z axis

    /// The origin, no offset and no rotation.
    constexpr Di3Point() = default;
    /// The point with these components.
    constexpr Di3Point(float px, float py, float pz) : x(px), y(py), z(pz) {}

    /// Adds component by component. In single precision, as the game's files hold it.
    constexpr Di3Point& operator+=(const Di3Point& other) {
        x += other.x;
        y += other.y;
        z += other.z;
        return *this;
    }

    /// Subtracts component by component.
    constexpr Di3Point& operator-=(const Di3Point& other) {
        x -= other.x;
        y -= other.y;
        z -= other.z;
        return *this;
    }

    /// Changes the sign of each component; 0.0 becomes -0.0, which the plug-in keeps.
    constexpr void negate() {
        x = -x;
        y = -y;
        z = -z;
    }

    /// Equality of all components, as numbers: 0.0 and -0.0 are equal. What is no number equals
    /// nothing, itself included.
    constexpr bool operator==(const Di3Point&) const = default;
};

/// The sum, component by component. Offsets of nested layouts add up like this, the outermost
/// first.
constexpr Di3Point operator+(Di3Point a, const Di3Point& b) {
    return a += b;
}
