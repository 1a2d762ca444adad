// SPDX-License-Identifier: MIT
// Maps of many generated dungeons: they show what the run reports, and a plug-in gives the same map
// as the run that wrote it.
#include "tools/maps/LevelMap.h"
#include "tools/maps/MapLabels.h"
#include "tools/maps/MapStyle.h"
#include "tools/maps/PluginMap.h"

#include <vaultry/foundation/Random.h>
#include <vaultry/gen/GenMgr.h>
#include <vaultry/output/PluginReader.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <map>
#include <ostream>
#include <tests/tools/plugins/SamplePlugin.h>

namespace Tarnex::Test {

namespace {

using Report::LevelMap;
using Report::MapCell;
using Report::MapCollector;

// One of the configurations, its tile sets in turn.
struct Source {
    const char* config;
    bool cave;

    friend std::ostream& operator<<(std::ostream& out, const Source& source) {
        return out << source.config;
    }
};

class MapPropertiesTest : public ::testing::TestWithParam<Source> {
protected:
    MapPropertiesTest() {
        const std::string folder = std::string(VAULTRY_SOURCE_DIR) + "/data/";
        manager.Init((folder + GetParam().config).c_str());
        manager.SetLevelObserver(&maps);
        manager.SetDefaultCreatureTheme("Undead");
    }

    const std::vector<LevelMap>& Generate(std::uint32_t seed) {
        const auto& sets = GetParam().cave ? manager.GetCaveTileSets() : manager.GetRoomTileSets();
        manager.SetDefaultTileSet(sets[seed % sets.size()]->GetName().c_str(), GetParam().cave);
        RandomGenInfo info;
        info.numLevels = 1 + seed % 3;
        manager.SetRandomInfo(info);
        maps.StartOver();
        SeedRandom(seed);
        EXPECT_EQ(manager.Generate("Vault", false), ModResult::Written);
        return maps.Maps();
    }

    // The reports of the levels that were made, in the order of the maps.
    std::vector<LevelReport> Reports() const {
        std::vector<LevelReport> made;
        std::ranges::copy_if(manager.report.levels,
                             std::back_inserter(made),
                             [](const LevelReport& level) { return level.made; });
        return made;
    }

    MapCollector maps;
    GenMgr manager;
};

std::size_t LooseEnds(const LevelMap& map) {
    std::size_t count = 0;
    for (const MapCell& cell : map.cells) {
        count += static_cast<std::size_t>(std::popcount(cell.loose));
    }
    return count;
}

TEST_P(MapPropertiesTest, WarningsAreThoseOfTheReport) {
    std::size_t warnings = 0;
    for (std::uint32_t seed = 1; seed <= 300; ++seed) {
        const std::vector<LevelMap>& drawn = Generate(seed);
        const std::vector<LevelReport> reports = Reports();
        ASSERT_EQ(drawn.size(), reports.size()) << "seed " << seed;
        for (std::size_t i = 0; i < drawn.size(); ++i) {
            EXPECT_EQ(LooseEnds(drawn[i]), reports[i].openEnds)
                << "seed " << seed << " level " << i;
            ASSERT_EQ(drawn[i].rooms.size(), reports[i].rooms.size());
            for (std::size_t room = 0; room < drawn[i].rooms.size(); ++room) {
                EXPECT_EQ(drawn[i].rooms[room].reachable, reports[i].rooms[room].reachable)
                    << "seed " << seed << " level " << i << " room " << room;
            }
            warnings += LooseEnds(drawn[i]);
        }
    }
    EXPECT_GT(warnings, 0U);
}

TEST_P(MapPropertiesTest, LabelsCoverNothing) {
    for (std::uint32_t seed = 1; seed <= 60; ++seed) {
        for (const LevelMap& map : Generate(seed)) {
            const std::vector<Report::MapLabel> labels = Report::PlaceLabels(map);
            for (const Report::MapLabel& label : labels) {
                for (std::int32_t y = 0; y < map.height; ++y) {
                    for (std::int32_t x = 0; x < map.width; ++x) {
                        const Report::MapBox area{x * double{Report::kCell},
                                                  y * double{Report::kCell},
                                                  Report::kCell,
                                                  Report::kCell};
                        EXPECT_FALSE(!map.At(x, y).contents.empty() && label.box.Overlaps(area))
                            << "seed " << seed << ' ' << label.text << " at " << x << ", " << y;
                    }
                }
                EXPECT_EQ(std::ranges::count_if(labels,
                                                [&label](const Report::MapLabel& other) {
                                                    return label.box.Overlaps(other.box);
                                                }),
                          1);
            }
        }
    }
}

// The map without the rim of empty cells, which a plug-in cannot tell.
std::string Outline(const LevelMap& map) {
    DiPos low(map.width, map.height, 0);
    DiPos high;
    for (std::int32_t y = 0; y < map.height; ++y) {
        for (std::int32_t x = 0; x < map.width; ++x) {
            if (map.At(x, y).tile != PlanTile::Empty) {
                low = DiPos(std::min(low.x, x), std::min(low.y, y), 0);
                high = DiPos(std::max(high.x, x + 1), std::max(high.y, y + 1), 0);
            }
        }
    }
    std::string text;
    for (std::int32_t y = low.y; y < high.y; ++y) {
        for (std::int32_t x = low.x; x < high.x; ++x) {
            const MapCell& cell = map.At(x, y);
            text += std::to_string(static_cast<int>(cell.tile)) + '.' + std::to_string(cell.open) +
                    '.' + std::to_string(cell.doorway) + '.' + std::to_string(cell.loose) +
                    (cell.door ? "d" : "") + (cell.teleport ? "t" + cell.leadsTo : "");
            text += '|';
        }
        text += '\n';
    }
    return text;
}

// How much of each sort of content there is, and where doors lead.
std::map<std::string, std::size_t> Contents(const LevelMap& map) {
    std::map<std::string, std::size_t> counts;
    for (const MapCell& cell : map.cells) {
        for (const Report::MapContent& content : cell.contents) {
            ++counts[std::to_string(static_cast<int>(content.sort)) + ' ' + content.name];
        }
        if (cell.teleport) {
            ++counts["door to " + cell.leadsTo];
        }
    }
    return counts;
}

TEST_P(MapPropertiesTest, ThePluginGivesTheSameMap) {
    const Report::PieceIndex pieces(manager.config);
    for (std::uint32_t seed = 1; seed <= 60; ++seed) {
        const std::vector<LevelMap>& drawn = Generate(seed);
        const PluginFile file = ReadBack(manager.mod);
        ASSERT_EQ(file.cells.size(), drawn.size());
        for (std::size_t i = 0; i < drawn.size(); ++i) {
            Report::PluginChests chests(file);
            const LevelMap read = Report::MapOf(file.cells[i], chests, pieces);
            EXPECT_EQ(read.name, drawn[i].name);
            EXPECT_EQ(read.tileSet, drawn[i].tileSet);
            EXPECT_EQ(read.leftOut, 0U);
            EXPECT_EQ(Contents(read), Contents(drawn[i])) << "seed " << seed << " level " << i;
            // The pieces of caves are rooms and halls at once.
            if (!GetParam().cave) {
                EXPECT_EQ(Outline(read), Outline(drawn[i])) << "seed " << seed << " level " << i;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Configurations,
                         MapPropertiesTest,
                         ::testing::Values(Source{"vaultry.xml", false}, Source{"caves.xml", true}),
                         [](const auto& source) {
                             return std::string(source.param.cave ? "Caves" : "Rooms");
                         });

} // namespace

} // namespace Tarnex::Test
