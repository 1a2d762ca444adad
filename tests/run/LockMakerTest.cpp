// SPDX-License-Identifier: MIT
#include <vaultry/foundation/Random.h>
#include <vaultry/gen/ContainerIds.h>
#include <vaultry/gen/LevelObserver.h>
#include <vaultry/layout/LevelPlan.h>
#include <vaultry/output/PluginReader.h>
#include <vaultry/run/ArrivalPlace.h>
#include <vaultry/run/BuiltinConfigs.h>
#include <vaultry/run/Run.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <tests/support/LogTest.h>
#include <vector>

namespace Tarnex::Test {

namespace {

bool IsLocked(const Ref& ref) {
    return ref.GetLock() && ref.GetLock()->level.value_or(0) > 0;
}

// Walks through each level that it is shown, from the references alone: takes the keys out of what
// is not locked and opens what they fit.
class LockJudge : public LevelObserver {
public:
    explicit LockJudge(const Mod& plugin) : mod(plugin) {}

    void StartOver() override {
        entries.clear();
        levelsSeen = 0;
    }

    void LevelFinished(const FinishedLevel& level) override {
        ++levels;
        ++levelsSeen;
        const LevelPlan plan = PlanOf(level.layout);
        size = level.tileSet.GetTileSize();
        Note(level, plan);
        std::vector<DiPos> starts = StartsOf(level, plan);
        for (const DiPos& start : starts) {
            ExpectAllOpens(plan, start);
        }
    }

    std::size_t levels = 0;
    std::size_t doors = 0;       // locked ones
    std::size_t between = 0;     // of them those to other levels
    std::size_t chests = 0;      // locked ones
    std::size_t behind = 0;      // keys that lie behind another locked door
    std::set<std::int32_t> seen; // levels of locks

private:
    struct Door {
        const PlanCell* cell; // beside it
        const PlanCell* next; // on its other side
        std::string key;
        const Ref* leadsTo; // another level, or null
    };

    DiPos CellOf(const Di3Point& place) const {
        const auto nearest = [this](float units) {
            return static_cast<std::int32_t>(std::floor(double{units} / size + 0.5));
        };
        return {nearest(place.x), nearest(-place.y), 0};
    }

    // The two cells on whose border a door stands: what is nearer to a border than to the other
    // one.
    Door DoorAt(const Ref& ref, const LevelPlan& plan) const {
        const DiPos cell = CellOf(ref.position);
        const double east = double{ref.position.x} / size - cell.x;
        const double south = -double{ref.position.y} / size - cell.y;
        DiPos next = cell;
        if (std::abs(east) > std::abs(south)) {
            next.x += east > 0 ? 1 : -1;
        } else {
            next.y += south > 0 ? 1 : -1;
        }
        Door door{&plan.At(cell), &plan.At(next), {}, ref.GetDestination().get()};
        if (door.leadsTo != nullptr) {
            // Nobody comes to it from behind.
            door.cell = door.cell->teleport ? door.cell : door.next;
            door.next = door.cell;
        }
        door.key = IsLocked(ref) ? ref.GetLock()->key : "";
        return door;
    }

    void Note(const FinishedLevel& level, const LevelPlan& plan) {
        locked.clear();
        keysIn.clear();
        leads.clear();
        std::map<std::string, const Container*> records;
        for (const DiPtr<Container>& container : mod.GetContainers()) {
            records.emplace(container->GetId(), container.get());
        }
        std::set<std::string> keys;
        for (const DiPtr<Key>& key : mod.GetKeys()) {
            EXPECT_LE(key->GetId().size(), 31U);
            EXPECT_TRUE(keys.insert(key->GetId()).second);
        }
        for (const Ref& ref : level.cell.GetRefs()) {
            if (IsLocked(ref)) {
                seen.insert(*ref.GetLock()->level);
            }
            if (ref.sort == RefSort::Container) {
                const bool shut = IsLocked(ref);
                chests += shut ? 1 : 0;
                for (const auto& [item, count] : records.at(ref.GetName())->GetInventory()) {
                    if (keys.contains(item)) {
                        EXPECT_FALSE(shut) << "a key in what is locked";
                        EXPECT_EQ(count, 1U);
                        keysIn[&plan.At(CellOf(ref.position))].insert(item);
                    }
                }
            } else if (IsLocked(ref)) {
                ++doors;
                between += ref.GetDestination() ? 1 : 0;
                EXPECT_EQ(ref.sort, RefSort::Door);
                EXPECT_TRUE(keys.contains(ref.GetLock()->key));
                locked.push_back(DoorAt(ref, plan));
            } else if (ref.GetLock() && ref.GetLock()->level) {
                // The other side, which says so.
                EXPECT_TRUE(ref.GetDestination());
                EXPECT_EQ(ref.GetLock()->key, "");
            }
            if (ref.GetDestination()) {
                leads.push_back(DoorAt(ref, plan));
            }
        }
    }

