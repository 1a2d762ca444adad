// SPDX-License-Identifier: MIT
// Trying seeds until a dungeon can be walked through.
#pragma once

#include "cli/LibraryLog.h"
#include "cli/RunReport.h"
#include "tools/maps/LevelMap.h"

#include <vaultry/gen/GenMgr.h>

#include <cstdint>

namespace Tarnex::Cli {

/// The most seeds that are tried.
inline constexpr std::uint32_t kMaxTries = 1000;

/// The seed of a try, counted from 0: the given one, then one further for each try by 2654435769,
/// the golden ratio of the 32-bit numbers, so that the draws of neighbouring tries have nothing in
/// common.
constexpr std::uint32_t SeedOfTry(std::uint32_t seed, std::uint32_t number) {
    constexpr std::uint32_t kStride = 2654435769U;
    return seed + number * kStride;
}

/// Generates into `manager`, with further seeds if the options ask for a walkable dungeon. Every
/// try starts from the same state, so that the seed found, which the report's options then name,
/// makes the same dungeon by itself. `maps` then holds the levels of the last try; null when they
/// are not wanted.
RunResult
GenerateLevels(GenMgr& manager, RunReport& report, LibraryLog& log, Report::MapCollector* maps);

} // namespace Tarnex::Cli
