// SPDX-License-Identifier: MIT
#include <vaultry/run/LockMaker.h>

#include <vaultry/foundation/Numeric.h>
#include <vaultry/run/ArrivalPlace.h>
#include <vaultry/run/LevelSite.h>

#include <algorithm>
#include <cmath>

namespace Tarnex {

namespace {

constexpr std::size_t kLongestName = 31; // that the game shows of an item [bytes]

DiPos CellOf(const Di3Point& place, std::int32_t tileSize) {
    const auto nearest = [tileSize](float units) {
        return TruncToInt(std::floor(double{units} / tileSize + 0.5));
    };
    return {nearest(place.x), nearest(-place.y), 0};
}

std::string FirstOf(const std::vector<std::string>& list) {
    return list.empty() ? std::string() : list.front();
}

// Leaves a thing as it is that nothing was drawn for.
void LockRefs(Cell& cell, const std::vector<std::size_t>& refs, const RefLock& lock) {
    if (lock.level || !lock.trap.empty()) {
        for (const std::size_t ref : refs) {
            cell.LockRef(ref, lock);
        }
    }
}

} // namespace

LockMaker::LockMaker(Mod& plugin,
                     const RunOptions& wishes,
                     const GameIds& gameIds,
                     std::uint32_t seed,
                     std::int64_t idStamp,
                     LevelObserver* nextObserver)
    : mod(plugin), options(wishes), ids(gameIds), stamp(std::to_string(idStamp)),
      next(nextObserver), locks(seed, StreamNumber::Locks), traps(seed, StreamNumber::Traps) {}

void LockMaker::LevelFinished(const FinishedLevel& level) {
    chestRecords.clear();
    for (; containers < mod.GetContainers().size(); ++containers) {
        const DiPtr<Container>& chest = mod.GetContainers()[containers];
        chestRecords.emplace(chest->GetId(), chest);
    }
    LockLevel(level);
    finished.insert(&level.layout);
    if (next != nullptr) {
        next->LevelFinished(level);
    }
}

// Back to a level before one goes freely: who is here has opened the other side.
bool LockMaker::LeadsOn(const LockableDoor& door, const Cell& cell) const {
    const Layout* const level = door.elmt->teleLayout.get();
    return level != nullptr && !finished.contains(level) &&
           std::ranges::all_of(door.leaves, [&cell](std::size_t leaf) {
               return static_cast<bool>(cell.GetRefs()[leaf].GetDestination());
           });
}

std::vector<DiPos> LockMaker::StartsOf(const FinishedLevel& level, const LevelPlan& plan) const {
    if (const auto entry = entries.find(&level.layout); entry != entries.end()) {
        return {entry->second};
    }
    std::vector<DiPos> starts;
    // Who comes in from the world stands behind that door.
    ForEachTiled(level.layout, DiPos(), [&starts](const GridElmt& elmt, const DiPos& place) {
        if (elmt.leadsOut) {
            starts.push_back(place);
        }
    });
    if (const auto arrival = ArrivalOf(level)) {
        starts.push_back(CellOf(arrival->place, level.tileSet.GetTileSize()));
    }
    for (const PlanCell& cell : plan.cells) {
        // Of a fixed interior those are its ways in.
        if (level.report == nullptr && (cell.loose & cell.doorway) != 0) {
            starts.push_back(plan.PlaceOf(cell));
        }
    }
    return starts;
}

LockMaker::Drawn LockMaker::DrawFor() {
    Drawn drawn;
    const auto& [least, most] = options.lockLevels;
    if (options.lock > 0 && locks.Happens(options.lock)) {
        drawn.lock = static_cast<std::int32_t>(least + locks.Draw(most - least + 1));
    }
    const std::vector<std::string>& spells = ids.Of(IdRole::Trap);
    if (options.trap > 0 && !spells.empty() && traps.Happens(options.trap)) {
        drawn.trap = spells.size() == 1 ? spells.front() : spells[traps.Draw(spells.size())];
    }
    return drawn;
}

void LockMaker::LockLevel(const FinishedLevel& level) {
    const LevelPlan plan = PlanOf(level.layout);
    const Lockables things = LockablesOf(level, plan);
    LevelSite site =
        SiteOf(plan, things, [&](const LockableDoor& door) { return LeadsOn(door, level.cell); });
    for (const DiPos& start : StartsOf(level, plan)) {
        const std::size_t place =
            site.placeOf[static_cast<std::size_t>(&plan.At(start) - plan.cells.data())];
        if (place != kAway) {
            site.site.starts.push_back(place);
        }
    }
    std::vector<Drawn> ofDoors(site.doors.size());
    std::vector<Drawn> ofChests(things.chests.size());
    std::map<std::size_t, Drawn*> byRef;
    for (std::size_t i = 0; i < ofDoors.size(); ++i) {
        byRef.emplace(site.doors[i]->leaves.front(), &ofDoors[i]);
    }
    for (std::size_t i = 0; i < ofChests.size(); ++i) {
        byRef.emplace(things.chests[i].ref, &ofChests[i]);
    }
    for (const auto& [ref, drawn] : byRef) {
        *drawn = DrawFor();
    }
    std::vector<bool> wanted;
    wanted.reserve(ofDoors.size());
    for (const Drawn& drawn : ofDoors) {
        wanted.push_back(drawn.lock.has_value());
    }
    const KeyPlan keyPlan =
        PlanKeys(site.site, wanted, [this](std::size_t count) { return locks.Draw(count); });
    std::set<const LockableChest*> holders;
    for (const auto& chest : keyPlan.keys) {
        if (chest) {
            holders.insert(site.chests[*chest]);
        }
    }
    LockDoors(site, ofDoors, keyPlan);
    LockChests(things, ofChests, holders);
    LeaveFarSidesOpen(level, things);
}

void LockMaker::LockDoors(const LevelSite& site,
                          const std::vector<Drawn>& drawn,
                          const KeyPlan& plan) {
    for (std::size_t i = 0; i < site.doors.size(); ++i) {
        const LockableDoor& door = *site.doors[i];
        RefLock lock;
        lock.trap = drawn[i].trap;
        if (const auto& chest = plan.keys[i]) {
            lock.level = drawn[i].lock;
            lock.key = PutKeyInto(*site.chests[*chest]);
        }
        LockRefs(OwnCell(), door.leaves, lock);
        if (!door.elmt->isTeleport || !plan.reached[site.site.doors[i].from]) {
            continue;
        }
        const DiPos& there = door.elmt->teleDest;
        entries.emplace(door.elmt->teleLayout.get(), there);
        if (lock.level) {
            farSides.emplace(door.elmt->teleLayout.get(), std::pair(there.x, there.y));
        }
    }
}

// A player without lockpicks has to get at every key.
void LockMaker::LockChests(const Lockables& things,
                           const std::vector<Drawn>& drawn,
                           const std::set<const LockableChest*>& holders) {
    for (std::size_t i = 0; i < things.chests.size(); ++i) {
        const LockableChest& chest = things.chests[i];
        RefLock lock;
        lock.trap = drawn[i].trap;
        if (!holders.contains(&chest)) {
            lock.level = drawn[i].lock;
        }
        LockRefs(OwnCell(), {chest.ref}, lock);
    }
}

// The game locks either side of a pair by itself: what is not said could be taken for forgotten.
void LockMaker::LeaveFarSidesOpen(const FinishedLevel& level, const Lockables& things) {
    RefLock open;
    open.level = 0;
    for (const LockableDoor& door : things.doors) {
        if (farSides.contains({&level.layout, {door.place.x, door.place.y}})) {
            LockRefs(OwnCell(), door.leaves, open);
        }
    }
}

std::string LockMaker::PutKeyInto(const LockableChest& chest) {
    const std::string number = std::to_string(++keys);
    const DiPtr<Key> key = mod.CreateKey(("Key" + stamp + '_' + number).c_str());
    key->name = ("Key " + number + " of " + OwnCell().GetName()).substr(0, kLongestName);
    key->model = FirstOf(ids.Of(IdRole::KeyModel));
    key->icon = FirstOf(ids.Of(IdRole::KeyIcon));
    // Every container has a record of its own.
    const std::string& record = OwnCell().GetRefs()[chest.ref].GetName();
    chestRecords.at(record)->Add(key->GetId().c_str(), 1);
    return key->GetId();
}

} // namespace Tarnex
