// SPDX-License-Identifier: MIT
#include <vaultry/layout/ElmtKind.h>

#include <algorithm>
#include <array>

namespace Tarnex {

namespace {

struct SideRow {
    std::array<TileDirT, 5> passages; // facings of the doorways and halls that open to the side
    TileDirT end;                     // facing of the hall end that does
};

// One row per side, in the order N, S, E, W.
constexpr std::array<SideRow, 4> kSides = {{
    {{DirN, DirNS, DirSW, DirSE, DirAll}, DirS},
    {{DirS, DirNS, DirNW, DirNE, DirAll}, DirN},
    {{DirE, DirEW, DirNW, DirSW, DirAll}, DirW},
    {{DirW, DirEW, DirNE, DirSE, DirAll}, DirE},
}};

} // namespace

TileDirT GetElmtDir(const GridElmt& elmt) {
    const Tile* first = elmt.FirstTile();
    return first == nullptr ? DirNone : GetTileDir(*first);
}

TileType GetElmtType(const GridElmt& elmt) {
    const Tile* first = elmt.FirstTile();
    return first == nullptr ? TileNone : GetTileType(*first);
}

DiPtr<Tile> FindTileOfType(const GridElmt& elmt, TileType type) {
    const auto found = std::ranges::find_if(
        elmt.tiles, [type](const DiPtr<Tile>& tile) { return GetTileType(*tile) == type; });
    return found == elmt.tiles.end() ? nullptr : *found;
}

bool HasTileOfType(const GridElmt& elmt, TileType type) {
    return std::ranges::any_of(
        elmt.tiles, [type](const DiPtr<Tile>& tile) { return GetTileType(*tile) == type; });
}

bool OpensTo(const GridElmt& elmt, TileDirT side) {
    const SideRow& row = kSides[static_cast<std::size_t>(side)];
    const TileDirT dir = GetElmtDir(elmt);
    switch (GetElmtType(elmt)) {
    case TileDoorway:
    case TileHall:
        return std::ranges::find(row.passages, dir) != row.passages.end();
    case TileHallEnd:
        return dir == row.end;
    default:
        return false;
    }
}

} // namespace Tarnex
