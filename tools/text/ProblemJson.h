// SPDX-License-Identifier: MIT
// Problems for other programs.
#pragma once

#include <vaultry/foundation/Problem.h>

#include <string>
#include <vector>

namespace Tarnex::Report {

/// The problems in their order: kind, file and place, the names that they tell, and their text.
std::string ToJson(const std::vector<Problem>& problems);

} // namespace Tarnex::Report
