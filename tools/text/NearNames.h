// SPDX-License-Identifier: MIT
// Finding the names that come near one.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Tarnex::Report {

/// How many letters must be inserted, removed, replaced or swapped with the next one to turn one
/// text into the other, the case of the letters a to z left aside.
std::size_t EditDistance(std::string_view a, std::string_view b);

/// Up to three of `names` that come near `name`, the nearest first; each name once.
std::vector<std::string> NearestNames(std::string_view name, const std::vector<std::string>& names);

/// Half a sentence that offers the nearest of `names`, or all of them when none is near.
std::string OfferNames(std::string_view name, const std::vector<std::string>& names);

} // namespace Tarnex::Report
