// SPDX-License-Identifier: MIT
// What to say of a fact that there is not.
#pragma once

#include <string>
#include <string_view>

namespace Tarnex::Search {

/// "X is no fact", with the names that may have been meant.
std::string NoFact(std::string_view name);

} // namespace Tarnex::Search
