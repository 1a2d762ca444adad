// SPDX-License-Identifier: MIT
#include "apps/vaultry/WalkableSearch.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Random.h>
#include <vaultry/gen/ContainerIds.h>

namespace Tarnex::Cli {

namespace {

// What a run may change and the next one would start from.
class Defaults {
public:
    explicit Defaults(const GenMgr& manager)
        : tileSet(manager.GetDefaultTileSet()), theme(manager.GetDefaultTheme()),
          creatureTheme(manager.GetDefaultCreatureTheme()),
          treasureTheme(manager.GetDefaultTreasureTheme()) {}

    void Restore(GenMgr& manager) const {
        manager.defTileSet = tileSet;
        manager.defTheme = theme;
        manager.defCreatureTheme = creatureTheme;
        manager.defTreasureTheme = treasureTheme;
    }

private:
    DiPtr<TileSet> tileSet;
    DiPtr<Theme> theme;
    DiPtr<Theme> creatureTheme;
    DiPtr<Theme> treasureTheme;
};

constexpr RunResult ResultOf(ModResult result) {
    switch (result) {
    case ModResult::Written:
        return RunResult::Written;
    case ModResult::Refused:
        return RunResult::Refused;
    case ModResult::Canceled:
        return RunResult::Canceled;
    case ModResult::NotWritten:
        return RunResult::NotWritten;
    }
    return RunResult::NotWritten;
}

} // namespace

RunResult
GenerateLevels(GenMgr& manager, RunReport& report, LibraryLog& log, Report::MapCollector* maps) {
    GenerateOptions& options = report.options;
    const Defaults defaults(manager);
    const std::uint32_t firstSeed = options.seed.value();
    const std::string cell = FromUtf8(options.cell);
    for (report.tries = 1;; ++report.tries) {
        const std::uint32_t seed = SeedOfTry(firstSeed, report.tries - 1);
        SeedRandom(seed);
        SetContainerStamp(options.stamp.value());
        if (maps != nullptr) {
            maps->Clear();
        }
        manager.SetLevelObserver(maps);
        const RunResult result = ResultOf(manager.Generate(cell.c_str(), options.fixed));
        manager.SetLevelObserver(nullptr);
        report.levels = manager.report;
        if (result != RunResult::Written || !options.ensureWalkable || report.levels.IsWalkable()) {
            options.seed = seed;
            return result;
        }
        if (report.tries == kMaxTries) {
            return RunResult::Unwalkable;
        }
        log.ForgetTry();
        defaults.Restore(manager);
    }
}

} // namespace Tarnex::Cli
