// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Console.h"
#include "cli/ExitStatus.h"
#include "cli/Options.h"

namespace Tarnex::Cli {

/// Prints a built-in configuration, byte for byte. Throws UsageError for a name there is not.
ExitStatus RunConfig(const ConfigOptions& options, const Console& console);

} // namespace Tarnex::Cli
