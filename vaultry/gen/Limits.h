// SPDX-License-Identifier: MIT
// How much work a configuration may ask for.
#pragma once

#include <cstdint>

namespace Tarnex {

/// Each limit lies far beyond any real dungeon; reaching one is logged. They keep a mistyped number
/// from taking hours or all memory.
/// @{

/// Turns that one theme item gets in one cell.
inline constexpr std::int64_t kMaxTurns = 100'000;

/// Floor pieces of the platform in one element.
inline constexpr std::int64_t kMaxFloorPieces = 10'000;

/// Floor pieces of all platforms in one cell.
inline constexpr std::int64_t kMaxPlatformPieces = 1'000'000;

/// Cells of one random level. A hall that fails goes through all of them.
inline constexpr std::int64_t kMaxLevelCells = 1'000'000;

/// Levels of one run.
inline constexpr std::uint32_t kMaxLevels = 1000;

/// Layouts nested in one that becomes a room of a random level.
inline constexpr std::int64_t kMaxRoomParts = 64;

/// Steps of placing contents and treasure in one run: a look at a piece of content or at a place
/// is one.
inline constexpr std::int64_t kMaxPlacingSteps = 10'000'000'000;

/// What layouts, contents and references of one run take together. [bytes]
inline constexpr std::uint64_t kMaxRunMemory = std::uint64_t{2} << 30U;

/// @}

} // namespace Tarnex
