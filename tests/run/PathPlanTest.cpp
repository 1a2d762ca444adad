// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/gen/LevelObserver.h>
#include <vaultry/gen/WorldPlace.h>
#include <vaultry/layout/LevelPlan.h>
#include <vaultry/run/BuiltinConfigs.h>
#include <vaultry/run/PathPlan.h>
#include <vaultry/run/Run.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <set>
#include <string>
#include <tests/support/LogTest.h>
#include <vector>

namespace Tarnex::Test {

namespace {

using Points = std::vector<PathPoint>;

DiPos CellOf(const PathPoint& point, std::int32_t tileSize) {
    const auto cellOf = [tileSize](std::int32_t way) {
        return static_cast<std::int32_t>(std::floor(static_cast<double>(way) / tileSize + 0.5));
    };
    return {cellOf(point.x), cellOf(-point.y), 0};
}

// How far a place is from the box of a thing, seen from above.
double DistanceTo(const ContentItem& item, const Di3Point& middle, double x, double y) {
    const double turn = item.zRotate * 3.14159265358979 / 180.0;
    const double east = x - middle.x;
    const double north = y - middle.y;
    const double across = std::abs(east * std::cos(turn) - north * std::sin(turn));
    const double along = std::abs(east * std::sin(turn) + north * std::cos(turn));
    return std::hypot(std::max(across - item.size.x / 2.0, 0.0),
                      std::max(along - item.size.y / 2.0, 0.0));
}

// Checks the path grid of every level that it is shown.
class PathJudge : public LevelObserver {
public:
    void LevelFinished(const FinishedLevel& level) override {
        ++levels;
        const Points points = PathPointsOf(level);
        EXPECT_FALSE(points.empty());
        tileSize = level.tileSet.GetTileSize();
        ExpectWaysOfThePlan(points, PlanOf(level.layout));
        ExpectNoThingInTheWay(points, level.layout, Di3Point());
        if (level.report != nullptr) {
            ExpectOnePieceForAllRooms(points, *level.report);
        }
    }

    std::size_t levels = 0;
    std::size_t ways = 0;
    std::size_t things = 0;
    std::size_t rooms = 0;

private:
    void ExpectWaysOfThePlan(const Points& points, const LevelPlan& plan) {
        for (std::size_t i = 0; i < points.size(); ++i) {
            const PlanCell& cell = plan.At(CellOf(points[i], tileSize));
            for (const std::uint32_t to : points[i].ways) {
                ASSERT_LT(to, points.size());
                EXPECT_EQ(std::ranges::count(points[to].ways, i), 1);
                const PlanCell* const other = &plan.At(CellOf(points[to], tileSize));
                EXPECT_TRUE(std::ranges::any_of(kSides,
                                                [&](TileDirT side) {
                                                    return (cell.ways & SideBit(side)) != 0 &&
                                                           plan.Next(cell, side) == other;
                                                }))
                    << i << " to " << to;
                ++ways;
            }
        }
    }

    void ExpectNoThingInTheWay(const Points& points, const Layout& layout, const Di3Point& offset) {
        ForEachTiled(layout, DiPos(), [&](const GridElmt& elmt, const DiPos& at) {
            for (const DiPtr<ContentItem>& item : elmt.contents) {
                const Di3Point place = WorldPosition(at, offset, item->offset, tileSize);
                if (!item->IsKind(Content_Creature) && item->size.x > 0 && item->size.y > 0) {
                    ++things;
                    ExpectNotInTheWay(points, *item, place);
                }
            }
        });
        for (const DiPtr<Layout>& child : layout.GetChildren()) {
            const Di3Point& inside = child->GetOffset();
            ExpectNoThingInTheWay(
                points, *child, {offset.x + inside.x, offset.y + inside.y, offset.z + inside.z});
        }
    }

