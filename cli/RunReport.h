// SPDX-License-Identifier: MIT
// What a run made, and how to repeat it.
#pragma once

#include "cli/ExitStatus.h"
#include "cli/Options.h"

#include <vaultry/output/Mod.h>
#include <vaultry/run/Run.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Tarnex::Cli {

/// One cell of the plug-in.
struct CellReport {
    std::string name; ///< UTF-8
    std::array<std::uint64_t, kRefSorts> references{};
    std::uint64_t teleports = 0; ///< doors that lead elsewhere
};

/// How one walks in a fixed interior, by the numbers that its areas have on maps.
struct InteriorReport {
    std::string layout; ///< its name, UTF-8
    std::size_t rooms = 0;
    std::vector<std::size_t> unreachable; ///< from 1
    std::uint64_t openings = 0;           ///< onto nothing; ways in are none
};

/// Everything that is said about a run. All text is UTF-8.
struct RunReport {
    GenerateOptions options; ///< with seed and stamp as they were used
    bool stampGiven = false;
    Ending result = Ending::Refused;
    std::string fault;                 ///< why NotWritten, a sentence that names the file
    std::uint64_t bytes = 0;           ///< size of the plug-in [bytes]
    std::optional<WrittenFile> beside; ///< the plug-in, with the line that makes it again
    std::vector<WrittenFile> maps;
    std::vector<CellReport> cells;
    GenReport levels;
    std::optional<InteriorReport> interior; ///< of a fixed interior that was made
    std::vector<Arrival> arrivals;          ///< of the levels, where one can arrive
    std::optional<MadeEntrance> entrance;   ///< the way in from the world
    std::uint32_t tries = 1;                ///< seeds tried
    std::uint64_t containers = 0;
    std::uint64_t entries = 0; ///< inventory entries of all containers
    std::vector<std::string> errors;
    std::vector<std::string> warnings;
};

/// Takes over what the library says of a run, but for the errors, of which writing may add some: a
/// plug-in that was made has yet to be written.
void TakeOver(const RunResult& run, RunReport& report);

/// Counts what the plug-in holds.
void CountContent(const Mod& mod, RunReport& report);

/// What the player does next, a line each, after a plug-in was written.
std::vector<std::string> NextSteps(const RunReport& report);

/// One line: what was written, with the seed, and the stamp when it was given.
std::string Summary(const RunReport& report);

/// For programs: one JSON object, valid UTF-8 whatever the names hold.
std::string ToJson(const RunReport& report);

} // namespace Tarnex::Cli
