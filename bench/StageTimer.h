// SPDX-License-Identifier: MIT
// A random generator whose stages can be run one by one.
#pragma once

#include <vaultry/gen/GenIntRandom.h>
#include <vaultry/gen/GenMgr.h>

#include <cstdint>
#include <string>

namespace Tarnex::Bench {

/// What a benchmark generates.
struct Scenario {
    const char* config;  ///< file under data/
    const char* tileSet; ///< null: the configuration's default
    bool cave;
    RandomGenInfo::LevelSizeT size;
};

/// Prepares a manager for the scenario, with creatures and treasure.
void Prepare(GenMgr& mgr, const Scenario& scenario);

/// Publishes the stages of one level.
class Stages : public GenIntRandom {
public:
    explicit Stages(GenInfo& info);

    /// Lays out a level, with the tries that a run makes; null when all fail.
    DiPtr<Layout> LayOut();
    /// Lays out a level whose room grid is `factor` times as wide and as high as usual.
    DiPtr<Layout> LayOutScaled(std::int32_t factor);
    void Furnish(Layout& level);
    /// Turns the level into references of a new cell and fills its containers.
    void Convert(Layout& level);

private:
    DiPtr<Layout> LayOut(const DiPos& grid);
};

} // namespace Tarnex::Bench
