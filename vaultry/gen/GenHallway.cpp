// SPDX-License-Identifier: MIT
// Carving: the walk of the cursor.
#include <vaultry/gen/GenHallway.h>

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/Random.h>
#include <vaultry/foundation/RunState.h>
#include <vaultry/layout/ElmtKind.h>

#include <algorithm>
#include <optional>

namespace Tarnex {

namespace {

constexpr std::uint32_t kMaxSteps = 300;      // of one run
constexpr std::int64_t kLooksPerMove = 16;    // at a place of the level and of each part
constexpr std::uint32_t kMaxReversals = 4;    // runs after the first
constexpr std::uint32_t kGivesUpBlocked = 10; // failures in a row until another destination
constexpr std::uint32_t kMaxDetours = 3;      // the third is no longer made
constexpr std::uint32_t kTurnsAside = 1;      // more failures than this turn the walk aside
constexpr double kDetourByRoom = 0.75;
constexpr double kShuffle = 0.5;
constexpr double kPrefersVertical = 0.5;
constexpr std::size_t kToleratedFailures = 1;

// Once per place, however many runs pass it.
void ReportNoPlaceForDoor(const char* source, const DiPos& place, const DiDirection& way) {
    std::optional<DiPos>& last = CurrentRunState().doorless;
    if (last == place) {
        return;
    }
    last = place;
    Logger::DebugError(source,
                       "No place for door at XY (%d,%d) DeltaXY (%d,%d)",
                       place.x,
                       place.y,
                       way.distX,
                       way.distY);
}

// The neighbour that a detour goes through on the way from one slot of the room grid to another; or
// null. Where the way goes along both axes chance says which comes first, even if only one is
// there.
const Layout* ChooseDetour(const AdjacentRooms& around, const DiPos& from, const DiPos& to) {
    const auto pick = [](std::int32_t way, const DiPtr<Layout>& near, const DiPtr<Layout>& far) {
        return way < 0 ? near.get() : way > 0 ? far.get() : nullptr;
    };
    const Layout* vertical = pick(to.y - from.y, around.north, around.south);
    const Layout* horizontal = pick(to.x - from.x, around.west, around.east);
    if (from.x != to.x && from.y != to.y) {
        const double draw = RandomUnit();
        if (draw >= kPrefersVertical && horizontal != nullptr) {
            return horizontal;
        }
    }
    return vertical != nullptr ? vertical : horizontal;
}

// Mostly the order of the room grid, so that halls are short; otherwise some rooms change places
// and a hall crosses the level.
std::vector<DiPtr<Layout>> ShuffleRooms(std::vector<DiPtr<Layout>> rooms) {
    const double draw = RandomUnit();
    if (draw <= kShuffle || rooms.size() < 2) {
        return rooms;
    }
    // Half of the rooms go to the end, one by one; the same one may go twice.
    for (std::size_t i = 0; i < rooms.size() / 2; ++i) {
        const auto pick = rooms.begin() + RandomInt(static_cast<std::int32_t>(rooms.size()));
        std::rotate(pick, pick + 1, rooms.end());
    }
    return rooms;
}

std::int32_t OffBorder(std::int32_t place, std::int32_t size) {
    if (place == 0) {
        return 1;
    }
    return place >= size - 1 ? place - 1 : place;
}

} // namespace

// One hall under way.
struct GenHallway::Walk {
    const Layout* from;
    const Layout* to;
    HallCursor cursor;
    std::uint32_t steps = 0;
    std::uint32_t stuck = 0;
    std::uint32_t reversals = 0;
    const Layout* detourFrom = nullptr; // the room that a detour under way began in
};

GenHallway::GenHallway(const GenInfo& info_, Layout& main_, const RoomInfo& rooms_)
    : GenHallBase(info_, main_, rooms_), journal(main_) {}

bool GenHallway::Gen() {
    constexpr float kShadowDepth = 1.0F;
    failedHalls.clear();
    const auto all = rooms.GetRoomList();
    // Without rooms nothing is drawn; a single one draws for its order, and for a hall to itself.
    if (all.empty()) {
        return true;
    }
    // Parts of rooms stand in the way of halls, if they are not above or below them.
    main.AddShadows(-kShadowDepth, kShadowDepth);
    const auto ring = ShuffleRooms(all);
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Layout& room = *ring[i];
        // A ring: with two halls to every room a single failure cuts nobody off.
        const Layout& next = *ring[(i + 1) % ring.size()];
        if (!ConnectRooms(room, next)) {
            failedHalls.push_back({rooms.GetLogicalRoomPos(room), rooms.GetLogicalRoomPos(next)});
        }
    }
    // For carving alone: whoever furnishes the level must not find them.
    main.RemoveShadows();
    return failedHalls.size() <= kToleratedFailures;
}

