// SPDX-License-Identifier: MIT
// Random levels: their floor plans and the order of their making.
#include <vaultry/gen/GenIntRandom.h>

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Numeric.h>
#include <vaultry/foundation/Problem.h>
#include <vaultry/foundation/Random.h>
#include <vaultry/gen/CloseOpenings.h>
#include <vaultry/gen/GenHallway.h>
#include <vaultry/gen/Limits.h>
#include <vaultry/gen/RandomTables.h>
#include <vaultry/gen/TidyHalls.h>
#include <vaultry/gen/Walkability.h>

#include <algorithm>
#include <array>

namespace Tarnex {

namespace {

constexpr std::uint32_t kLayoutTries = 3;
constexpr std::int32_t kSpareCells = 3; // on the eastern and southern side of a level

constexpr std::int32_t kFewRooms = 3;   // with fewer, every slot takes a room
constexpr std::int32_t kMostMisses = 5; // taken slots drawn in a row until a room is dropped

constexpr std::int32_t kSmallestRoom = 3; // [cells a side]

struct RoomSizeOdds {
    double below;
    std::int32_t choices; // sizes from the smallest up; one: without a draw
};

const std::vector<RoomSizeOdds> kRoomSizes = {{0.3, 1}, {0.6, 3}, {0.9, 4}, {2.0, 5}};

struct TemplateShare {
    double below;
    double share;
};

const std::vector<TemplateShare> kTemplateShares = {{0.5, 0.3}, {0.9, 0.4}, {2.0, 0.5}};

using Marks = std::vector<std::vector<bool>>;

// From half of the slots up to all but one; a level of one or two rooms would be no dungeon, so a
// small grid is filled instead. The draw is made for every spacing, even where it plays no part:
// the draws that follow it belong to the same seed.
std::int32_t TargetCount(std::int32_t total) {
    // Cut, not rounded: of nine slots four are certain.
    const std::int32_t half = total / 2;
    const std::int32_t target = half + RandomInt(half);
    return target < kFewRooms ? total : target;
}

// Row by row from the north-west: slots that stay empty lie in the south-east.
void MarkInOrder(Marks& marks, std::int32_t target) {
    for (auto& row : marks) {
        // Slots behind the target stay empty.
        for (std::size_t col = 0; col < row.size() && target > 0; ++col, --target) {
            row[col] = true;
        }
    }
}

// Rooms can be lost: after several taken slots in a row one is counted without being marked.
void MarkByChance(Marks& marks, const DiPos& size, std::int32_t target) {
    std::int32_t misses = 0;
    for (std::int32_t count = 0; count < target;) {
        // Row before column.
        const auto row = static_cast<std::size_t>(RandomInt(size.y));
        const auto col = static_cast<std::size_t>(RandomInt(size.x));
        const bool isFree = !marks[row][col];
        if (isFree) {
            marks[row][col] = true;
        } else if (++misses < kMostMisses) {
            continue;
        }
        ++count;
        misses = 0;
    }
}

Marks MarkRooms(const DiPos& size, RandomGenInfo::RoomSpacingT spacing) {
    Marks marks(static_cast<std::size_t>(size.y),
                std::vector<bool>(static_cast<std::size_t>(size.x)));
    const std::int32_t total = size.x * size.y;
    const std::int32_t target = TargetCount(total);
    switch (spacing) {
    case RandomGenInfo::Tight:
        MarkInOrder(marks, total);
        break;
    case RandomGenInfo::SemiTight:
        // At most one slot in eight stays empty.
        MarkInOrder(marks, std::max(target, total - total / 8));
        break;
    default:
        MarkByChance(marks, size, target);
        break;
    }
    return marks;
}

// A room of the smallest size costs no further draw.
std::int32_t DrawRoomSide(std::int32_t choices) {
    return choices == 1 ? kSmallestRoom : kSmallestRoom + RandomInt(choices);
}

std::int64_t CountParts(const LayoutTemplate& plan) {
    std::int64_t count = 0;
    for (const DiPtr<LayoutTemplate>& child : plan.GetChildren()) {
        count += 1 + CountParts(*child);
    }
    return count;
}

// A room's shift inside its slot on one axis; drawn only when there is play.
std::int32_t DrawShift(std::uint32_t slot, std::int32_t room) {
    const auto extent = static_cast<std::int32_t>(slot);
    return room < extent ? RandomInt(extent - room) : 0;
}

// Shifts further when a part of the room would reach out of the slot on the near side.
std::int32_t MakeRoomForParts(std::int32_t shift, float leastPartOffset) {
    const float reach = -leastPartOffset;
    const bool reachesOut = leastPartOffset < 0.0F && static_cast<float>(shift) < reach;
    // Whole cells only: a room between cells would have no place in the grid.
    return reachesOut ? TruncToInt(reach) : shift;
}

} // namespace

void GenIntRandom::Make() {
    LayoutOwner levels;
    Report("Generating Layouts");
    // All floor plans before the first furniture: a door leads to a level that comes later.
    MakeLayouts(levels);
    Report("Adding Content");
    // Before any content, which must not stand in front of a door.
    AddTeleportingDoors(levels.All());
    SeedContents();
    std::size_t made = 0;
    for (const LevelReport& report : info.report.levels) {
        if (report.made) {
            FinishLevel(*levels.All()[made], report, changes[made], made == 0);
            ++made;
        }
    }
}

void GenIntRandom::MakeLayouts(LayoutOwner& levels) {
    // The run writes over it, level by level.
    const std::string baseName = info.cellName;
    const std::uint32_t count = std::min(info.randomInfo.numLevels, kMaxLevels);
    if (count < info.randomInfo.numLevels) {
        ReportProblem({ProblemKind::TooManyLevels,
                       {std::to_string(info.randomInfo.numLevels), std::to_string(count)}});
    }
    for (std::uint32_t i = 0; i < count; ++i) {
        // However small the levels are.
        info.meter.Ask();
        // Before the grid, as rooms and gaps depend on whether the level is a cave.
        InitRandomTileSet(i == 0);
        DiPos gridSize;
        InitRoomGridSize(gridSize);
        LevelReport& report = info.report.levels.emplace_back();
        report.number = i + 1;
        // A level that cannot be joined costs the run no more than this level.
        const DiPtr<Layout> level = TryMainLayout(gridSize, report);
        if (!level) {
            ReportProblem({ProblemKind::RoomsUnconnected});
            continue;
        }
        levels.Own(level);
        changes.push_back(std::move(draftChanges));
        NameLevel(*level, baseName, i + 1);
        // Later levels may replace that of the generator.
        level->SetTileSet(tileSet);
        report.made = true;
        report.name = level->GetName();
        // Levels that were given up make no step.
        StepProgress();
    }
}

DiPtr<Layout> GenIntRandom::TryMainLayout(const DiPos& size, LevelReport& report) {
    DiPtr<Layout> level;
    report.tileSet = tileSet;
    report.roomGrid = size;
    while (report.attempts < kLayoutTries && !level) {
        ++report.attempts;
        // What a failed attempt took is free again, so it does not count against the run.
        const std::uint64_t memory = info.meter.GetMemory();
        // Each attempt draws anew, so a level that cannot be joined is likely to be joined the next
        // time.
        level = InitMainLayout(size, report);
        if (!level) {
            info.meter.ReturnTo(memory);
        }
    }
    return level;
}

// A level that was given up keeps its number: the names of the others count it.
void GenIntRandom::NameLevel(Layout& level,
                             const std::string& baseName,
                             std::uint32_t number) const {
    info.cellName = baseName;
    // By the number asked for, however many come about. A single level has the empty name unless
    // the front end wants it named.
    if (info.randomInfo.numLevels > 1) {
        info.cellName += ", Level " + std::to_string(number);
        level.SetName(info.cellName.c_str());
    } else if (info.nameSingleLevel) {
        level.SetName(info.cellName.c_str());
    }
}

void GenIntRandom::FinishLevel(Layout& level,
                               const LevelReport& report,
                               const std::vector<PieceChange>& changed,
                               bool first) {
    // Later levels may have changed the tile set since this one was laid out.
    tileSet = level.GetTileSet();
    info.defTileSet = tileSet;
    // Treasure goes to the containers of this level alone.
    containers.clear();
    // The first level that was made, whatever its number, has no theme to keep.
    InitRandomThemes(first);
    info.cellName = level.GetName();
    InitCell();
    AddContents(level);
    // After the contents, which stay where they are without these changes.
    ApplyChanges(level, *tileSet, changed);
    if (first) {
        AddWayOut(level, &report);
    }
    // Containers come into being when the cell is filled; only then can treasure be put into them.
    FillCell(level);
    AddCtrTreasure(containers);
    ShowLevel(level, &report);
}

void GenIntRandom::InitRoomGridSize(DiPos& size) const {
    const auto& grids = RoomGrids(info.randomInfo.levelSize);
    // Sizes with one grid draw nothing.
    const double draw = grids.size() > 1 ? RandomUnit() : 0.0;
    const GridOdds& grid = PickBelow(grids, draw);
    size.x = grid.columns;
    size.y = grid.rows;
}

DiPtr<Layout> GenIntRandom::InitMainLayout(const DiPos& grid, LevelReport& report) {
    // What the last attempt left: by now nobody asks its rooms for their cells.
    drafts.Clear();
    RoomInfo rooms(grid);
    CreateRooms(rooms);
    report.spacing = SpaceRooms(rooms);
    const std::int64_t width = std::int64_t{rooms.GetTotalWidth()} + kSpareCells;
    const std::int64_t height = std::int64_t{rooms.GetTotalHeight()} + kSpareCells;
    // In 64 bits: the widths of a hostile configuration add up to more than 32 hold.
    if (width > kMaxLevelCells || height > kMaxLevelCells || width * height > kMaxLevelCells) {
        ReportProblem(
            {ProblemKind::LevelTooLarge,
             {std::to_string(height), std::to_string(width), std::to_string(kMaxLevelCells)}});
        return nullptr;
    }
    const DiPos size(static_cast<std::int32_t>(width), static_cast<std::int32_t>(height), 0);
    // Only now, when its size is known to be bearable, is the level made.
    Layout& main = drafts.Own(MakeLayout(size));
    PlaceRooms(main, rooms);
    const bool joined = ConnectRooms(main, rooms, report);
    report.size = size;
    if (!joined) {
        return nullptr;
    }
    JudgeWalkability(report, main, rooms);
    PlanChanges(main, rooms, report);
    return drafts.ReleaseLast();
}

// No room is lost by it, but openings are.
void GenIntRandom::PlanChanges(const Layout& main, const RoomInfo& rooms, LevelReport& report) {
    draftChanges.clear();
    const std::optional<std::uint32_t>& steps = info.randomInfo.tidyHalls;
    if (!steps && !info.randomInfo.closeOpenings) {
        return;
    }
    HallPlan plan(main, rooms, *tileSet);
    if (steps) {
        TidyHalls(plan, *steps, info.meter);
    }
    if (info.randomInfo.closeOpenings) {
        CloseOpenings(plan, info.meter);
    }
    report.openEnds = plan.CountOpenEnds();
    draftChanges = plan.Changes();
}

void GenIntRandom::CreateRooms(RoomInfo& rooms) {
    const DiPos& size = rooms.GetSize();
    const Marks marks = MarkRooms(size, info.randomInfo.roomSpacing);
    // Drawn once for the level, so that some levels are full of rooms made by hand and others are
    // not.
    const double shareDraw = RandomUnit();
    const double share = PickBelow(kTemplateShares, shareDraw).share;
    for (std::int32_t row = 0; row < size.y; ++row) {
        for (std::int32_t col = 0; col < size.x; ++col) {
            if (!marks[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)]) {
                continue;
            }
            // A slot whose template cannot be made stays without a room: the level is joined
            // without it.
            const double draw = RandomUnit();
            rooms.SetLayout(draw >= share ? CreateRoom() : CreateFromUserLayout(), row, col);
        }
    }
}

