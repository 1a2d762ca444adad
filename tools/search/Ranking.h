// SPDX-License-Identifier: MIT
// Which dungeons are the best.
#pragma once

#include "tools/facts/DungeonFacts.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Tarnex::Search {

/// An order of dungeons by their facts, such as "loops,treasure:asc": the first key decides, the
/// next ones where it is equal, the smaller seed in the end. The greatest value comes first, or
/// with ":asc" the least; ":desc" may be written too.
class Order {
public:
    /// By seed.
    Order() = default;
    /// Throws UsageError.
    explicit Order(std::string_view keys);

    bool IsBefore(const Report::FactValues& a, const Report::FactValues& b) const;

    /// The numbers of the facts that decide, in order.
    std::vector<std::size_t> FactsUsed() const;

private:
    struct Key {
        std::size_t fact = 0;
        bool ascending = false;
    };

    static Key ParseKey(std::string_view text);

    std::vector<Key> keys;
};

/// A dungeon that was found.
struct Hit {
    Report::FactValues values; ///< in the order of Facts()
    std::string command;       ///< that makes it, for a shell

    bool operator==(const Hit&) const = default;
};

/// Keeps the best of what is added; with which they are depends on no order of adding.
class Ranking {
public:
    /// `most` 0: all are kept.
    Ranking(Order rankingOrder, std::uint64_t most) : order(std::move(rankingOrder)), top(most) {}

    void Add(Hit hit);
    /// All that were added, also those that were not kept.
    std::uint64_t Added() const { return added; }
    /// The best, the first of all at the front.
    std::vector<Hit> Take();

private:
    bool IsBefore(const Hit& a, const Hit& b) const;
    void Cut();

    Order order;
    std::uint64_t top;
    std::uint64_t added = 0;
    std::vector<Hit> hits;
};

} // namespace Tarnex::Search
