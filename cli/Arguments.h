// SPDX-License-Identifier: MIT
// From the words of the command line to what was asked for.
#pragma once

#include "cli/Options.h"

#include <string>
#include <vector>

namespace Tarnex::Cli {

/// Reads the arguments, which are UTF-8 and without the program's name. Throws UsageError.
Request ParseArguments(const std::vector<std::string>& arguments);

} // namespace Tarnex::Cli
