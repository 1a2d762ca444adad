// SPDX-License-Identifier: MIT
// A seed in, facts out.
#pragma once

#include "tools/facts/DungeonFacts.h"
#include "tools/facts/LevelShape.h"
#include "tools/search/Condition.h"
#include "tools/search/Verdict.h"

#include <vaultry/run/Run.h>

#include <cstdint>
#include <functional>

namespace Tarnex::Search {

/// Makes the dungeons of seeds, one after another, and judges each.
class SeedJudge {
public:
    /// Makes the dungeon of a seed in the manager's `mod`.
    using Make = std::function<RunResult(std::uint32_t seed)>;

    /// `manager` is configured, not owned; `wanted` holds for the dungeons that are wanted.
    SeedJudge(GenMgr& manager, Make make, Condition wanted);

    Verdict Judge(std::uint32_t seed);

private:
    GenMgr& manager;
    Make make;
    Condition wanted;
    Report::ContentWorth worth;
    Report::ShapeCollector shapes;
};

} // namespace Tarnex::Search