DiPtr<Layout> GenIntRandom::CreateRoom() {
    const double draw = RandomUnit();
    const std::int32_t choices = PickBelow(kRoomSizes, draw).choices;
    // One draw bounds both sides; west to east is drawn before north to south.
    const std::int32_t width = DrawRoomSide(choices);
    const std::int32_t height = DrawRoomSide(choices);
    DiPtr<Layout> room = Layout::Create(DiPos(width, height, 0));
    LayoutRoom(*room);
    return room;
}

DiPtr<Layout> GenIntRandom::CreateFromUserLayout() {
    // Caves take templates for caves: those of rooms have walls that a cave has no pieces for.
    const auto& templates = tileSet->IsCave() ? config->caveLayouts : config->roomLayouts;
    // A slot without a room, and no draw.
    if (templates.empty()) {
        return nullptr;
    }
    const LayoutTemplate& plan = *DrawOne(templates);
    const std::int64_t parts = CountParts(plan);
    if (parts > kMaxRoomParts) {
        ReportProblem({ProblemKind::RoomTooNested,
                       {plan.GetName(), std::to_string(parts), std::to_string(kMaxRoomParts)}});
        return nullptr;
    }
    Layout& room = drafts.Own(MakeLayout(plan.GetSize()));
    TemplateToLayout(room, plan);
    // The template's author meant its outer doorways for the front of a fixed interior.
    RemoveExteriorDoors(room);
    return &room;
}

