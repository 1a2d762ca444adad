// SPDX-License-Identifier: MIT
// Places and turns as JSON.
#pragma once

#include "tools/text/Json.h"

#include <vaultry/foundation/Di3Point.h>
#include <vaultry/run/Arrival.h>

#include <optional>
#include <vector>

namespace Tarnex::Report {

/// The number that is written as the float would be, 1.2 rather than 1.2000000476837158.
double Widened(float value);

/// [x, y, z].
Json PointJson(const Di3Point& point);

/// Radians as degrees, rounded to four decimals.
Json DegreesJson(const Di3Point& radians);

/// Where one arrives on a level, and what one types to stand there.
Json ArrivalJson(const Arrival& arrival);

/// Likewise, for each level that has such a place.
Json ArrivalsJson(const std::vector<Arrival>& arrivals);

/// Both sides of the way into a dungeon; null for none.
Json EntranceJson(const std::optional<MadeEntrance>& entrance);

} // namespace Tarnex::Report
