// SPDX-License-Identifier: MIT
#include <vaultry/layout/GridElmt.h>

#include <vaultry/foundation/Text.h>
#include <vaultry/foundation/ThreadLocal.h>
#include <vaultry/layout/Layout.h>

#include <algorithm>
#include <mutex>
#include <new>
#include <utility>

namespace Tarnex {

// A memory checker must see every element by itself.
#if defined(__SANITIZE_ADDRESS__)
void* GridElmt::operator new(std::size_t size) {
    return ::operator new(size);
}

void GridElmt::operator delete(void* memory) noexcept {
    ::operator delete(memory);
}

void GridElmt::ShareMemory() noexcept {}
#else
namespace {

// What an element had its place in, kept for the next one.
struct Spare {
    Spare* next;
    Spare* nextList; // of the first of a list that a thread gave back
};

VAULTRY_FIXED_PLACE constinit thread_local Spare* spares = nullptr;

// What all threads may have. Taken list by list, so that each thread gets about what one let go of.
struct Pool {
    std::mutex mutex;
    Spare* lists = nullptr;
};

// Never destroyed: elements may outlive every other static object.
Pool& SharedPool() {
    static auto* pool = new Pool;
    return *pool;
}

// Memory is taken by the block and kept: levels are made and dropped by the thousand, and to ask
// the system for each of their cells lays them out more slowly by a quarter. Elements made together
// lie together, in ascending order, which the processor fetches ahead.
Spare* NewBlock() {
    constexpr std::size_t kPerBlock = 128;
    constexpr std::align_val_t kCacheLine{64};
    auto* block = static_cast<std::byte*>(::operator new(kPerBlock * sizeof(GridElmt), kCacheLine));
    Spare* first = nullptr;
    for (std::size_t i = kPerBlock; i > 0; --i) {
        first = new (block + (i - 1) * sizeof(GridElmt)) Spare{first, nullptr};
    }
    return first;
}

Spare* SharedOrNew() {
    Pool& pool = SharedPool();
    const std::lock_guard<std::mutex> lock(pool.mutex);
    return pool.lists == nullptr ? NewBlock() : std::exchange(pool.lists, pool.lists->nextList);
}

} // namespace

void* GridElmt::operator new(std::size_t /*size*/) {
    if (spares == nullptr) {
        spares = SharedOrNew();
    }
    return std::exchange(spares, spares->next);
}

void GridElmt::operator delete(void* memory) noexcept {
    if (memory != nullptr) {
        spares = new (memory) Spare{spares, nullptr};
    }
}

void GridElmt::ShareMemory() noexcept {
    if (spares != nullptr) {
        Pool& pool = SharedPool();
        const std::lock_guard<std::mutex> lock(pool.mutex);
        spares->nextList = std::exchange(pool.lists, spares);
        spares = nullptr;
    }
}
#endif

GridElmt::GridElmt() = default;
GridElmt::GridElmt(const GridElmt& other) = default;
GridElmt& GridElmt::operator=(const GridElmt& other) = default;
GridElmt::~GridElmt() = default;

void GridElmt::AddTile(const DiPtr<Tile>& tile) {
    if (tile) {
        tiles.push_back(tile);
    }
}

void GridElmt::AddContent(const DiPtr<ContentItem>& item) {
    if (item) {
        contents.push_back(item);
    }
}

// By value: the tile may be the element's own.
void GridElmt::ReplaceTiles(DiPtr<Tile> tile) {
    tiles.clear();
    if (tile) {
        tiles.push_back(std::move(tile));
    }
}

bool GridElmt::HasTile(std::string_view kindName) const {
    return std::ranges::any_of(tiles, [kindName](const DiPtr<Tile>& tile) {
        return EqualsNoCase(tile->kindName.Text(), kindName);
    });
}

} // namespace Tarnex
