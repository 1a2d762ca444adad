// SPDX-License-Identifier: MIT
#include "StageTimer.h"

#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/Random.h>

namespace Tarnex::Bench {

void Prepare(GenMgr& mgr, const Scenario& scenario) {
    Logger::InitWithoutFile();
    const std::string file = std::string(VAULTRY_SOURCE_DIR "/data/") + scenario.config;
    mgr.Init(file.c_str());
    if (scenario.tileSet != nullptr) {
        mgr.SetDefaultTileSet(scenario.tileSet, scenario.cave);
    }
    if (!mgr.GetCreatureThemes().empty()) {
        mgr.SetDefaultCreatureTheme(mgr.GetCreatureThemes().front()->GetName().c_str());
    }
    RandomGenInfo parameters;
    parameters.levelSize = scenario.size;
    parameters.roomSpacing = RandomGenInfo::SemiTight;
    mgr.SetRandomInfo(parameters);
}

Stages::Stages(GenInfo& info_) : GenIntRandom(info_) {}

DiPtr<Layout> Stages::LayOut() {
    constexpr int kTries = 3;
    DiPos grid;
    InitRoomGridSize(grid);
    DiPtr<Layout> level;
    for (int i = 0; i < kTries && !level; ++i) {
        LevelReport report;
        level = InitMainLayout(grid, report);
    }
    if (level) {
        level->SetTileSet(tileSet);
    }
    return level;
}

DiPtr<Layout> Stages::PlaceScaled(std::int32_t factor) {
    constexpr std::int32_t kSpareCells = 3;
    DiPos grid;
    InitRoomGridSize(grid);
    RoomInfo& rooms = placed.emplace(DiPos(grid.x * factor, grid.y * factor, 0));
    CreateRooms(rooms);
    SpaceRooms(rooms);
    DiPtr<Layout> level =
        Layout::Create(DiPos(static_cast<std::int32_t>(rooms.GetTotalWidth()) + kSpareCells,
                             static_cast<std::int32_t>(rooms.GetTotalHeight()) + kSpareCells,
                             0));
    PlaceRooms(*level, rooms);
    return level;
}

void Stages::JoinScaled(Layout& level, Ring ring) {
    constexpr float kShuffledAbove = 0.5F; // by the first draw of the joining
    float draw = 0.0F;
    do {
        SeedRandom(++nextSeed);
        draw = RandomUnit();
    } while ((draw > kShuffledAbove) != (ring == Ring::Shuffled));
    SeedRandom(nextSeed);
    LevelReport report;
    ConnectRooms(level, *placed, report);
}

void Stages::Furnish(Layout& level) {
    AddContents(level);
}

void Stages::Convert(Layout& level) {
    containers.clear();
    info.mod.ResetContent();
    InitCell();
    FillCell(level);
    AddCtrTreasure(containers);
}

} // namespace Tarnex::Bench
