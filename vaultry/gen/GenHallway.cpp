// SPDX-License-Identifier: MIT
// Carving: the walk of the cursor.
#include <vaultry/gen/GenHallway.h>

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/Random.h>
#include <vaultry/foundation/RunState.h>
#include <vaultry/layout/ElmtKind.h>

#include <array>
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
constexpr double kPrefersDiagonal = 0.5;
constexpr std::size_t kToleratedFailures = 1;

// The message about a place without a door comes once per place, however many runs pass it.
bool IsNewPlace(const DiPos& pos) {
    std::optional<DiPos>& last = CurrentRunState().doorless;
    const bool isNew = !last || last->x != pos.x || last->y != pos.y;
    last = pos;
    return isNew;
}

std::int32_t SignOf(std::int32_t distance) {
    return (distance > 0) - (distance < 0);
}

const Layout* FirstOf(const std::array<const DiPtr<Layout>*, 3>& choices) {
    for (const DiPtr<Layout>* choice : choices) {
        if (*choice) {
            return choice->get();
        }
    }
    return nullptr;
}

// The neighbours on the way from a room towards another, by the signs of the way on the room grid.
struct OnTheWay {
    const DiPtr<Layout>* vertical;
    const DiPtr<Layout>* horizontal;
    const DiPtr<Layout>* diagonal;
};

OnTheWay NeighboursTowards(const AdjacentRooms& around, bool north, bool west) {
    const DiPtr<Layout>* northern = west ? &around.northWest : &around.northEast;
    const DiPtr<Layout>* southern = west ? &around.southWest : &around.southEast;
    return {north ? &around.north : &around.south,
            west ? &around.west : &around.east,
            north ? northern : southern};
}

// The neighbour that a detour goes through, or null.
const Layout* ChooseDetour(const AdjacentRooms& around, std::int32_t dx, std::int32_t dy) {
    if (dx == 0 && dy == 0) {
        return nullptr;
    }
    if (dx == 0) {
        return dy < 0 ? FirstOf({&around.north, &around.northWest, &around.northEast})
                      : FirstOf({&around.south, &around.southWest, &around.southEast});
    }
    if (dy == 0) {
        return dx < 0 ? FirstOf({&around.west, &around.northWest, &around.southWest})
                      : FirstOf({&around.east, &around.northEast, &around.southEast});
    }
    const OnTheWay way = NeighboursTowards(around, dy < 0, dx < 0);
    const double draw = RandomUnit();
    return draw < kPrefersDiagonal ? FirstOf({way.diagonal, way.vertical, way.horizontal})
                                   : FirstOf({way.horizontal, way.vertical, way.diagonal});
}

std::int32_t OffBorder(std::int32_t place, std::int32_t size) {
    if (place == 0) {
        return 1;
    }
    return place >= size - 1 ? place - 1 : place;
}

} // namespace

// The counters of one hall.
struct GenHallway::Walk {
    std::uint32_t steps = 0;
    std::uint32_t stuck = 0;
    std::uint32_t reversals = 0;
    bool detours = false;
    DiPtr<Layout> detourRoom;
};

GenHallway::GenHallway(const GenInfo& info_, Layout& main_, RoomInfo& rooms_)
    : GenHallBase(info_, main_, rooms_), journal(main_) {}

bool GenHallway::Gen() {
    constexpr float kShadowDepth = 1.0F;
    failedHalls.clear();
    ForgetRoomPlaces();
    std::vector<DiPtr<Layout>> list = rooms.GetRoomList();
    if (list.empty()) {
        return true;
    }
    main.AddShadows(-kShadowDepth, kShadowDepth);
    ShuffleRooms(list);
    for (std::size_t i = 0; i < list.size(); ++i) {
        const DiPtr<Layout>& next = list[(i + 1) % list.size()];
        if (!ConnectRooms(list[i], next)) {
            failedHalls.push_back(
                {rooms.GetLogicalRoomPos(*list[i]), rooms.GetLogicalRoomPos(*next)});
        }
    }
    main.RemoveShadows();
    return failedHalls.size() <= kToleratedFailures;
}

