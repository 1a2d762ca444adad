// SPDX-License-Identifier: MIT
// The verb map, and the map that generate writes.
#pragma once

#include "apps/report/LevelMap.h"
#include "apps/vaultry/Console.h"
#include "apps/vaultry/ExitStatus.h"
#include "apps/vaultry/Options.h"

#include <string>
#include <vector>

namespace Tarnex::Cli {

/// Generates without writing a plug-in and prints the map of every level.
ExitStatus RunMap(const MapOptions& options, const Console& console);

/// Writes the maps as SVG to `path` (UTF-8); false when that failed.
bool WriteMapFile(const std::vector<Report::LevelMap>& maps,
                  const GenerateOptions& options,
                  const std::string& path);

} // namespace Tarnex::Cli
