// SPDX-License-Identifier: MIT
// Finding the names that were meant.
#pragma once

#include "tools/text/NearNames.h"

#include <string>
#include <string_view>
#include <vector>

namespace Tarnex::Cli {

using Report::EditDistance;
using Report::NearestNames;

/// Half a sentence that offers the nearest of `names`, or all of them when none is near.
std::string OfferNames(std::string_view name, const std::vector<std::string>& names);

/// The names of a list of the configuration, in UTF-8.
std::vector<std::string> ToUtf8(const std::vector<std::string>& codePageNames);

} // namespace Tarnex::Cli
