// SPDX-License-Identifier: MIT
// Recording the random draws of a run, and choosing what they give.
#pragma once

#include <vaultry/foundation/Random.h>

#include <cstdint>
#include <functional>
#include <vector>

namespace Tarnex::Test {

/// How DrawLog shows a RandomUnit.
inline constexpr std::int32_t kUnit = -1;

/// Records every draw for as long as it lives. One at a time.
class DrawLog {
public:
    DrawLog();
    ~DrawLog();
    DrawLog(const DrawLog&) = delete;
    DrawLog& operator=(const DrawLog&) = delete;

    /// The n of every RandomInt and kUnit for every RandomUnit, in order.
    const std::vector<std::int32_t>& Bounds() const { return bounds; }

private:
    std::vector<std::int32_t> bounds;
};

/// What one draw shall give: a test on the number from 0 to 32767 behind it.
using Wish = std::function<bool(std::int32_t raw)>;

Wish Any();
/// RandomInt(n) gives `index`.
Wish Pick(std::int32_t index, std::int32_t n);
/// RandomUnit gives at most `limit`.
Wish UpTo(double limit);
/// RandomUnit gives more than `limit`.
Wish Above(double limit);
/// RandomUnit gives more than `low` and at most `high`.
Wish Between(double low, double high);
/// The number behind the draw is exactly that one.
Wish Exactly(std::int32_t raw);

/// Seeds the generator such that the next draws are as wished, with the smallest seed that serves.
/// Throws std::runtime_error when no seed is found.
void SeedFor(const std::vector<Wish>& wishes);

} // namespace Tarnex::Test
