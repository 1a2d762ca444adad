// SPDX-License-Identifier: MIT
// The whole program but for its entry.
#pragma once

#include "cli/Console.h"

#include <string>
#include <vector>

namespace Tarnex::Cli {

/// Does what the arguments (UTF-8, without the program's name) ask for and returns the exit status.
/// Throws nothing but std::bad_alloc.
int RunCommandLine(const std::vector<std::string>& arguments, const Console& console);

} // namespace Tarnex::Cli
