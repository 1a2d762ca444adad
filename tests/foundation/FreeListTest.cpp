// SPDX-License-Identifier: MIT
#include <vaultry/foundation/FreeList.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <set>
#include <thread>
#include <vector>

namespace Tarnex::Test {

namespace {

constexpr std::size_t kSize = 44; // no multiple of any alignment
constexpr std::size_t kMoreThanABlock = 1000;

using Stock = PieceStock<kSize>;

// Leaves the list empty.
std::vector<void*> TakeMany(Stock& stock, FreeList& list) {
    std::vector<void*> pieces;
    while (pieces.size() < kMoreThanABlock || !list.IsEmpty()) {
        if (list.IsEmpty()) {
            stock.Fill(list);
        }
        pieces.push_back(list.Take());
    }
    return pieces;
}

TEST(FreeListTest, PiecesDoNotOverlap) {
    Stock stock;
    FreeList list;
    const std::vector<void*> pieces = TakeMany(stock, list);
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        std::memset(pieces[i], static_cast<int>(i % 251), kSize);
    }
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const auto* bytes = static_cast<const std::uint8_t*>(pieces[i]);
        EXPECT_EQ(std::vector<std::uint8_t>(bytes, bytes + kSize),
                  std::vector<std::uint8_t>(kSize, static_cast<std::uint8_t>(i % 251)));
    }
}

TEST(FreeListTest, PiecesAreAlignedForEveryObject) {
    Stock stock;
    FreeList list;
    for (void* piece : TakeMany(stock, list)) {
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(piece) % alignof(std::max_align_t), 0U);
    }
}

TEST(FreeListTest, HandsOutAgainWhatCameBack) {
    Stock stock;
    FreeList list;
    const std::vector<void*> taken = TakeMany(stock, list);
    const std::set<void*> first(taken.begin(), taken.end());
    for (void* piece : taken) {
        list.Give(piece);
    }
    for (void* piece : TakeMany(stock, list)) {
        EXPECT_EQ(first.count(piece), 1U);
    }
}

TEST(FreeListTest, TakesNoNoticeOfNull) {
    Stock stock;
    FreeList list;
    stock.Fill(list);
    void* piece = list.Take();
    list.Give(piece);
    list.Give(nullptr);
    EXPECT_EQ(list.Take(), piece);
}

TEST(FreeListTest, WhatWasGivenBackServesTheNextList) {
    Stock stock;
    std::array<FreeList, 2> lists;
    std::set<void*> first;
    for (FreeList& list : lists) {
        for (void* piece : TakeMany(stock, list)) {
            first.insert(piece);
        }
    }
    // Half of the pieces come back through another list than they were taken from.
    for (void* piece : first) {
        lists[0].Give(piece);
    }
    for (FreeList& list : lists) {
        stock.TakeBack(list);
        EXPECT_TRUE(list.IsEmpty());
        stock.TakeBack(list);
    }
    FreeList next;
    for (std::size_t i = 0; i < first.size(); ++i) {
        if (next.IsEmpty()) {
            stock.Fill(next);
        }
        EXPECT_EQ(first.count(next.Take()), 1U);
    }
}

TEST(FreeListTest, ServesSeveralThreadsAtOnce) {
    Stock stock;
    std::array<std::vector<void*>, 2> taken;
    const auto work = [&stock](std::vector<void*>& pieces) {
        FreeList list;
        for (int round = 0; round < 20; ++round) {
            for (void* piece : pieces) {
                list.Give(piece);
            }
            stock.TakeBack(list);
            pieces = TakeMany(stock, list);
        }
        stock.TakeBack(list);
    };
    std::thread other(work, std::ref(taken[1]));
    work(taken[0]);
    other.join();
    std::set<void*> all(taken[0].begin(), taken[0].end());
    all.insert(taken[1].begin(), taken[1].end());
    EXPECT_EQ(all.size(), taken[0].size() + taken[1].size());
}

} // namespace

} // namespace Tarnex::Test
