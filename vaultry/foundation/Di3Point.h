// SPDX-License-Identifier: MIT
// A point, offset or rotation in the game's world.
#pragma once

/// Three single-precision numbers: a position or offset [world units, +x east, +y north] or a
/// rotation about the three axes [radians].
struct Di3Point {
    float x = 0.0F;
    float y = 0.0F;
    float z = 0.0F;

    constexpr Di3Point() = default;
    constexpr Di3Point(float px, float py, float pz) : x(px), y(py), z(pz) {}

    constexpr Di3Point& operator+=(const Di3Point& other) {
        x += other.x;
        y += other.y;
        z += other.z;
        return *this;
    }

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

    constexpr bool operator==(const Di3Point&) const = default;
};

constexpr Di3Point operator+(Di3Point a, const Di3Point& b) {
    return a += b;
}
