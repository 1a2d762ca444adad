// SPDX-License-Identifier: MIT
#include <algorithm>
#include <stdexcept>
#include <tests/support/Draws.h>

namespace Tarnex::Test {

namespace {

constexpr std::uint32_t kMostSeeds = 1U << 28;

// The documented generator, kept apart from the library's own so that wishes do not depend on it.
std::int32_t Advance(std::uint32_t& state) {
    state = state * 214013U + 2531011U;
    return static_cast<std::int32_t>((state >> 16U) & 32767U);
}

double ToUnit(std::int32_t raw) {
    const float unit = static_cast<float>(raw) * (1.0F / 32767.0F);
    return unit;
}

bool Grants(std::uint32_t seed, const std::vector<Wish>& wishes) {
    return std::ranges::all_of(wishes, [&seed](const Wish& wish) { return wish(Advance(seed)); });
}

} // namespace

DrawLog::DrawLog() {
    RecordDraws([](const RandomDraw& draw,
                   void* log) { static_cast<DrawLog*>(log)->bounds.push_back(draw.bound); },
                this);
}

DrawLog::~DrawLog() {
    RecordDraws(nullptr, nullptr);
}

Wish Any() {
    return [](std::int32_t) { return true; };
}

Wish Pick(std::int32_t index, std::int32_t n) {
    return [=](std::int32_t raw) { return raw % n == index; };
}

Wish UpTo(double limit) {
    return [=](std::int32_t raw) { return ToUnit(raw) <= limit; };
}

Wish Above(double limit) {
    return [=](std::int32_t raw) { return ToUnit(raw) > limit; };
}

Wish Between(double low, double high) {
    return [=](std::int32_t raw) { return ToUnit(raw) > low && ToUnit(raw) <= high; };
}

Wish Exactly(std::int32_t raw) {
    return [=](std::int32_t drawn) { return drawn == raw; };
}

void SeedFor(const std::vector<Wish>& wishes) {
    for (std::uint32_t seed = 0; seed < kMostSeeds; ++seed) {
        if (Grants(seed, wishes)) {
            SeedRandom(seed);
            return;
        }
    }
    throw std::runtime_error("no seed grants these wishes");
}

} // namespace Tarnex::Test
