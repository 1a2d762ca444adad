// SPDX-License-Identifier: MIT
// Junctions and doorways: what happens where a hall meets something.
#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Random.h>
#include <vaultry/gen/GenHallway.h>
#include <vaultry/layout/ElmtKind.h>

#include <array>
#include <utility>

namespace Tarnex {

namespace {

constexpr double kOpenArch = 0.2; // the share of doorways that stay without a door

// What a hall end becomes next to a junction: open towards the junction as well as where it was.
// Rows by the neighbour's side of the junction, columns by the end's facing, both N, S, E, W.
constexpr std::array<std::array<std::string_view, 4>, 4> kFittedEnds = {{
    {Tile_HallEndN, Tile_HallNS, Tile_HallCornerNE, Tile_HallCornerNW},
    {Tile_HallNS, Tile_HallEndS, Tile_HallCornerSE, Tile_HallCornerSW},
    {Tile_HallCornerNE, Tile_HallCornerSE, Tile_HallEndE, Tile_HallEW},
    {Tile_HallCornerNW, Tile_HallCornerSW, Tile_HallEW, Tile_HallEndW},
}};

TileKind FittedEnd(TileDirT side, TileDirT end) {
    return TileKind::Of(kFittedEnds[static_cast<std::size_t>(side)][static_cast<std::size_t>(end)]);
}

bool RunsNorthSouth(TileDirT dir) {
    return dir == DirN || dir == DirS || dir == DirNS;
}

bool RunsEastWest(TileDirT dir) {
    return dir == DirE || dir == DirW || dir == DirEW;
}

TileKind FourWay() {
    static const TileKind kind = TileKind::Of(Tile_Hall4Way);
    return kind;
}

// Gives an element another tile until the end of the scope.
class TilesAside {
public:
    TilesAside(GridElmt& elmt_, const DiPtr<Tile>& tile)
        : elmt(elmt_), tiles(std::exchange(elmt_.tiles, {})) {
        elmt.AddTile(tile);
    }
    ~TilesAside() { elmt.tiles = std::move(tiles); }
    TilesAside(const TilesAside&) = delete;
    TilesAside& operator=(const TilesAside&) = delete;

private:
    GridElmt& elmt;
    GridElmt::Tiles tiles;
};

} // namespace

void GenHallway::ReplaceTiles(GridElmt& elmt, const DiPos& pos, TileKind kind) {
    journal.Touch(pos);
    elmt.ReplaceTiles(TileOf(kind));
}

bool GenHallway::CvtElmt(GridElmt& elmt, TileDirT dir, const DiPos& pos) {
    if (elmt.isShadow) {
        return false;
    }
    if (HasTileOfType(elmt, TileDoorway)) {
        return true;
    }
    if (HasTileOfType(elmt, TileWall)) {
        if (!RunsNorthSouth(dir) && !RunsEastWest(dir)) {
            return false;
        }
        CvtToDoorway(pos);
        return true;
    }
    if (const Tile* hall = PeekTileOfType(elmt, TileHall)) {
        return GetTileDir(*hall) == dir || Try4Way(elmt, pos, false);
    }
    if (const Tile* end = PeekTileOfType(elmt, TileHallEnd)) {
        const TileDirT facing = GetTileDir(*end);
        if (dir == DirNS && RunsNorthSouth(facing)) {
            ReplaceTiles(elmt, pos, TileKind::Of(Tile_HallNS));
            return true;
        }
        if (dir == DirEW && RunsEastWest(facing)) {
            ReplaceTiles(elmt, pos, TileKind::Of(Tile_HallEW));
            return true;
        }
        return Try4Way(elmt, pos, false);
    }
    return false;
}

void GenHallway::CvtToDoorway(const DiPos& pos) {
    const DiPtr<GridElmt> elmt = ElmtAt(pos);
    if (!elmt || !HasTileOfType(*elmt, TileWall)) {
        return;
    }
    const Side* facing = FindSide(GetElmtDir(*elmt));
    const Side& side = facing != nullptr ? *facing : Sides()[DirW];
    ReplaceTiles(*elmt, pos, side.doorway);
    const double draw = RandomUnit();
    if (draw <= kOpenArch) {
        return;
    }
    // Of two doorways back to back only the first one cut gets a door.
    const DiPtr<GridElmt>& outside = ElmtAt(pos + side.step);
    if (outside && HasTileOfType(*outside, TileDoorway)) {
        return;
    }
    elmt->AddTile(TileOf(side.doorjamb));
    elmt->AddTile(TileOf(side.door));
}

bool GenHallway::Try4Way(GridElmt& elmt, const DiPos& pos, bool testOnly) {
    if (IsOnBorder(pos)) {
        return false;
    }
    if (elmt.HasTile(Tile_Hall4Way)) {
        return true;
    }
    for (const Side& side : Sides()) {
        if (!AcceptsJunction(side, pos)) {
            return false;
        }
    }
    if (!testOnly) {
        Place4Way(pos);
    }
    return true;
}

// Whether the neighbour on that side leaves room for a junction at `pos`.
bool GenHallway::AcceptsJunction(const Side& side, const DiPos& pos) {
    const DiPos at = pos + side.step;
    const DiPtr<GridElmt> neighbour = ElmtAt(at);
    if (!neighbour || neighbour->isShadow) {
        return true;
    }
    for (const TileType type : {TileDoorway, TileWall, TileHallEnd}) {
        if (HasTileOfType(*neighbour, type)) {
            return true;
        }
    }
    if (!HasTileOfType(*neighbour, TileHall)) {
        return false;
    }
    if (OpensTo(*neighbour, side.opposite)) {
        return true;
    }
    const TilesAside trial(*neighbour, TileOf(FourWay()));
    return Try4Way(*neighbour, at, true);
}

void GenHallway::Place4Way(const DiPos& pos) {
    const DiPtr<GridElmt> elmt = ElmtAt(pos);
    if (!elmt) {
        return;
    }
    ReplaceTiles(*elmt, pos, FourWay());
    for (const Side& side : Sides()) {
        FitToJunction(side, pos);
    }
}

void GenHallway::FitToJunction(const Side& side, const DiPos& junction) {
    const DiPos at = junction + side.step;
    if (!IsInside(at)) {
        return;
    }
    const DiPtr<GridElmt> neighbour = ElmtAt(at);
    if (!neighbour) {
        const auto end = MakeDi<GridElmt>();
        end->AddTile(TileOf(side.hallEnd));
        journal.Touch(at);
        main.SetElmt(end, at.y, at.x);
        return;
    }
    if (HasTileOfType(*neighbour, TileDoorway)) {
        return;
    }
    if (HasTileOfType(*neighbour, TileWall)) {
        CvtToDoorway(at);
        return;
    }
    if (HasTileOfType(*neighbour, TileHall)) {
        // Junctions spread along a hall that runs past.
        if (!OpensTo(*neighbour, side.opposite)) {
            Place4Way(at);
        }
        return;
    }
    if (const Tile* end = PeekTileOfType(*neighbour, TileHallEnd)) {
        if (GetTileDir(*end) != side.dir) {
            ReplaceTiles(*neighbour, at, FittedEnd(side.dir, GetTileDir(*end)));
        }
    }
}

} // namespace Tarnex
