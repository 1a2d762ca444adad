// SPDX-License-Identifier: MIT
#include "tools/search/SeedRange.h"

#include "tools/text/UsageError.h"

#include <charconv>
#include <string>

namespace Tarnex::Search {

namespace {

[[noreturn]] void Refuse(std::string_view text, const char* what) {
    throw UsageError("--seeds: \"" + std::string(text) + "\" " + what);
}

std::uint32_t ParseSeed(std::string_view text, std::string_view range) {
    std::uint32_t seed = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, seed);
    if (fault != std::errc() || stop != end) {
        Refuse(range, "is no range of seeds such as 1..1000, from 0 to 4294967295");
    }
    return seed;
}

} // namespace

SeedRange ParseSeedRange(std::string_view text) {
    constexpr std::string_view kTo = "..";
    const std::size_t to = text.find(kTo);
    const std::uint32_t first = ParseSeed(text.substr(0, to), text);
    if (to == std::string_view::npos) {
        return {first, first};
    }
    const std::uint32_t last = ParseSeed(text.substr(to + kTo.size()), text);
    if (last < first) {
        Refuse(text, "runs backwards");
    }
    return {first, last};
}

} // namespace Tarnex::Search
