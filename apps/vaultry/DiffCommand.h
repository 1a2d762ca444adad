// SPDX-License-Identifier: MIT
#pragma once

#include "apps/vaultry/Console.h"
#include "apps/vaultry/ExitStatus.h"
#include "apps/vaultry/Options.h"

namespace Tarnex::Cli {

/// Prints what differs between two plug-ins; differences are a failure. Throws UsageError.
ExitStatus RunDiff(const DiffOptions& options, const Console& console);

} // namespace Tarnex::Cli
