// SPDX-License-Identifier: MIT
// A random generator whose stages can be run one by one.
#pragma once

#include <vaultry/gen/GenIntRandom.h>
#include <vaultry/gen/GenMgr.h>

#include <cstdint>
#include <optional>
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

/// How rooms are joined in a ring: row by row, or shuffled before, as half of the levels are.
enum class Ring { InOrder, Shuffled };

/// Publishes the stages of one level.
class Stages : public GenIntRandom {
public:
    explicit Stages(GenInfo& info);

    /// Lays out a level, with the tries that a run makes; null when all fail.
    DiPtr<Layout> LayOut();
    /// Rooms placed on a grid `factor` times as wide and as high as usual, without halls.
    DiPtr<Layout> PlaceScaled(std::int32_t factor);
    /// Joins the rooms that PlaceScaled placed, in that kind of ring.
    void JoinScaled(Layout& level, Ring ring);
    void Furnish(Layout& level);
    /// Turns the level into references of a new cell and fills its containers.
    void Convert(Layout& level);

private:
    std::optional<RoomInfo> placed;
    std::uint32_t nextSeed = 1;
};

} // namespace Tarnex::Bench
