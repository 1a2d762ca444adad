// SPDX-License-Identifier: MIT
// Chance that is a run's, but not that of its dungeon.
#pragma once

#include <vaultry/foundation/RunState.h>

#include <cstdint>

namespace Tarnex {

/// The streams besides that of the dungeon. Numbers never change: they are part of what a seed
/// means.
enum class StreamNumber : std::uint32_t { Locks = 1, Traps = 2 };

/// A seed of its own for each stream of a run. All bits of the result depend on all bits of the
/// run's, so that the streams of neighbouring seeds have nothing in common.
constexpr std::uint32_t SeedOfStream(std::uint32_t seed, StreamNumber stream) {
    std::uint32_t bits = seed + static_cast<std::uint32_t>(stream) * 0x9E3779B9U;
    bits = (bits ^ bits >> 16U) * 0x85EBCA6BU;
    bits = (bits ^ bits >> 13U) * 0xC2B2AE35U;
    return bits ^ bits >> 16U;
}

/// Draws that the dungeon does not notice: what is decided by them is added to it, and all else is
/// as without. They are not recorded.
class OwnStream {
public:
    OwnStream(std::uint32_t seed, StreamNumber stream) : state(CurrentRunState().log) {
        const UseRunState use(&state);
        SeedRandom(SeedOfStream(seed, stream));
    }

    /// A whole number from 0 to n - 1; n is 1 or more. See RandomInt.
    std::size_t Draw(std::size_t n) {
        const UseRunState use(&state);
        return static_cast<std::size_t>(RandomInt(static_cast<std::int32_t>(n)));
    }

    /// Whether something comes about of so many chances in a hundred; 0 and 100 are certain, and
    /// drawn all the same.
    bool Happens(std::uint32_t percent) { return Draw(100) < percent; }

private:
    RunState state;
};

} // namespace Tarnex
