// SPDX-License-Identifier: MIT
// The verb search.
#pragma once

#include "apps/vaultry/Console.h"
#include "apps/vaultry/ExitStatus.h"
#include "apps/vaultry/Options.h"

namespace Tarnex::Cli {

/// Judges many seeds and lists the best, or merges the tables of several searches.
ExitStatus RunSearch(const SearchOptions& options, const Console& console);

} // namespace Tarnex::Cli
