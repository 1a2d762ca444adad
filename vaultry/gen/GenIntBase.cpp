// SPDX-License-Identifier: MIT
// The frame: from templates to layouts to references.
#include <vaultry/gen/GenIntBase.h>

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Problem.h>
#include <vaultry/gen/LevelObserver.h>
#include <vaultry/gen/WayOut.h>
#include <vaultry/gen/WorldPlace.h>
#include <vaultry/layout/ElmtKind.h>

#include <algorithm>
#include <array>

namespace Tarnex {

namespace {

// A look-up by name or a reference made costs as much as looking at so many things.
constexpr std::int64_t kStepsPerPiece = 32;

// The game turns the map of an interior by its marker; without one north is where it happens to be.
constexpr const char* kNorthMarker = "NorthMarker";
constexpr float kNorthMarkerY = -150.0F;

// The way one faces on arrival, by the facing of the door: into the room. [degrees]
constexpr std::array<std::int32_t, 4> kArrivals = {180, 0, 270, 90}; // N, S, E, W

// A door in a corner has no side; whoever comes through it faces north.
std::int32_t ArrivalAngle(TileDirT facing) {
    const auto index = static_cast<std::size_t>(facing);
    return index < kArrivals.size() ? kArrivals[index] : 0;
}

// References and the memory that they take. [bytes]
struct Pieces {
    std::size_t count = 0;
    std::uint64_t memory = 0;