    std::vector<DiPos> StartsOf(const FinishedLevel& level, const LevelPlan& plan) {
        const auto entry = entries.find(level.cell.GetName());
        // The first that leads here is that of the level before.
        if (entry != entries.end() && levelsSeen > 1) {
            return {entry->second};
        }
        std::vector<DiPos> starts;
        if (const auto arrival = ArrivalOf(level)) {
            starts.push_back(CellOf(arrival->place));
        }
        for (const PlanCell& cell : plan.cells) {
            if (level.report == nullptr && (cell.loose & cell.doorway) != 0) {
                starts.push_back(plan.PlaceOf(cell));
            }
        }
        return starts;
    }

    // Where one gets with these keys from a cell.
    std::set<const PlanCell*>
    Reached(const LevelPlan& plan, const DiPos& start, const std::set<std::string>& keys) const {
        const auto bars = [&](const PlanCell& from, const PlanCell& to) {
            return std::ranges::any_of(locked, [&](const Door& door) {
                const bool here = (door.cell == &from && door.next == &to) ||
                                  (door.cell == &to && door.next == &from);
                return here && door.leadsTo == nullptr && !keys.contains(door.key);
            });
        };
        std::set<const PlanCell*> reached = {&plan.At(start)};
        Walk(plan,
             std::vector{&plan.At(start)},
             [&](const PlanCell& from, const PlanCell& to, TileDirT) {
                 return !bars(from, to) && reached.insert(&to).second;
             });
        return reached;
    }

    void ExpectAllOpens(const LevelPlan& plan, const DiPos& start) {
        std::set<std::string> all;
        for (const Door& door : locked) {
            all.insert(door.key);
        }
        std::set<std::string> keys;
        std::set<const PlanCell*> reached;
        for (bool first = true, more = true; more; first = false) {
            reached = Reached(plan, start, keys);
            const std::size_t before = keys.size();
            for (const auto& [cell, inside] : keysIn) {
                if (reached.contains(cell)) {
                    keys.insert(inside.begin(), inside.end());
                }
            }
            more = keys.size() > before;
            behind += first ? 0 : keys.size() - before;
        }
        EXPECT_EQ(reached, Reached(plan, start, all));
        for (const Door& door : leads) {
            if (reached.contains(door.cell)) {
                entries.emplace(door.leadsTo->GetName(), CellOf(door.leadsTo->position));
            }
        }
        for (const Door& door : locked) {
            const bool met = reached.contains(door.cell) || reached.contains(door.next);
            EXPECT_TRUE(!met || keys.contains(door.key)) << door.key;
        }
    }

    const Mod& mod;
    std::int32_t size = 1;
    int levelsSeen = 0;
    std::vector<Door> locked;
    std::map<const PlanCell*, std::set<std::string>> keysIn;
    std::vector<Door> leads;
    std::map<std::string, DiPos> entries; // the first that was found to each
};

class LockMakerTest : public LogTest {
protected:
    LockMakerTest() {
        manager.Init(VAULTRY_SOURCE_DIR "/data/vaultry.xml");
        manager.SetLevelObserver(&judge);
        options.lock = 60;
        options.stamp = 1;
    }

