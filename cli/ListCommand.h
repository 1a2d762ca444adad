// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Console.h"
#include "cli/ExitStatus.h"
#include "cli/Options.h"

namespace Tarnex::Cli {

/// Prints what a configuration offers, by name; the library's error lines go to standard error. A
/// configuration that offers nothing is a failure. Throws UsageError when it cannot be opened.
ExitStatus RunList(const ListOptions& options, const Console& console);

} // namespace Tarnex::Cli
