// SPDX-License-Identifier: MIT
// Facts for other programs.
#pragma once

#include "tools/facts/DungeonFacts.h"
#include "tools/text/Json.h"

#include <string>

namespace Tarnex::Report {

/// A fact: its name, what it says, the least and the most that it can be; null for no bound.
Json FactJson(const Fact& fact);

/// All facts.
std::string FactListJson();

/// The values under the names of their facts.
std::string ToJson(const FactValues& values);

} // namespace Tarnex::Report
