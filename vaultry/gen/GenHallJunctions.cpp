// SPDX-License-Identifier: MIT
// Junctions and doorways: what happens where a hall meets something.
#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Random.h>
#include <vaultry/gen/GenHallway.h>
#include <vaultry/layout/ElmtKind.h>

#include <array>
#include <cstddef>
#include <utility>
#include <vector>

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

void GenHallway::LayTile(const DiPos& pos, TileKind kind) {
    const auto elmt = MakeDi<GridElmt>();
    elmt->AddTile(TileOf(kind));
    journal.Touch(pos);
    main.SetElmt(elmt, pos.y, pos.x);
}

bool GenHallway::CvtElmt(GridElmt& elmt, TileDirT dir, const DiPos& pos) {
    // A copy of what a part of a room has there: a change would be lost with it.
    if (elmt.isShadow) {
        return false;
    }
    // Whichever way it looks: behind a doorway the walk goes on inside the room.
    if (HasTileOfType(elmt, TileDoorway)) {
        return true;
    }
    if (HasTileOfType(elmt, TileWall)) {
        // Only a straight piece runs into a wall; the way that the wall itself looks is not asked.
        if (!RunsNorthSouth(dir) && !RunsEastWest(dir)) {
            return false;
        }
        CvtToDoorway(pos);
        return true;
    }
    if (const Tile* hall = PeekTileOfType(elmt, TileHall)) {
        // Along the same hall the walk needs nothing new; across it the two must be joined.
        return GetTileDir(*hall) == dir || Try4Way(elmt, pos, false);
    }
    if (const Tile* end = PeekTileOfType(elmt, TileHallEnd)) {
        // An end in line is lengthened; any other would stay closed to the walk, so it becomes a
        // junction.
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
    GridElmt* elmt = ElmtAt(pos);
    if (elmt == nullptr || !HasTileOfType(*elmt, TileWall)) {
        return;
    }
    // By the first tile, be it the wall or not; what has no straight facing gets a western doorway.
    const Side* facing = FindSide(GetElmtDir(*elmt));
    const Side& side = facing != nullptr ? *facing : Sides()[DirW];
    ReplaceTiles(*elmt, pos, side.doorway);
    // Drawn before the look outside: how the draws run does not depend on the neighbours.
    const double draw = RandomUnit();
    if (draw <= kOpenArch) {
        return;
    }
    // Of two doorways back to back only the first one cut gets a door.
    const GridElmt* outside = ElmtAt(pos + side.step);
    if (outside != nullptr && HasTileOfType(*outside, TileDoorway)) {
        return;
    }
    // Frame, jamb, leaf: the order of the references.
    elmt->AddTile(TileOf(side.doorjamb));
    elmt->AddTile(TileOf(side.door));
}

bool GenHallway::Try4Way(GridElmt& elmt, const DiPos& pos, bool testOnly) {
    // Its ends would have no cell to lie in.
    if (IsOnBorder(pos)) {
        return false;
    }
    // One on trial counts as one that is there already.
    if (elmt.HasTile(Tile_Hall4Way)) {
        return true;
    }
    // What can be told by a look comes before any trial: the element on trial then refuses the
    // trials that would come of it, and they do not lead each other across the whole level.
    SideBits onTrial = 0;
    for (const Side& side : Sides()) {
        const Reception reception = ReceiveJunction(side, pos);
        if (reception == Reception::Refused) {
            return false;
        }
        onTrial |= reception == Reception::OnTrial ? SideBit(side.dir) : SideBits{0};
    }
    for (const Side& side : Sides()) {
        if ((onTrial & SideBit(side.dir)) != 0 && !StandsTrial(pos + side.step)) {
            return false;
        }
    }
    if (!testOnly) {
        Place4Way(pos);
    }
    return true;
}

// Whether the neighbour on that side leaves room for a junction at `pos`.
GenHallway::Reception GenHallway::ReceiveJunction(const Side& side, const DiPos& pos) const {
    const GridElmt* neighbour = ElmtAt(pos + side.step);
    if (neighbour == nullptr || neighbour->isShadow) {
        return Reception::Accepted;
    }
    // All of these can be opened towards the junction.
    for (const TileType type : {TileDoorway, TileWall, TileHallEnd}) {
        if (HasTileOfType(*neighbour, type)) {
            return Reception::Accepted;
        }
    }
    // Floors and corners of rooms: a hall must not break into a room but by a doorway.
    if (!HasTileOfType(*neighbour, TileHall)) {
        return Reception::Refused;
    }
    return OpensTo(*neighbour, side.opposite) ? Reception::Accepted : Reception::OnTrial;
}

// Whether a hall that runs past may become a junction too.
bool GenHallway::StandsTrial(const DiPos& pos) {
    GridElmt* elmt = ElmtAt(pos);
    const TilesAside trial(*elmt, TileOf(FourWay()));
    return Try4Way(*elmt, pos, true);
}

// Junctions spread along halls that run past, each as far as it goes before the next neighbour is
// looked at. That can be as far as the level has cells: too deep for calls.
void GenHallway::Place4Way(const DiPos& pos) {
    struct Junction {
        DiPos pos;
        std::size_t fitted; // sides done
    };
    std::vector<Junction> open;
    const auto begin = [this, &open](const DiPos& at) {
        // Places without an element are left alone; all others become junctions, whatever they
        // were.
        if (GridElmt* elmt = ElmtAt(at)) {
            ReplaceTiles(*elmt, at, FourWay());
            open.push_back({at, 0});
        }
    };
    begin(pos);
    while (!open.empty()) {
        Junction& junction = open.back();
        if (junction.fitted == Sides().size()) {
            open.pop_back();
            continue;
        }
        info.meter.Step();
        const Side& side = Sides()[junction.fitted++];
        if (FitToJunction(side, junction.pos)) {
            begin(junction.pos + side.step);
        }
    }
}

// True when the neighbour is to become a junction itself.
bool GenHallway::FitToJunction(const Side& side, const DiPos& junction) {
    const DiPos at = junction + side.step;
    if (!IsInside(at)) {
        return false;
    }
    GridElmt* neighbour = ElmtAt(at);
    if (neighbour == nullptr) {
        // A stub, for whatever comes this way later to lengthen.
        LayTile(at, side.hallEnd);
        return false;
    }
    if (HasTileOfType(*neighbour, TileDoorway)) {
        return false;
    }
    if (HasTileOfType(*neighbour, TileWall)) {
        CvtToDoorway(at);
        return false;
    }
    if (HasTileOfType(*neighbour, TileHall)) {
        // No piece has three openings: a hall that runs past can be opened only by a junction.
        return !OpensTo(*neighbour, side.opposite);
    }
    if (const Tile* end = PeekTileOfType(*neighbour, TileHallEnd)) {
        // Closed on its far side, it is open towards the junction already.
        if (GetTileDir(*end) != side.dir) {
            ReplaceTiles(*neighbour, at, FittedEnd(side.dir, GetTileDir(*end)));
        }
    }
    return false;
}

} // namespace Tarnex
