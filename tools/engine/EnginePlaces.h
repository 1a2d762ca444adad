// SPDX-License-Identifier: MIT
// Where OpenMW lies. All text is UTF-8.
#pragma once

#include <vaultry/foundation/Environment.h>

#include <string>
#include <vector>

namespace Tarnex::Report {

/// Where the engine's program may be, the likeliest first. [paths]
std::vector<std::string> EnginePaths(System system, const Environment& environment);

} // namespace Tarnex::Report
