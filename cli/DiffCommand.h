// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Console.h"
#include "cli/ExitStatus.h"
#include "cli/Options.h"

namespace Tarnex::Cli {

/// Prints what differs between two plug-ins; differences are a failure. Throws UsageError.
ExitStatus RunDiff(const DiffOptions& options, const Console& console);

} // namespace Tarnex::Cli
