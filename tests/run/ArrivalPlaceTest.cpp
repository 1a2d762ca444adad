// SPDX-License-Identifier: MIT
#include <vaultry/output/PluginReader.h>
#include <vaultry/run/ArrivalPlace.h>
#include <vaultry/run/Run.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <tests/support/LogTest.h>

namespace Tarnex::Test {

namespace {

// A piece of the game that one can stand on, as it was measured in the game's own interiors:
// which part of the piece, as it is modelled, is floor on which a body has room, and how high that
// lies. [world units from the pivot]
struct FloorPiece {
    std::string_view end; // of the identifier
    double west;
    double east;
    double south;
    double north;
    double height;
};

constexpr double kBody = 30.0;          // half the width of somebody who walks
constexpr double kWall = 112.0 - kBody; // from the middle of a cell to a wall
constexpr double kCell = 128.0;

// clang-format off
constexpr std::array<FloorPiece, 24> kFloors = {{
    {"in_impsmall_r_corner_01",  -kWall, kWall, -kWall, kWall, -128},
    {"in_impsmall_r_3way_01",    -kWall, kWall, -kWall, kWall, -128},
    {"in_impsmall_r_center_01",  -kCell, kCell, -kCell, kCell, -128},
    {"in_v_s_int_corner_01",     -kWall, kWall, -kWall, kWall, -128},
    {"in_v_s_int_wall_01",       -kWall, kWall, -kWall, kWall, -128},
    {"in_v_s_int_center_01",     -kCell, kCell, -kCell, kCell, -128},
    {"in_c_stone_room_corner",   -kWall, kWall, -kWall, kWall, 0},
    {"in_c_stone_room_side",     -kWall, kWall, -kWall, kWall, 0},
    {"in_c_stone_room_center",   -kCell, kCell, -kCell, kCell, 0},
    {"in_c_plain_room_corner",   -kWall, kWall, -kWall, kWall, 0},
    {"in_c_plain_room_side",     -kWall, kWall, -kWall, kWall, 0},
    {"in_c_plain_room_center",   -kCell, kCell, -kCell, kCell, 0},
    {"in_c_rich_room_corner",    -kWall, kWall, -kWall, kWall, 0},
    {"in_c_rich_room_side",      -kWall, kWall, -kWall, kWall, 0},
    {"in_c_rich_room_center",    -kCell, kCell, -kCell, kCell, 0},
    {"in_hlaalu_room_corner",    -kWall, kWall, -kWall, kWall, -123},
    {"in_hlaalu_room_side",      -kWall, kWall, -kWall, kWall, -123},
    {"in_hlaalu_room_center",    -kCell, kCell, -kCell, kCell, -123},
    // Where the tunnels of a crossing meet, in the middle of its four mouths.
    {"cave4_s_00",               -kCell, kCell, 512 - kCell, 512 + kCell, -112},
    // The walls of caves lean out: rock begins where the piece ends.
    {"cave_sroom2_00",           kBody, 256 - kBody, kBody - 256, -kBody, 15},
    {"cave_sroom3_00",           -256, 256, kBody - 256, -kBody, 15},
    {"cave_sroom3_01",           -256, 256, kBody - 256, -kBody, 15},
    {"cave_sroom3_02",           -256, 256, kBody - 256, -kBody, 15},
    {"cave_sroom4_05",           -256, 256, -256, 256, 15},
}};
// clang-format on

constexpr double kLeastDrop = -16.0; // floors of caves are uneven
constexpr double kMostDrop = 64.0;   // hurts nobody

bool IsOn(const FloorPiece& piece, const PluginRef& ref, const Arrival& arrival) {
    const double x = double{arrival.place.x} - ref.place.position.x;
    const double y = double{arrival.place.y} - ref.place.position.y;
    // The game turns clockwise, seen from above.
    const double turn = ref.place.rotation.z;
    const double across = x * std::cos(turn) - y * std::sin(turn);
    const double along = x * std::sin(turn) + y * std::cos(turn);
    const double drop = double{arrival.place.z} - ref.place.position.z - piece.height;
    return across >= piece.west && across <= piece.east && along >= piece.south &&
           along <= piece.north && drop >= kLeastDrop && drop <= kMostDrop;
}

bool HasFloor(const PluginCell& cell, const Arrival& arrival) {
    for (const PluginRef& ref : cell.refs) {
        for (const FloorPiece& piece : kFloors) {
            if (ref.id.ends_with(piece.end) && IsOn(piece, ref, arrival)) {
                return true;
            }
        }
    }
    return false;
}

struct Size {
    double x;
    double y;
};

std::string Lowered(std::string text) {
    for (char& c : text) {
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    return text;
}

std::map<std::string, Size> ReadSizes() {
    std::map<std::string, Size> sizes;
    std::ifstream file(VAULTRY_SOURCE_DIR "/tests/run/measured_sizes.csv");
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with('#')) {
            continue;
        }
        std::istringstream fields(line);
        std::string id;
        Size size{};
        char comma = 0;
        std::getline(fields, id, ',');
        fields >> size.x >> comma >> size.y;
        sizes.emplace(id, size);
    }
    return sizes;
}

// The identifier of what stands in the way of somebody there; empty for nothing.
std::string InTheWay(const PluginFile& file, const PluginCell& cell, const Arrival& arrival) {
    static const std::map<std::string, Size> kSizes = ReadSizes();
    std::map<std::string, std::string> models;
    for (const PluginContainer& container : file.containers) {
        models.emplace(container.id, Lowered(container.model));
    }
    for (const PluginRef& ref : cell.refs) {
        const auto model = models.find(ref.id);
        const auto size = kSizes.find(model == models.end() ? Lowered(ref.id) : model->second);
        if (size == kSizes.end()) {
            continue;
        }
        const double x = double{arrival.place.x} - ref.place.position.x;
        const double y = double{arrival.place.y} - ref.place.position.y;
        const double turn = ref.place.rotation.z;
        const double across = std::abs(x * std::cos(turn) - y * std::sin(turn));
        const double along = std::abs(x * std::sin(turn) + y * std::cos(turn));
        if (across < size->second.x / 2.0 + kBody && along < size->second.y / 2.0 + kBody) {
            return ref.id;
        }
    }
    return {};
}

class ArrivalPlaceTest : public LogTest {
protected:
    std::vector<Arrival> ArrivalsOf(const RunOptions& options) {
        RunResult result = Tarnex::Run(manager, options).Generate();
        EXPECT_EQ(result.end, RunEnd::Made);
        return std::move(result.arrivals);
    }

