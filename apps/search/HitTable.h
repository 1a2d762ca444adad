// SPDX-License-Identifier: MIT
// Found dungeons as CSV files.
#pragma once

#include "apps/search/Ranking.h"

#include <istream>
#include <ostream>
#include <string>
#include <vector>

namespace Tarnex::Search {

/// Writes a line with the names of all facts and "command", then a line for each hit.
void WriteCsv(const std::vector<Hit>& hits, std::ostream& out);

/// Reads what WriteCsv wrote. `name` stands for the file in messages. Throws UsageError, naming
/// file and line, for anything else.
std::vector<Hit> ReadCsv(std::istream& in, const std::string& name);

} // namespace Tarnex::Search
