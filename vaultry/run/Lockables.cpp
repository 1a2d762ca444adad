// SPDX-License-Identifier: MIT
#include <vaultry/run/Lockables.h>

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/gen/WorldPlace.h>

#include <algorithm>
#include <array>
#include <bit>
#include <map>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace Tarnex {

namespace {

// By its bits: what is no number has a place too.
using RefPlace = std::pair<std::array<std::uint32_t, 3>, std::string>;

RefPlace PlaceOf(const Di3Point& position, const std::string& id) {
    return {{std::bit_cast<std::uint32_t>(position.x),
             std::bit_cast<std::uint32_t>(position.y),
             std::bit_cast<std::uint32_t>(position.z)},
            id};
}

class LockableFinder {
public:
    LockableFinder(const FinishedLevel& finished, const LevelPlan& levelPlan)
        : level(finished), plan(levelPlan) {
        const std::vector<Ref>& refs = level.cell.GetRefs();
        for (std::size_t number = 0; number < refs.size(); ++number) {
            if (refs[number].sort == RefSort::Container) {
                chests.emplace(refs[number].GetName(), number);
            } else if (refs[number].sort == RefSort::Door) {
                leaves[PlaceOf(refs[number].position, refs[number].GetName())].push_back(number);
            }
        }
    }

    Lockables Find() {
        FindHeld();
        FindChests(level.layout);
        FindDoors(level.layout, Di3Point());
        std::ranges::sort(found.chests, {}, &LockableChest::ref);
        std::ranges::sort(
            found.doors, {}, [](const LockableDoor& door) { return door.leaves.front(); });
        return std::move(found);
    }

private:
    // The elements that the plan was made of: where several have tiles in one cell the first
    // counts.
    void FindHeld() {
        for (const LevelPart& part : PartsOf(level.layout)) {
            if (!part.sameFloor) {
                break;
            }
            ForEachTiled(*part.layout, part.origin, [&](const GridElmt& elmt, const DiPos& at) {
                const DiPos& size = level.layout.GetSize();
                const bool inside = at.x >= 0 && at.y >= 0 && at.x < size.x && at.y < size.y;
                if (inside && taken.insert(&plan.At(at)).second) {
                    held.emplace(&elmt, &plan.At(at));
                }
            });
        }
    }

    const PlanCell* CellOf(const GridElmt& elmt) const {
        const auto cell = held.find(&elmt);
        return cell == held.end() ? nullptr : cell->second;
    }

    void FindChests(const Layout& layout) {
        ForEachTiled(layout, DiPos(), [&](const GridElmt& elmt, const DiPos&) {
            for (const DiPtr<ContentItem>& item : elmt.contents) {
                const auto ref = chests.find(item->uniqueName);
                if (!item->IsKind(Content_Container) || ref == chests.end()) {
                    continue;
                }
                const PlanCell* const cell = CellOf(elmt);
                found.chests.push_back({cell == nullptr ? DiPos() : plan.PlaceOf(*cell),
                                        cell != nullptr && cell->even,
                                        ref->second});
            }
        });
        for (const DiPtr<Layout>& child : layout.GetChildren()) {
            FindChests(*child);
        }
    }

    // With the offset of the layout, summed up as that of the references is.
    void FindDoors(const Layout& layout, const Di3Point& offset) {
        ForEachTiled(layout, DiPos(), [&](const GridElmt& elmt, const DiPos& at) {
            const PlanCell* const cell = CellOf(elmt);
            if (cell != nullptr && cell->doorway != 0) {
                AddDoor(*cell, elmt, at, offset);
            }
        });
        for (const DiPtr<Layout>& child : layout.GetChildren()) {
            FindDoors(*child, offset + child->GetOffset());
        }
    }

    void
    AddDoor(const PlanCell& cell, const GridElmt& elmt, const DiPos& at, const Di3Point& offset) {
        LockableDoor door{plan.PlaceOf(cell), DirN, &elmt, {}};
        bool known = true;
        const auto add = [&](const Tile& tile) {
            if (!IsDoorTile(tile)) {
                return;
            }
            const auto leaf = leaves.find(PlaceOf(
                WorldPosition(at, offset, tile.offset, level.tileSet.GetTileSize()), tile.id));
            door.side = GetTileDir(tile);
            // One of two that stand in one place could be of another cell.
            known = known && SideBit(door.side) == cell.doorway && leaf != leaves.end() &&
                    leaf->second.size() == 1;
            if (known) {
                door.leaves.push_back(leaf->second.front());
            }
        };
        for (const DiPtr<Tile>& tile : elmt.tiles) {
            add(*tile);
            if (!tile->requiredName.empty()) {
                if (const DiPtr<Tile>& companion = level.tileSet.Get(tile->requiredName)) {
                    add(*companion);
                }
            }
        }
        if (known && !door.leaves.empty()) {
            found.doors.push_back(std::move(door));
        }
    }

    const FinishedLevel& level;
    const LevelPlan& plan;
    std::unordered_map<std::string, std::size_t> chests; // references, by identifier
    std::map<RefPlace, std::vector<std::size_t>> leaves; // references, by place and identifier
    std::unordered_set<const PlanCell*> taken;
    std::unordered_map<const GridElmt*, const PlanCell*> held;
    Lockables found;
};

} // namespace

Lockables LockablesOf(const FinishedLevel& level) {
    return LockablesOf(level, PlanOf(level.layout));
}

Lockables LockablesOf(const FinishedLevel& level, const LevelPlan& plan) {
    return LockableFinder(level, plan).Find();
}

} // namespace Tarnex
