// SPDX-License-Identifier: MIT
// Why a search finds nothing.
#pragma once

#include "tools/search/Condition.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Tarnex::Search {

/// How near the dungeons come that are not wanted, for each part of the condition.
class Shortfall {
public:
    /// The values that one fact was seen to have.
    struct Range {
        std::size_t fact = 0;
        std::int64_t least = 0;
        std::int64_t most = 0;
    };

    struct Part {
        std::string text;
        Condition condition;
        std::uint64_t held = 0;    ///< dungeons that pass it
        std::vector<Range> ranges; ///< of the facts that it asks for
    };

    explicit Shortfall(const Condition& condition);

    void Note(const Report::FactValues& values);

    /// As far as a dungeon was noted.
    const std::vector<Part>& Parts() const { return parts; }

private:
    std::vector<Part> parts;
};

} // namespace Tarnex::Search
