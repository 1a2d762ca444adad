// SPDX-License-Identifier: MIT
// One run: from a configuration and options to a dungeon in memory.
#pragma once

#include <vaultry/foundation/Problem.h>
#include <vaultry/gen/GenMgr.h>
#include <vaultry/run/Arrival.h>
#include <vaultry/run/GameIds.h>
#include <vaultry/run/RunOptions.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Tarnex {

struct EntranceSite;

/// How a run ended. Only after the first is what GenMgr::WriteMod would write what was asked for.
enum class RunEnd {
    Made,       ///< the manager's `mod` is whole
    Refused,    ///< nothing was generated; the errors say why, and `mod` may be that of another run
    Canceled,   ///< the job status asked to stop
    Unwalkable, ///< as many seeds were tried as a run tries, and none made every room reachable
    Unclosed    ///< likewise, and on all that did something opens onto nothing
};

/// What a run came to. Texts are UTF-8.
struct RunResult {
    RunEnd end = RunEnd::Refused;         ///< whether there is a dungeon
    std::uint32_t seed = 0;               ///< of the last try, or the first when none was as wanted
    std::int64_t stamp = 0;               ///< in the identifiers of containers
    std::uint32_t tries = 1;              ///< seeds tried
    GenReport levels;                     ///< of the last try, with what each level was made from
    std::vector<Problem> problems;        ///< of the last try, as they were logged
    std::vector<Arrival> arrivals;        ///< of every level that has any, in order; see Generate
    std::optional<MadeEntrance> entrance; ///< the way in from the world, if there is one
};

/// Draws seed and stamp unless they are given: a run can be repeated only when what chance and the
/// clock decided is known. A stamp that is drawn is below 2^53, so that programs that read numbers
/// as floating-point ones keep it whole. Throws what std::random_device throws where the system has
/// no chance to give.
VAULTRY_API void FixChance(RunOptions& options);

/// The most seeds that a run tries.
inline constexpr std::uint32_t kMaxTries = 1000;

/// The seeds that a program chooses, beginning with number 0, the given one: each is further by
/// 2654435769, the golden ratio of the 32-bit numbers. Sums wrap around at 2^32, and no seed comes
/// twice. Neighbouring seeds begin with nearly the same draws, so that their dungeons are of one
/// size; these have nothing in common, and any number of them is spread over all seeds.
constexpr std::uint32_t FurtherSeed(std::uint32_t seed, std::uint32_t number) {
    constexpr std::uint32_t kStride = 2654435769U;
    return seed + number * kStride;
}

/// Generates from a configuration that a manager has read. What it makes depends on configuration,
/// options, seed and stamp alone, and for names that are not given on the manager's defaults: it
/// draws from a generator of its own, and leaves in the manager nothing but `mod` and `report`. It
/// logs where the thread that calls it logs, and its problems are told in its result alone; threads
/// that each have a manager and a state (UseRunState) do not disturb each other.
///
/// @code
/// Tarnex::GenMgr manager;
/// manager.Init("vaultry.xml");
/// Tarnex::RunOptions options;
/// options.creatureTheme = "Undead";
/// const Tarnex::RunResult result = Tarnex::Run(manager, options).Generate();
/// if (result.end == Tarnex::RunEnd::Made &&
///     manager.WriteMod("dungeon.esp") == Tarnex::ModResult::Written) {
///     std::cout << "seed " << result.seed << ", stamp " << result.stamp << '\n';
/// }
/// @endcode
///
/// Of several runs with one manager each makes its dungeon in place of the one before; two at a
/// time need a manager and a state each.
class VAULTRY_API Run {
public:
    /// `manager` is not owned and must outlive the run; its job status is asked and its observer
    /// shown every level; neither may throw when a try begins. Seed and stamp are drawn here unless
    /// they are given, and the table of ids is read if there is one. The options are copied, and
    /// nothing is generated yet.
    Run(GenMgr& manager, const RunOptions& options);

    /// As they were given, with seed, stamp and cell.
    const RunOptions& Options() const { return options; }

    /// Generates into the manager's `mod`, and finds where one arrives; where the options ask for a
    /// walkable or closed dungeon, from further seeds until there is one. Names that the
    /// configuration lacks are refused, and a table of ids that cannot be used. The log's error
    /// list holds those of the last try afterwards. May be called again, for the same dungeon. When
    /// no seed made a walkable one, `mod` holds that of the last seed tried. The manager's
    /// JobStatus can stop it.
    RunResult Generate();

    /// Generates from that seed instead, once, for whoever tries many: nobody arrives there, so
    /// that no places are looked for. Whether the dungeon is walkable is for the caller to ask of
    /// the result.
    RunResult GenerateFrom(std::uint32_t seed);

private:
    bool FindNames(RunOptions& wanted) const;
    void HandOver(const RunOptions& wanted) const;
    std::optional<EntranceSite> FindSite() const;
    RunResult Try(std::uint32_t seed, const EntranceSite* site, LevelObserver* observer) const;

    GenMgr& manager;
    RunOptions options;
    GameIds ids;
    std::string idsFault; // empty: none
};

} // namespace Tarnex