void GenIntRandom::LayoutRoom(Layout& room) const {
    // By the edge of the room: first, middle or last row, then column.
    static const std::array<std::array<TileKind, 3>, 3> kinds = {{
        {TileKind::Of(Tile_NwCorner), TileKind::Of(Tile_nWall), TileKind::Of(Tile_NeCorner)},
        {TileKind::Of(Tile_wWall), TileKind::Of(Tile_Center), TileKind::Of(Tile_eWall)},
        {TileKind::Of(Tile_SwCorner), TileKind::Of(Tile_sWall), TileKind::Of(Tile_SeCorner)},
    }};
    // The first edge wins where the first is the last as well.
    const auto edge = [](std::int32_t i, std::int32_t count) -> std::size_t {
        return i == 0 ? 0 : i == count - 1 ? 2 : 1;
    };
    const DiPos& size = room.GetSize();
    for (std::int32_t row = 0; row < size.y; ++row) {
        for (std::int32_t col = 0; col < size.x; ++col) {
            const auto elmt = MakeDi<GridElmt>();
            // A kind that the set lacks leaves an element without tiles, which no hall enters.
            elmt->AddTile(tileSet->Get(kinds[edge(row, size.y)][edge(col, size.x)]));
            room.SetElmt(elmt, row, col);
        }
    }
}

