// SPDX-License-Identifier: MIT
#include <vaultry/layout/GridElmt.h>

#include <vaultry/foundation/Text.h>
#include <vaultry/layout/Layout.h>

#include <algorithm>

namespace Tarnex {

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
    AddTile(tile);
}

bool GridElmt::HasTile(std::string_view kindName) const {
    return std::ranges::any_of(tiles, [kindName](const DiPtr<Tile>& tile) {
        return EqualsNoCase(tile->kindName.Text(), kindName);
    });
}

} // namespace Tarnex