bool GenHallway::ConnectRooms(const Layout& from, const Layout& to) {
    // Halls that stand are not taken back with one that fails.
    journal.Begin();
    Walk walk{&from, &to, Prep(from, to)};
    const auto parts = static_cast<std::int64_t>(main.GetChildren().size());
    const std::int64_t stepsPerMove = kLooksPerMove * (1 + parts);
    bool finished = false;
    while (!finished) {
        info.meter.Step(stepsPerMove);
        // Before the step: a room without a place for a doorway has failed often enough at once.
        if (walk.cursor.blocked >= kGivesUpBlocked) {
            SeekDetour(walk);
        }
        if (walk.cursor.inside != nullptr) {
            PassRoom(walk);
        } else {
            NextStep(walk.cursor);
        }
        // A hall that arrives by the step that is one too many is taken back, yet counts as made.
        finished = walk.cursor.finished;
        if (++walk.steps > kMaxSteps && !TurnBack(walk)) {
            return false;
        }
    }
    return true;
}

// Goes through the whole level.
void GenHallway::StepBack() {
    info.meter.Step(std::int64_t{main.GetWidth()} * main.GetHeight());
    journal.Rollback();
}

// A cursor that no detour frees any more walks on until its run is over: the other end may do
// better.
void GenHallway::SeekDetour(Walk& walk) {
    if (++walk.stuck >= kMaxDetours) {
        return;
    }
    // A hall that goes nowhere is taken back, or its dead end would stay. The steps count on.
    if (walk.cursor.inside == nullptr) {
        StepBack();
        walk.cursor = Prep(*walk.from, *walk.to);
    }
    const double draw = RandomUnit();
    // The draw is made even where no neighbour lies on the way, and the destination stays.
    walk.cursor.dest = draw < kDetourByRoom ? AltDest(walk.cursor) : RandomDest();
    walk.cursor.blocked = 0;
    walk.detourFrom = walk.cursor.inside;
}

// In the next room the detour is over.
void GenHallway::PassRoom(Walk& walk) {
    if (walk.detourFrom != nullptr && walk.cursor.inside != walk.detourFrom) {
        walk.cursor.dest = TrueDest(*walk.to, walk.cursor.place);
        walk.detourFrom = nullptr;
    }
    LeaveRoom(walk.cursor);
}

// A run that took too many steps starts again from the other end; false after the last run.
bool GenHallway::TurnBack(Walk& walk) {
    StepBack();
    const HallCursor& cursor = walk.cursor;
    if (walk.reversals >= kMaxReversals) {
        Logger::DebugError(
            S_LogSrc,
            "Unable to complete hall.  CurXY=(%d,%d) DestXY=(%d,%d) Blocked=%d Stuck=%d",
            cursor.place.x,
            cursor.place.y,
            cursor.dest.x,
            cursor.dest.y,
            static_cast<int>(cursor.blocked),
            static_cast<int>(walk.stuck));
        return false;
    }
    // Detours and failures count anew from this end, runs do not.
    walk = {walk.to, walk.from, Prep(*walk.to, *walk.from), 0, 0, walk.reversals + 1};
    return true;
}

HallCursor GenHallway::Prep(const Layout& from, const Layout& to) const {
    HallCursor cursor;
    // From the middle, whatever stands there: the first step is to a doorway.
    cursor.place = FindCenter(from);
    cursor.dest = TrueDest(to, cursor.place);
    // The room stays the goal whatever detours the place takes.
    cursor.destRoom = &to;
    cursor.inside = &from;
    return cursor;
}

DiPos GenHallway::TrueDest(const Layout& room, const DiPos& from) const {
    const DiPos center = FindCenter(room);
    const GridElmt* elmt = ElmtAt(center);
    // A room with a hole in its middle, or a raised part, is entered at its wall instead.
    if (elmt != nullptr && !elmt->isShadow) {
        return center;
    }
    const DiPos door = FindForDoorway(room, DiDirection(from, center));
    return door == DiPos() ? center : door;
}

DiPos GenHallway::AltDest(const HallCursor& cursor) const {
    // By slots of the room grid, which gaps and sizes of rooms do not move.
    const DiPos here = rooms.GetLogicalRoomPos(*cursor.inside);
    const DiPos there = rooms.GetLogicalRoomPos(*cursor.destRoom);
    const Layout* detour = ChooseDetour(rooms.GetAdjacentRooms(*cursor.inside), here, there);
    if (detour == nullptr) {
        return cursor.dest;
    }
    const DiPos dest = TrueDest(*detour, cursor.place);
    // (0, 0, 0) stands for none; a corner of the level is nowhere to go.
    return dest == DiPos() ? cursor.dest : dest;
}

DiPos GenHallway::RandomDest() const {
    const DiPos& size = main.GetSize();
    // Across before down, over the whole level: border places are moved in, so inner rims are
    // likelier.
    const std::int32_t x = RandomInt(size.x);
    const std::int32_t y = RandomInt(size.y);
    return {OffBorder(x, size.x), OffBorder(y, size.y), 0};
}

