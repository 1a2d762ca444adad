// SPDX-License-Identifier: MIT
// From options back to the command line.
#pragma once

#include "cli/Options.h"

#include <cstdint>
#include <string>

namespace Tarnex::Cli {

/// The options that shape the levels, for a POSIX shell: each that is not the default. With the
/// same seed and configuration they make the same levels again.
std::string LevelWords(const RunOptions& options);

/// The command line that makes the dungeon of that seed, for a POSIX shell: every option that
/// decides what is generated, unless it is the default. The seed of the options does not count.
std::string GenerateCommandLine(const GenerateOptions& options, std::uint32_t seed);

} // namespace Tarnex::Cli
