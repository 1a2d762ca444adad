// SPDX-License-Identifier: MIT
// Maps of many generated dungeons: they show what the run reports, and a plug-in gives the same map
// as the run that wrote it.
#include "tools/maps/LevelMap.h"
#include "tools/maps/MapLabels.h"
#include "tools/maps/MapSvg.h"
#include "tools/maps/PluginMap.h"

#include <vaultry/foundation/Random.h>
#include <vaultry/gen/GenMgr.h>
#include <vaultry/output/PluginReader.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <map>
#include <ostream>
#include <sstream>
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

// What the path commands of one class draw: the box around each stretch without a lift of the pen.
std::vector<Report::MapBox> DrawnBoxes(const std::string& svg, const std::string& type) {
    std::vector<Report::MapBox> boxes;
    const std::string opening = "<path class=\"" + type + "\" d=\"";
    for (std::size_t at = svg.find(opening); at != std::string::npos; at = svg.find(opening, at)) {
        at += opening.size();
        std::istringstream data(svg.substr(at, svg.find('"', at) - at));
        double x = 0.0;
        double y = 0.0;
        for (char command = 0; data >> command;) {
            double across = 0.0;
            double down = 0.0;
            if (command == 'h') {
                data >> across;
            } else if (command == 'v') {
                data >> down;
            } else if (command != 'z') {
                data >> across >> down;
            }
            if (command == 'M') {
                x = 0.0;
                y = 0.0;
            }
            x += across;
            y += down;
            if (command == 'M' || command == 'm') {
                boxes.push_back({x, y, 0.0, 0.0});
            } else {
                Report::MapBox& box = boxes.back();
                box.width = std::max(box.x + box.width, x) - std::min(box.x, x);
                box.height = std::max(box.y + box.height, y) - std::min(box.y, y);
                box.x = std::min(box.x, x);
                box.y = std::min(box.y, y);
            }
        }
    }
    return boxes;
}

// The picture of a level without heading and scale, which have places of their own.
std::string Layers(const LevelMap& map) {
    const std::string svg = Report::LevelSvg(map, Report::MapLook::Light);
    const std::size_t start = svg.find("<g class=\"layer-");
    return svg.substr(start, svg.rfind("<g transform=") - start);
}

double NumberOf(const std::string& element, const std::string& attribute) {
    const std::string start = ' ' + attribute + "=\"";
    return std::stod(element.substr(element.find(start) + start.size()));
}

std::vector<Report::MapBox> Plates(const std::string& svg) {
    std::vector<Report::MapBox> plates;
    const std::string opening = "<rect class=\"label\"";
    for (std::size_t at = svg.find(opening); at != std::string::npos;
         at = svg.find(opening, at + 1)) {
        const std::string plate = svg.substr(at, svg.find('>', at) - at);
        plates.push_back({NumberOf(plate, "x"),
                          NumberOf(plate, "y"),
                          NumberOf(plate, "width"),
                          NumberOf(plate, "height")});
    }
    return plates;
}

TEST_P(MapPropertiesTest, LabelsOfDoorsLieOverNothing) {
    std::size_t count = 0;
    for (std::uint32_t seed = 1; seed <= 250; ++seed) {
        for (const LevelMap& map : Generate(seed)) {
            const std::string svg = Layers(map);
            const std::vector<Report::MapBox> plates = Plates(svg);
            for (const char* type : {"floor", "hallfloor", "raised", "wall", "door", "warn"}) {
                for (const Report::MapBox& drawn : DrawnBoxes(svg, type)) {
                    EXPECT_TRUE(std::ranges::none_of(
                        plates,
                        [&drawn](const Report::MapBox& plate) { return plate.Overlaps(drawn); }))
                        << "seed " << seed << ": a label over a " << type << " at " << drawn.x
                        << ", " << drawn.y << " of " << map.name;
                }
            }
            for (const Report::MapBox& plate : plates) {
                EXPECT_EQ(std::ranges::count_if(plates,
                                                [&plate](const Report::MapBox& other) {
                                                    return plate.Overlaps(other);
                                                }),
                          1);
            }
            EXPECT_EQ(plates.size(), std::ranges::count_if(map.cells, &MapCell::teleport))
                << "seed " << seed << " of " << map.name;
            count += plates.size();
        }
    }
    EXPECT_GT(count, 250U);
}

std::string Outline(const LevelMap& map) {
    std::string text;
    for (std::int32_t y = 0; y < map.height; ++y) {
        for (std::int32_t x = 0; x < map.width; ++x) {
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

// A number of units that is the same however it was rounded.
std::string Whole(double units) {
    return std::to_string(std::lround(units + 0.013)) + ' ';
}

// What stands where and how, and where doors lead.
std::map<std::string, std::size_t> Contents(const LevelMap& map) {
    std::map<std::string, std::size_t> counts;
    for (const MapCell& cell : map.cells) {
        for (const Report::MapContent& content : cell.contents) {
            const Report::MapStand& stand = content.stand;
            ++counts[std::to_string(static_cast<int>(content.sign)) + ' ' + content.name + ' ' +
                     Whole(map.corner.x + (cell.place.x + stand.east) * map.tileSize) +
                     Whole(map.corner.y - (cell.place.y + stand.south) * map.tileSize) +
                     Whole(stand.turn) + Whole(stand.width * map.tileSize) +
                     Whole(stand.depth * map.tileSize)];
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
