// SPDX-License-Identifier: MIT
// The rooms lying next to a room.
#pragma once

#include <vaultry/layout/Layout.h>

namespace Tarnex {

/// The nearest room in each direction, null where there is none. The diagonal ones are always null:
/// a room that lies as far north as east counts as north.
struct AdjacentRooms {
    DiPtr<Layout> north;     ///< or null
    DiPtr<Layout> south;     ///< or null
    DiPtr<Layout> east;      ///< or null
    DiPtr<Layout> west;      ///< or null
    DiPtr<Layout> northWest; ///< always null
    DiPtr<Layout> northEast; ///< always null
    DiPtr<Layout> southWest; ///< always null
    DiPtr<Layout> southEast; ///< always null
};

} // namespace Tarnex
