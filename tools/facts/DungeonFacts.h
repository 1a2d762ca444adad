// SPDX-License-Identifier: MIT
// What can be told of a dungeon in numbers, to choose among many.
#pragma once

#include "tools/facts/LevelShape.h"

#include <vaultry/catalogue/ContentMgr.h>
#include <vaultry/gen/GenReport.h>
#include <vaultry/output/Mod.h>

#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Tarnex::Report {

/// The sum of two worths, which stops at the bounds of the type: a configuration may give any.
std::int64_t AddUpTo(std::int64_t sum, std::int64_t more);

/// What the catalogue says of the things in a plug-in, looked up by their identifiers. Where
/// several have one identifier, the first counts.
class ContentWorth {
public:
    explicit ContentWorth(const ContentMgr& content);

    /// The level of a creature; 1 when it is not known.
    std::int32_t CreatureLevel(const std::string& id) const;
    /// The worth of one item; 0 when it is not known. [gold pieces]
    std::int32_t ItemValue(const std::string& id) const;
    /// The same of so many in a container; a count below 0 is of items that are refilled.
    std::int64_t StackValue(const std::string& id, std::int32_t count) const;

private:
    std::unordered_map<std::string, std::int32_t> levels;
    std::unordered_map<std::string, std::int32_t> values;
};

/// A dungeon in numbers, before they are given names.
struct DungeonTally {
    std::uint32_t seed = 0;
    std::vector<LevelShape> levels; ///< that were made
    bool walkable = false;          ///< every level was made, every room of it can be reached and
                                    ///< all hang together
    std::array<std::uint64_t, kRefSorts> references{};
    std::vector<std::int32_t> creatureLevels; ///< of each creature, in no order
    std::uint64_t containers = 0;
    std::int64_t treasure = 0; ///< worth of what is in the containers [gold pieces]
    std::uint64_t bytes = 0;   ///< size of the plug-in
    std::uint64_t errors = 0;  ///< error lines that were logged for it
};

/// Collects the shapes of a run's levels.
class ShapeCollector : public LevelObserver {
public:
    /// `job`, which may be null and is not owned, is asked whether the shapes are still wanted.
    explicit ShapeCollector(const JobStatus* job = nullptr) : status(job) {}

    void LevelFinished(const FinishedLevel& level) override {
        shapes.push_back(ShapeOf(MapOf(level), status));
    }
    void StartOver() override { shapes.clear(); }
    /// Hands the shapes over and starts anew.
    std::vector<LevelShape> Take() { return std::exchange(shapes, {}); }

private:
    const JobStatus* status;
    std::vector<LevelShape> shapes;
};

/// Counts what the plug-in holds. `report` is that of the run, `levels` the shapes of its levels.
/// Seed and errors are left to the caller.
DungeonTally
Tally(Mod& mod, const GenReport& report, std::vector<LevelShape> levels, const ContentWorth& worth);

/// Stands for a value of a fact that has no bound.
inline constexpr std::int64_t kNoLeast = std::numeric_limits<std::int64_t>::min();
inline constexpr std::int64_t kNoMost = std::numeric_limits<std::int64_t>::max();

/// One fact: a name to ask for it, what it says, how it follows from the tally, what it can be.
struct Fact {
    std::string_view name;
    std::string_view help;
    std::int64_t (*value)(const DungeonTally& tally);
    std::int64_t least = 0;
    std::int64_t most = kNoMost;
};

/// All facts; the first is the seed.
std::span<const Fact> Facts();

/// The number of a fact among Facts(), if there is one of that name. Case does not matter, and "_"
/// stands for "-".
std::optional<std::size_t> FindFact(std::string_view name);

/// "X is no fact", with the names that may have been meant.
std::string NoFact(std::string_view name);

/// The names of all facts.
std::vector<std::string> FactNames();

/// The value of every fact, in the order of Facts().
using FactValues = std::vector<std::int64_t>;
FactValues ValuesOf(const DungeonTally& tally);

} // namespace Tarnex::Report
