// SPDX-License-Identifier: MIT
#include <vaultry/foundation/Random.h>

#include <vaultry/foundation/RunState.h>

namespace Tarnex {

namespace {

// A generator of the library's own: with that of the platform's runtime library a seed would make
// another dungeon on every system.
constexpr std::uint32_t kMultiplier = 214013;
constexpr std::uint32_t kIncrement = 2531011;
constexpr std::uint32_t kHighBits = 16;
constexpr std::uint32_t kMaxValue = 32767;
constexpr float kUnitScale = 1.0F / 32767.0F;

std::int32_t Draw(std::int32_t bound) {
    ChanceState& chance = CurrentRunState().chance;
    chance.state = chance.state * kMultiplier + kIncrement;
    const auto value = static_cast<std::int32_t>((chance.state >> kHighBits) & kMaxValue);
    if (chance.recorder != nullptr) {
        chance.recorder({++chance.draws, bound, value}, chance.context);
    }
    return value;
}

} // namespace

void SeedRandom(std::uint32_t seed) {
    CurrentRunState().chance.state = seed;
}

std::int32_t RandomInt(std::int32_t n) {
    const std::int32_t value = Draw(n);
    return n < 1 ? 0 : value % n;
}

float RandomUnit() {
    return static_cast<float>(Draw(kUnitBound)) * kUnitScale;
}

void RecordDraws(DrawRecorder recorder, void* context) {
    ChanceState& chance = CurrentRunState().chance;
    chance.draws = 0;
    chance.recorder = recorder;
    chance.context = context;
}

} // namespace Tarnex