    void Add(const std::string& id) {
        ++count;
        memory += sizeof(Ref) + id.size();
    }
};

// Those that a layout and its children need, companions of tiles apart.
void CountPieces(const Layout& layout, Pieces& pieces) {
    for (std::uint32_t row = 0; row < layout.GetHeight(); ++row) {
        for (const DiPtr<GridElmt>& elmt : layout.GetRow(row)) {
            if (!elmt) {
                continue;
            }
            for (const DiPtr<Tile>& tile : elmt->tiles) {
                pieces.Add(tile->id);
            }
            for (const DiPtr<PlatformTile>& platform : elmt->platforms) {
                pieces.Add(platform->id);
            }
            for (const DiPtr<ContentItem>& item : elmt->contents) {
                pieces.Add(item->uniqueName);
            }
        }
    }
    for (const DiPtr<Layout>& child : layout.GetChildren()) {
        CountPieces(*child, pieces);
    }
}

} // namespace

GenIntBase::GenIntBase(GenInfo& info_)
    : info(info_), config(&info_.config), tileSet(info_.defTileSet) {}

GenIntBase::~GenIntBase() = default;

void GenIntBase::Gen() {
    info.meter.Start(info.jobStatus);
    info.report = GenReport();
    try {
        Make();
        // Out of the middle of any stage; what was made until then stays for the caller to look at.
    } catch (const RunCanceled&) {
        info.report.canceled = true;
    }
}

void GenIntBase::TemplateToLayout(Layout& layout, const LayoutTemplate& from) {
    for (std::uint32_t row = 0; row < from.GetHeight(); ++row) {
        for (std::uint32_t col = 0; col < from.GetWidth(); ++col) {
            info.meter.Step();
            const DiPtr<TemplateElmt> plan = from.GetElmt(row, col);
            if (!plan) {
                continue;
            }
            const std::size_t pieces = plan->tileNames.size();
            info.meter.Step(static_cast<std::int64_t>(pieces) * kStepsPerPiece);
            info.meter.TakeMemory(sizeof(GridElmt) + pieces * sizeof(DiPtr<Tile>));
            const auto elmt = MakeDi<GridElmt>();
            for (const TileKindName& name : plan->tileNames) {
                const DiPtr<Tile>& tile = tileSet->Get(name);
                // The element stays, with the tiles that there are: a hole in one place must not
                // move the others.
                if (!tile) {
                    ReportProblem({ProblemKind::MissingTile,
                                   {tileSet->GetName(), name.c_str(), from.GetName()}});
                }
                elmt->AddTile(tile);
            }
            layout.SetElmt(elmt, static_cast<std::int32_t>(row), static_cast<std::int32_t>(col));
        }
    }
    // After the layout's own cells, so that an error of the whole comes before those of its parts.
    for (const DiPtr<LayoutTemplate>& childPlan : from.GetChildren()) {
        const DiPtr<Layout> child = MakeLayout(childPlan->GetSize());
        child->SetOffset(childPlan->GetOffset());
        layout.AddChild(child);
        TemplateToLayout(*child, *childPlan);
    }
}

DiPtr<Layout> GenIntBase::MakeLayout(const DiPos& size) const {
    const auto extent = [](std::int32_t cells) {
        return static_cast<std::uint64_t>(std::max(cells, 0));
    };
    info.meter.TakeMemory(sizeof(Layout) +
                          extent(size.x) * extent(size.y) * sizeof(DiPtr<GridElmt>));
    return Layout::Create(size);
}

void GenIntBase::SortLayout(SortedElmts& sorted, const Layout& layout) const {
    for (std::uint32_t row = 0; row < layout.GetHeight(); ++row) {
        for (const DiPtr<GridElmt>& elmt : layout.GetRow(row)) {
            info.meter.Step();
            if (!elmt) {
                continue;
            }
            // By the first tile alone. Doorways and the ends of halls are in no list: nothing may
            // stand there.
            switch (GetElmtType(*elmt)) {
            case TileCenter:
                sorted.centers.push_back(elmt.get());
                break;
            case TileCorner:
                sorted.corners.push_back(elmt.get());
                break;
            case TileHall:
                sorted.halls.push_back(elmt.get());
                break;
            case TileWall:
                sorted.walls.push_back(elmt.get());
                break;
            default:
                break;
            }
        }
    }
    // Parts on other floors are furnished like the rest.
    for (const DiPtr<Layout>& child : layout.GetChildren()) {
        SortLayout(sorted, *child);
    }
    // Kept beside the lists, which get shorter: shares are of all places that there were.
    sorted.numCenters = static_cast<std::uint32_t>(sorted.centers.size());
    sorted.numCorners = static_cast<std::uint32_t>(sorted.corners.size());
    sorted.numHalls = static_cast<std::uint32_t>(sorted.halls.size());
    sorted.numWalls = static_cast<std::uint32_t>(sorted.walls.size());
}

void GenIntBase::InitCell() {
    cell = info.mod.CreateCell(info.cellName.c_str());
    // Before all else, so that it is the first reference of every cell.
    Ref marker(kNorthMarker);
    // North of the origin, as the north of the map.
    marker.position.y = kNorthMarkerY;
    marker.sort = RefSort::Marker;
    cell->AddRef(std::move(marker));
}

void GenIntBase::FillCell(const Layout& layout) {
    Pieces pieces;
    CountPieces(layout, pieces);
    info.meter.TakeMemory(pieces.memory);
    // One piece of memory for all references instead of growing through many.
    cell->Reserve(pieces.count);
    // From the origin: where a level would lie in a larger world plays no part.
    LayoutToCell(*cell, layout, Di3Point());
}

void GenIntBase::LayoutToCell(Cell& target, const Layout& layout, const Di3Point& offset) {
    for (std::uint32_t row = 0; row < layout.GetHeight(); ++row) {
        for (std::uint32_t col = 0; col < layout.GetWidth(); ++col) {
            info.meter.Step();
            const DiPtr<GridElmt>& elmt = layout.GetElmt(row, col);
            if (!elmt) {
                continue;
            }
            const DiPos pos(static_cast<std::int32_t>(col), static_cast<std::int32_t>(row), 0);
            // Tiles, platforms, contents: the order in which the plug-in numbers its references.
            CvtTiles(target, *elmt, pos, offset);
            CvtPlatforms(target, *elmt, pos, offset);
            CvtContents(target, *elmt, pos, offset);
        }
    }
    for (const DiPtr<Layout>& child : layout.GetChildren()) {
        // Rounded to single precision at every level of nesting.
        LayoutToCell(target, *child, offset + child->GetOffset());
    }
}

void GenIntBase::ShowLevel(const Layout& layout, const LevelReport* report) const {
    LevelChoices& chosen = info.report.chosen.emplace_back();
    chosen.cell = cell->GetName();
    chosen.tileSet = tileSet;
    chosen.theme = info.defTheme;
    chosen.creatureTheme = info.defCreatureTheme;
    chosen.treasureTheme = info.defTreasureTheme;
    if (report != nullptr) {
        chosen.number = report->number;
        chosen.roomGrid = report->roomGrid;
        chosen.spacing = report->spacing;
    } else {
        chosen.layout = info.defTemplate;
    }
    if (info.levelObserver != nullptr) {
        info.levelObserver->LevelFinished({layout, *cell, *tileSet, *config, report});
    }
}

void GenIntBase::CvtTiles(Cell& target,
                          const GridElmt& elmt,
                          const DiPos& pos,
                          const Di3Point& offset) const {
    for (const DiPtr<Tile>& tile : elmt.tiles) {
        DoCvtTile(target, elmt, *tile, pos, offset);
        if (tile->requiredName.empty()) {
            continue;
        }
        // Of one step only: what a companion asks for in its turn is not followed. A set may lack
        // it.
        const DiPtr<Tile>& companion = tileSet->Get(tile->requiredName);
        if (companion) {
            // Counted here: FillCell does not foresee companions.
            info.meter.TakeMemory(sizeof(Ref) + companion->id.size());
            DoCvtTile(target, elmt, *companion, pos, offset);
        }
    }
}

void GenIntBase::DoCvtTile(Cell& target,
                           const GridElmt& elmt,
                           const Tile& tile,
                           const DiPos& pos,
                           const Di3Point& offset) const {
    Ref ref = MakeRef(tile.id, tile.offset, tile.zRotate, pos, offset);
    ref.scale = tile.scale;
    ref.sort = RefSort::Tile;
    if (IsDoorTile(tile)) {
        ref.sort = RefSort::Door;
        // Only the leaf of the door leads away; its frame and its jamb are walls.
        if (elmt.leadsOut) {
            ref.Teleport(*info.wayOut);
        } else if (elmt.isTeleport && elmt.teleLayout) {
            MakeTeleport(ref, elmt);
        }
    }
    target.AddRef(std::move(ref));
}

void GenIntBase::SetDoor(GridElmt& elmt, const Side& side, const TileSet& set) {
    elmt.ReplaceTiles(set.Get(side.doorway));
    elmt.AddTile(set.Get(side.doorjamb));
    elmt.AddTile(set.Get(side.door));
}

void GenIntBase::AddWayOut(const Layout& level, const LevelReport* report) const {
    if (!info.wayOut) {
        return;
    }
    const std::optional<WayOutPlace> found = ChooseWayOut(level, *tileSet, report);
    if (!found) {
        ReportProblem({ProblemKind::NoWayOut, {cell->GetName()}});
        return;
    }
    GridElmt& elmt = *level.GetElmt(static_cast<std::uint32_t>(found->place.y),
                                    static_cast<std::uint32_t>(found->place.x));
    if (!found->isDoor) {
        SetDoor(elmt, *found->side, *tileSet);
        elmt.contents.clear();
    }
    elmt.isTeleport = elmt.leadsOut = true;
}

// The arrival point is the cell of the door on the other side; neither that layout's own offset nor
// the offsets of its tiles count.
void GenIntBase::MakeTeleport(Ref& door, const GridElmt& elmt) const {
    const Layout& level = *elmt.teleLayout;
    const DiPos& at = elmt.teleDest;
    const DiPtr<GridElmt>& arrival =
        level.GetElmt(static_cast<std::uint32_t>(at.y), static_cast<std::uint32_t>(at.x));
    // Nothing to arrive at: the door stays shut.
    if (!arrival) {
        return;
    }
    // The other level may have cells of another size.
    const TileSet& levelSet = level.GetTileSet() ? *level.GetTileSet() : *tileSet;
    const std::int64_t size = levelSet.GetTileSize();
    // On a raised floor one arrives on top of it, not inside.
    const std::int64_t lift = arrival->platforms.empty() ? 0 : arrival->platformHeight;
    Ref destination(level.GetName().c_str());
    // Rows run south, but y runs north.
    destination.position = Di3Point(static_cast<float>(at.x * size),
                                    static_cast<float>(-(at.y * size)),
                                    static_cast<float>(at.z * size + lift));
    // Facing into the room, away from the door just come through.
    destination.rotation.z = Radians(ArrivalAngle(GetElmtDir(*arrival)));
    door.Teleport(destination);
}

void GenIntBase::CvtPlatforms(Cell& target,
                              const GridElmt& elmt,
                              const DiPos& pos,
                              const Di3Point& offset) const {
    for (const DiPtr<PlatformTile>& piece : elmt.platforms) {
        Ref ref = MakeRef(piece->id, piece->offset, piece->zRotate, pos, offset);
        ref.sort = RefSort::Platform;
        target.AddRef(std::move(ref));
    }
}

Ref GenIntBase::MakeRef(const std::string& id,
                        const Di3Point& local,
                        std::int32_t zRotate,
                        const DiPos& pos,
                        const Di3Point& offset) const {
    info.meter.Step(kStepsPerPiece);
    Ref ref(id.c_str());
    ref.position = WorldPosition(pos, offset, local, tileSet->GetTileSize());
    // Pieces turn about the upright axis alone.
    ref.rotation.z = Radians(zRotate);
    return ref;
}

} // namespace Tarnex
