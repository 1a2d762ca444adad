// SPDX-License-Identifier: MIT
// Finding the nearest of many points.
#pragma once

#include <vaultry/foundation/Di3Point.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace Tarnex::Report {

/// Points in space, of which the nearest to a place can be taken out, one after the other. Points
/// with a coordinate that is no finite number come last. Where the points lie so that the nearest
/// is found only by looking at nearly all, as on a sphere around the place, it gives up after
/// kMostWork for each point: from then on it takes those that were given first.
class PointTree {
public:
    static constexpr std::size_t kNone = ~std::size_t{0};
    static constexpr std::uint64_t kMostWork = 500; ///< on average [boxes and points]

    explicit PointTree(const std::vector<Di3Point>& points);

    /// Takes out the point nearest to `place`, of equally near ones that which was given first, and
    /// returns its index; kNone when none is left.
    std::size_t TakeNearest(const Di3Point& place);

    /// How many boxes and points were looked at so far.
    std::uint64_t Work() const { return work; }

private:
    using Coordinates = std::array<double, 3>;

    // A part of the points, halved until few are left. It keeps what is still there.
    struct Node {
        Coordinates least{};
        Coordinates most{};
        std::size_t begin = 0; // in `order`
        std::size_t end = 0;
        std::size_t left = kNone; // index of the first half; the second follows all of it
        std::size_t right = kNone;
        std::size_t parent = kNone;
        std::size_t first = kNone; // the smallest index among what is still there
    };
    // What was found: of equal distances the smaller index counts.
    struct Best {
        double distance;
        std::size_t index;
    };

    std::size_t Build(std::size_t begin, std::size_t end, std::size_t parent);
    void Split(std::size_t node);
    double BoxDistance(const Node& node, const Coordinates& place) const;
    bool CanImprove(const Node& node, double distance, const Best& best) const;
    void Search(std::size_t node, const Coordinates& place, Best& best);
    void SearchHalves(const Node& node, const Coordinates& place, Best& best);
    void Remove(std::size_t index);
    void UpdateFirst(Node& node) const;

    std::vector<Coordinates> points;
    std::vector<std::size_t> order; // the indices of the points of each leaf side by side
    std::vector<std::size_t> leafOf;
    std::vector<bool> taken;
    std::vector<Node> nodes;
    std::vector<std::size_t> endless; // in the order in which they were given
    std::size_t nextEndless = 0;
    std::uint64_t work = 0;
};

} // namespace Tarnex::Report
