// SPDX-License-Identifier: MIT
#pragma once

#include "apps/vaultry/Console.h"
#include "apps/vaultry/ExitStatus.h"
#include "apps/vaultry/Options.h"

namespace Tarnex::Cli {

/// Prints what a plug-in holds and what does not fit in it; findings are a failure. Throws
/// UsageError.
ExitStatus RunInspect(const InspectOptions& options, const Console& console);

} // namespace Tarnex::Cli
