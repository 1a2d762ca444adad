// SPDX-License-Identifier: MIT
// What every run that generates begins with.
#pragma once

#include "cli/CancelSignals.h"
#include "cli/ConfigSource.h"
#include "cli/Console.h"
#include "cli/LibraryLog.h"
#include "cli/Options.h"

#include <vaultry/gen/GenMgr.h>

namespace Tarnex::Cli {

/// Throws UsageError for options that are wrong or do not go together.
void CheckText(const GenerateOptions& options);

/// Sets seed and stamp unless they are given: a run can be repeated only when what chance and the
/// clock decided is known.
void FixChance(GenerateOptions& options);

/// Loads the configuration and hands over the options. Returns false when that was cancelled.
/// Throws UsageError for a broken configuration, unless it is to be used all the same, and for an
/// unknown name, having shown what was logged.
bool Configure(GenMgr& manager,
               const GenerateOptions& options,
               const ConfigSource& source,
               const CancelSignals& signals,
               const LibraryLog& log,
               const Console& console);

} // namespace Tarnex::Cli
