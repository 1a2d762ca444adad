// SPDX-License-Identifier: MIT
#include <vaultry/foundation/FreeList.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <set>
#include <vector>

namespace Tarnex::Test {

namespace {

constexpr std::size_t kSize = 48;
constexpr std::size_t kMoreThanABlock = 1000;

TEST(FreeListTest, PiecesDoNotOverlap) {
    FreeList<kSize> list;
    std::vector<void*> pieces;
    for (std::size_t i = 0; i < kMoreThanABlock; ++i) {
        pieces.push_back(list.Take());
        std::memset(pieces.back(), static_cast<int>(i % 251), kSize);
    }
    for (std::size_t i = 0; i < kMoreThanABlock; ++i) {
        const auto* bytes = static_cast<const std::uint8_t*>(pieces[i]);
        EXPECT_EQ(std::vector<std::uint8_t>(bytes, bytes + kSize),
                  std::vector<std::uint8_t>(kSize, static_cast<std::uint8_t>(i % 251)));
    }
}

TEST(FreeListTest, PiecesAreAlignedForEveryObject) {
    FreeList<kSize> list;
    for (std::size_t i = 0; i < kMoreThanABlock; ++i) {
        const auto address = reinterpret_cast<std::uintptr_t>(list.Take());
        EXPECT_EQ(address % alignof(std::max_align_t), 0U);
    }
}

TEST(FreeListTest, HandsOutAgainWhatCameBack) {
    FreeList<kSize> list;
    std::set<void*> first;
    for (std::size_t i = 0; i < kMoreThanABlock; ++i) {
        first.insert(list.Take());
    }
    for (void* piece : first) {
        list.Give(piece);
    }
    for (std::size_t i = 0; i < kMoreThanABlock; ++i) {
        EXPECT_EQ(first.count(list.Take()), 1U);
    }
}

TEST(FreeListTest, TakesNoNoticeOfNull) {
    FreeList<kSize> list;
    void* piece = list.Take();
    list.Give(piece);
    list.Give(nullptr);
    EXPECT_EQ(list.Take(), piece);
}

} // namespace

} // namespace Tarnex::Test