void GenHallway::LeaveRoom(HallCursor& cursor) {
    const DiDirection way(cursor.place, cursor.dest);
    const DiPos door = FindForDoorway(*cursor.inside, way);
    if (door == DiPos()) {
        // As good as ten failed steps: the next one seeks a detour.
        cursor.blocked += kGivesUpBlocked;
        ReportNoPlaceForDoor(S_LogSrc, cursor.place, way);
        return;
    }
    // The place is taken even if the level has no wall there any more; the next try starts from it.
    cursor.place = door;
    GridElmt* elmt = ElmtAt(door);
    if (elmt == nullptr) {
        return;
    }
    const Tile* wall = PeekTileOfType(*elmt, TileWall);
    // A doorway that is there already is used again.
    const Tile* opening = wall != nullptr ? wall : PeekTileOfType(*elmt, TileDoorway);
    if (opening == nullptr) {
        return;
    }
    const Side* side = FindSide(GetTileDir(*opening));
    if (wall != nullptr) {
        CvtToDoorway(door);
    }
    cursor.lastStep = side != nullptr ? side->step : DiPos();
    cursor.tile = elmt->FirstTile();
    cursor.inside = nullptr;
}

void GenHallway::NextStep(HallCursor& cursor) {
    if (cursor.tile == nullptr) {
        return;
    }
    DiDirection way(cursor.place, cursor.dest);
    if (cursor.blocked > kTurnsAside) {
        GetBlockedDir(way);
    }
    // Asked of the level, while the facing is that of the piece chosen last: they may differ after
    // a junction was refused. Most steps go straight on, and nothing has to be asked.
    const TileDirT facing = GetTileDir(*cursor.tile);
    const CvtAction action = GoesStraightOn(facing, way) ? CvtNone : CanInPlaceCvt(cursor.place);
    const HallChoice choice = ChooseStep(facing, way, cursor.lastStep, action, cursor.blocked);
    // No choice and a kind that the set lacks come to the same: a step that failed.
    const DiPtr<Tile>& tile = TileOf(choice.tile);
    if (!tile) {
        ++cursor.blocked;
        return;
    }
    if (choice.IsInPlace()) {
        ConvertInPlace(cursor, choice, *tile);
    } else {
        Move(cursor, choice, *tile);
    }
}

const DiPtr<Tile>& GenHallway::TileOf(TileKind kind) const {
    return info.defTileSet->Get(kind);
}

// The piece chosen counts as the one at the cursor even if a junction was refused: the next step
// then goes on as from a junction.
void GenHallway::ConvertInPlace(HallCursor& cursor, const HallChoice& choice, const Tile& tile) {
    GridElmt* elmt = ElmtAt(cursor.place);
    if (elmt != nullptr && choice.action == CvtFourWay) {
        if (!Try4Way(*elmt, cursor.place, false)) {
            ++cursor.blocked;
        }
    } else if (elmt != nullptr) {
        ReplaceTiles(*elmt, cursor.place, choice.tile);
    }
    cursor.tile = &tile;
}

void GenHallway::Move(HallCursor& cursor, const HallChoice& choice, const Tile& tile) {
    const DiPos next = cursor.place + choice.step;
    if (!IsInside(next)) {
        ++cursor.blocked;
        Logger::DebugError(S_LogSrc, "Internal:  out of bounds in NextStep()");
        return;
    }
    // What is there decides whether the hall may enter; an empty cell always takes it.
    GridElmt* elmt = ElmtAt(next);
    if (elmt != nullptr && !CvtElmt(*elmt, GetTileDir(tile), next)) {
        ++cursor.blocked;
        return;
    }
    cursor.place = next;
    // Only a move ends a row of failures; a change in place does not.
    cursor.lastStep = choice.step;
    cursor.blocked = 0;
    if (elmt != nullptr) {
        MoveOnto(cursor, *elmt);
    } else {
        LayTile(next, choice.tile);
        cursor.tile = &tile;
    }
}

// Doorways and junctions may belong to the destination; a hall that only runs along it does not end
// there. From the doorway of another room the cursor jumps to the middle, to walk on from there.
void GenHallway::MoveOnto(HallCursor& cursor, const GridElmt& elmt) const {
    static const TileKind fourWay = TileKind::Of(Tile_Hall4Way);
    cursor.tile = elmt.FirstTile();
    if (cursor.tile == nullptr) {
        return;
    }
    const bool isDoorway = GetTileType(*cursor.tile) == TileDoorway;
    // Straight pieces and corners can lie on the row and column that a room covers beyond its own.
    if (!isDoorway && cursor.tile->kindName.Kind() != fourWay) {
        return;
    }
    const Layout* room = PosToRoom(cursor.place);
    cursor.finished = room == cursor.destRoom;
    if (isDoorway && room != nullptr && !cursor.finished) {
        cursor.inside = room;
        cursor.place = FindCenter(*room);
    }
}

} // namespace Tarnex
