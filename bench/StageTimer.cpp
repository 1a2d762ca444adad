// SPDX-License-Identifier: MIT
#include "StageTimer.h"

#include <vaultry/foundation/Logger.h>

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
    DiPos grid;
    InitRoomGridSize(grid);
    return LayOut(grid);
}

DiPtr<Layout> Stages::LayOutScaled(std::int32_t factor) {
    DiPos grid;
    InitRoomGridSize(grid);
    return LayOut(DiPos(grid.x * factor, grid.y * factor, 0));
}

DiPtr<Layout> Stages::LayOut(const DiPos& grid) {
    constexpr int kTries = 3;
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
