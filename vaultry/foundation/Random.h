// SPDX-License-Identifier: MIT
// The one source of chance: the generator of the state in use (RunState.h), which is the process's
// unless a thread uses one of its own, and its two kinds of draw.
#pragma once

#include <vaultry/foundation/Export.h>

#include <cstdint>

namespace Tarnex {

/// Seeds the generator in use. Unseeded it starts from 1. The same seed gives the same draws on
/// every platform.
///
/// A linear congruential generator (214013 and 2531011, 32 bits), of which each draw gives bits 16
/// to 30. It is fast and the same everywhere; nobody should keep a secret with it.
VAULTRY_API void SeedRandom(std::uint32_t seed);

/// A whole number from 0 to n - 1. For n < 1 the answer is 0, and a number is drawn all the same.
/// Draws are below 32768, so that greater answers never come, and small ones come a little more
/// often where n does not divide 32768.
VAULTRY_API std::int32_t RandomInt(std::int32_t n);

/// A number from 0.0 to 1.0, both reachable. Tests compare it as "draw <= threshold" in double. One
/// of 32768 numbers; 0.0 and 1.0 come once in 32768 draws each.
VAULTRY_API float RandomUnit();

/// One of the list, which is not empty, by a RandomInt of its length.
template <typename List>
auto& DrawOne(List& list) {
    const std::int32_t pick = RandomInt(static_cast<std::int32_t>(list.size()));
    return list[static_cast<std::size_t>(pick)];
}

/// One recorded draw.
struct RandomDraw {
    std::uint64_t index; ///< 1 for the first draw since recording began
    std::int32_t bound;  ///< the n of RandomInt; -1 for RandomUnit
    std::int32_t value;  ///< what the generator gave, before the bound [0, 32767]
};

/// Receives every draw, in order; `context` is the pointer given to RecordDraws.
using DrawRecorder = void (*)(const RandomDraw& draw, void* context);

/// Reports every further draw to `recorder`, counting from 1; null ends the recording. Two builds
/// that should agree are compared by their first differing draw.
VAULTRY_API void RecordDraws(DrawRecorder recorder, void* context);

/// The bound under which RandomUnit is recorded.
inline constexpr std::int32_t kUnitBound = -1;

} // namespace Tarnex