void GenHallway::ShuffleRooms(std::vector<DiPtr<Layout>>& list) const {
    const double draw = RandomUnit();
    if (draw <= kShuffle || list.size() < 2) {
        return;
    }
    for (std::size_t i = 0; i < list.size() / 2; ++i) {
        const auto pick = RandomInt(static_cast<std::int32_t>(list.size()));
        const DiPtr<Layout> room = list[static_cast<std::size_t>(pick)];
        list.erase(list.begin() + pick);
        list.push_back(room);
    }
}

bool GenHallway::ConnectRooms(const DiPtr<Layout>& from, const DiPtr<Layout>& to) {
    Walk walk;
    journal.Begin();
    sourceRoom = from;
    destRoom = to;
    finished = false;
    Prep();
    const auto parts = static_cast<std::int64_t>(main.GetChildren().size());
    const std::int64_t stepsPerMove = kLooksPerMove * (1 + parts);
    while (!finished) {
        info.meter.Step(stepsPerMove);
        if (blocked >= kGivesUpBlocked) {
            SeekDetour(walk);
        }
        if (insideRoom) {
            PassRoom(walk);
        } else {
            NextStep();
        }
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

void GenHallway::SeekDetour(Walk& walk) {
    if (++walk.stuck >= kMaxDetours) {
        return;
    }
    if (!insideRoom) {
        StepBack();
        Prep();
    }
    const double draw = RandomUnit();
    destXY = draw < kDetourByRoom ? AltDest(*insideRoom) : RandomDest();
    blocked = 0;
    walk.detours = true;
    walk.detourRoom = insideRoom;
}

void GenHallway::PassRoom(Walk& walk) {
    if (walk.detours && !(insideRoom == walk.detourRoom)) {
        destXY = TrueDest(*destRoom);
        walk.detours = false;
    }
    LeaveRoom();
}

// A run that took too many steps starts again from the other end; false after the last run.
bool GenHallway::TurnBack(Walk& walk) {
    StepBack();
    if (walk.reversals >= kMaxReversals) {
        Logger::DebugError(
            S_LogSrc,
            "Unable to complete hall.  CurXY=(%d,%d) DestXY=(%d,%d) Blocked=%d Stuck=%d",
            curXY.x,
            curXY.y,
            destXY.x,
            destXY.y,
            static_cast<int>(blocked),
            static_cast<int>(walk.stuck));
        return false;
    }
    ReverseDir();
    walk.detours = false;
    blocked = 0;
    walk.steps = 0;
    walk.stuck = 0;
    ++walk.reversals;
    return true;
}

void GenHallway::Prep() {
    insideRoom = sourceRoom;
    curXY = FindCenter(*sourceRoom);
    destXY = TrueDest(*destRoom);
    curTile = nullptr;
    blocked = 0;
    history.clear();
}

void GenHallway::ReverseDir() {
    std::swap(sourceRoom, destRoom);
    Prep();
}

DiPos GenHallway::TrueDest(const Layout& room) const {
    const DiPos center = FindCenter(room);
    const DiPtr<GridElmt>& elmt = ElmtAt(center);
    if (elmt && !elmt->isShadow) {
        return center;
    }
    const DiPos door = FindForDoorway(room, DiDirection(curXY, center));
    return door == DiPos() ? center : door;
}

DiPos GenHallway::AltDest(const Layout& room) const {
    const DiPos here = rooms.GetLogicalRoomPos(room);
    const DiPos there = rooms.GetLogicalRoomPos(*destRoom);
    const AdjacentRooms around = rooms.GetAdjacentRooms(room);
    const Layout* detour = ChooseDetour(around, SignOf(there.x - here.x), SignOf(there.y - here.y));
    if (detour == nullptr) {
        return destXY;
    }
    const DiPos dest = TrueDest(*detour);
    return dest == DiPos() ? destXY : dest;
}

DiPos GenHallway::RandomDest() const {
    const DiPos& size = main.GetSize();
    const std::int32_t x = RandomInt(size.x);
    const std::int32_t y = RandomInt(size.y);
    return {OffBorder(x, size.x), OffBorder(y, size.y), 0};
}

void GenHallway::GetBlockedDir(DiDirection& way) {
    if (way.stepX == 0) {
        way.stepX = way.distX < 1 ? -1 : 1;
        way.stepY = 0;
    } else {
        way.stepX = 0;
        way.stepY = way.distY < 1 ? -1 : 1;
    }
}

bool GenHallway::CheckFinished() {
    if (ElmtAt(curXY) && PosToRoom(curXY) == destRoom) {
        finished = true;
    }
    return finished;
}

void GenHallway::LeaveRoom() {
    const DiDirection way(curXY, destXY);
    const DiPos door = FindForDoorway(*insideRoom, way);
    if (door == DiPos()) {
        blocked += kGivesUpBlocked;
        if (IsNewPlace(curXY)) {
            Logger::DebugError(S_LogSrc,
                               "No place for door at XY (%d,%d) DeltaXY (%d,%d)",
                               curXY.x,
                               curXY.y,
                               way.distX,
                               way.distY);
        }
        return;
    }
    curXY = door;
    const DiPtr<GridElmt> elmt = ElmtAt(curXY);
    if (!elmt) {
        return;
    }
    const DiPtr<Tile> wall = FindTileOfType(*elmt, TileWall);
    const DiPtr<Tile> opening = wall ? wall : FindTileOfType(*elmt, TileDoorway);
    if (!opening) {
        return;
    }
    history.clear();
    if (wall) {
        CvtToDoorway(curXY);
    }
    if (const Side* side = FindSide(GetTileDir(*opening))) {
        history.push_back(DiDirection::Step(side->step.x, side->step.y));
    }
    curTile = elmt->tiles.empty() ? nullptr : elmt->tiles.front();
    insideRoom = nullptr;
}

void GenHallway::NextStep() {
    if (!curTile) {
        return;
    }
    DiDirection way(curXY, destXY);
    if (blocked > kTurnsAside) {
        GetBlockedDir(way);
    }
    const DiDirection previous = history.empty() ? DiDirection() : history.back();
    const TileDirT facing = GetTileDir(*curTile);
    const CvtAction action = DependsOnAction(facing, way, blocked) ? CanInPlaceCvt(curXY) : CvtNone;
    const HallChoice choice = ChooseStep(facing, way, previous, action, blocked);
    const DiPtr<Tile>& tile = TileOf(choice.tile);
    if (!tile) {
        ++blocked;
    } else if (choice.IsInPlace()) {
        ConvertInPlace(choice, tile);
    } else {
        Move(choice, tile);
    }
}

const DiPtr<Tile>& GenHallway::TileOf(TileKind kind) const {
    return info.defTileSet->Get(kind);
}

void GenHallway::ConvertInPlace(const HallChoice& choice, const DiPtr<Tile>& tile) {
    const DiPtr<GridElmt> elmt = ElmtAt(curXY);
    if (elmt && choice.action == CvtFourWay) {
        if (!Try4Way(*elmt, curXY, false)) {
            ++blocked;
        }
    } else if (elmt) {
        journal.Touch(curXY);
        elmt->ReplaceTiles(tile);
    }
    curTile = tile;
}

void GenHallway::Move(const HallChoice& choice, const DiPtr<Tile>& tile) {
    const DiPos next = curXY + DiPos(choice.stepX, choice.stepY, 0);
    if (!IsInside(next)) {
        ++blocked;
        Logger::DebugError(S_LogSrc, "Internal:  out of bounds in NextStep()");
        return;
    }
    const DiPtr<GridElmt> elmt = ElmtAt(next);
    if (elmt && !CvtElmt(*elmt, GetTileDir(*tile), next)) {
        ++blocked;
        return;
    }
    history.push_back(DiDirection::Step(choice.stepX, choice.stepY));
    blocked = 0;
    curXY = next;
    if (elmt) {
        MoveOnto(*elmt);
        return;
    }
    const auto piece = MakeDi<GridElmt>();
    piece->AddTile(tile);
    journal.Touch(next);
    main.SetElmt(piece, next.y, next.x);
    curTile = tile;
}

void GenHallway::MoveOnto(const GridElmt& elmt) {
    curTile = elmt.tiles.empty() ? nullptr : elmt.tiles.front();
    if (!curTile) {
        return;
    }
    if (!IsDoorway(*curTile)) {
        static const TileKind fourWay = TileKind::Of(Tile_Hall4Way);
        if (curTile->kindName.Kind() == fourWay) {
            CheckFinished();
        }
    } else if (!CheckFinished()) {
        EnterRoom();
    }
}

// Once inside, the cursor walks on from the middle of the room.
void GenHallway::EnterRoom() {
    insideRoom = PosToRoom(curXY);
    if (insideRoom) {
        curXY = FindCenter(*insideRoom);
    }
}

} // namespace Tarnex
