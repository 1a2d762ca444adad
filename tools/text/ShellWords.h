// SPDX-License-Identifier: MIT
// From a command line to its words.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Tarnex::Report {

/// The words of a line in which every word is plain or quoted as ForShell does. Throws UsageError
/// for any other: a shell would not just hand its words over.
std::vector<std::string> SplitCommandLine(std::string_view line);

} // namespace Tarnex::Report
