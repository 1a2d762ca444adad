// SPDX-License-Identifier: MIT
// Where OpenMW and its configuration lie. All text is UTF-8.
#pragma once

#include "tools/engine/EngineLine.h"

#include <functional>
#include <string>
#include <vector>

namespace Tarnex::Report {

/// The value of an environment variable; empty for none.
using Environment = std::function<std::string(const char* name)>;

/// The user's openmw.cfg, which the engine's launcher writes. [path]
std::string EngineConfigPath(System system, const Environment& environment);

/// Where the engine's program may be, the likeliest first. [paths]
std::vector<std::string> EnginePaths(System system, const Environment& environment);

} // namespace Tarnex::Report
