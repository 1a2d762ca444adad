// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Console.h"
#include "cli/ExitStatus.h"
#include "cli/Options.h"

namespace Tarnex::Cli {

/// Prints what a plug-in holds and what does not fit in it; findings are a failure. Throws
/// UsageError.
ExitStatus RunInspect(const InspectOptions& options, const Console& console);

} // namespace Tarnex::Cli
