// SPDX-License-Identifier: MIT
// The rooms lying next to a room.
#pragma once

#include <vaultry/layout/Layout.h>

namespace Tarnex {

/// The nearest room in each direction, null where there is none. The diagonal ones are always null:
/// a room that lies as far north as east counts as north.
struct AdjacentRooms {
    DiPtr<Layout> north;
    DiPtr<Layout> south;
    DiPtr<Layout> east;
    DiPtr<Layout> west;
    DiPtr<Layout> northWest;
    DiPtr<Layout> northEast;
    DiPtr<Layout> southWest;
    DiPtr<Layout> southEast;
};

} // namespace Tarnex
