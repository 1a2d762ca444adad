// SPDX-License-Identifier: MIT
// Whether what a plug-in says makes sense.
#pragma once

#include <vaultry/output/PluginFile.h>

#include <vector>

namespace Tarnex::Report {

/// Everything that does not fit in a plug-in, in the order of the file and in UTF-8: what its
/// reader found, and counts, identifiers, names, places and destinations that contradict each
/// other or that the game does not take. A header that says 0 records is no finding: Vaultry's own
/// does.
std::vector<PluginFinding> FindInconsistencies(const PluginFile& file);

} // namespace Tarnex::Report
