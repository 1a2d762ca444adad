// SPDX-License-Identifier: MIT
// The whole context of a generation run.
#pragma once

#include <vaultry/catalogue/ConfigMgr.h>
#include <vaultry/foundation/JobStatus.h>
#include <vaultry/gen/GenReport.h>
#include <vaultry/gen/RandomGenInfo.h>
#include <vaultry/gen/RunMeter.h>
#include <vaultry/output/Mod.h>

#include <string>

namespace Tarnex {

class LevelObserver;

/// Everything a generator needs. Every generator holds a reference to it; what a run leaves in it
/// (tile set, themes) is where the next run starts.
///
/// GenMgr derives from it, so that a front end finds all of it there: `manager.report`,
/// `manager.mod`, `manager.config`. A Run sets what its options ask for and puts the settings back
/// in the end.
struct VAULTRY_API GenInfo {
    Mod mod;                           ///< the plug-in being built
    ConfigMgr config;                  ///< everything read from the configuration
    RandomGenInfo randomInfo;          ///< what is asked of random levels
    DiPtr<Theme> defCreatureTheme;     ///< null: no creatures
    DiPtr<Theme> defTheme;             ///< furniture theme; null: no content at all
    DiPtr<TileSet> defTileSet;         ///< what levels are built from; a run needs one
    DiPtr<LayoutTemplate> defTemplate; ///< for fixed layouts
    DiPtr<Theme> defTreasureTheme;     ///< null: containers stay empty
    JobStatus* jobStatus = nullptr;    ///< the caller's, not owned; may be null
    std::string cellName;              ///< random generation rewrites it per level
    bool addPlatforms = false;         ///< raise platforms in fixed layouts of cave tile sets
    /// Give the cell of a single random level the name asked for; without it that cell has the
    /// empty name.
    bool nameSingleLevel = false;
    /// Where a door of the first level leads, out of the dungeon, as Ref::Teleport takes it; null:
    /// none does.
    DiPtr<Ref> wayOut;
    LevelObserver* levelObserver = nullptr; ///< the caller's, not owned; may be null
    GenReport report;       ///< what the last run came to; written by the generators
    mutable RunMeter meter; ///< of the run now under way

    /// An empty configuration, no defaults, nobody to tell.
    GenInfo() = default;
    GenInfo(const GenInfo&) = delete;
    GenInfo& operator=(const GenInfo&) = delete;
};

} // namespace Tarnex
