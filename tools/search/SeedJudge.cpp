// SPDX-License-Identifier: MIT
#include "tools/search/SeedJudge.h"

#include <new>
#include <utility>

namespace Tarnex::Search {

SeedJudge::SeedJudge(GenMgr& configured, Make makeDungeon, Condition condition)
    : manager(configured), make(std::move(makeDungeon)), wanted(std::move(condition)),
      worth(*manager.config.contentMgr), shapes(manager.jobStatus) {}

Verdict SeedJudge::Judge(std::uint32_t seed) try {
    manager.SetLevelObserver(&shapes);
    const RunResult result = make(seed);
    manager.SetLevelObserver(nullptr);
    std::vector<Report::LevelShape> levels = shapes.Take();
    if (result.end != RunEnd::Made) {
        const std::vector<std::string> errors = ErrorLines(result.problems);
        return {std::nullopt, errors.empty() ? "no reason known" : errors.back()};
    }
    Report::DungeonTally tally =
        Report::Tally(manager.mod, manager.report, std::move(levels), worth);
    tally.seed = seed;
    tally.errors = result.problems.size();
    Report::FactValues values = Report::ValuesOf(tally);
    return wanted.Holds(values) ? Verdict{std::move(values), {}}
                                : Verdict{std::nullopt, {}, std::move(values)};
} catch (const std::bad_alloc&) {
    return {std::nullopt, "out of memory"}; // another dungeon may well need less
}

} // namespace Tarnex::Search
