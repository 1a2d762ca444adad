// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Console.h"
#include "cli/ExitStatus.h"
#include "cli/Options.h"

namespace Tarnex::Cli {

/// Generates a plug-in and reports on it. The same options, with seed and stamp, give the same
/// bytes. Throws UsageError before anything is generated when the options cannot be followed.
ExitStatus RunGenerate(const GenerateOptions& options, const Console& console);

} // namespace Tarnex::Cli
