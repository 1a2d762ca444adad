// SPDX-License-Identifier: MIT
// What a configuration may hold, for editors.
#pragma once

#include <string>

namespace Tarnex::Report {

/// Every element with where it stands, the words of its type, and its attributes: kind, bounds,
/// words, and the number when it is not given.
std::string GrammarJson();

} // namespace Tarnex::Report
