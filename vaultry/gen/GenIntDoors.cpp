// SPDX-License-Identifier: MIT
// The doors of random levels: those that would open onto nothing and those between levels.
#include <vaultry/foundation/Random.h>
#include <vaultry/gen/GenIntRandom.h>
#include <vaultry/gen/Limits.h>
#include <vaultry/layout/ElmtKind.h>
#include <vaultry/layout/Sides.h>

#include <algorithm>

namespace Tarnex {

namespace {

// On this floor: a bridge overhead is no reason for a doorway.
bool HasAnything(const Layout& layout, const DiPos& pos) {
    // A part that is raised or lowered by a cell can be walked to, but no doorway leads to it.
    constexpr float kOfDoors = 0.5F;
    return !layout
                .GetElmtsDeep(static_cast<std::uint32_t>(pos.y),
                              static_cast<std::uint32_t>(pos.x),
                              -kOfDoors,
                              kOfDoors)
                .empty();
}

// A doorway stays only with something on both of its sides; one without a straight facing is looked
// at from east and west.
bool IsExterior(const Layout& layout, const DiPos& pos, TileDirT facing) {
    const bool alongY = facing == DirN || facing == DirS;
    const DiPos before = alongY ? DiPos(pos.x, pos.y - 1, 0) : DiPos(pos.x - 1, pos.y, 0);
    const DiPos behind = alongY ? DiPos(pos.x, pos.y + 1, 0) : DiPos(pos.x + 1, pos.y, 0);
    // The room behind counts like the hall before: a doorway in the open is closed too.
    return !HasAnything(layout, before) || !HasAnything(layout, behind);
}

// A tile set without doors, or a level without walls, leaves an element that leads nowhere.
bool HasDoor(const GridElmt& elmt) {
    return std::ranges::any_of(elmt.tiles,
                               [](const DiPtr<Tile>& tile) { return IsDoorTile(*tile); });
}

void LeadTo(GridElmt& door, const DiPos& pos, const DiPtr<Layout>& level) {
    door.isTeleport = true;
    door.teleDest = pos;
    door.teleLayout = level;
}

} // namespace

void GenIntRandom::RemoveExteriorDoors(Layout& layout) const {
    const DiPos& size = layout.GetSize();
    for (std::int32_t row = 0; row < size.y; ++row) {
        for (std::int32_t col = 0; col < size.x; ++col) {
            const DiPtr<GridElmt>& elmt =
                layout.GetElmt(static_cast<std::uint32_t>(row), static_cast<std::uint32_t>(col));
            if (!elmt) {
                continue;
            }
            const DiPtr<Tile> doorway = FindTileOfType(*elmt, TileDoorway);
            if (!doorway) {
                continue;
            }
            // A look at both sides goes through every part of the room.
            info.meter.Step(kMaxRoomParts);
            // The doorway need not be the first tile of its element.
            const TileDirT facing = GetTileDir(*doorway);
            if (IsExterior(layout, DiPos(col, row, 0), facing)) {
                CloseDoorway(*elmt, facing);
            }
        }
    }
    for (const DiPtr<Layout>& child : layout.GetChildren()) {
        // A part looks at the whole room around it, wherever in it the part lies.
        RemoveExteriorDoors(*child);
    }
}

void GenIntRandom::CloseDoorway(GridElmt& elmt, TileDirT facing) const {
    // A hall that ended in the doorway gets an end, not a wall across it.
    const bool isHall = HasTileOfType(elmt, TileHall);
    elmt.tiles.clear();
    // A doorway in a corner leaves a hole: no wall closes two sides.
    if (const Side* side = FindSide(facing)) {
        elmt.AddTile(tileSet->Get(isHall ? side->hallEnd : side->wall));
    }
}

DiPos GenIntRandom::FindElmt(const Layout& layout, TileType type) const {
    std::vector<DiPos> candidates;
    const DiPos& size = layout.GetSize();
    for (std::int32_t row = 0; row < size.y; ++row) {
        for (std::int32_t col = 0; col < size.x; ++col) {
            info.meter.Step();
            const DiPtr<GridElmt>& elmt =
                layout.GetElmt(static_cast<std::uint32_t>(row), static_cast<std::uint32_t>(col));
            if (elmt && HasTileOfType(*elmt, type)) {
                candidates.emplace_back(col, row, 0);
            }
        }
    }
    // Nothing is drawn without a candidate, and the cell in the corner stands in.
    return candidates.empty() ? DiPos() : DrawOne(candidates);
}

DiPtr<GridElmt> GenIntRandom::AddTeleDoor(Layout& layout, const DiPos& pos) const {
    const DiPtr<GridElmt>& elmt =
        layout.GetElmt(static_cast<std::uint32_t>(pos.y), static_cast<std::uint32_t>(pos.x));
    if (!elmt) {
        return nullptr;
    }
    // By the first tile. What has no straight facing stays as it is and yet leads to the other
    // level.
    if (const Side* side = FindSide(GetElmtDir(*elmt))) {
        // From the level's own set, which need not be the one of the level made last.
        SetDoor(*elmt, *side, *layout.GetTileSet());
    }
    return elmt;
}

// The later level of a pair draws first. A pair that cannot be made ends the chain.
void GenIntRandom::AddTeleportingDoors(const Levels& levels) {
    for (std::size_t i = 1; i < levels.size(); ++i) {
        const DiPtr<Layout>& earlier = levels[i - 1];
        const DiPtr<Layout>& later = levels[i];
        const DiPos laterPos = FindElmt(*later, TileWall);
        const DiPos earlierPos = FindElmt(*earlier, TileWall);
        const DiPtr<GridElmt> laterDoor = AddTeleDoor(*later, laterPos);
        const DiPtr<GridElmt> earlierDoor = AddTeleDoor(*earlier, earlierPos);
        // A door that was built by then stays, and leads nowhere.
        if (!laterDoor || !earlierDoor) {
            return;
        }
        // Either way, so that a player can turn back.
        LeadTo(*laterDoor, earlierPos, earlier);
        LeadTo(*earlierDoor, laterPos, later);
        if (HasDoor(*laterDoor) && HasDoor(*earlierDoor)) {
            MarkLinked(*later);
        }
    }
}

void GenIntRandom::MarkLinked(const Layout& level) {
    for (LevelReport& report : info.report.levels) {
        // By name: where there are several levels each has its own.
        report.linked = report.linked || (report.made && report.name == level.GetName());
    }
}

} // namespace Tarnex
