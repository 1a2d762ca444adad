// SPDX-License-Identifier: MIT
// From the words of the command line to what was asked for.
#pragma once

#include "cli/Options.h"

#include <string>
#include <vector>

namespace Tarnex::Cli {

/// Reads the arguments, which are UTF-8 and without the program's name. Throws UsageError.
Request ParseArguments(const std::vector<std::string>& arguments);

/// The number that `text` spells in decimal digits and nothing else. Throws UsageError, naming
/// `option`, for any other text and for a number outside [lowest, highest].
std::uint64_t ParseWhole(const std::string& option,
                         const std::string& text,
                         std::uint64_t lowest,
                         std::uint64_t highest);

} // namespace Tarnex::Cli
