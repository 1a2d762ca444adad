// SPDX-License-Identifier: MIT
// The verb search.
#pragma once

#include "cli/Console.h"
#include "cli/ExitStatus.h"
#include "cli/Options.h"

namespace Tarnex::Cli {

/// Judges many seeds and lists the best, or merges the tables of several searches.
ExitStatus RunSearch(const SearchOptions& options, const Console& console);

} // namespace Tarnex::Cli
