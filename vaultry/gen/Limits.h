// SPDX-License-Identifier: MIT
// How much work a configuration may ask for.
#pragma once

#include <cstdint>

namespace Tarnex {

// Each lies far beyond any real dungeon; reaching one is logged. They keep a mistyped number from
// taking hours or all memory.

/// Turns that one theme item gets in one cell.
inline constexpr std::int64_t kMaxTurns = 100'000;

/// Floor pieces of the platform in one element.
inline constexpr std::int64_t kMaxFloorPieces = 10'000;

/// Cells of one random level.
inline constexpr std::int64_t kMaxLevelCells = 16'000'000;

} // namespace Tarnex