    // Nobody could tell what is higher than a body or lower than a step from here.
    void ExpectNotInTheWay(const Points& points, const ContentItem& item, const Di3Point& place) {
        constexpr int kSteps = 32;
        for (const PathPoint& from : points) {
            const bool near =
                std::hypot(double{place.x} - from.x, double{place.y} - from.y) < 2.0 * tileSize;
            for (std::size_t i = 0; near && i < from.ways.size(); ++i) {
                const PathPoint& to = points[from.ways[i]];
                const double half = item.size.z / 2.0;
                if (place.z - half > std::max(from.z, to.z) + 127.0 ||
                    place.z + half < std::min(from.z, to.z) + 35.0) {
                    continue;
                }
                for (int step = 0; step <= kSteps; ++step) {
                    const double t = 1.0 * step / kSteps;
                    const double x = from.x + t * (to.x - from.x);
                    const double y = from.y + t * (to.y - from.y);
                    ASSERT_GE(DistanceTo(item, place, x, y), 29.0)
                        << item.uniqueName << " at " << place.x << ' ' << place.y;
                }
            }
        }
    }

    void ExpectOnePieceForAllRooms(const Points& points, const LevelReport& report) {
        std::vector<std::size_t> piece(points.size(), points.size());
        for (std::size_t start = 0; start < points.size(); ++start) {
            std::vector<std::size_t> open = {start};
            while (!open.empty()) {
                const std::size_t at = open.back();
                open.pop_back();
                if (piece[at] == points.size()) {
                    piece[at] = start;
                    open.insert(open.end(), points[at].ways.begin(), points[at].ways.end());
                }
            }
        }
        std::size_t first = points.size();
        for (const RoomReport& room : report.rooms) {
            bool found = !room.reachable;
            for (std::size_t i = 0; i < points.size() && room.reachable; ++i) {
                const DiPos at = CellOf(points[i], tileSize);
                if (at.x >= room.origin.x && at.x < room.origin.x + room.size.x &&
                    at.y >= room.origin.y && at.y < room.origin.y + room.size.y) {
                    first = first == points.size() ? piece[i] : first;
                    found = found || piece[i] == first;
                }
            }
            EXPECT_TRUE(found) << "the room at " << room.origin.x << ", " << room.origin.y;
            ++rooms;
        }
    }

    std::int32_t tileSize = 0;
};

class PathPlanTest : public LogTest {
protected:
    void Judge(const BuiltinConfig& config, RunOptions options, std::uint32_t seeds) {
        GenMgr manager;
        LoadBuiltin(manager, config, std::string(config.name).c_str());
        PathJudge judge;
        manager.SetLevelObserver(&judge);
        options.stamp = 1;
        Tarnex::Run run(manager, options);
        for (std::uint32_t seed = 0; seed < seeds && !HasFailure(); ++seed) {
            SCOPED_TRACE(std::string(config.name) + ", seed " + std::to_string(seed));
            run.GenerateFrom(seed);
        }
        // Some levels of the tightest caves are given up.
        EXPECT_GE(judge.levels, seeds / 2);
        EXPECT_GT(judge.rooms, 2 * judge.levels);
        EXPECT_GT(judge.things, 10 * judge.levels);
        EXPECT_GT(judge.ways, 100 * judge.levels);
    }
};

// Whoever walks by the grid reaches what can be reached, and runs into nothing.
TEST_F(PathPlanTest, EveryWayOfHundredsOfDungeonsCanBeWalkedAndLeadsToEveryRoom) {
    RunOptions options;
    options.randomTileSet = options.randomTheme = true;
    options.numLevels = 2;
    options.levelSize = RandomGenInfo::Random;
    for (const BuiltinConfig& config : BuiltinConfigs()) {
        Judge(config, options, 100);
    }
}

// The points of three cells of floor in a row, when `thing` stands on each.
Points PointsBeside(const std::string& thing) {
    class Keeper : public LevelObserver {
    public:
        void LevelFinished(const FinishedLevel& level) override { points = PathPointsOf(level); }
        Points points;
    };
    GenMgr manager;
    manager.InitFromMemory(R"(<OstrelData>
        <TileSet TsName="Row" TsType="Room" TsSize="256"><Center>floor</Center></TileSet>
        <Layout LayoutName="Row" Type="Room" Width="3" Height="1">
          <Row><Col>Center</Col><Col>Center</Col><Col>Center</Col></Row></Layout>
        <Creature UniqueName="ox" Type="Creature" OffsetZ="32"/>)" +
                               thing + R"(
        <Theme Name="Full"><ThemeItem Type="Rug" Ratio="1"/></Theme></OstrelData>)",
                           "row.xml");
    Keeper keeper;
    manager.SetLevelObserver(&keeper);
    RunOptions options;
    options.fixed = true;
    options.seed = 1;
    EXPECT_EQ(Tarnex::Run(manager, options).Generate().end, RunEnd::Made);
    return keeper.points;
}

