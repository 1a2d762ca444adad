// SPDX-License-Identifier: MIT
#include <vaultry/foundation/DiDirection.h>

#include <vaultry/foundation/Numeric.h>

using Tarnex::SignOf;

namespace {

std::uint32_t Magnitude(std::int32_t distance) {
    const auto bits = static_cast<std::uint32_t>(distance);
    return distance < 0 ? 0U - bits : bits;
}

// Wraps instead of overflowing when the two ends of the range meet.
std::int32_t Distance(std::int32_t from, std::int32_t to) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(to) -
                                     static_cast<std::uint32_t>(from));
}

} // namespace

DiDirection::DiDirection(const DiPos& from, const DiPos& to) {
    Set(from, to);
}

DiDirection::DiDirection(const DiDirection& other) : stepX(other.stepX), stepY(other.stepY) {}

DiDirection& DiDirection::operator=(const DiDirection& other) {
    stepX = other.stepX;
    stepY = other.stepY;
    return *this;
}

void DiDirection::Set(const DiPos& from, const DiPos& to) {
    distX = Distance(from.x, to.x);
    distY = Distance(from.y, to.y);
    const bool alongY = GetDistanceX() <= GetDistanceY();
    stepX = alongY ? 0 : SignOf(distX);
    stepY = alongY ? SignOf(distY) : 0;
}

std::uint32_t DiDirection::GetDistanceX() const {
    return Magnitude(distX);
}

std::uint32_t DiDirection::GetDistanceY() const {
    return Magnitude(distY);
}
