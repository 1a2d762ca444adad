// SPDX-License-Identifier: MIT
#include <vaultry/foundation/Random.h>

namespace Tarnex {

namespace {

// A generator of the library's own: with that of the platform's runtime library a seed would make
// another dungeon on every system.
constexpr std::uint32_t kMultiplier = 214013;
constexpr std::uint32_t kIncrement = 2531011;
constexpr std::uint32_t kHighBits = 16;
constexpr std::uint32_t kMaxValue = 32767;
constexpr float kUnitScale = 1.0F / 32767.0F;

struct GeneratorState {
    std::uint32_t state = 1;
    std::uint64_t draws = 0;
    DrawRecorder recorder = nullptr;
    void* context = nullptr;
};

GeneratorState generator;

std::int32_t Draw(std::int32_t bound) {
    generator.state = generator.state * kMultiplier + kIncrement;
    const auto value = static_cast<std::int32_t>((generator.state >> kHighBits) & kMaxValue);
    if (generator.recorder != nullptr) {
        generator.recorder({++generator.draws, bound, value}, generator.context);
    }
    return value;
}

} // namespace

void SeedRandom(std::uint32_t seed) {
    generator.state = seed;
}

std::int32_t RandomInt(std::int32_t n) {
    const std::int32_t value = Draw(n);
    return n < 1 ? 0 : value % n;
}

float RandomUnit() {
    return static_cast<float>(Draw(kUnitBound)) * kUnitScale;
}

void RecordDraws(DrawRecorder recorder, void* context) {
    generator.draws = 0;
    generator.recorder = recorder;
    generator.context = context;
}

} // namespace Tarnex
