// SPDX-License-Identifier: MIT
#include "tools/plugins/PointTree.h"

#include <vaultry/foundation/Random.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace Tarnex::Report {

namespace {

Di3Point At(float x, float y, float z) {
    Di3Point point;
    point.x = x;
    point.y = y;
    point.z = z;
    return point;
}

// Points on a grid, in an order that has nothing to do with their places.
std::vector<Di3Point> Scattered(int count) {
    std::vector<Di3Point> points;
    for (int i = 0; i < count; ++i) {
        const int place = static_cast<int>(static_cast<std::int64_t>(i) * 7919 % count);
        points.push_back(At(static_cast<float>(place % 64) * 16,
                            static_cast<float>(place / 64 % 64) * 16,
                            static_cast<float>(place / 4096) * 16));
    }
    return points;
}

TEST(PointTreeTest, TheNearestOfAllThatAreLeftIsTaken) {
    const std::vector<Di3Point> points = {At(0, 0, 0), At(10, 0, 0), At(11, 0, 0)};
    PointTree tree(points);
    EXPECT_EQ(tree.TakeNearest(At(9, 1, 0)), 1U);
    EXPECT_EQ(tree.TakeNearest(At(9, 1, 0)), 2U);
    EXPECT_EQ(tree.TakeNearest(At(9, 1, 0)), 0U);
    EXPECT_EQ(tree.TakeNearest(At(9, 1, 0)), PointTree::kNone);
}

TEST(PointTreeTest, OfEquallyNearPointsTheFirstIsTaken) {
    PointTree tree({At(1, 0, 0), At(-1, 0, 0), At(0, 1, 0), At(0, 0, -1)});
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(tree.TakeNearest(At(0, 0, 0)), i);
    }
}

TEST(PointTreeTest, WhatHasNoPlaceComesLast) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float endless = std::numeric_limits<float>::infinity();
    PointTree tree({At(nan, 0, 0), At(endless, 0, 0), At(5, 0, 0), At(4, 0, 0)});
    EXPECT_EQ(tree.TakeNearest(At(0, 0, 0)), 3U);
    EXPECT_EQ(tree.TakeNearest(At(nan, 0, 0)), 2U);
    EXPECT_EQ(tree.TakeNearest(At(0, 0, 0)), 0U);
    EXPECT_EQ(tree.TakeNearest(At(0, 0, 0)), 1U);
}

TEST(PointTreeTest, ItFindsWhatTryingAllFinds) {
    std::vector<Di3Point> left = Scattered(600);
    std::vector<std::size_t> indices(left.size());
    for (std::size_t i = 0; i < indices.size(); ++i) {
        indices[i] = i;
    }
    PointTree tree(left);
    SeedRandom(1);
    while (!left.empty()) {
        const Di3Point place = At(static_cast<float>(RandomInt(1024)),
                                  static_cast<float>(RandomInt(160)),
                                  static_cast<float>(RandomInt(16)));
        std::size_t nearest = 0;
        double least = std::numeric_limits<double>::infinity();
        for (std::size_t i = 0; i < left.size(); ++i) {
            const double x = static_cast<double>(left[i].x) - static_cast<double>(place.x);
            const double y = static_cast<double>(left[i].y) - static_cast<double>(place.y);
            const double z = static_cast<double>(left[i].z) - static_cast<double>(place.z);
            const double distance = x * x + y * y + z * z;
            if (distance < least) {
                least = distance;
                nearest = i;
            }
        }
        ASSERT_EQ(tree.TakeNearest(place), indices[nearest]) << left.size() << " left";
        left.erase(left.begin() + static_cast<std::ptrdiff_t>(nearest));
        indices.erase(indices.begin() + static_cast<std::ptrdiff_t>(nearest));
    }
}

// The pieces of a large plug-in, all moved a little: looking at each for each would be 10^10 steps.
TEST(PointTreeTest, AHundredThousandPointsTakeFewStepsEach) {
    constexpr int kCount = 100'000;
    const std::vector<Di3Point> points = Scattered(kCount);
    PointTree tree(points);
    for (const Di3Point& point : points) {
        ASSERT_NE(tree.TakeNearest(At(point.x + 3, point.y - 2, point.z + 1)), PointTree::kNone);
    }
    EXPECT_LT(tree.Work(), std::uint64_t{kCount} * 200);
}

TEST(PointTreeTest, AHundredThousandPointsAtOnePlaceTakeFewStepsEach) {
    constexpr int kCount = 100'000;
    PointTree tree(std::vector<Di3Point>(kCount, At(1, 1, 1)));
    for (std::size_t i = 0; i < kCount; ++i) {
        ASSERT_EQ(tree.TakeNearest(At(0, 0, 0)), i);
    }
    EXPECT_LT(tree.Work(), std::uint64_t{kCount} * 200);
}

// From its middle all points of a sphere are equally near but for roundings.
TEST(PointTreeTest, ASphereAroundThePlaceTakesFewStepsForEachPoint) {
    constexpr std::size_t kCount = 50'000;
    std::vector<Di3Point> points;
    for (std::size_t i = 0; i < kCount; ++i) {
        const double height = 2.0 * static_cast<double>(i) / kCount - 1.0;
        const double radius = std::sqrt(1.0 - height * height);
        const double turn = 2.4 * static_cast<double>(i);
        points.push_back(At(static_cast<float>(9999.0 * radius * std::cos(turn)),
                            static_cast<float>(9999.0 * radius * std::sin(turn)),
                            static_cast<float>(9999.0 * height)));
    }
    PointTree tree(points);
    std::vector<bool> taken(points.size());
    for (std::size_t i = 0; i < kCount; ++i) {
        const std::size_t point = tree.TakeNearest(At(0, 0, 0));
        ASSERT_NE(point, PointTree::kNone);
        ASSERT_FALSE(taken[point]);
        taken[point] = true;
    }
    // The last search may look at everything.
    EXPECT_LT(tree.Work(), kCount * (PointTree::kMostWork + 3));
}

} // namespace

} // namespace Tarnex::Report
