// SPDX-License-Identifier: MIT
#include "tools/plugins/PointTree.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>

namespace Tarnex::Report {

namespace {

constexpr std::size_t kLeafSize = 8;

std::array<double, 3> CoordinatesOf(const Di3Point& point) {
    return {
        static_cast<double>(point.x), static_cast<double>(point.y), static_cast<double>(point.z)};
}

bool IsFinite(const std::array<double, 3>& point) {
    return std::ranges::all_of(point, [](double number) { return std::isfinite(number); });
}

double SquaredLength(double x, double y, double z) {
    return x * x + y * y + z * z;
}

} // namespace

PointTree::PointTree(const std::vector<Di3Point>& given)
    : leafOf(given.size(), kNone), taken(given.size()) {
    for (const Di3Point& point : given) {
        const std::size_t index = points.size();
        points.push_back(CoordinatesOf(point));
        (IsFinite(points.back()) ? order : endless).push_back(index);
    }
    if (!order.empty()) {
        Build(0, order.size(), kNone);
    }
}

std::size_t PointTree::Build(std::size_t begin, std::size_t end, std::size_t parent) {
    const std::size_t index = nodes.size();
    Node node;
    node.begin = begin;
    node.end = end;
    node.parent = parent;
    node.least = points[order[begin]];
    node.most = node.least;
    node.first = order[begin];
    for (std::size_t i = begin; i < end; ++i) {
        const Coordinates& point = points[order[i]];
        node.first = std::min(node.first, order[i]);
        for (std::size_t axis = 0; axis < point.size(); ++axis) {
            node.least[axis] = std::min(node.least[axis], point[axis]);
            node.most[axis] = std::max(node.most[axis], point[axis]);
        }
    }
    nodes.push_back(node);
    Split(index);
    return index;
}

void PointTree::Split(std::size_t index) {
    const Node node = nodes[index];
    if (node.end - node.begin <= kLeafSize) {
        for (std::size_t i = node.begin; i < node.end; ++i) {
            leafOf[order[i]] = index;
        }
        return;
    }
    std::size_t widest = 0;
    for (std::size_t axis = 1; axis < node.least.size(); ++axis) {
        if (node.most[axis] - node.least[axis] > node.most[widest] - node.least[widest]) {
            widest = axis;
        }
    }
    const std::size_t middle = node.begin + (node.end - node.begin) / 2;
    const auto at = [this](std::size_t place) {
        return order.begin() + static_cast<std::ptrdiff_t>(place);
    };
    std::nth_element(
        at(node.begin), at(middle), at(node.end), [this, widest](std::size_t a, std::size_t b) {
            return points[a][widest] < points[b][widest];
        });
    nodes[index].left = Build(node.begin, middle, index);
    nodes[index].right = Build(middle, node.end, index);
}

double PointTree::BoxDistance(const Node& node, const Coordinates& place) const {
    Coordinates away{};
    for (std::size_t axis = 0; axis < place.size(); ++axis) {
        away[axis] = std::clamp(place[axis], node.least[axis], node.most[axis]) - place[axis];
    }
    return SquaredLength(away[0], away[1], away[2]);
}

bool PointTree::CanImprove(const Node& node, double distance, const Best& best) const {
    return node.first != kNone &&
           (distance < best.distance || (distance == best.distance && node.first < best.index));
}

void PointTree::SearchHalves(const Node& node, const Coordinates& place, Best& best) {
    struct Half {
        double distance;
        std::size_t first;
        std::size_t index;
        bool operator<(const Half& other) const {
            return std::tie(distance, first) < std::tie(other.distance, other.first);
        }
    };
    std::array<Half, 2> halves = {{
        {BoxDistance(nodes[node.left], place), nodes[node.left].first, node.left},
        {BoxDistance(nodes[node.right], place), nodes[node.right].first, node.right},
    }};
    if (halves[1] < halves[0]) {
        std::swap(halves[0], halves[1]);
    }
    for (const Half& half : halves) {
        if (CanImprove(nodes[half.index], half.distance, best)) {
            Search(half.index, place, best);
        }
    }
}

void PointTree::Search(std::size_t index, const Coordinates& place, Best& best) {
    const Node& node = nodes[index];
    ++work;
    if (node.left != kNone) {
        SearchHalves(node, place, best);
        return;
    }
    for (std::size_t i = node.begin; i < node.end; ++i) {
        const std::size_t point = order[i];
        if (taken[point]) {
            continue;
        }
        ++work;
        const double distance = SquaredLength(
            points[point][0] - place[0], points[point][1] - place[1], points[point][2] - place[2]);
        if (distance < best.distance || (distance == best.distance && point < best.index)) {
            best = {distance, point};
        }
    }
}

void PointTree::UpdateFirst(Node& node) const {
    if (node.left != kNone) {
        node.first = std::min(nodes[node.left].first, nodes[node.right].first);
        return;
    }
    node.first = kNone;
    for (std::size_t i = node.begin; i < node.end; ++i) {
        node.first = taken[order[i]] ? node.first : std::min(node.first, order[i]);
    }
}

void PointTree::Remove(std::size_t index) {
    taken[index] = true;
    for (std::size_t node = leafOf[index]; node != kNone; node = nodes[node].parent) {
        UpdateFirst(nodes[node]);
    }
}

std::size_t PointTree::TakeNearest(const Di3Point& place) {
    const Coordinates coordinates = CoordinatesOf(place);
    const bool left = !nodes.empty() && nodes.front().first != kNone;
    if (!left) {
        return nextEndless < endless.size() ? endless[nextEndless++] : kNone;
    }
    // From nowhere all are equally far.
    Best best{std::numeric_limits<double>::infinity(), kNone};
    if (IsFinite(coordinates) && work < kMostWork * points.size()) {
        Search(0, coordinates, best);
    } else {
        best.index = nodes.front().first;
    }
    Remove(best.index);
    return best.index;
}

} // namespace Tarnex::Report
