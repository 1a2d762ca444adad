// SPDX-License-Identifier: MIT
// Ranges of seeds.
#pragma once

#include <cstdint>
#include <string_view>

namespace Tarnex::Search {

/// The seeds from first to last, both included; first is not after last.
struct SeedRange {
    std::uint32_t first = 0;
    std::uint32_t last = 0;

    std::uint64_t Count() const { return std::uint64_t{last} - first + 1; }
    bool operator==(const SeedRange&) const = default;
};

/// Reads "A..B", or "A" for a single seed. Throws UsageError.
SeedRange ParseSeedRange(std::string_view text);

/// Reads "N" for the numbers from 1 to N, or "A..B", of seeds that are scattered: see FurtherSeed,
/// with 0 as the given one. Throws UsageError.
SeedRange ParseSample(std::string_view text);

} // namespace Tarnex::Search