    // Generates, and judges every arrival that is said to be good.
    void Judge(const RunOptions& options) {
        const std::vector<Arrival> arrivals = ArrivalsOf(options);
        std::ostringstream bytes;
        manager.mod.Write(bytes);
        const PluginFile file = ReadPlugin(bytes.str());
        all += file.cells.size();
        for (const Arrival& arrival : arrivals) {
            const PluginCell& cell = file.cells.at(arrival.level);
            EXPECT_EQ(arrival.cell, cell.name);
            if (arrival.good) {
                ++good;
                EXPECT_TRUE(HasFloor(cell, arrival)) << ConsoleLine(arrival) << *options.seed;
                EXPECT_EQ(InTheWay(file, cell, arrival), "") << ConsoleLine(arrival);
            }
        }
    }

    using Name = std::optional<std::string> RunOptions::*;

    template <typename Layouts, typename Sets>
    void JudgeLayouts(const Layouts& layouts, const Sets& sets, Name layoutName, Name setName) {
        RunOptions options;
        options.fixed = true;
        options.stamp = 1;
        options.seed = 0;
        for (const auto& layout : layouts) {
            for (const auto& set : sets) {
                ++*options.seed;
                options.*layoutName = layout->GetName();
                options.*setName = set->GetName();
                Judge(options);
            }
        }
    }

    GenMgr manager;
    std::size_t all = 0;  // cells that were judged
    std::size_t good = 0; // of them with a good place
};

constexpr const char* kDefault = VAULTRY_SOURCE_DIR "/data/vaultry.xml";
constexpr const char* kCaves = VAULTRY_SOURCE_DIR "/data/caves.xml";
constexpr const char* kGrottoes = VAULTRY_SOURCE_DIR "/data/grottoes.xml";
constexpr std::uint32_t kStride = 7919; // seeds far apart

constexpr std::array kSizes = {RandomGenInfo::Tiny,
                               RandomGenInfo::Small,
                               RandomGenInfo::Medium,
                               RandomGenInfo::Large,
                               RandomGenInfo::Random};

// One of several runs: sizes change more slowly than sets, so that they meet.
RunOptions RunOfNumber(std::uint32_t number, std::size_t sets) {
    RunOptions options;
    options.seed = number * kStride;
    options.stamp = 1;
    options.levelSize = kSizes.at(number / sets % kSizes.size());
    return options;
}

TEST_F(ArrivalPlaceTest, RoomsOfEverySetAndSizeHaveAGoodPlace) {
    manager.Init(kDefault);
    const auto& sets = manager.GetRoomTileSets();
    for (std::uint32_t number = 1; number <= 500; ++number) {
        RunOptions options = RunOfNumber(number, sets.size());
        options.tileSet = sets[number % sets.size()]->GetName();
        options.numLevels = 1 + number % 3;
        options.creatureTheme = "Undead";
        Judge(options);
    }
    EXPECT_GT(good, 500U);
    EXPECT_EQ(good, all);
}

TEST_F(ArrivalPlaceTest, TunnelsOfEverySetAndSizeHaveAGoodPlace) {
    manager.Init(kCaves);
    const auto& sets = manager.GetCaveTileSets();
    for (std::uint32_t number = 1; number <= 100; ++number) {
        RunOptions options = RunOfNumber(number, sets.size());
        options.caveTileSet = sets[number % sets.size()]->GetName();
        Judge(options);
    }
    EXPECT_EQ(all, 100U);
    EXPECT_EQ(good, all);
}

TEST_F(ArrivalPlaceTest, EveryFixedLayoutOfEverySetHasAGoodPlace) {
    for (const char* config : {kDefault, kCaves, kGrottoes}) {
        manager.Init(config);
        JudgeLayouts(manager.GetRoomLayouts(),
                     manager.GetRoomTileSets(),
                     &RunOptions::layout,
                     &RunOptions::tileSet);
        JudgeLayouts(manager.GetCaveLayouts(),
                     manager.GetCaveTileSets(),
                     &RunOptions::caveLayout,
                     &RunOptions::caveTileSet);
    }
    EXPECT_GT(good, 200U);
    EXPECT_EQ(good, all);
}

// Two cells of floor, with an ox on each.
TEST_F(ArrivalPlaceTest, AFullLevelHasTheBestOfWhatThereIs) {
    manager.InitFromMemory(R"(<OstrelData>
        <TileSet TsName="Store" TsType="Room" TsSize="256"><Center>floor</Center></TileSet>
        <Layout LayoutName="Store" Type="Room" Width="2" Height="1">
          <Row><Col>Center</Col><Col>Center</Col></Row></Layout>
        <Rug UniqueName="heap" SizeX="200" SizeY="200"/>
        <Creature UniqueName="ox" Type="Creature" SizeX="200" SizeY="200" OffsetZ="8"/>
        <Theme Name="Full"><ThemeItem Type="Rug" Ratio="1"/></Theme>
        <CreatureTheme Name="Herd"><ThemeItem Type="Creature" Ratio="1"/></CreatureTheme>
        </OstrelData>)",
                           "store.xml");
    RunOptions options;
    options.fixed = true;
    options.seed = 1;
    options.cell = "Store";
    EXPECT_TRUE(ArrivalsOf(options).front().good) << "one can stand on rugs";
    options.creatureTheme = "Herd";
    const std::vector<Arrival> arrivals = ArrivalsOf(options);
    ASSERT_EQ(arrivals.size(), 1U);
    EXPECT_FALSE(arrivals.front().good);
    EXPECT_EQ(ConsoleLine(arrivals.front()), "player->positioncell 0 0 -120 90 \"Store\"");
}