    GenMgr manager;
    LockJudge judge{manager.mod};
    RunOptions options;
};

TEST_F(LockMakerTest, WhoeverOpensOnlyWhatHeHasTheKeyOfGetsEverywhere) {
    options.numLevels = 3;
    options.roomSpacing = RandomGenInfo::Tight;
    for (const auto size : {RandomGenInfo::Tiny, RandomGenInfo::Small, RandomGenInfo::Medium}) {
        options.levelSize = size;
        Tarnex::Run run(manager, options);
        for (std::uint32_t seed = 0; seed < 120; ++seed) {
            ASSERT_EQ(run.GenerateFrom(FurtherSeed(5, seed)).end, RunEnd::Made);
            ASSERT_FALSE(HasFailure()) << "size " << size << ", seed " << FurtherSeed(5, seed);
        }
    }
    EXPECT_GE(judge.levels, 1000U);
    EXPECT_GT(judge.doors, 3000U);
    EXPECT_GT(judge.between, 300U);
    EXPECT_GT(judge.behind, 300U);
    EXPECT_GT(judge.chests, 3000U);
    EXPECT_EQ(*judge.seen.begin(), 10);
    EXPECT_EQ(*judge.seen.rbegin(), 50);
    EXPECT_EQ(judge.seen.size(), 41U);
}

TEST_F(LockMakerTest, SoItIsInCaves) {
    LoadBuiltin(manager, *FindBuiltinConfig("builtin:caves"), "caves");
    options.numLevels = 2;
    options.lock = 100;
    Tarnex::Run run(manager, options);
    for (std::uint32_t seed = 0; seed < 50; ++seed) {
        ASSERT_EQ(run.GenerateFrom(seed).end, RunEnd::Made);
        ASSERT_FALSE(HasFailure()) << "seed " << seed;
    }
    EXPECT_GT(judge.levels, 90U);
    EXPECT_GT(judge.doors, 50U);
}

// Where it is to be joined to the world by its doorways, each of those is a way in.
TEST_F(LockMakerTest, SoItIsInFixedInteriorsFromEveryWayIn) {
    options.fixed = true;
    options.lock = 100;
    for (const DiPtr<LayoutTemplate>& layout : manager.GetRoomLayouts()) {
        options.layout = layout->GetName();
        for (std::uint32_t seed = 0; seed < 5; ++seed) {
            options.seed = seed;
            ASSERT_EQ(Tarnex::Run(manager, options).Generate().end, RunEnd::Made);
            ASSERT_FALSE(HasFailure()) << *options.layout << ", seed " << seed;
        }
    }
    EXPECT_GT(judge.levels, 50U);
    EXPECT_GT(judge.chests, 50U);
}

// A plug-in's bytes without keys, locks and traps, wherever they stand.
class Unlocked {
public:
    explicit Unlocked(std::string_view file) {
        for (std::size_t at = 0; at < file.size();) {
            const std::string_view record = file.substr(at, 16 + WordAt(file, at + 4));
            at += record.size();
            if (!record.starts_with("MISC")) {
                AddRecord(record);
            }
        }
    }

    std::string bytes;
    std::size_t taken = 0; // sub-records

private:
    static std::size_t WordAt(std::string_view text, std::size_t place) {
        std::size_t word = 0;
        for (std::size_t i = 4; i-- > 0;) {
            word = word << 8 | static_cast<unsigned char>(text.at(place + i));
        }
        return word;
    }

    static bool IsOfLocks(std::string_view sub) {
        const std::string_view tag = sub.substr(0, 4);
        return tag == "FLTV" || tag == "KNAM" || tag == "TNAM" ||
               (tag == "NPCO" && sub.substr(12).starts_with("Key1_"));
    }

    void AddRecord(std::string_view record) {
        std::string data;
        for (std::size_t at = 16; at < record.size();) {
            const std::string_view sub = record.substr(at, 8 + WordAt(record, at + 4));
            at += sub.size();
            taken += IsOfLocks(sub) ? 1 : 0;
            data += IsOfLocks(sub) ? std::string_view() : sub;
        }
        bytes += record.substr(0, 4);
        for (std::size_t byte = 0; byte < 4; ++byte) {
            bytes += static_cast<char>(data.size() >> 8 * byte);
        }
        bytes += record.substr(8, 8);
        bytes += data;
    }
};

class LockTest : public LogTest {
protected:
    LockTest() {
        manager.Init(VAULTRY_SOURCE_DIR "/data/vaultry.xml");
        options.seed = 3;
        options.stamp = 1;
        options.numLevels = 3;
        options.levelSize = RandomGenInfo::Small;
        options.creatureTheme = manager.GetCreatureThemes().front()->GetName();
    }

    PluginFile Made() {
        EXPECT_EQ(Generate().end, RunEnd::Made);
        return ReadPlugin(Bytes());
    }

