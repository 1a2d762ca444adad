// SPDX-License-Identifier: MIT
#pragma once

#include "apps/vaultry/Console.h"
#include "apps/vaultry/ExitStatus.h"
#include "apps/vaultry/Options.h"

namespace Tarnex::Cli {

/// Generates a plug-in and reports on it. The same options, with seed and stamp, give the same
/// bytes. Throws UsageError before anything is generated when the options cannot be followed.
ExitStatus RunGenerate(const GenerateOptions& options, const Console& console);

} // namespace Tarnex::Cli