SpacingRange GenIntRandom::SpaceRooms(RoomInfo& rooms) const {
    const auto& spacings = RoomSpacings(info.randomInfo.roomSpacing, tileSet->IsCave());
    // As with the grids, one entry draws nothing.
    const double draw = spacings.size() > 1 ? RandomUnit() : 0.0;
    const SpacingRange& range = PickBelow(spacings, draw).range;
    if (range.AddsNothing()) {
        return range;
    }
    // Rows draw before columns. A gap widens the slot, not the room: where in it the room comes to
    // lie is drawn later.
    const auto gap = [&range] {
        return static_cast<std::uint32_t>(range.lo + RandomInt(range.hi - range.lo + 1));
    };
    for (std::uint32_t row = 0; row < rooms.GetHeight(); ++row) {
        rooms.SetMaxRowHeight(row, rooms.GetMaxRowHeight(row) + gap());
    }
    for (std::uint32_t col = 0; col < rooms.GetWidth(); ++col) {
        rooms.SetMaxColWidth(col, rooms.GetMaxColWidth(col) + gap());
    }
    return range;
}

void GenIntRandom::PlaceRooms(Layout& main, RoomInfo& rooms) const {
    std::uint32_t top = 0;
    for (std::uint32_t row = 0; row < rooms.GetHeight(); ++row) {
        const std::uint32_t height = rooms.GetMaxRowHeight(row);
        std::uint32_t left = 0;
        for (std::uint32_t col = 0; col < rooms.GetWidth(); ++col) {
            const std::uint32_t width = rooms.GetMaxColWidth(col);
            if (const DiPtr<Layout>& room = rooms.GetLayout(row, col)) {
                const DiPos total = room->GetTotalSize();
                // Parts may reach out of their room to the north and west.
                const Di3Point parts = room->GetMinChildOffset();
                // Down is drawn before right.
                const std::int32_t drawnDown = DrawShift(height, total.y);
                const std::int32_t drawnRight = DrawShift(width, total.x);
                const std::int32_t right = MakeRoomForParts(drawnRight, parts.x);
                const std::int32_t down = MakeRoomForParts(drawnDown, parts.y);
                room->SetOffset(Di3Point(static_cast<float>(std::int64_t{left} + right),
                                         static_cast<float>(std::int64_t{top} + down),
                                         0.0F));
                // Where rooms overlap the later one wins, its empty cells too.
                main.AddContents(*room);
            }
            left += width;
        }
        top += height;
    }
}

bool GenIntRandom::ConnectRooms(Layout& main, RoomInfo& rooms, LevelReport& report) {
    GenHallway halls(info, main, rooms);
    const bool joined = halls.Gen();
    report.failedHalls = halls.GetFailedHalls();
    return joined;
}

void GenIntRandom::Report(const char* text) const {
    if (info.jobStatus != nullptr) {
        info.jobStatus->SetText(text);
    }
}

void GenIntRandom::StepProgress() const {
    if (info.jobStatus != nullptr) {
        info.jobStatus->StepIt();
    }
}

} // namespace Tarnex
