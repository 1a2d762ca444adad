// SPDX-License-Identifier: MIT
// What every verb that generates begins with.
#pragma once

#include "cli/CancelSignals.h"
#include "cli/ConfigSource.h"
#include "cli/Console.h"
#include "cli/LibraryLog.h"
#include "cli/RunReport.h"

#include <vaultry/gen/GenMgr.h>

#include <string>

namespace Tarnex::Cli {

/// Throws UsageError for options that are wrong or do not go together.
void CheckText(const GenerateOptions& options);

/// Loads the configuration. Returns false when that was cancelled. Throws UsageError for a broken
/// one, unless it is to be used all the same, and for a name that it lacks, having shown what was
/// logged. The configuration as it was read is put into `copy`; null copies nothing.
bool Configure(GenMgr& manager,
               const GenerateOptions& options,
               const ConfigSource& source,
               const CancelSignals& signals,
               const LibraryLog& log,
               const Console& console,
               std::string* copy = nullptr);

/// Generates what the report's options ask for, showing how far it is, and reports what came of it.
/// `observer` may be null.
void GenerateLevels(GenMgr& manager,
                    RunReport& report,
                    const CancelSignals& signals,
                    const Console& console,
                    LevelObserver* observer);

} // namespace Tarnex::Cli