    void UseTraps(const char* table) {
        options.ids = InputFile{dir.Write("ids.csv", std::string("role,id,source\n") + table)};
    }

    std::string Bytes() {
        std::ostringstream stream;
        manager.mod.Write(stream);
        return stream.str();
    }

    // The name alone is the fixture's.
    RunResult Generate() { return Tarnex::Run(manager, options).Generate(); }

    GenMgr manager;
    RunOptions options;
};

TEST_F(LockTest, LocksAreAddedAndChangeNothingElse) {
    Generate();
    const std::string before = Bytes();
    const auto draws = [this] {
        std::vector<std::int32_t> values;
        RecordDraws(
            [](const RandomDraw& draw, void* list) {
                static_cast<std::vector<std::int32_t>*>(list)->push_back(draw.value);
            },
            &values);
        Generate();
        RecordDraws(nullptr, nullptr);
        return values;
    };
    const std::vector<std::int32_t> drawn = draws();
    UseTraps("trap,a_trap,\n");
    options.lock = 50;
    options.trap = 50;
    EXPECT_EQ(draws(), drawn);
    const Unlocked unlocked(Bytes());
    EXPECT_GT(unlocked.taken, 50U);
    EXPECT_EQ(unlocked.bytes, before);
    options.pathGrid = true;
    options.uniqueReferences = true;
    Generate();
    const std::string all = Unlocked(Bytes()).bytes;
    options.lock = options.trap = 0;
    Generate();
    EXPECT_EQ(all, Bytes());
}

TEST_F(LockTest, TheChanceIsOfAHundredThings) {
    options.lock = 0;
    const auto locked = [this] {
        std::size_t count = 0;
        for (const PluginCell& cell : Made().cells) {
            count += static_cast<std::size_t>(std::ranges::count_if(
                cell.refs, [](const PluginRef& ref) { return ref.lock.has_value(); }));
        }
        return count;
    };
    EXPECT_EQ(locked(), 0U);
    options.lock = 100;
    const std::size_t all = locked();
    options.lock = 50;
    const std::size_t half = locked();
    EXPECT_GT(all, 40U);
    EXPECT_GT(half, all / 4);
    EXPECT_LT(half, all * 3 / 4);
    options.lock = 1;
    EXPECT_LT(locked(), all / 8);
}

// A door without a container before it stays open, and a container with a key: all others are shut.
TEST_F(LockTest, WithAllLockedEveryContainerWithoutAKeyIs) {
    options.lock = 100;
    options.lockLevels = {100, 100};
    const PluginFile file = Made();
    std::set<std::string> keys;
    std::set<std::string> holders;
    for (const PluginKey& key : file.keys) {
        keys.insert(key.id);
    }
    for (const PluginContainer& container : file.containers) {
        for (const PluginItem& item : container.items) {
            if (keys.contains(item.id)) {
                holders.insert(container.id);
                EXPECT_EQ(item.count, 1);
            }
        }
    }
    EXPECT_GT(keys.size(), 10U);
    std::set<std::string> opened;
    for (const PluginCell& cell : file.cells) {
        for (const PluginRef& ref : cell.refs) {
            if (ref.id.starts_with("Ctr")) {
                EXPECT_EQ(ref.lock.has_value(), !holders.contains(ref.id)) << ref.id;
            }
            if (!ref.lock) {
                continue;
            }
            EXPECT_TRUE(ref.lock->level == 100 || (ref.lock->level == 0 && ref.destination));
            if (!ref.lock->key.empty()) {
                EXPECT_TRUE(opened.insert(ref.lock->key).second) << "two doors for one key";
            }
        }
    }
    EXPECT_EQ(opened, keys);
}

// Whoever comes out of a door from another level finds it open.
TEST_F(LockTest, OfTwoDoorsThatLeadToEachOtherTheSecondSaysThatItIsOpen) {
    options.lock = 100;
    std::size_t pairs = 0;
    for (std::uint32_t seed = 0; seed < 10; ++seed) {
        options.seed = seed;
        const PluginFile file = Made();
        for (std::size_t i = 0; i + 1 < file.cells.size(); ++i) {
            const auto door = [&file](std::size_t from, std::size_t to) {
                for (const PluginRef& ref : file.cells[from].refs) {
                    if (ref.destination && ref.destination->cell == file.cells[to].name) {
                        return ref.lock;
                    }
                }
                return std::optional<PluginLock>();
            };
            const auto onward = door(i, i + 1);
            EXPECT_EQ(door(i + 1, i), onward ? std::optional(PluginLock{0, "", ""}) : onward);
            pairs += onward ? 1 : 0;
        }
    }
    EXPECT_GT(pairs, 10U);
}

TEST_F(LockTest, TrapsAreTheSpellsOfTheTable) {
    UseTraps("trap,a_trap,\ntrap,b_trap,\nkey-model,m\\k.nif,\nkey-icon,m\\k.tga,\n");
    options.trap = 100;
    std::set<std::string> spells;
    for (const PluginCell& cell : Made().cells) {
        for (const PluginRef& ref : cell.refs) {
            if (ref.lock) {
                EXPECT_FALSE(ref.lock->level);
                EXPECT_EQ(ref.lock->key, "");
                spells.insert(ref.lock->trap);
            } else {
                EXPECT_FALSE(ref.id.starts_with("Ctr")) << ref.id;
            }
        }
    }
    EXPECT_EQ(spells, (std::set<std::string>{"a_trap", "b_trap"}));
    const std::string trapped = Bytes();
    EXPECT_TRUE(manager.mod.GetKeys().empty());
    options.lock = 100;
    const PluginFile file = Made();
    ASSERT_FALSE(file.keys.empty());
    EXPECT_EQ(file.keys.front().model, "m\\k.nif");
    EXPECT_EQ(file.keys.front().icon, "m\\k.tga");
    EXPECT_EQ(file.keys.front().name, "Key 1 of dungeon, Level 1");
    // Neither stream disturbs the other.
    options.trap = 0;
    const PluginFile locked = Made();
    for (std::size_t i = 0; i < file.cells.size(); ++i) {
        for (std::size_t j = 0; j < file.cells[i].refs.size(); ++j) {
            const auto& both = file.cells[i].refs[j].lock;
            const auto& one = locked.cells[i].refs[j].lock;
            EXPECT_EQ(both ? both->level : std::nullopt, one ? one->level : std::nullopt);
        }
    }
}

TEST_F(LockTest, WithoutASpellThereAreNoTraps) {
    Generate();
    const std::string before = Bytes();
    options.trap = 100;
    const RunResult result = Generate();
    EXPECT_EQ(result.problems, std::vector<Problem>());
    EXPECT_EQ(Bytes(), before);
    EXPECT_EQ(LogLines().back(), "Info : Run : No traps:  The ids name no spell for them.");
}

TEST_F(LockTest, ATableOfIdsThatCannotBeUsedRefusesTheRun) {
    UseTraps("tarp,a_trap,\n");
    const RunResult result = Generate();
    EXPECT_EQ(result.end, RunEnd::Refused);
    const std::string fault = "the ids \"" + options.ids->path +
                              "\", line 2: \"tarp\" is no role; there are trap, key-model, "
                              "key-icon, outside-door";
    EXPECT_EQ(result.problems, (std::vector<Problem>{{ProblemKind::UnusableIds, {fault}}}));
    EXPECT_EQ(ErrorLines(),
              std::vector<std::string>{"Error : Run : Unable to generate:  " + fault});
}

TEST_F(LockTest, ALongNameOfACellIsCutInTheNamesOfItsKeys) {
    options.cell = std::string(51, 'x');
    options.lock = 100;
    options.stamp = kMaxStamp;
    for (const PluginKey& key : Made().keys) {
        EXPECT_EQ(key.name.size(), 31U);
        EXPECT_TRUE(key.name.starts_with("Key "));
        EXPECT_LE(key.id.size(), 31U);
        EXPECT_TRUE(key.id.starts_with("Key9223372036854775807_"));
    }
}

// What a seed means: none of it may change.
TEST_F(LockTest, ASeedLocksTheSameThingsForEver) {
    options.lock = 30;
    std::string locks;
    const PluginFile file = Made();
    for (const PluginRef& ref : file.cells.at(0).refs) {
        if (ref.lock) {
            locks += std::to_string(ref.index) + ": " + std::to_string(*ref.lock->level) + ' ' +
                     ref.lock->key + '\n';
        }
    }
    EXPECT_EQ(locks, "5: 24 \n61: 16 Key1_1\n72: 45 Key1_2\n132: 40 \n");
}

} // namespace

} // namespace Tarnex::Test
