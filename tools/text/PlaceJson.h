// SPDX-License-Identifier: MIT
// Places and turns as JSON.
#pragma once

#include "tools/text/Json.h"

#include <vaultry/foundation/Di3Point.h>

namespace Tarnex::Report {

/// The number that is written as the float would be, 1.2 rather than 1.2000000476837158.
double Widened(float value);

/// [x, y, z].
Json PointJson(const Di3Point& point);

/// Radians as degrees, rounded to four decimals.
Json DegreesJson(const Di3Point& radians);

} // namespace Tarnex::Report
