// SPDX-License-Identifier: MIT
// The one-axis step from one grid position towards another.
#pragma once

#include <vaultry/foundation/DiPos.h>

#include <cstdint>

/// A unit step along the longer axis between two grid positions, with the signed distances.
///
/// Steps are -1, 0 or +1 and at most one of them is not 0. On equal distances the step goes north
/// or south.
struct DiDirection {
    std::int32_t stepX = 0; ///< +1 east, -1 west [cells]
    std::int32_t stepY = 0; ///< +1 south, -1 north [cells]
    std::int32_t distX = 0; ///< signed distance to the target [cells]
    std::int32_t distY = 0; ///< signed distance to the target [cells]

    DiDirection() = default;
    /// Step and distances from one position to the other; see Set.
    DiDirection(const DiPos& from, const DiPos& to);

    /// Copies carry the step alone: a remembered step has no target any more.
    DiDirection(const DiDirection& other);
    /// Takes the step alone, as a copy does; its own distances stay.
    DiDirection& operator=(const DiDirection& other);
    ~DiDirection() = default;

    /// Sets step and distances from `from` towards `to`; z plays no part.
    void Set(const DiPos& from, const DiPos& to);

    /// The absolute distance along x [cells].
    std::uint32_t GetDistanceX() const;
    /// The absolute distance along y [cells].
    std::uint32_t GetDistanceY() const;
};
