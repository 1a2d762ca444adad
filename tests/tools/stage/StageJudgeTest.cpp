// SPDX-License-Identifier: MIT
#include "tests/tools/stage/StageJudge.h"

#include "tests/tools/stage/StageTest.h"

#include <vaultry/gen/GenMgr.h>
#include <vaultry/run/BuiltinConfigs.h>
#include <vaultry/run/Run.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace Tarnex::Test {

namespace {

constexpr float kArrival = 32.0F; // one is put down above the floor
constexpr std::uint32_t kSeeds = 4;

struct Judged {
    std::size_t levels = 0;
    std::map<Fault, std::vector<std::string>> faults;
};

Judged JudgeRun(GenMgr& manager, const RunOptions& options, const Report::StagePlan& stage) {
    Report::MapCollector maps;
    manager.SetLevelObserver(&maps);
    const RunResult result = Run(manager, options).Generate();
    manager.SetLevelObserver(nullptr);
    Judged judged;
    for (const Arrival& arrival : result.arrivals) {
        StageLevel level;
        level.map = &maps.Maps().at(arrival.level);
        level.arrival = arrival.place;
        level.arrival.z -= kArrival;
        level.things = Stood(*manager.mod.GetCells().at(arrival.level), stage);
        for (const FaultAt& fault : FaultsOf(level)) {
            judged.faults[fault.fault].push_back(fault.words);
        }
        ++judged.levels;
    }
    return judged;
}

// The options that make levels of a tile set, random ones where it has halls for them.
RunOptions OptionsFor(std::string_view config, const std::string& tileSet, std::uint32_t seed) {
    RunOptions options;
    options.seed = seed;
    options.stamp = 1;
    options.fixed = config == "grottoes";
    options.levelSize = RandomGenInfo::Small;
    (tileSet.find("cave") != std::string::npos ? options.caveTileSet : options.tileSet) = tileSet;
    return options;
}

std::string TextOf(std::string_view config) {
    return std::string(std::ranges::find(BuiltinConfigs(), config, &BuiltinConfig::name)->text);
}

std::string WordsOf(const Judged& judged) {
    std::string words;
    for (const auto& [fault, lines] : judged.faults) {
        words += std::to_string(lines.size()) + " times, at first " + lines.front() + '\n';
    }
    return words;
}

std::vector<std::string> TileSetsOf(GenMgr& manager) {
    std::vector<std::string> sets;
    for (const auto* const list : {&manager.GetRoomTileSets(), &manager.GetCaveTileSets()}) {
        for (const auto& set : *list) {
            sets.push_back(set->GetName());
        }
    }
    return sets;
}

TEST(StageJudgeTest, NothingIsWrongWithTheBuiltinConfigurations) {
    const Report::StagePlan stage = BuiltinPlan();
    std::size_t levels = 0;
    for (const BuiltinConfig& config : BuiltinConfigs()) {
        GenMgr manager;
        manager.InitFromMemory(config.text, "config");
        for (const std::string& set : TileSetsOf(manager)) {
            for (std::uint32_t seed = 1; seed <= kSeeds; ++seed) {
                const Judged judged = JudgeRun(manager, OptionsFor(config.name, set, seed), stage);
                EXPECT_EQ(WordsOf(judged), "") << set << ", seed " << seed;
                levels += judged.levels;
            }
        }
    }
    EXPECT_EQ(levels, 18 * kSeeds);
}

// Where pieces of halls were taken out, and openings closed.
TEST(StageJudgeTest, NothingIsWrongWithTidyHallsAndClosedOpenings) {
    const Report::StagePlan stage = BuiltinPlan();
    for (const std::string_view config : {"default", "caves"}) {
        GenMgr manager;
        manager.InitFromMemory(TextOf(config), "config");
        for (const std::string& set : TileSetsOf(manager)) {
            for (std::uint32_t seed = 1; seed <= 2; ++seed) {
                RunOptions options = OptionsFor(config, set, seed);
                options.levelSize = RandomGenInfo::Large;
                options.roomSpacing = RandomGenInfo::Tight;
                options.tidyHalls = 8;
                options.closeOpenings = true;
                const Judged judged = JudgeRun(manager, options, stage);
                EXPECT_EQ(WordsOf(judged), "") << set << ", seed " << seed;
                EXPECT_EQ(judged.levels, 1U);
            }
        }
    }
}

// A mistake that somebody could make in a tile of a configuration.
struct Mutant {
    const char* config;
    const char* tileSet;
    const char* tile;
    const char* attribute; ///< that is larger by `by`; null: the tile is missing
    int by;
};

// Puts a tile of a text where it should not be.
std::string Mutated(std::string text, const Mutant& mutant) {
    const std::size_t set = text.find("TsName=\"" + std::string(mutant.tileSet) + '"');
    const std::string start = '<' + std::string(mutant.tile);
    std::size_t tile = text.find(start, set);
    while (std::string(" >").find(text.at(tile + start.size())) == std::string::npos) {
        tile = text.find(start, tile + 1);
    }
    const std::size_t end = text.find('>', tile);
    EXPECT_LT(tile, text.find("</TileSet>", set)) << mutant.tile;
    if (mutant.attribute == nullptr) {
        return text.erase(tile, text.find('>', end + 1) + 1 - tile);
    }
    const std::string name = std::string(mutant.attribute) + "=\"";
    const std::size_t place = text.find(name, tile);
    if (place > end) {
        return text.insert(end, ' ' + name + std::to_string(mutant.by) + '"');
    }
    const std::size_t value = place + name.size();
    const std::size_t quote = text.find('"', value);
    const int changed = std::stoi(text.substr(value, quote - value)) + mutant.by;
    return text.replace(value, quote - value, std::to_string(changed));
}

constexpr Mutant kMutants[] = {
    {"default", "Imperial small", "CornerNW", "ZRotate", 90},
    {"default", "Imperial small", "WallN", "ZRotate", 90},
    {"default", "Imperial small", "WallN", "ZRotate", 180},
    {"default", "Imperial small", "DoorwayN", "ZRotate", 180},
    {"default", "Imperial small", "HallNS", "ZRotate", 90},
    {"default", "Imperial small", "HallCornerNW", "ZRotate", 180},
    {"default", "Imperial small", "DoorjambN", "ZRotate", 90},
    {"default", "Imperial small", "DoorN", "ZRotate", 180},
    {"default", "Velothi", "CornerNW", "OffsetX", 64},
    {"default", "Velothi", "WallN", "OffsetY", -64},
    {"default", "Velothi", "DoorwayN", "OffsetX", 128},
    {"default", "Velothi", "Center", "OffsetZ", 64},
    {"default", "Velothi", "HallNS", "OffsetZ", -64},
    {"default", "Velothi", "HallCornerNW", "OffsetY", 64},
    {"default", "Hlaalu", "DoorwayN", "OffsetZ", 128},
    {"default", "Hlaalu", "Hall4Way", "OffsetX", 100},
    {"default", "Hlaalu", "WallN", nullptr, 0},
    {"default", "Hlaalu", "CornerNW", nullptr, 0},
    {"default", "Hlaalu", "Center", nullptr, 0},
    {"default", "Common stone", "HallNS", nullptr, 0},
    {"default", "Common stone", "HallCornerNW", nullptr, 0},
    {"default", "Common stone", "DoorwayN", nullptr, 0},
    {"default", "Common stone", "DoorN", "OffsetX", 100},
    {"caves", "Mold cave tunnels", "CornerNW", "ZRotate", 90},
    {"caves", "Mold cave tunnels", "HallNS", "OffsetY", 256},
    {"caves", "Mold cave tunnels", "Center", "OffsetY", 512},
    {"caves", "Mold cave tunnels", "WallN", "ZRotate", 180},
    {"caves", "Mold cave tunnels", "WallN", nullptr, 0},
    {"caves", "Mold cave tunnels", "HallEndN", "ZRotate", 180},
    {"grottoes", "Mold cave rooms", "CornerNW", "ZRotate", 90},
    {"grottoes", "Mold cave rooms", "WallN", "ZRotate", 180},
    {"grottoes", "Mold cave rooms", "DoorwayN", "OffsetZ", 128},
    {"grottoes", "Mold cave rooms", "Center", "OffsetZ", -64},
};

TEST(StageJudgeTest, MistakesInTilesAreNoticed) {
    const Report::StagePlan stage = BuiltinPlan();
    std::set<Fault> kinds;
    for (const Mutant& mutant : kMutants) {
        GenMgr manager;
        manager.InitFromMemory(Mutated(TextOf(mutant.config), mutant), "mutant");
        std::string words;
        for (std::uint32_t seed = 1; seed <= kSeeds; ++seed) {
            const Judged judged =
                JudgeRun(manager, OptionsFor(mutant.config, mutant.tileSet, seed), stage);
            for (const auto& [fault, lines] : judged.faults) {
                kinds.insert(fault);
            }
            words += judged.levels == 0 ? "no level was made" : WordsOf(judged);
        }
        EXPECT_NE(words, "") << mutant.tileSet << ", " << mutant.tile << ", "
                             << (mutant.attribute == nullptr ? "missing" : mutant.attribute);
    }
    EXPECT_EQ(kinds.size(), 5U) << "no look at a level is for nothing";
}

} // namespace

} // namespace Tarnex::Test
