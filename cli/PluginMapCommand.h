// SPDX-License-Identifier: MIT
// The verb map for a plug-in.
#pragma once

#include "cli/Console.h"
#include "cli/ExitStatus.h"
#include "cli/Options.h"

namespace Tarnex::Cli {

/// Draws the interiors of the plug-in that the options name.
ExitStatus RunPluginMap(const MapOptions& options, const Console& console);

} // namespace Tarnex::Cli
