// SPDX-License-Identifier: MIT
// OpenMW's command line for a plug-in. All text is UTF-8.
#pragma once

#include <vaultry/foundation/Environment.h>

#include <string>
#include <string_view>
#include <vector>

namespace Tarnex::Report {

/// What the engine is to show.
struct EngineStart {
    std::string engine;               ///< its program [path]
    std::string stage;                ///< loaded in place of the game; empty: the game [path]
    std::string folder;               ///< the plug-in's [path]
    std::vector<std::string> content; ///< to load besides what openmw.cfg names, in order
    std::string cell;                 ///< where one is put first
    std::string script;               ///< lines for the console, run there; empty: none [path]
};

/// The words of the command line, the program first.
std::vector<std::string> EngineWords(const EngineStart& start);

/// The words as a line that can be pasted: into a POSIX shell, or into the command prompt, whose
/// programs take quotation marks away themselves.
std::string EngineLine(System system, const std::vector<std::string>& words);

/// Whether the names have it, in any case.
bool HasContent(const std::vector<std::string>& names, std::string_view name);

} // namespace Tarnex::Report
