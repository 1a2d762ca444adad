// SPDX-License-Identifier: MIT
// What tidying halls and closing openings leave as it was, on thousands of levels.
#include <vaultry/gen/LevelObserver.h>
#include <vaultry/layout/LevelPlan.h>
#include <vaultry/run/Run.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <map>
#include <string>
#include <tests/support/LogTest.h>
#include <tuple>
#include <utility>
#include <vector>

namespace Tarnex::Test {

namespace {

using Place = std::pair<std::int32_t, std::int32_t>;
using Thing = std::tuple<std::string, float, float, float, float>;

// A level as these tests compare it.
struct Seen {
    std::uint32_t openEnds = 0;
    std::uint32_t halls = 0;
    std::uint32_t knots = 0; // blocks of two by two junctions
    std::vector<bool> reached;
    // From each piece of hall before a doorway to all others, over halls alone. [pieces]
    std::map<std::pair<Place, Place>, std::uint32_t> ways;
    std::vector<Thing> things; // all references but pieces and doors
    std::uint32_t told = 0;    // of open ends, in the report
};

class Watcher : public LevelObserver {
public:
    void StartOver() override { levels.clear(); }

    void LevelFinished(const FinishedLevel& level) override {
        Seen seen;
        LevelPlan plan = PlanOf(level.layout);
        for (PlanCell& cell : plan.cells) {
            const bool isHall = cell.tile == PlanTile::Hall;
            seen.openEnds += static_cast<std::uint32_t>(std::popcount(cell.loose));
            seen.halls += isHall ? 1U : 0U;
            if (isHall) {
                seen.knots += IsKnot(plan, cell) ? 1U : 0U;
                AddWays(plan, cell, seen);
            }
        }
        for (const Ref& ref : level.cell.GetRefs()) {
            if (ref.sort != RefSort::Tile && ref.sort != RefSort::Door) {
                const Di3Point& at = ref.position;
                seen.things.emplace_back(ref.GetName(), at.x, at.y, at.z, ref.rotation.z);
            }
        }
        seen.told = level.report->openEnds;
        for (const RoomReport& room : level.report->rooms) {
            seen.reached.push_back(room.reachable);
        }
        levels.push_back(std::move(seen));
    }

    std::vector<Seen> levels;

private:
    static bool IsJunction(const PlanCell& cell) {
        return cell.tile == PlanTile::Hall && std::popcount(cell.open) == 4;
    }

    static bool IsKnot(LevelPlan& plan, PlanCell& cell) {
        PlanCell& east = *plan.Next(cell, DirE);
        return IsJunction(cell) && IsJunction(east) && IsJunction(*plan.Next(cell, DirS)) &&
               IsJunction(*plan.Next(east, DirS));
    }

    static bool IsBeforeDoorway(LevelPlan& plan, PlanCell& cell) {
        return std::ranges::any_of(kSides, [&](TileDirT side) {
            return (cell.ways & SideBit(side)) != 0 &&
                   plan.Next(cell, side)->tile != PlanTile::Hall;
        });
    }

    static Place At(const LevelPlan& plan, const PlanCell& cell) {
        const DiPos place = plan.PlaceOf(cell);
        return {place.x, place.y};
    }

    static void AddWays(LevelPlan& plan, PlanCell& from, Seen& seen) {
        if (!IsBeforeDoorway(plan, from)) {
            return;
        }
        std::map<PlanCell*, std::uint32_t> length = {{&from, 0}};
        std::vector<PlanCell*> reached = {&from};
        for (std::size_t i = 0; i < reached.size(); ++i) {
            PlanCell& cell = *reached[i];
            if (IsBeforeDoorway(plan, cell)) {
                seen.ways[{At(plan, from), At(plan, cell)}] = length[&cell];
            }
            for (const TileDirT side : kSides) {
                PlanCell* next = plan.Next(cell, side);
                if ((cell.ways & SideBit(side)) != 0 && next->tile == PlanTile::Hall &&
                    length.emplace(next, length[&cell] + 1).second) {
                    reached.push_back(next);
                }
            }
        }
    }
};

class HallOptionsTest : public LogTest {
protected:
    struct Set {
        const char* config;
        const char* name;
        bool isCave;
    };

    static constexpr std::array<Set, 3> kSets = {{{"vaultry", "Imperial small", false},
                                                  {"vaultry", "Hlaalu", false},
                                                  {"caves", "Mold cave tunnels", true}}};

