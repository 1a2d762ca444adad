// SPDX-License-Identifier: MIT
// From grid positions to the game's world.
#pragma once

#include <vaultry/foundation/Di3Point.h>
#include <vaultry/foundation/DiPos.h>
#include <vaultry/foundation/Export.h>

#include <cstdint>

namespace Tarnex {

/// The world position of a piece: column and row of its element (`pos`, in cells) inside a layout
/// at `layoutOffset` (in cells), its own offset `local` (in world units) and the edge of a cell in
/// world units. Rows run towards negative y. Sums are made in double precision, left to right, and
/// rounded to single precision once.
VAULTRY_API Di3Point WorldPosition(const DiPos& pos,
                                   const Di3Point& layoutOffset,
                                   const Di3Point& local,
                                   std::int32_t tileSize);

/// Whole degrees to radians.
float Radians(std::int32_t degrees);

} // namespace Tarnex
