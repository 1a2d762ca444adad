// SPDX-License-Identifier: MIT
// What holds for every random level, whatever the seed. VAULTRY_PROPERTY_SEEDS is the number of
// seeds tried, 300 unless it is set.
#include <vaultry/foundation/Logger.h>
#include <vaultry/gen/ContainerIds.h>
#include <vaultry/gen/GenMgr.h>
#include <vaultry/gen/LevelObserver.h>
#include <vaultry/layout/ElmtKind.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <tests/gen/OpenRandom.h>

namespace Tarnex::Test {

namespace {

using Info = RandomGenInfo;

std::uint32_t SeedCount() {
    const char* given = std::getenv("VAULTRY_PROPERTY_SEEDS");
    return given == nullptr ? 300 : static_cast<std::uint32_t>(std::strtoul(given, nullptr, 10));
}

bool IsStraight(TileDirT dir) {
    return dir == DirN || dir == DirS || dir == DirE || dir == DirW;
}

bool IsHallPiece(const Tile& tile) {
    return GetTileType(tile) == TileHall || GetTileType(tile) == TileHallEnd;
}

using Tiles = std::vector<const Tile*>;

Tiles TilesOf(const GridElmt& elmt) {
    Tiles tiles;
    for (const DiPtr<Tile>& tile : elmt.tiles) {
        tiles.push_back(tile.get());
    }
    return tiles;
}

// A cell of a level: its tiles and whether a part of a room covers it.
struct CellBefore {
    bool exists = false;
    bool covered = false;
    Tiles tiles;

    bool Has(TileType type) const {
        return std::ranges::any_of(tiles,
                                   [type](const Tile* tile) { return GetTileType(*tile) == type; });
    }
};

using Grid = std::vector<std::vector<CellBefore>>;

Grid TakeDown(Layout& level) {
    Grid grid(level.GetHeight(), std::vector<CellBefore>(level.GetWidth()));
    level.AddShadows(-1.0F, 1.0F);
    for (std::uint32_t row = 0; row < level.GetHeight(); ++row) {
        for (std::uint32_t col = 0; col < level.GetWidth(); ++col) {
            const DiPtr<GridElmt>& elmt = level.GetElmt(row, col);
            CellBefore& cell = grid[row][col];
            cell.covered = elmt && elmt->isShadow;
            cell.exists = elmt && !elmt->isShadow;
            if (cell.exists) {
                cell.tiles = TilesOf(*elmt);
            }
        }
    }
    level.RemoveShadows();
    return grid;
}

// A level with its cells as they were before the halls.
struct Level {
    DiPtr<Layout> layout;
    Grid before;
};

class LevelPropertiesTest : public LogTest {
protected:
    static constexpr std::array kConfigs = {"rooms_full.xml", "cave_full.xml"};

    LevelPropertiesTest() {
        for (std::size_t i = 0; i < kConfigs.size(); ++i) {
            const std::string folder = VAULTRY_SOURCE_DIR "/tests/golden/configs/";
            managers[i] = std::make_unique<GenMgr>();
            managers[i]->Init((folder + kConfigs[i]).c_str());
        }
        // These configurations hold mistakes on purpose.
        Logger::ResetErrors();
    }

    // Sizes, spacings and configurations take turns.
    GenMgr& Prepared(std::uint32_t seed) {
        GenMgr& mgr = *managers[seed / 25 % 2];
        mgr.randomInfo = Info();
        mgr.randomInfo.levelSize = static_cast<Info::LevelSizeT>(seed % 5);
        mgr.randomInfo.roomSpacing = static_cast<Info::RoomSpacingT>(seed / 5 % 5);
        std::vector<DiPtr<TileSet>> sets = mgr.config.caveTileSets;
        sets.insert(sets.end(), mgr.config.roomTileSets.begin(), mgr.config.roomTileSets.end());
        mgr.defTileSet = sets[seed / 50 % sets.size()];
        SeedRandom(seed);
        return mgr;
    }

