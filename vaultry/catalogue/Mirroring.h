// SPDX-License-Identifier: MIT
// Turning a piece that is given once into the pieces of the other sides.
#pragma once

#include <vaultry/catalogue/Tile.h>
#include <vaultry/foundation/Di3Point.h>

#include <cstdint>
#include <vector>

namespace Tarnex {

/// Brings an angle back by one turn: 360 less when it is 360 or more, 360 more when it is negative.
/// A single wrap on purpose; an angle of 400 turned by 90 becomes 130. [degrees]
VAULTRY_API std::int32_t NormalizeAngle(std::int64_t degrees);

/// `degrees` turned by `delta`, normalised. [degrees]
VAULTRY_API std::int32_t TurnAngle(std::int32_t degrees, std::int32_t delta);

/// Turns x and y clockwise seen from above by 90, 180 or 270 degrees; z and any other angle leave
/// the point as it is.
VAULTRY_API void RotateOffset(Di3Point& point, std::int32_t degrees);

/// The tiles that follow from `source`, in the order in which they are filed; none when its kind is
/// not the source of others.
VAULTRY_API std::vector<Tile> MirrorTile(const Tile& source);

} // namespace Tarnex
