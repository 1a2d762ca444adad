// SPDX-License-Identifier: MIT
// What is said about names.
#pragma once

#include "cli/Options.h"
#include "tools/text/NearNames.h"

#include <string>
#include <string_view>
#include <vector>

namespace Tarnex::Cli {

using Report::OfferNames;

/// One line for each thing that the names asked for lose in the game: letters that Windows-1252
/// lacks, bytes beyond the 63 of a cell's name, the numbers of several levels included, and letters
/// that its console does not take.
std::vector<std::string> NameWarnings(const GenerateOptions& options);

/// One line for each option given that has no effect beside the others.
std::vector<std::string> IdleWarnings(const GenerateOptions& options);

/// One line where traps are asked for and there is no spell for them. Throws UsageError when the
/// table of ids cannot be used.
std::vector<std::string> IdWarnings(const RunOptions& options);

/// One line where the cell is named after the file, but not with all its letters.
std::vector<std::string> CellNameWarnings(const std::string& path, const std::string& cell);

/// One line where the game would not list the plug-in for the end of its name.
std::vector<std::string> FileNameWarnings(const std::string& path);

/// The names of a list of the configuration, in UTF-8.
std::vector<std::string> ToUtf8(const std::vector<std::string>& codePageNames);

} // namespace Tarnex::Cli
