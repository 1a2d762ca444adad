// SPDX-License-Identifier: MIT
#include <vaultry/run/LevelSite.h>

#include <map>
#include <utility>

namespace Tarnex {

namespace {

class SiteMaker {
public:
    SiteMaker(const LevelPlan& levelPlan, const Lockables& levelThings)
        : plan(levelPlan), things(levelThings) {}

    LevelSite Make(const std::function<bool(const LockableDoor&)>& leadsOn) {
        for (const LockableDoor& door : things.doors) {
            const PlanCell& cell = plan.At(door.place);
            const bool joins = (cell.ways & SideBit(door.side)) != 0;
            if (door.elmt->isTeleport ? leadsOn(door) : joins) {
                doorAt.emplace(std::pair(IndexOf(cell), door.side), made.doors.size());
                made.doors.push_back(&door);
            }
        }
        NumberPlaces();
        for (const LockableDoor* door : made.doors) {
            made.site.doors.push_back(EndsOf(*door));
        }
        for (const LockableChest& chest : things.chests) {
            if (chest.within && PlaceOf(plan.At(chest.place)) != kAway) {
                made.site.chests.push_back(PlaceOf(plan.At(chest.place)));
                made.chests.push_back(&chest);
            }
        }
        return std::move(made);
    }

private:
    std::size_t IndexOf(const PlanCell& cell) const {
        return static_cast<std::size_t>(&cell - plan.cells.data());
    }

    std::size_t& PlaceOf(const PlanCell& cell) { return made.placeOf[IndexOf(cell)]; }

    bool IsBarred(const PlanCell& cell, TileDirT side) const {
        return doorAt.contains({IndexOf(cell), side});
    }

    void NumberPlaces() {
        made.placeOf.assign(plan.cells.size(), kAway);
        for (const PlanCell& start : plan.cells) {
            if (start.tile == PlanTile::Empty || PlaceOf(start) != kAway) {
                continue;
            }
            const std::size_t number = made.site.places++;
            PlaceOf(start) = number;
            Walk(plan,
                 std::vector<const PlanCell*>{&start},
                 [&](const PlanCell& from, const PlanCell& to, TileDirT side) {
                     if (PlaceOf(to) != kAway || IsBarred(from, side) ||
                         IsBarred(to, OppositeOf(side))) {
                         return false;
                     }
                     PlaceOf(to) = number;
                     return true;
                 });
        }
    }

    // Where two doors stand face to face one passes both: between them is a place without anything.
    SiteDoor EndsOf(const LockableDoor& door) {
        const PlanCell& cell = plan.At(door.place);
        if (door.elmt->isTeleport) {
            return {PlaceOf(cell), kAway};
        }
        const PlanCell& next = *plan.Next(cell, door.side);
        const auto facing = doorAt.find({IndexOf(next), OppositeOf(door.side)});
        if (facing == doorAt.end()) {
            return {PlaceOf(cell), PlaceOf(next)};
        }
        const std::size_t other = facing->second;
        const std::size_t between =
            other < made.site.doors.size() ? made.site.doors[other].to : made.site.places++;
        return {PlaceOf(cell), between};
    }

    const LevelPlan& plan;
    const Lockables& things;
    std::map<std::pair<std::size_t, TileDirT>, std::size_t> doorAt; // numbers in made.doors
    LevelSite made;
};

} // namespace

LevelSite SiteOf(const LevelPlan& plan,
                 const Lockables& things,
                 const std::function<bool(const LockableDoor&)>& leadsOn) {
    return SiteMaker(plan, things).Make(leadsOn);
}

} // namespace Tarnex