    // Calls `look` with each level as it is without and with what `change` sets.
    template <typename Change, typename Look>
    void ForLevels(std::uint32_t count, const Change& change, const Look& look) {
        std::uint32_t levels = 0;
        for (std::uint32_t i = 0; levels < count; ++i) {
            const Set& set = kSets[i % kSets.size()];
            GenMgr& manager = managers[i % kSets.size()];
            if (manager.GetRoomTileSets().empty() && manager.GetCaveTileSets().empty()) {
                manager.Init(
                    (std::string(VAULTRY_SOURCE_DIR "/data/") + set.config + ".xml").c_str());
            }
            RunOptions options;
            (set.isCave ? options.caveTileSet : options.tileSet) = set.name;
            options.levelSize = static_cast<RandomGenInfo::LevelSizeT>(2 + i / 3 % 3);
            options.roomSpacing = static_cast<RandomGenInfo::RoomSpacingT>(1 + i / 9 % 4);
            options.creatureTheme = "Undead";
            options.stamp = 1;
            const std::vector<Seen> plain = LevelsOf(manager, options, i);
            change(options);
            const std::vector<Seen> changed = LevelsOf(manager, options, i);
            ASSERT_EQ(plain.size(), changed.size());
            for (std::size_t level = 0; level < plain.size(); ++level) {
                SCOPED_TRACE(set.name + std::string(" seed ") + std::to_string(FurtherSeed(1, i)));
                look(plain[level], changed[level]);
            }
            levels += static_cast<std::uint32_t>(plain.size());
        }
    }

private:
    static std::vector<Seen>
    LevelsOf(GenMgr& manager, const RunOptions& options, std::uint32_t number) {
        Watcher watcher;
        manager.SetLevelObserver(&watcher);
        Tarnex::Run(manager, options).GenerateFrom(FurtherSeed(1, number));
        manager.SetLevelObserver(nullptr);
        return watcher.levels;
    }

    std::array<GenMgr, kSets.size()> managers;
};

// Whether all of `some` is in `all`, in its order.
bool IsPartOf(const std::vector<Thing>& some, const std::vector<Thing>& all) {
    auto next = all.begin();
    return std::ranges::all_of(some, [&](const Thing& thing) {
        next = std::find(next, all.end(), thing);
        return next != all.end() && (++next, true);
    });
}

TEST_F(HallOptionsTest, TidiedHallsAreShorterAndLeadWhereTheyLedInAsManySteps) {
    std::uint64_t before = 0;
    std::uint64_t after = 0;
    std::uint64_t knotsBefore = 0;
    std::uint64_t knotsAfter = 0;
    ForLevels(
        2000,
        [](RunOptions& options) { options.tidyHalls = 8; },
        [&](const Seen& plain, const Seen& tidied) {
            EXPECT_EQ(tidied.reached, plain.reached);
            EXPECT_EQ(tidied.ways, plain.ways);
            EXPECT_LE(tidied.openEnds, plain.openEnds);
            EXPECT_EQ(tidied.told, tidied.openEnds);
            EXPECT_TRUE(IsPartOf(tidied.things, plain.things));
            before += plain.halls;
            after += tidied.halls;
            knotsBefore += plain.knots;
            knotsAfter += tidied.knots;
        });
    EXPECT_LT(after, before);
    EXPECT_LT(knotsAfter * 2, knotsBefore);
    RecordProperty("knots", std::to_string(knotsBefore) + " " + std::to_string(knotsAfter));
}

TEST_F(HallOptionsTest, ClosingOpeningsCutsNothingOffAndMovesNothing) {
    std::uint64_t before = 0;
    std::uint64_t after = 0;
    ForLevels(
        1000,
        [](RunOptions& options) { options.closeOpenings = true; },
        [&](const Seen& plain, const Seen& closed) {
            EXPECT_EQ(closed.reached, plain.reached);
            EXPECT_LE(closed.openEnds, plain.openEnds);
            EXPECT_EQ(closed.told, closed.openEnds);
            EXPECT_TRUE(IsPartOf(closed.things, plain.things));
            before += plain.openEnds;
            after += closed.openEnds;
        });
    EXPECT_GT(before, 250U);
    EXPECT_LT(after * 6, before);
    RecordProperty("openings", std::to_string(before) + " " + std::to_string(after));
}

TEST_F(HallOptionsTest, BothTogetherLeaveTheRoomsInReachToo) {
    ForLevels(
        300,
        [](RunOptions& options) {
            options.tidyHalls = 20;
            options.closeOpenings = true;
        },
        [](const Seen& plain, const Seen& changed) {
            EXPECT_EQ(changed.reached, plain.reached);
            EXPECT_LE(changed.openEnds, plain.openEnds);
            EXPECT_EQ(changed.told, changed.openEnds);
        });
}

} // namespace

} // namespace Tarnex::Test
