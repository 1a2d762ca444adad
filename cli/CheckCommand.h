// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Console.h"
#include "cli/ExitStatus.h"
#include "cli/Options.h"

namespace Tarnex::Cli {

/// Prints what is wrong with a configuration; findings of weight are a failure, and a document that
/// cannot be read is a usage error. Throws UsageError when there is no such configuration.
ExitStatus RunCheck(const CheckOptions& options, const Console& console);

} // namespace Tarnex::Cli
