// SPDX-License-Identifier: MIT
// The engine as a program of this system.
#pragma once

#include "tools/engine/EngineLine.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace Tarnex::Cli {

/// The one this program runs on.
extern const Report::System kThisSystem;

/// The path as text, in UTF-8 on every system.
std::string Utf8(const std::filesystem::path& path);

/// The environment's value in UTF-8; empty for none.
std::string EnvironmentValue(const char* name);

/// Where the engine's program is, if anywhere. [path, UTF-8]
std::optional<std::string> FindEngine();

/// Becomes the program of that command line, or runs it to its end where no process can become
/// another. Returns the exit status; nothing when the program could not be started.
std::optional<int> RunProgram(const std::vector<std::string>& words);

} // namespace Tarnex::Cli
