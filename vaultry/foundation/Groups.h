// SPDX-License-Identifier: MIT
// Things that are joined, one pair after the other, into groups.
#pragma once

#include <cstddef>
#include <numeric>
#include <vector>

namespace Tarnex {

/// The groups that numbered things form; at first each stands alone. Joining and asking cost next
/// to nothing, however long the chains are.
class Groups {
public:
    /// Things from 0 to size - 1.
    explicit Groups(std::size_t size) : leaders(size) {
        std::iota(leaders.begin(), leaders.end(), std::size_t{0});
    }

    /// The thing that stands for the group of this one; it changes as groups are joined.
    std::size_t Of(std::size_t number) {
        while (leaders[number] != number) {
            // Halving the way on every walk keeps all ways short.
            number = leaders[number] = leaders[leaders[number]];
        }
        return number;
    }

    /// Makes one group of those of both.
    void Join(std::size_t one, std::size_t other) { leaders[Of(one)] = Of(other); }

    /// Whether it stands for its group; one thing of each group does.
    bool IsLeader(std::size_t number) const { return leaders[number] == number; }

private:
    std::vector<std::size_t> leaders;
};

} // namespace Tarnex
