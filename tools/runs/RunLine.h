// SPDX-License-Identifier: MIT
// A run as a command line, written and read. All text is UTF-8.
#pragma once

#include <vaultry/run/RunOptions.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace Tarnex::Report {

inline constexpr const char* kBuiltin = "builtin";

/// A run and where it begins.
struct RunRequest : RunOptions {
    std::string config = kBuiltin; ///< a path, "builtin" or "builtin:NAME"
    bool keepGoing = false;        ///< use what was read of a broken one, unless strict
};

/// The options that shape the levels, each quoted by ForShell: the size, and each other that is not
/// the default. With the same seed and configuration they make the same levels again.
std::string LevelWords(const RunOptions& options);

/// The command line that makes the dungeon of that seed, each value quoted by ForShell: every
/// option that decides what is generated, unless it is the default; cell and size always, so that
/// the line means the same should these defaults change. The seed of the request does not count.
std::string GenerateCommandLine(const RunRequest& request, std::uint32_t seed);

/// What a command line of `vaultry generate` asks for, each word plain or quoted as for a POSIX
/// shell. It may hold every option of a run, in any order, but nothing that only the command line
/// has, such as files to write. Throws UsageError for any other.
RunRequest ReadCommandLine(std::string_view line);

} // namespace Tarnex::Report
