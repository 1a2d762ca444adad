// SPDX-License-Identifier: MIT
// What is said about names.
#pragma once

#include "cli/Options.h"

#include <string>
#include <string_view>
#include <vector>

namespace Tarnex::Cli {

/// Half a sentence that offers the nearest of `names`, or all of them when none is near.
std::string OfferNames(std::string_view name, const std::vector<std::string>& names);

/// One line for each thing that the names asked for lose in the game: letters that Windows-1252
/// lacks, and bytes beyond the 63 of a cell's name, the numbers of several levels included.
std::vector<std::string> NameWarnings(const GenerateOptions& options);

/// The names of a list of the configuration, in UTF-8.
std::vector<std::string> ToUtf8(const std::vector<std::string>& codePageNames);

} // namespace Tarnex::Cli