TEST_F(ArrivalPlaceTest, TryingASeedLooksForNone) {
    manager.Init(kDefault);
    RunOptions options;
    options.levelSize = RandomGenInfo::Tiny;
    EXPECT_TRUE(Tarnex::Run(manager, options).GenerateFrom(1).arrivals.empty());
}

// A cell of floor by itself.
StandingCell Floor(std::int32_t x) {
    StandingCell cell;
    cell.place = DiPos(x, 0, 0);
    cell.good = true;
    cell.open = 0xF;
    return cell;
}

constexpr Ground kGround = {{}, 256, 0.0};

TEST(BestArrivalPlaceTest, AThingMayComeAsNearAsABodyIsWide) {
    EXPECT_TRUE(BestArrival({Floor(0)}, {{{100.0F, 0.0F, 0.0F}, 70.0}}, kGround)->good);
    EXPECT_FALSE(BestArrival({Floor(0)}, {{{99.0F, 0.0F, 0.0F}, 70.0}}, kGround)->good);
}

TEST(BestArrivalPlaceTest, AThingCountsFourCellsAway) {
    EXPECT_FALSE(BestArrival({Floor(0)}, {{{1024.0F, 0.0F, 0.0F}, 1000.0}}, kGround)->good);
    EXPECT_TRUE(BestArrival({Floor(0)}, {{{1280.0F, 0.0F, 0.0F}, 1270.0}}, kGround)->good);
}

TEST(BestArrivalPlaceTest, OneFacesTheMostFloor) {
    StandingCell cell = Floor(0);
    cell.view = {0, 1, 0, 3}; // N, S, E, W
    EXPECT_EQ(BestArrival({cell}, {}, kGround)->facing, 270);
}

TEST(BestArrivalPlaceTest, TheMiddleOfARoomIsBetterThanItsWallAndGoodFloorThanBad) {
    StandingCell wall = Floor(0);
    wall.open = 0x7;
    StandingCell bad = Floor(2);
    bad.good = false;
    EXPECT_EQ(BestArrival({wall, Floor(1), bad}, {}, kGround)->place.x, 256.0F);
    EXPECT_EQ(BestArrival({bad, wall}, {}, kGround)->place.x, 0.0F);
}

// North and west are closed by walls that run through the middle of the cell.
TEST(BestArrivalPlaceTest, OneStandsOnTheFloorOfAQuarterTile) {
    StandingCell corner = Floor(0);
    corner.reduced = true;
    corner.open = static_cast<SideBits>(SideBit(DirS) | SideBit(DirE));
    EXPECT_EQ(BestArrival({corner}, {}, kGround)->place, Di3Point(64.0F, -64.0F, 0.0F));
}

TEST(BestArrivalPlaceTest, NobodyArrivesWhereThereIsNothing) {
    EXPECT_FALSE(BestArrival({}, {}, kGround));
}

} // namespace

} // namespace Tarnex::Test
