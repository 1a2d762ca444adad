// SPDX-License-Identifier: MIT
// What OpenMW is told to load. All text is UTF-8.
#pragma once

#include <vaultry/foundation/Environment.h>
#include <vaultry/foundation/Export.h>

#include <string>
#include <string_view>
#include <vector>

namespace Tarnex {

/// What the files named openmw.cfg say, as far as it matters here.
struct EngineConfig {
    std::vector<std::string> folders; ///< of data, those that count more later [paths]
    std::vector<std::string> content; ///< the files to load, in order
};

/// Adds what the text of one openmw.cfg says to that of those before. Lines that are not understood
/// are passed over.
VAULTRY_API void AddEngineConfig(std::string_view text, EngineConfig& config);

/// The user's openmw.cfg, which the engine's launcher writes. [path]
VAULTRY_API std::string EngineConfigPath(System system, const Environment& environment);

/// Every openmw.cfg that the engine reads, the user's last. [paths]
VAULTRY_API std::vector<std::string> EngineConfigPaths(System system,
                                                       const Environment& environment);

/// What those files of this user say; a file that is not there says nothing.
VAULTRY_API EngineConfig InstalledEngineConfig();

} // namespace Tarnex
