// SPDX-License-Identifier: MIT
// The verb map, and what generate shares with it.
#pragma once

#include "cli/Console.h"
#include "cli/ExitStatus.h"
#include "cli/LibraryLog.h"
#include "cli/Options.h"
#include "cli/RunReport.h"
#include "tools/maps/LevelMap.h"

#include <string>
#include <vector>

namespace Tarnex::Cli {

/// Draws a plug-in, or generates without writing one and draws that: into the files asked for, or
/// else on the terminal.
ExitStatus RunMap(const MapOptions& options, const Console& console);

/// What the margin of a map says about a run.
Report::MapCaption CaptionOf(const GenerateOptions& options);

/// Prints every level, and what the characters mean.
void PrintMaps(Report::MapLevels& levels, const Console& console);

/// Says which maps were written.
void SayWritten(const std::vector<WrittenFile>& files, const Console& console);

/// Says that the log lacks lines, if it does, and reports it as a warning.
void SayLogFault(const LibraryLog& log, RunReport& report, const Console& console);

} // namespace Tarnex::Cli
