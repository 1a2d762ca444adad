// SPDX-License-Identifier: MIT
// The engine as a program of this system.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace Tarnex::Cli {

/// Where the engine's program is, if anywhere. [path, UTF-8]
std::optional<std::string> FindEngine();

/// Becomes the program of that command line, or runs it to its end where no process can become
/// another. Returns the exit status; nothing when the program could not be started.
std::optional<int> RunProgram(const std::vector<std::string>& words);

} // namespace Tarnex::Cli
