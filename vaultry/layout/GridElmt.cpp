// SPDX-License-Identifier: MIT
#include <vaultry/layout/GridElmt.h>

#include <vaultry/foundation/FreeList.h>
#include <vaultry/foundation/Text.h>
#include <vaultry/foundation/ThreadLocal.h>
#include <vaultry/layout/Layout.h>

#include <algorithm>
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

// Never destroyed: elements may outlive every other static object.
PieceStock<sizeof(GridElmt)>& Stock() {
    static auto* stock = new PieceStock<sizeof(GridElmt)>;
    return *stock;
}

VAULTRY_FIXED_PLACE constinit thread_local FreeList spares;

} // namespace

void* GridElmt::operator new(std::size_t /*size*/) {
    if (spares.IsEmpty()) {
        Stock().Fill(spares);
    }
    return spares.Take();
}

void GridElmt::operator delete(void* memory) noexcept {
    spares.Give(memory);
}

void GridElmt::ShareMemory() noexcept {
    if (!spares.IsEmpty()) {
        Stock().TakeBack(spares);
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