// As the first creature stands: its author knows where the floor is.
TEST_F(PathPlanTest, PointsStandOnTheFloorAndGoAsideForWhatIsInTheMiddle) {
    const auto rowAt = [](std::int32_t y) {
        return Points{{0, y, -96, {1}}, {256, y, -96, {2, 0}}, {512, y, -96, {1}}};
    };
    const auto beside = [](const std::string& sizes) {
        return PointsBeside("<Rug UniqueName=\"thing\" " + sizes + "/>");
    };
    EXPECT_EQ(PointsBeside(""), rowAt(0));
    EXPECT_EQ(beside(""), rowAt(0));
    // The height of a step, and of a head.
    EXPECT_EQ(beside("SizeX='60' SizeY='60' SizeZ='66'"), rowAt(0));
    EXPECT_EQ(beside("SizeX='60' SizeY='60' SizeZ='67'"), rowAt(64));
    EXPECT_EQ(beside("SizeX='60' SizeY='60' SizeZ='9' OffsetZ='160'"), rowAt(0));
    EXPECT_EQ(beside("SizeX='60' SizeY='60' SizeZ='9' OffsetZ='159'"), rowAt(64));
    // The width of a body.
    EXPECT_EQ(beside("SizeX='9' SizeY='60' SizeZ='99' OffsetY='60'"), rowAt(0));
    EXPECT_EQ(beside("SizeX='9' SizeY='61' SizeZ='99' OffsetY='60'"), rowAt(-64));
}

TEST_F(PathPlanTest, WhatIsCutOffByThingsHasNoPoints) {
    const std::string bar = "<Rug UniqueName='bar' SizeX='200' SizeY='40' SizeZ='99' ";
    EXPECT_EQ(PointsBeside(bar + "/>").size(), 3U);
    EXPECT_EQ(PointsBeside(bar + "ZRotate='90'/>"), (Points{{64, 0, -96, {}}}));
}

// The layouts have what random levels lack: stairs, floors at several heights, platforms.
TEST_F(PathPlanTest, EveryLayoutIsOnePieceAndClimbsItsStairs) {
    class Heights : public LevelObserver {
    public:
        void LevelFinished(const FinishedLevel& level) override {
            PathJudge().LevelFinished(level);
            const Points points = PathPointsOf(level);
            std::vector<std::size_t> open = {0};
            std::set<std::size_t> reached;
            std::set<std::int32_t> heights;
            while (!open.empty()) {
                const std::size_t at = open.back();
                open.pop_back();
                if (reached.insert(at).second) {
                    heights.insert(points[at].z);
                    open.insert(open.end(), points[at].ways.begin(), points[at].ways.end());
                }
            }
            EXPECT_EQ(reached.size(), points.size());
            most = std::max(most, heights.size());
        }
        std::size_t most = 0;
    };
    GenMgr manager;
    Heights heights;
    manager.SetLevelObserver(&heights);
    RunOptions options;
    options.seed = options.stamp = 1;
    options.fixed = options.platforms = true;
    for (const BuiltinConfig& config : BuiltinConfigs()) {
        LoadBuiltin(manager, config, std::string(config.name).c_str());
        options.caveTileSet = manager.GetCaveTileSets().empty()
                                  ? std::nullopt
                                  : std::optional(manager.GetCaveTileSets().front()->GetName());
        for (const auto& layout : manager.GetRoomLayouts()) {
            SCOPED_TRACE(layout->GetName());
            RunOptions rooms = options;
            rooms.caveTileSet.reset();
            rooms.tileSet = manager.GetRoomTileSets().front()->GetName();
            rooms.layout = layout->GetName();
            EXPECT_EQ(Tarnex::Run(manager, rooms).Generate().end, RunEnd::Made);
        }
        for (const auto& layout : manager.GetCaveLayouts()) {
            SCOPED_TRACE(layout->GetName());
            options.caveLayout = layout->GetName();
            EXPECT_EQ(Tarnex::Run(manager, options).Generate().end, RunEnd::Made);
        }
    }
    // Three floors, and the middle of the stairs between them.
    EXPECT_EQ(heights.most, 5U);
}

} // namespace

} // namespace Tarnex::Test