    // A level by the generator's own steps; null when its rooms could not be joined.
    static Level Make(OpenRandom& gen) {
        DiPos grid;
        gen.InitRoomGridSize(grid);
        RoomInfo rooms(grid);
        gen.CreateRooms(rooms);
        gen.SpaceRooms(rooms);
        Level level;
        level.layout = Layout::Create(DiPos(static_cast<int>(rooms.GetTotalWidth()) + 3,
                                            static_cast<int>(rooms.GetTotalHeight()) + 3,
                                            0));
        gen.PlaceRooms(*level.layout, rooms);
        level.before = TakeDown(*level.layout);
        level.layout->SetTileSet(gen.tileSet);
        if (!gen.Connect(*level.layout, rooms)) {
            level.layout->Dissolve();
            level.layout = nullptr;
        }
        return level;
    }

    // Calls check(elmt, before, row, col) for every cell.
    template <typename Check>
    static void ForEachCell(const Level& level, Check check) {
        for (std::uint32_t row = 0; row < level.layout->GetHeight(); ++row) {
            for (std::uint32_t col = 0; col < level.layout->GetWidth(); ++col) {
                SCOPED_TRACE(std::to_string(row) + "," + std::to_string(col));
                check(level.layout->GetElmt(row, col), level.before[row][col], row, col);
            }
        }
    }

    // Makes a level for each seed and looks at those that could be made.
    template <typename Check>
    void ForEachLevel(Check check) {
        std::uint32_t made = 0;
        const std::uint32_t seeds = SeedCount();
        for (std::uint32_t seed = 0; seed < seeds && !HasFailure(); ++seed) {
            SCOPED_TRACE("seed " + std::to_string(seed));
            OpenRandom gen(Prepared(seed));
            const Level level = Make(gen);
            if (level.layout) {
                ++made;
                check(level, gen);
                level.layout->Dissolve();
            }
        }
        EXPECT_GT(made, seeds / 2);
    }

    static std::string Bytes(GenMgr& mgr) {
        std::ostringstream stream;
        mgr.mod.Write(stream);
        return stream.str();
    }

    // A run of three levels with every choice left to chance.
    GenMgr& Run(std::uint32_t seed) {
        GenMgr& mgr = Prepared(seed);
        Info& wanted = mgr.randomInfo;
        wanted.numLevels = 3;
        wanted.randomTileSet = wanted.randomTheme = true;
        wanted.randomCreatureTheme = wanted.randomTreasureTheme = true;
        mgr.defTheme = nullptr;
        mgr.defCreatureTheme = nullptr;
        mgr.defTreasureTheme = nullptr;
        SetContainerStamp(1);
        Logger::ResetErrors();
        mgr.Generate("Crypt", false);
        return mgr;
    }

    std::array<std::unique_ptr<GenMgr>, kConfigs.size()> managers;
};

// The sides of a tile that lead somewhere, by its name, and those across which one may come in.
struct SideRow {
    std::string_view name;
    std::string_view openings;
    std::string_view entries;
};

constexpr std::array kSideRows = {
    SideRow{"Center", "", "NSEW"},       SideRow{"CornerNW", "", "SE"},
    SideRow{"CornerNE", "", "SW"},       SideRow{"CornerSW", "", "NE"},
    SideRow{"CornerSE", "", "NW"},       SideRow{"WallN", "", "SEW"},
    SideRow{"WallS", "", "NEW"},         SideRow{"WallE", "", "NSW"},
    SideRow{"WallW", "", "NSE"},         SideRow{"DoorwayN", "N", "NSEW"},
    SideRow{"DoorwayS", "S", "NSEW"},    SideRow{"DoorwayE", "E", "NSEW"},
    SideRow{"DoorwayW", "W", "NSEW"},    SideRow{"HallNS", "NS", "NS"},
    SideRow{"HallEW", "EW", "EW"},       SideRow{"HallNS_2", "NS", "NS"},
    SideRow{"HallEW_2", "EW", "EW"},     SideRow{"HallCornerNW", "SE", "SE"},
    SideRow{"HallCornerNE", "SW", "SW"}, SideRow{"HallCornerSW", "NE", "NE"},
    SideRow{"HallCornerSE", "NW", "NW"}, SideRow{"Hall4Way", "NSEW", "NSEW"},
    SideRow{"HallEndN", "S", "S"},       SideRow{"HallEndS", "N", "N"},
    SideRow{"HallEndE", "W", "W"},       SideRow{"HallEndW", "E", "E"},
    SideRow{"StairsUpN", "", "NS"},      SideRow{"StairsUpE", "", "EW"},
    SideRow{"StairsUpS", "", "NS"},      SideRow{"StairsUpW", "", "EW"},
};

const SideRow* RowOf(const GridElmt* elmt) {
    const Tile* first = elmt == nullptr ? nullptr : elmt->FirstTile();
    const auto row = std::ranges::find_if(kSideRows, [first](const SideRow& candidate) {
        return first != nullptr && first->kindName == candidate.name;
    });
    return row == kSideRows.end() ? nullptr : &*row;
}

// Holds on to what the level's report says and counts the openings for itself.
class OpeningCounter : public LevelObserver {
public:
    std::uint32_t reported = 0;
    std::uint32_t counted = 0;

