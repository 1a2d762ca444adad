// SPDX-License-Identifier: MIT
#include "cli/WalkableSearch.h"

#include "cli/SeedRun.h"

namespace Tarnex::Cli {

namespace {

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
    SeedRun run(manager, options);
    const std::uint32_t firstSeed = options.seed.value();
    for (report.tries = 1;; ++report.tries) {
        const std::uint32_t seed = SeedOfTry(firstSeed, report.tries - 1);
        if (maps != nullptr) {
            maps->Clear();
        }
        manager.SetLevelObserver(maps);
        const RunResult result = ResultOf(run.Generate(seed));
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
    }
}

} // namespace Tarnex::Cli