    void LevelFinished(const FinishedLevel& level) override {
        reported = level.report->openEnds;
        counted = 0;
        for (int row = 0; row < level.layout.GetSize().y; ++row) {
            for (int col = 0; col < level.layout.GetSize().x; ++col) {
                Count(level.layout, row, col);
            }
        }
    }

private:
    // The level's own element, or that of a part within one cell's height.
    static const GridElmt* At(const Layout& level, int row, int col) {
        const auto own =
            level.GetElmt(static_cast<std::uint32_t>(row), static_cast<std::uint32_t>(col));
        const bool inside =
            row >= 0 && col >= 0 && row < level.GetSize().y && col < level.GetSize().x;
        if (!inside || (own && !own->tiles.empty())) {
            return own.get();
        }
        for (const DiPtr<Layout>& part : level.GetChildren()) {
            const Di3Point at = part->GetOffset();
            const auto r = static_cast<std::uint32_t>(row - static_cast<int>(at.y));
            const auto c = static_cast<std::uint32_t>(col - static_cast<int>(at.x));
            if (at.z >= -1.0F && at.z <= 1.0F && part->HasTiles(r, c)) {
                return part->GetElmt(r, c).get();
            }
        }
        return nullptr;
    }

    void Count(const Layout& level, int row, int col) {
        struct Way {
            char side;
            char back;
            int rows;
            int cols;
        };
        static constexpr std::array<Way, 4> kWays = {
            {{'N', 'S', -1, 0}, {'S', 'N', 1, 0}, {'E', 'W', 0, 1}, {'W', 'E', 0, -1}}};
        const SideRow* here = RowOf(At(level, row, col));
        if (here == nullptr) {
            return;
        }
        for (const Way& way : kWays) {
            const SideRow* there = RowOf(At(level, row + way.rows, col + way.cols));
            const bool opens = here->openings.find(way.side) != std::string_view::npos;
            const bool meets =
                there != nullptr && there->entries.find(way.back) != std::string_view::npos;
            counted += opens && !meets ? 1U : 0U;
        }
    }
};

// One level.

TEST_F(LevelPropertiesTest, NoShadowIsLeftBehind) {
    ForEachLevel([](const Level& level, const OpenRandom&) {
        ForEachCell(level, [](const auto& elmt, const CellBefore&, auto, auto) {
            EXPECT_FALSE(elmt && elmt->isShadow);
        });
    });
}

TEST_F(LevelPropertiesTest, FloorsAndCornersAndDoorwaysOfRoomsAreUntouched) {
    ForEachLevel([](const Level& level, const OpenRandom&) {
        ForEachCell(level, [](const auto& elmt, const CellBefore& before, auto, auto) {
            const bool carvable =
                before.Has(TileWall) || before.Has(TileHall) || before.Has(TileHallEnd);
            if (before.exists && !carvable) {
                ASSERT_TRUE(elmt);
                EXPECT_EQ(TilesOf(*elmt), before.tiles);
            }
        });
    });
}

TEST_F(LevelPropertiesTest, WallsStayOrBecomeDoorwaysOfTheirFacing) {
    ForEachLevel([](const Level& level, const OpenRandom& gen) {
        ForEachCell(level, [&gen](const auto& elmt, const CellBefore& before, auto, auto) {
            if (!before.Has(TileWall)) {
                return;
            }
            ASSERT_TRUE(elmt);
            const Tiles tiles = TilesOf(*elmt);
            if (tiles == before.tiles) {
                return;
            }
            // What is a wall but faces all sides is cut open to the west.
            const TileDirT facing = GetTileDir(*before.tiles.front());
            const TileDirT cut = IsStraight(facing) ? facing : DirW;
            const auto named = [&gen, cut](const char* stem) {
                const char side = std::string_view("NSEW")[static_cast<std::size_t>(cut)];
                return gen.tileSet->Get(TileKindName(std::string(stem) + side)).get();
            };
            const Tiles arch = {named("Doorway")};
            Tiles door = {named("Doorway"), named("Doorjamb"), named("Door")};
            std::erase(door, nullptr);
            EXPECT_TRUE(tiles == arch || tiles == door) << ToText(elmt);
        });
    });
}

TEST_F(LevelPropertiesTest, HallsOfRoomsStayHalls) {
    ForEachLevel([](const Level& level, const OpenRandom&) {
        ForEachCell(level, [](const auto& elmt, const CellBefore& before, auto, auto) {
            const bool isHall = before.Has(TileHall) || before.Has(TileHallEnd);
            if (isHall && TilesOf(*elmt) != before.tiles) {
                ASSERT_EQ(elmt->tiles.size(), 1U);
                EXPECT_TRUE(IsHallPiece(*elmt->tiles.front())) << ToText(elmt);
            }
        });
    });
}

TEST_F(LevelPropertiesTest, BetweenRoomsThereAreSingleHallPiecesOnly) {
    ForEachLevel([](const Level& level, const OpenRandom& gen) {
        ForEachCell(level, [&gen](const auto& elmt, const CellBefore& before, auto, auto) {
            if (before.exists || !elmt) {
                return;
            }
            ASSERT_EQ(elmt->tiles.size(), 1U);
            const DiPtr<Tile>& tile = elmt->tiles.front();
            EXPECT_TRUE(IsHallPiece(*tile)) << ToText(elmt);
            EXPECT_EQ(tile, gen.tileSet->Get(tile->kindName));
        });
    });
}

TEST_F(LevelPropertiesTest, NoHallRunsThroughThePartOfARoom) {
    ForEachLevel([](const Level& level, const OpenRandom&) {
        ForEachCell(level, [](const auto& elmt, const CellBefore& before, auto, auto) {
            EXPECT_FALSE(before.covered && elmt) << ToText(elmt);
        });
    });
}

TEST_F(LevelPropertiesTest, EveryOpeningOntoNothingIsCounted) {
    OpeningCounter counter;
    std::uint32_t openings = 0;
    for (std::uint32_t seed = 0; seed < SeedCount(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        GenMgr& mgr = Prepared(seed);
        mgr.SetLevelObserver(&counter);
        mgr.Generate("Crypt", false);
        mgr.SetLevelObserver(nullptr);
        ASSERT_EQ(counter.reported, counter.counted);
        openings += counter.counted;
    }
    EXPECT_GT(openings, 0U);
}

TEST_F(LevelPropertiesTest, NoJunctionStandsOnTheBorder) {
    ForEachLevel([](const Level& level, const OpenRandom&) {
        const std::uint32_t lastRow = level.layout->GetHeight() - 1;
        const std::uint32_t lastCol = level.layout->GetWidth() - 1;
        ForEachCell(level, [=](const auto& elmt, const CellBefore& before, auto row, auto col) {
            const bool border = row == 0 || col == 0 || row == lastRow || col == lastCol;
            if (border && !before.exists && elmt) {
                EXPECT_FALSE(elmt->HasTile("Hall4Way"));
            }
        });
    });
}

TEST_F(LevelPropertiesTest, NoHallOpensOutOfTheLevel) {
    ForEachLevel([](const Level& level, const OpenRandom&) {
        const std::uint32_t lastRow = level.layout->GetHeight() - 1;
        const std::uint32_t lastCol = level.layout->GetWidth() - 1;
        ForEachCell(level, [=](const auto& elmt, const CellBefore& before, auto row, auto col) {
            if (elmt && !before.exists) {
                EXPECT_FALSE(row == 0 && OpensNorth(*elmt)) << ToText(elmt);
                EXPECT_FALSE(row == lastRow && OpensSouth(*elmt)) << ToText(elmt);
                EXPECT_FALSE(col == lastCol && OpensEast(*elmt)) << ToText(elmt);
                EXPECT_FALSE(col == 0 && OpensWest(*elmt)) << ToText(elmt);
            }
        });
    });
}

// Doors between levels.

TEST_F(LevelPropertiesTest, TeleportingDoorsStandInWallsAndLeadToEachOther) {
    const std::uint32_t seeds = SeedCount();
    for (std::uint32_t seed = 0; seed < seeds && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        OpenRandom gen(Prepared(seed));
        std::vector<Level> levels;
        OpenRandom::Levels layouts;
        for (int i = 0; i < 3; ++i) {
            Level level = Make(gen);
            if (level.layout) {
                level.before = TakeDown(*level.layout);
                layouts.push_back(level.layout);
                levels.push_back(level);
            }
        }
        gen.AddTeleportingDoors(layouts);
        std::size_t doors = 0;
        for (std::size_t i = 0; i < levels.size(); ++i) {
            ForEachCell(levels[i], [&](const auto& elmt, const auto& before, auto row, auto col) {
                if (!elmt || !elmt->isTeleport) {
                    return;
                }
                ++doors;
                EXPECT_TRUE(before.Has(TileWall));
                const bool down = i + 1 < levels.size() && elmt->teleLayout == layouts[i + 1];
                const bool up = i > 0 && elmt->teleLayout == layouts[i - 1];
                EXPECT_TRUE(up || down);
                const GridElmt& other =
                    *elmt->teleLayout->GetElmt(static_cast<std::uint32_t>(elmt->teleDest.y),
                                               static_cast<std::uint32_t>(elmt->teleDest.x));
                EXPECT_TRUE(other.isTeleport);
                // A place that could not become a doorway may be taken by two pairs.
                if (IsStraight(GetElmtDir(other))) {
                    EXPECT_EQ(other.teleLayout, layouts[i]);
                    EXPECT_EQ(other.teleDest,
                              DiPos(static_cast<int>(col), static_cast<int>(row), 0));
                }
            });
        }
        const std::size_t ends = levels.empty() ? 0 : 2 * (levels.size() - 1);
        EXPECT_LE(doors, ends);
        EXPECT_GE(doors, levels.size() < 2 ? 0 : levels.size());
        for (const DiPtr<Layout>& layout : layouts) {
            layout->Dissolve();
        }
    }
}

// Whole runs.

TEST_F(LevelPropertiesTest, EveryLevelIsACellOfItsNumberOrIsGivenUp) {
    const std::array<std::string, 3> names = {"Crypt, Level 1", "Crypt, Level 2", "Crypt, Level 3"};
    const std::string givenUp =
        "Error : Generator : Internal:  Giving up.  Failed to connect rooms in layout.";
    const std::uint32_t seeds = SeedCount();
    for (std::uint32_t seed = 0; seed < seeds && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const auto& cells = Run(seed).mod.GetCells();
        std::size_t level = 0;
        for (const auto& cell : cells) {
            while (level < names.size() && names[level] != cell->GetName()) {
                ++level;
            }
            EXPECT_LT(level, names.size()) << cell->GetName();
            ++level;
        }
        const auto skipped = std::ranges::count(ErrorLines(), givenUp);
        EXPECT_EQ(cells.size() + static_cast<std::size_t>(skipped), 3U);
    }
}

TEST_F(LevelPropertiesTest, EveryReferenceHasANameAndEveryDoorLeadsToANeighbour) {
    const std::uint32_t seeds = SeedCount();
    for (std::uint32_t seed = 0; seed < seeds && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const auto& cells = Run(seed).mod.GetCells();
        for (std::size_t i = 0; i < cells.size(); ++i) {
            ASSERT_FALSE(cells[i]->GetRefs().empty());
            EXPECT_EQ(cells[i]->GetRefs().front().GetName(), "NorthMarker");
            for (const Ref& ref : cells[i]->GetRefs()) {
                EXPECT_NE(ref.GetName(), "");
                const DiPtr<Ref>& arrival = ref.GetDestination();
                if (!arrival) {
                    continue;
                }
                const bool down =
                    i + 1 < cells.size() && arrival->GetName() == cells[i + 1]->GetName();
                const bool up = i > 0 && arrival->GetName() == cells[i - 1]->GetName();
                EXPECT_TRUE(up || down) << arrival->GetName();
                EXPECT_EQ(ref.sort, RefSort::Door);
            }
        }
    }
}

TEST_F(LevelPropertiesTest, SameSeedGivesTheSameBytes) {
    const std::uint32_t seeds = SeedCount();
    for (std::uint32_t seed = 0; seed < seeds && !HasFailure(); ++seed) {
        const std::string first = Bytes(Run(seed));
        Run(seed + 1);
        EXPECT_TRUE(Bytes(Run(seed)) == first) << "seed " << seed;
    }
}

} // namespace

} // namespace Tarnex::Test
